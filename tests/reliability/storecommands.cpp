// The commands that the driver gives.

#include "storedriver.h"
#include "storefixture.h"
#include "ziparchive.h"

#include <QtTest>

const StoreDriver::Command StoreDriver::commands[] = {
    {"append", 30, 60, &StoreDriver::append},
    {"append one", 10, 5, &StoreDriver::appendOne},
    {"note", 8, 5, &StoreDriver::writeNote},
    {"bookmark", 8, 5, &StoreDriver::writeBookmark},
    {"note on the next", 4, 2, &StoreDriver::noteNextMessage},
    {"note on the last", 4, 0, &StoreDriver::noteLastMessage},
    {"page", 8, 6, &StoreDriver::pageChunk},
    {"open an old chunk", 4, 1, &StoreDriver::openOldChunk},
    {"go live", 8, 8, &StoreDriver::goLive},
    {"export some", 4, 2, &StoreDriver::exportSome},
    {"export range", 4, 1, &StoreDriver::exportRange},
    {"export all", 4, 2, &StoreDriver::exportAll},
    {"clear", 3, 1, &StoreDriver::clear},
    {"budget", 3, 0, &StoreDriver::changeBudget},
    {"continuous mode", 1, 0, &StoreDriver::changeMode},
    {"foreign file", 1, 0, &StoreDriver::addForeignFile},
    {"continuous output", 2, 0, &StoreDriver::writeContinuousOutput},
    {"import", 4, 0, &StoreDriver::import},
    {"pack", 2, 0, &StoreDriver::pack},
    {"merge", 2, 0, &StoreDriver::merge},
    {"turn", 12, 40, &StoreDriver::turnEventLoop},
    {"settle", 3, 2, &StoreDriver::settle},
    {"replace", 1, 0, &StoreDriver::replaceStore},
};

namespace {
const QString someTime = QString(12, QChar(unknownTime)) + QStringLiteral(" - ");
}

const StoreDriver::Command &StoreDriver::anyCommand()
{
    const auto weightOf = [this](const Command &command) {
        return weights == Recording ? command.weightWhileRecording : command.weight;
    };
    int sum = 0;
    for (const Command &command : commands)
        sum += weightOf(command);
    int left = below(sum);
    for (const Command &command : commands) {
        left -= weightOf(command);
        if (left < 0)
            return command;
    }
    return commands[0];
}

QString StoreDriver::newFile(const QString &suffix)
{
    return folder.filePath(QStringLiteral("file%1%2").arg(++files).arg(suffix));
}

QString StoreDriver::inChunkFolder(const QString &name) const
{
    return store->chunkFolderPath() + '/' + name;
}

void StoreDriver::append()
{
    const quint32 threshold = model->maxMessageCount - 5000;
    const int buffer = threshold > 10000000 ? 1000 : int(qMax(threshold, 1u));
    const int burst = below(4) == 0 ? 1 + below(buffer * 4) : 1 + below(buffer);
    note(QString::number(burst));
    const std::size_t chunksBefore = model->chunks.size();
    for (int i = 0; i < burst; ++i)
        store->appendCanMessage(messageOf(model->nextSerial() + quint32(i), MessageRun::Received));
    model->append(quint32(burst));
    appended += quint32(burst);
    rotations += model->chunks.size() - chunksBefore;
}

void StoreDriver::appendOne()
{
    store->appendCanMessage(messageOf(model->nextSerial(), MessageRun::Received));
    model->append(1);
    ++appended;
}

void StoreDriver::writeNote()
{
    const auto view = model->views().last();
    const MessageRun run = view.value(below(view.size()));
    const quint32 number = run.number + quint32(below(int(run.count) + 2));
    QString words = text();
    const QString existing = model->notes.value(number);
    note(QString::number(number));
    if (below(3) == 0) {
        store->setMessageNote(number, words);
        model->notes[number] = words;
        return;
    }
    if (below(3) == 0 && !existing.contains(QChar(unknownTime)))
        words = existing.mid(1); // empty, or contained already
    store->appendMessageNote(number, words);
    if (!existing.contains(words))
        model->notes[number] = existing.isEmpty() ? words : existing + " ; " + words;
}

void StoreDriver::writeBookmark()
{
    if (!bookmarks)
        return;
    const quint32 number = model->live.number + quint32(below(int(model->live.count) + 2));
    const QString words = text();
    note(QString::number(number));
    if (below(4) == 0) {
        bookmarks->removeBookmark(number);
        model->bookmarks.remove(number);
        return;
    }
    if (bookmarks->addBookmark(number, words) == model->bookmarks.contains(number))
        fail(QStringLiteral("a bookmark was not taken, or replaced"));
    if (!model->bookmarks.contains(number))
        model->bookmarks.insert(number, CanMessageBookmark(number, words));
}

