// What the driver compares.

#include "messages.h"
#include "storedriver.h"
#include "storefixture.h"

#include <QtTest>

#include <unistd.h>
#include <utime.h>

namespace {

CAN::CanRxMessage messageIn(const QVector<MessageRun> &view, qint64 position)
{
    for (const MessageRun &run : view) {
        if (position < run.count)
            return run.at(position);
        position -= run.count;
    }
    return {};
}

quint32 sizeOf(const QVector<MessageRun> &view)
{
    quint32 size = 0;
    for (const MessageRun &run : view)
        size += run.count;
    return size;
}

// Says for the notes that are as expected what the times of day in them are.
bool takeTimes(ChunkFormat::Notes &expected, const ChunkFormat::Notes &actual)
{
    if (expected.keys() != actual.keys())
        return false;
    for (auto note = expected.begin(); note != expected.end(); ++note) {
        if (!sameText(*note, actual.value(note.key())))
            return false;
    }
    expected = actual;
    return true;
}

} // namespace

void StoreDriver::connectStore()
{
    using H = DatachunkHandler;
    H *const from = store.get();
    told.clear();
    toldLines.clear();
    const auto tell = [this](const QString &text) { told += text; };
    const auto onOff = [this](const char *name) {
        return [this, name](bool on) { told += QLatin1String(name) + QString::number(on); };
    };
    // The pool tells of what it does as well, and at times of its own.
    connect(
        from, &H::informAboutClearStart, this,
        [this] {
            if (QThread::currentThread() == thread())
                told += QStringLiteral("start");
            else
                ++switchStarts;
        },
        Qt::DirectConnection);
    connect(
        from, &H::informAboutCleared, this,
        [this](bool live) {
            if (QThread::currentThread() == thread())
                told += QStringLiteral("cleared %1").arg(live);
            else
                ++switches;
        },
        Qt::DirectConnection);
    connect(from, &H::liveModeChanged, this, onOff("mode "));
    connect(from, &H::chunkContainsFdMessage, this, onOff("fd "));
    connect(from, &H::showLoadingDialog, this, onOff("dialog "));
    connect(from, &H::newErrorMessage, this,
            [tell](const QString &text) { tell("error " + text); });
    connect(from, &H::messagesImported, this, [tell](const QString &f) { tell("imported " + f); });
    connect(from, &H::zipFileLoaded, this, [tell](const QString &f) { tell("archive " + f); });
    connect(from, &H::newImportedFile, this, [tell](const QString &f) { tell("file " + f); });
    connect(from, &H::newPartialDataFile, this,
            [this](const QString &file, const QString &name, const QString &time) {
                toldPartials += file + ' ' + name + ' ' + time;
            });
    connect(from, &H::newDataFile, this, &StoreDriver::chunkAnnounced);
    connect(from, &H::dataFileRemoved, this, [this] { ++toldRemovals; });
    connect(from, &H::newLine, this, [this](unsigned char line) { toldLines.insert(line); });
}

void StoreDriver::fail(const QString &difference)
{
    if (firstFailure.isEmpty())
        firstFailure = difference;
}

bool StoreDriver::waitUntil(const std::function<bool()> &condition)
{
    constexpr int hangLimit = 5000;
    return QTest::qWaitFor(condition, hangLimit);
}

void StoreDriver::check()
{
    const QStringList due = model->takeDue();
    if (told != due)
        fail(QStringLiteral("told [%1] instead of [%2]").arg(told.join(", "), due.join(", ")));
    told.clear();
    if (store->getIsLive() != model->isLive)
        fail(QStringLiteral("the mode is wrong"));
    if (sawTorn)
        fail(QStringLiteral("a reader saw a message that nobody appended"));
    checkView();
    checkNotes();
}

