// The commands that the driver gives.

#include "archives.h"
#include "storedriver.h"
#include "storefixture.h"

#include <QtTest>

const StoreDriver::Command StoreDriver::commands[] = {
    {"append", 40, 65, &StoreDriver::append},
    {"rotate", 3, 3, &StoreDriver::rotate},
    {"note", 8, 5, &StoreDriver::writeNote},
    {"note anywhere", 2, 1, &StoreDriver::writeNoteAnywhere},
    {"bookmark", 8, 5, &StoreDriver::writeBookmark},
    {"note on the next", 4, 2, &StoreDriver::noteNextMessage},
    {"note on the last", 4, 0, &StoreDriver::noteLastMessage},
    {"page", 10, 7, &StoreDriver::pageChunk},
    {"go live", 8, 8, &StoreDriver::goLive},
    {"export", 10, 4, &StoreDriver::exportSome},
    {"export into the chunk folder", 3, 1,
     [](StoreDriver &driver) { driver.exportLastChunk(false); }},
    {"clear", 3, 1, &StoreDriver::clear},
    {"budget", 3, 0, &StoreDriver::changeBudget},
    {"continuous mode", 1, 0, &StoreDriver::changeMode},
    {"continuous output", 2, 0, &StoreDriver::writeContinuousOutput},
    {"import", 4, 0, &StoreDriver::import},
    {"pack", 2, 0, &StoreDriver::pack},
    {"merge", 2, 0, &StoreDriver::merge},
    {"turn", 12, 40, [](StoreDriver &) { QCoreApplication::processEvents(); }},
    {"settle", 3, 2, &StoreDriver::settle},
    {"replace", 1, 0,
     [](StoreDriver &driver) {
         driver.endStore();
         driver.beginStore();
     }},
};

namespace {
const QString lastChunkName = "zlastChunk.dck";
} // namespace

const StoreDriver::Command &StoreDriver::anyCommand()
{
    std::vector<int> shares;
    for (const Command &command : commands)
        shares.push_back(weights == Recording ? command.weightWhileRecording : command.weight);
    return commands[std::discrete_distribution<int>(shares.begin(), shares.end())(random)];
}

QString StoreDriver::newFile(const QString &suffix)
{
    return folder.filePath(QStringLiteral("file%1%2").arg(++files).arg(suffix));
}

QString StoreDriver::newExport()
{
    return below(8) == 0 ? QString() : newFile(QLatin1String(below(2) == 0 ? ".dck" : ".txt"));
}

DatachunkHelper::ExportOptions StoreDriver::options(bool withNotes) const
{
    return withNotes ? DatachunkHelper::ExportWithNotes : DatachunkHelper::ExportOptions();
}

QString StoreDriver::inChunkFolder(const QString &name) const
{
    return store->chunkFolderPath() + '/' + name;
}

void StoreDriver::append()
{
    const quint32 threshold = model->maxMessageCount - 5000;
    const int buffer = threshold > 10000000 ? 1000 : int(qMax(threshold, 1u));
    const int most[] = {1, buffer, buffer, buffer * 4};
    appendBurst(1 + below(most[below(4)]));
}

void StoreDriver::appendBurst(int count)
{
    note(QString::number(count));
    for (int i = 0; i < count; ++i)
        store->appendCanMessage(messageOf(model->nextSerial() + quint32(i), MessageRun::Received));
    model->append(quint32(count));
    appended += quint32(count);
}

void StoreDriver::rotate()
{
    const bool rotates = !model->continuousMode && model->live.count > 0;
    compare("rotates:", store->rotate(), rotates);
    if (rotates)
        model->rotate();
    appendBurst(1);
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
    if (below(3) == 0)
        words = existing.mid(1); // empty, or contained already
    store->appendMessageNote(number, words);
    if (!existing.contains(words))
        model->notes[number] = existing.isEmpty() ? words : existing + " ; " + words;
}

// Through the timeline, into memory or a chunk. What a budget takes depends on the sizes of chunks,
// so none may be on its way.
void StoreDriver::writeNoteAnywhere()
{
    const QString words = below(3) == 0 ? QString() : text();
    const std::size_t chunks = model->chunks.size();
    const auto chosen = std::size_t(below(int(chunks) + 1));
    const bool isLive = chosen == chunks;
    const MessageRun run = isLive ? model->live : model->chunks[chosen].messages;
    if (run.count == 0)
        return;
    const quint32 number = run.number + quint32(below(int(run.count)));
    note(QString::number(number));
    store->waitForSaves();
    timeline->refresh();
    QString error;
    const bool isWritten = timeline->setNote(number, words, &error);
    if (!isLive && model->chunks[chosen].removed)
        return require(!isWritten, "a note on a chunk that is gone");
    require(isWritten, "a note is not written: " + error);
    if (isLive)
        model->annotate(number, words);
    else
        model->annotateChunk(chosen, number, words);
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
    compare("bookmark taken:", bookmarks->addBookmark(number, words),
            !model->bookmarks.contains(number));
    if (!model->bookmarks.contains(number))
        model->bookmarks.insert(number, CanMessageBookmark(number, words));
}

void StoreDriver::noteNextMessage()
{
    if (model->continuousMode)
        return;
    const QString words = text();
    store->addMessageNoteToNextMessage(words);
    appendBurst(1);
    goLive(); // where it can be seen
    takeTimedNote(model->live.number + model->live.count - 1, {}, 2, words);
}