void StoreDriver::noteNextMessage()
{
    const QString words = text();
    store->addMessageNoteToNextMessage(words);
    model->noteForNext = someTime + someTime + words;
}

void StoreDriver::noteLastMessage()
{
    settle();
    const auto view = model->views().first();
    const MessageRun last = view.isEmpty() ? MessageRun() : view.last();
    const QString words = text();
    store->addMessageNoteToLastMessage(words);
    QString &expected = model->notes[last.count == 0 ? 0 : last.number + last.count - 1];
    expected = expected.isEmpty() ? someTime + words : expected + " ; " + someTime + words;
}

void StoreDriver::pageChunk()
{
    const int number = below(int(model->chunkCount) + 2);
    const QString name = QStringLiteral("tmpData%1.dck").arg(number);
    note(QString::number(number));
    const auto chunk = std::find_if(model->chunks.begin(), model->chunks.end(),
                                    [&](const ModelFile &file) { return file.name == name; });
    const bool exists = chunk != model->chunks.end() && !chunk->removed;
    if (!exists)
        settle(); // what the budget removes may be there still
    store->loadDataFromFile(number);
    if (exists)
        model->page(*chunk);
}

void StoreDriver::openOldChunk()
{
    const quint32 version = 100 + quint32(below(5));
    note(QString::number(version));
    ModelFile file;
    file.messages = {quint32(below(1000000)), quint32(below(1000)), 1 + quint32(below(3000)),
                     version > 102 ? MessageRun::Received : MessageRun::WithoutLine};
    file.end = file.messages.count;
    file.notes[file.messages.number] = text();
    file.bookmarks[1] = CanMessageBookmark(1, text());
    file.name = newFile(QStringLiteral(".dck"));
    writeFile(file.name, file.chunkBytes(version));
    if (below(2) == 0) {
        store->importMessages(file.name, DatachunkHelper::ChunkFile);
        model->page(file, version, file.name);
    } else {
        store->loadDataFromFile(file.name, DatachunkHelper::CurrentMessages);
        model->page(file, version);
    }
    QFile::remove(file.name);
}

void StoreDriver::goLive()
{
    store->goLive();
    model->goLive();
}

void StoreDriver::exportSome()
{
    QList<quint32> selected;
    for (int i = below(4) * below(20); i > 0; --i)
        selected.append(quint32(below(int(model->live.count) + 3)));
    if (!selected.isEmpty() && below(4) == 0)
        selected.append(0xFFFFFFFF);
    const bool withNotes = below(2) == 0;
    const QString file =
        below(8) == 0 ? QString() : newFile(QLatin1String(below(2) == 0 ? ".dck" : ".txt"));
    note(QStringLiteral("%1 of %2").arg(selected.size()).arg(model->live.count));
    store->exportMessages(
        file, withNotes ? DatachunkHelper::ExportWithNotes : DatachunkHelper::ExportOptions(),
        selected);
    model->exportMessages(file, withNotes, selected);
}

void StoreDriver::exportRange()
{
    const int count = int(model->live.count);
    const int first = below(4) == 0 ? below(7) - 3 : below(count + 3);
    const int last = below(4) == 0 ? below(7) - 3 : below(count + 2);
    const QString file =
        below(8) == 0 ? QString() : newFile(QLatin1String(below(2) == 0 ? ".dck" : ".txt"));
    note(QStringLiteral("%1 to %2 of %3").arg(first).arg(last).arg(count));
    store->exportMessageRange(first, last, file);
    model->exportRange(file, first, last);
}

void StoreDriver::exportAll()
{
    const bool withNotes = below(2) == 0;
    const auto options =
        withNotes ? DatachunkHelper::ExportWithNotes : DatachunkHelper::ExportOptions();
    if (below(3) == 0) {
        const QString file = newFile(QStringLiteral(".txt"));
        store->exportAllMessages(file, options);
        model->exportMessages(file, withNotes, {});
        return;
    }
    // The disk budget counts this file, so the order of the writes has to be known.
    settle();
    store->exportAllMessages(QStringLiteral("x.dck"), options);
    model->exportMessages(inChunkFolder(QStringLiteral("zlastChunk.dck")), withNotes, {});
    if (model->live.count != 0)
        lastChunk = std::make_unique<ModelFile>(model->exports.back());
    settle();
}

void StoreDriver::clear()
{
    forgetTrace();
    store->clearAllMessages();
    model->clear();
    QCoreApplication::processEvents();
    if (!toldChunks.isEmpty())
        fail(QStringLiteral("a chunk was announced that had been cleared"));
    if (!QDir(store->chunkFolderPath()).entryList({"*tmpData*"}).isEmpty())
        fail(QStringLiteral("a chunk outlived its clearing"));
}