void StoreDriver::checkView()
{
    const auto views = model->views();
    const auto anyView = [&views](const std::function<bool(const QVector<MessageRun> &)> &holds) {
        return std::any_of(views.begin(), views.end(), holds);
    };
    const quint32 count = store->getMessageCount();
    if (!anyView([count](const auto &view) { return sizeOf(view) == count; }))
        fail(QStringLiteral("%1 messages are shown").arg(count));
    for (const int position :
         {0, int(count) - 1, below(int(count)), below(int(count)), int(count)}) {
        const CAN::CanRxMessage message = store->messageAt(position);
        if (!anyView([&](const auto &v) { return sameInChunk(message, messageIn(v, position)); }))
            fail(QStringLiteral("message at %1 of %2 is wrong").arg(position).arg(count));
        if (views.size() == 1 && views.first().size() == 1 && position < int(count)
            && store->getPositionOfMessageNumber(message.messageNumber) != quint32(position))
            fail(QStringLiteral("message at %1 is not found by its number").arg(position));
    }
    if (model->isLive || model->linesOfOthers || below(8) != 0)
        return;
    QSet<unsigned char> lines;
    for (quint32 i = 0; i < count; ++i)
        lines.insert(static_cast<unsigned char>(messageIn(views.first(), i).line));
    if (store->getLines() != lines || !toldLines.contains(lines))
        fail(QStringLiteral("%1 lines instead of %2")
                 .arg(store->getLines().size())
                 .arg(lines.size()));
}

void StoreDriver::checkNotes()
{
    const QList<unsigned int> numbers = model->notes.keys();
    for (int i = 0; i < qMin(numbers.size(), 20); ++i) {
        const quint32 number = numbers.at(below(numbers.size()));
        if (!sameText(model->notes.value(number), store->getMessageNote(number)))
            fail(QStringLiteral("note on %1 is wrong").arg(number));
    }
    const quint32 other = quint32(below(1000));
    if (!sameText(model->notes.value(other), store->getMessageNote(other)))
        fail(QStringLiteral("note on %1 came from nowhere").arg(other));
    if (bookmarks && bookmarks->bookmarks() != model->bookmarks)
        fail(QStringLiteral("the bookmarks are wrong"));
}

void StoreDriver::chunkAnnounced(quint32 index, const QString &time)
{
    const auto position = std::size_t(toldChunks.size());
    toldChunks.append(index);
    const QString name = QStringLiteral("tmpData%1.dck").arg(index);
    if (position >= model->chunks.size() || model->chunks[position].name != name)
        return fail(QStringLiteral("chunk %1 was announced at the wrong time").arg(index));
    const ModelFile &chunk = model->chunks[position];
    if (chunk.timeText() != time)
        fail(QStringLiteral("chunk %1 was announced as %2").arg(index).arg(time));
    // A second name keeps the file of a chunk that may be removed at any moment.
    const QString kept = QFileInfo(store->chunkFolderPath()).path() + QStringLiteral("/kept.dck");
    if (link(qPrintable(inChunkFolder(name)), qPrintable(kept)) != 0) {
        if (!chunk.removed)
            fail(name + QStringLiteral(" is missing"));
        lostByBudgetUnseen += chunk.messages.count;
        return;
    }
    fail(difference(chunk, kept));
    QFile::remove(kept);
    verified += chunk.messages.count;
}

QString StoreDriver::difference(const ModelFile &expected, const QString &path)
{
    if (!QFile::exists(path))
        return path + QStringLiteral(" is missing");
    const ReadChunk read = readChunkFile(path);
    ModelFile chunk = expected;
    if (read.preamble.timeText != chunk.timeText() || read.preamble.version != 104)
        return path + QStringLiteral(" has a wrong header");
    if (!takeTimes(chunk.notes, read.notes) || read.bookmarks != chunk.bookmarks)
        return path + QStringLiteral(" has wrong notes or bookmarks");
    const QVector<CAN::CanRxMessage> messages = chunk.records(chunk.start);
    if (!std::equal(messages.begin(), messages.end(), read.messages.begin(), read.messages.end(),
                    sameInChunk))
        return QStringLiteral("%1 has %2 messages or wrong ones")
            .arg(path)
            .arg(read.messages.size());
    return readFile(path) == chunk.chunkBytes() ? QString()
                                                : path + QStringLiteral(" differs in its bytes");
}

QString StoreDriver::exportDifference(const ModelFile &exported)
{
    const QString path = exported.name;
    if (path.endsWith(QLatin1String("dck")) && exported.end != 0)
        return difference(exported, path);
    // A text is written even for nothing, a chunk is not.
    const bool isText = !path.endsWith(QLatin1String("dck"));
    if (QFile::exists(path) == isText
        && (!isText || sameText(exported.text(), QString::fromUtf8(readFile(path)))))
        return {};
    return path + QStringLiteral(" is missing, or not as ordered");
}