void StoreDriver::noteLastMessage()
{
    settle();
    const auto view = model->views().first();
    const MessageRun last = view.isEmpty() ? MessageRun() : view.last();
    const quint32 number = last.count == 0 ? 0 : last.number + last.count - 1;
    const QString before = model->notes.value(number);
    const QString words = text();
    store->addMessageNoteToLastMessage(words);
    takeTimedNote(number, before.isEmpty() ? before : before + " ; ", 1, words);
}

// Makes a note with times of day, which only the store knows, the model's.
void StoreDriver::takeTimedNote(quint32 number, const QString &before, int times,
                                const QString &words)
{
    const QString note = store->getMessageNote(number);
    const QString form = QRegularExpression::escape(before)
        + QStringLiteral("([0-9:.]{12} - ){%1}").arg(times) + words;
    require(QRegularExpression(QRegularExpression::anchoredPattern(form)).match(note).hasMatch(),
            "note with times: " + note);
    model->notes[number] = note;
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

void StoreDriver::goLive()
{
    store->goLive();
    model->goLive();
}

void StoreDriver::exportSome()
{
    const QString file = newExport();
    const int count = int(model->live.count);
    if (below(3) == 0) {
        const int first = below(4) == 0 ? below(7) - 3 : below(count + 3);
        const int last = below(4) == 0 ? below(7) - 3 : below(count + 2);
        note(QStringLiteral("%1 to %2 of %3").arg(first).arg(last).arg(count));
        store->exportMessageRange(first, last, file);
        model->exportRange(file, first, last);
        return;
    }
    const bool withNotes = below(2) == 0;
    QList<quint32> selected;
    for (int i = below(4) * below(20); i > 0; --i)
        selected.append(below(50) == 0 ? 0xFFFFFFFF : quint32(below(count + 3)));
    note(QStringLiteral("%1 of %2").arg(selected.size()).arg(count));
    if (selected.isEmpty() && file.endsWith(QLatin1String(".txt")))
        store->exportAllMessages(file, options(withNotes));
    else
        store->exportMessages(file, options(withNotes), selected);
    model->exportMessages(file, withNotes, selected);
}

void StoreDriver::exportLastChunk(bool packed)
{
    // The disk budget counts this file, so the order of the writes has to be known.
    settle();
    const bool withNotes = below(2) == 0;
    const QString file = inChunkFolder(lastChunkName);
    // An earlier one, with the same messages perhaps, must not be taken for it.
    if (model->live.count != 0)
        QFile::remove(file);
    // The wish is fulfilled with the next report of an export, perhaps of an earlier one, so
    // nothing may come between it and the order.
    if (packed)
        store->setZipAfterSaving(true);
    store->exportAllMessages("x.dck", options(withNotes));
    model->exportMessages(file, withNotes, {});
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
    compare("chunks announced after a clearing:", toldChunks, 0);
    // A save that has begun is not waited for; it removes its file when it finds out.
    const auto left = [this] { return QDir(store->chunkFolderPath()).entryList({"*tmpData*"}); };
    if (!comesTrue([&left] { return left().isEmpty(); }))
        compare("left:", left(), {});
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

void StoreDriver::writeContinuousOutput()
{
    const MessageRun run{quint32(below(100000)), 7, quint32(below(2000))};
    // The header is written for messages that nobody knows.
    const ModelFile output{newFile(".dck"), run, -1, qint64(run.count) + 1, {}, {}, {}};
    store->appendToContinuousOutputFile(CAN::CanRxMessage());
    compare("text opened:", store->createContinuousOutputFile(folder.filePath("c.txt")), false);
    compare("chunk opened:", store->createContinuousOutputFile(output.name), true);
    for (quint32 i = 0; i < run.count; ++i)
        store->appendToContinuousOutputFile(run.at(i));
    store->finishContinousOutput();
    store->appendToContinuousOutputFile(CAN::CanRxMessage());
    model->exports.push_back(output);
}

void StoreDriver::import()
{
    const int buffer = int(qBound(1u, model->maxMessageCount - 5000, 2000u));
    const int count = below(5) == 0 ? 0 : 1 + below(buffer * 3);
    const QString file = newFile(".log");
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
    archiveName = newFile(".zip");
    store->setZipFileName(archiveName);
    if (below(2) == 0 && model->live.count != 0) {
        exportLastChunk(true);
        require(comesTrue([this] { return QFile::exists(archiveName); }), "no archive came");
    } else {
        store->saveDatachunksToZip();
    }
    settle();
    archive.clear();
    const auto entries = archiveEntries(archiveName);
    for (const TestEntry &entry : entries) {
        compare("packed", entry.content == readFile(inChunkFolder(entry.name)), true);
        for (const ModelFile &chunk : model->chunks) {
            if (chunk.name == entry.name)
                archive.append(chunk);
        }
        if (entry.name == lastChunkName)
            archive.append(*lastChunk);
    }
    compare("files packed:", entries.size(),
            QDir(store->chunkFolderPath()).entryList(QDir::Files).size());
}

void StoreDriver::merge()
{
    if (archive.isEmpty())
        return;
    store->loadZipMerged(archiveName);
    model->merge(archive, archiveName);
}