void StoreDriver::changeBudget()
{
    settle();
    static constexpr quint32 budgets[] = {0, 1, 1, 1, 1000, 1000};
    model->budget = budgets[below(int(std::size(budgets)))];
    note(QString::number(model->budget));
    store->setMaximumHDDSpace(model->budget);
}

void StoreDriver::changeMode()
{
    settle();
    const bool on = below(2) == 0;
    store->setContinuesMode(on);
    model->setContinuousMode(on);
    if (on)
        return;
    store->setMaximumHDDSpace(1000);
    model->budget = 1000;
}

void StoreDriver::addForeignFile()
{
    settle();
    foreignBytes = 1 + below(3000000);
    writeFile(inChunkFolder(QStringLiteral("other.bin")), QByteArray(int(foreignBytes), 'x'));
    keepForeignFilesYoung();
}

void StoreDriver::writeContinuousOutput()
{
    ModelFile output;
    output.name = newFile(QStringLiteral(".dck"));
    output.messages = {quint32(below(100000)), 7, quint32(below(2000))};
    // The header was written for messages that nobody knew.
    output.start = -1;
    output.end = qint64(output.messages.count) + 1;
    store->appendToContinuousOutputFile(CAN::CanRxMessage());
    if (store->createContinuousOutputFile(folder.filePath("c.txt"))
        || !store->createContinuousOutputFile(output.name))
        fail(QStringLiteral("continuous output was not opened, or with a wrong name"));
    for (quint32 i = 0; i < output.messages.count; ++i)
        store->appendToContinuousOutputFile(output.messages.at(i));
    store->finishContinousOutput();
    store->appendToContinuousOutputFile(CAN::CanRxMessage());
    model->exports.push_back(output);
}

void StoreDriver::import()
{
    const int buffer = int(qBound(1u, model->maxMessageCount - 5000, 2000u));
    const int count = below(5) == 0 ? 0 : 1 + below(buffer * 3);
    const QString file = newFile(QStringLiteral(".log"));
    QByteArray lines("no frame\n");
    for (int i = 0; i < count; ++i) {
        const CAN::CanRxMessage m = messageOf(model->imports + quint32(i), MessageRun::Imported);
        const QByteArray payload(reinterpret_cast<const char *>(m.data), m.length);
        lines += QString::asprintf("(%d.%06d) can0 %x#", m.seconds, m.microseconds, m.id).toLatin1()
            + payload.toHex() + '\n';
    }
    writeFile(file, lines);
    note(QString::number(count));
    model->startImport();
    store->importMessages(file, DatachunkHelper::SocketCanDump);
    model->finishImport(quint32(count), file);
    checkPartials(QFileInfo(file).baseName());
    QFile::remove(file);
}

void StoreDriver::pack()
{
    settle();
    archiveName = newFile(QStringLiteral(".zip"));
    store->setZipFileName(archiveName);
    const bool afterExport = below(2) == 0 && model->live.count != 0;
    if (afterExport) {
        store->setZipAfterSaving(true);
        store->exportAllMessages(QStringLiteral("x.dck"), DatachunkHelper::ExportWithNotes);
        model->exportMessages(inChunkFolder(QStringLiteral("zlastChunk.dck")), true, {});
        lastChunk = std::make_unique<ModelFile>(model->exports.back());
        waitUntil([this] { return QFile::exists(archiveName); });
    } else {
        store->saveDatachunksToZip();
    }
    settle();
    archive.clear();
    const Zip::Reader reader(archiveName);
    const auto entries = reader.entries();
    for (const Zip::Entry &entry : entries) {
        if (reader.open(entry, [] { return true; })->readAll()
            != readFile(inChunkFolder(entry.name)))
            fail(QStringLiteral("packed wrongly: ") + entry.name);
        for (const ModelFile &chunk : model->chunks) {
            if (chunk.name == entry.name)
                archive.append(chunk);
        }
        if (lastChunk && lastChunk->name.endsWith(entry.name))
            archive.append(*lastChunk);
    }
    if (int(entries.size()) != QDir(store->chunkFolderPath()).entryList(QDir::Files).size())
        fail(QStringLiteral("%1 files were packed").arg(entries.size()));
}

void StoreDriver::merge()
{
    if (archive.isEmpty())
        return;
    store->loadZipMerged(archiveName);
    model->merge(archive, QFileInfo(archiveName).completeBaseName());
}

void StoreDriver::turnEventLoop()
{
    QCoreApplication::processEvents();
}