void StoreDriver::checkExports()
{
    const QString lastChunkName = QStringLiteral("zlastChunk.dck");
    for (const ModelFile &exported : model->exports) {
        const bool inChunkFolder = exported.name.endsWith(lastChunkName);
        QString difference = exportDifference(exported);
        if (store
            && !waitUntil([&] { return (difference = exportDifference(exported)).isEmpty(); }))
            fail(difference);
        // Without the store all files are complete, and its own ones are gone.
        if (!store && !inChunkFolder && !difference.isEmpty())
            fail(difference);
        if (!inChunkFolder)
            QFile::remove(exported.name);
    }
    model->exports.clear();
}

void StoreDriver::checkPartials(const QString &importName)
{
    const QString path = store->chunkFolderPath() + '\\' + importName + '\\';
    QStringList expected;
    for (const ModelFile &partial : model->partials) {
        const QString file = path + partial.name + QStringLiteral(".dck");
        expected += file + ' ' + importName + ' ' + partial.timeText();
        fail(difference(partial, file));
    }
    if (toldPartials != expected)
        fail(QStringLiteral("told of the chunks %1").arg(toldPartials.join(", ")));
    toldPartials.clear();
}

void StoreDriver::settle()
{
    const auto allTold = [this] {
        return std::size_t(toldChunks.size()) >= model->chunks.size()
            && toldRemovals >= model->removals;
    };
    if (!waitUntil(allTold))
        fail(QStringLiteral("%1 of %2 chunks were announced, %3 of %4 removals")
                 .arg(toldChunks.size())
                 .arg(model->chunks.size())
                 .arg(toldRemovals)
                 .arg(model->removals));
    QThreadPool::globalInstance()->waitForDone();
    QCoreApplication::processEvents();
    checkExports();
    if (toldRemovals != model->removals)
        fail(QStringLiteral("%1 removals were told").arg(toldRemovals));
    if (switches < model->switchesAtLeast || switches > switchStarts
        || switchStarts > model->switchesAtMost)
        fail(QStringLiteral("the pool switched the view %1 of %2 times instead of %3 to %4")
                 .arg(switches)
                 .arg(switchStarts)
                 .arg(model->switchesAtLeast)
                 .arg(model->switchesAtMost));
    switches = switchStarts = 0;
    model->settle();
    checkFolder();
    keepForeignFilesYoung();
}

void StoreDriver::checkFolder()
{
    QStringList expected;
    for (const ModelFile &chunk : model->chunks) {
        if (!chunk.removed)
            expected += chunk.name;
    }
    if (lastChunk)
        expected += QFileInfo(lastChunk->name).fileName();
    if (foreignBytes != 0)
        expected += QStringLiteral("other.bin");
    expected.sort();
    QStringList files =
        QDir(store->chunkFolderPath()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    files.sort();
    if (files != expected)
        fail(QStringLiteral("files [%1] instead of [%2]").arg(files.join(' '), expected.join(' ')));
}

// Files that are never the oldest take room, but are not removed.
void StoreDriver::keepForeignFilesYoung()
{
    const utimbuf future{4000000000, 4000000000};
    model->otherKibibytes = 0;
    for (const char *name : {"other.bin", "zlastChunk.dck"}) {
        const QFileInfo file(inChunkFolder(QLatin1String(name)));
        if (!file.exists())
            continue;
        utime(qPrintable(file.filePath()), &future);
        model->otherKibibytes += quint32(file.size() / 1024);
    }
}

void StoreDriver::forgetTrace()
{
    for (auto position = std::size_t(toldChunks.size()); position < model->chunks.size();
         ++position) {
        const ModelFile &chunk = model->chunks[position];
        lostWithReason += chunk.messages.count;
    }
    lostWithReason += model->live.count + std::exchange(model->lostWithoutBudget, 0)
        + std::exchange(model->lostInContinuousMode, 0);
    toldChunks.clear();
    toldRemovals = 0;
}
