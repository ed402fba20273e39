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
    return std::accumulate(view.begin(), view.end(), 0u,
                           [](quint32 sum, const MessageRun &run) { return sum + run.count; });
}

bool isWritten(const ModelFile &file, const QString &path)
{
    const bool isChunk = file.name.endsWith(QLatin1String("dck"));
    // A text is written even for nothing, a chunk is not.
    const bool isDue = !isChunk || file.end != 0;
    if (!isDue || !QFile::exists(path))
        return isDue == QFile::exists(path);
    return readFile(path) == (isChunk ? file.chunkBytes() : file.text().toUtf8());
}

} // namespace

void StoreDriver::connectStore()
{
    using H = DatachunkHandler;
    H *const from = store.get();
    told.clear();
    toldLines.clear();
    const auto onOff = [this](const QString &name) {
        return [this, name](bool on) { told += name + QString::number(on); };
    };
    const auto withText = [this](const QString &name) {
        return [this, name](const QString &text) { told += name + text; };
    };
    // Handovers are told as well, on another thread and at times of their own.
    const auto start = [this] {
        if (QThread::currentThread() == thread())
            told += "start";
        else
            ++switchStarts;
    };
    const auto cleared = [this](bool live) {
        if (QThread::currentThread() == thread())
            told += QStringLiteral("cleared %1").arg(live);
        else
            ++switches;
    };
    connect(from, &H::informAboutClearStart, this, start, Qt::DirectConnection);
    connect(from, &H::informAboutCleared, this, cleared, Qt::DirectConnection);
    connect(from, &H::liveModeChanged, this, onOff("mode "));
    connect(from, &H::chunkContainsFdMessage, this, onOff("fd "));
    connect(from, &H::showLoadingDialog, this, onOff("dialog "));
    connect(from, &H::newErrorMessage, this, withText("error "));
    connect(from, &H::messagesImported, this, withText("imported "));
    connect(from, &H::zipFileLoaded, this, withText("archive "));
    connect(from, &H::newImportedFile, this, withText("file "));
    connect(from, &H::newPartialDataFile, this,
            [this](const QString &file, const QString &name, const QString &time) {
                toldPartials += file + ' ' + name + ' ' + time;
            });
    connect(from, &H::newDataFile, this, &StoreDriver::chunkAnnounced);
    connect(from, &H::dataFileRemoved, this, [this] { ++toldRemovals; });
    connect(from, &H::newLine, this, [this](unsigned char line) { toldLines.insert(line); });
}

void StoreDriver::require(bool good, const QString &otherwise)
{
    if (!good && firstFailure.isEmpty())
        firstFailure = otherwise;
}

void StoreDriver::check()
{
    compare("told", std::exchange(told, {}), model->takeDue());
    compare("live:", store->getIsLive(), model->isLive);
    require(!sawTorn, "a reader saw a message that nobody appended");
    checkView();
    checkNotes();
    checkTimeline();
}

void StoreDriver::checkView()
{
    const auto views = model->views();
    const auto anyView = [&views](const auto &holds) {
        return std::any_of(views.begin(), views.end(), holds);
    };
    const quint32 count = store->getMessageCount();
    require(anyView([count](const auto &view) { return sizeOf(view) == count; }),
            QStringLiteral("%1 messages are shown").arg(count));
    for (const int position :
         {0, int(count) - 1, below(int(count)), below(int(count)), int(count)}) {
        const CAN::CanRxMessage message = store->messageAt(position);
        const bool isFound = views.size() > 1 || views.first().size() != 1 || position >= int(count)
            || store->getPositionOfMessageNumber(message.messageNumber) == quint32(position);
        require(isFound && anyView([&](const auto &view) {
                    return sameInChunk(message, messageIn(view, position));
                }),
                QStringLiteral("message at %1 of %2 is wrong").arg(position).arg(count));
    }
    if (!model->isLive && !model->linesOfOthers && below(8) == 0)
        checkLines(views.first());
}

void StoreDriver::checkLines(const QVector<MessageRun> &view)
{
    QSet<unsigned char> lines;
    for (quint32 i = 0; i < sizeOf(view); ++i)
        lines.insert(static_cast<unsigned char>(messageIn(view, i).line));
    compare("lines", store->getLines(), lines);
    require(toldLines.contains(lines), "a line was not told");
}

void StoreDriver::checkNotes()
{
    const QList<unsigned int> noted = model->notes.keys();
    for (int i = 0; i <= qMin(noted.size(), 20); ++i) {
        const quint32 number = i == 0 ? quint32(below(1000)) : noted.at(below(noted.size()));
        compare("note", store->getMessageNote(number), model->notes.value(number));
    }
    require(!bookmarks || bookmarks->bookmarks() == model->bookmarks, "the bookmarks are wrong");
}

// All of the trace, wherever its messages are by now.
void StoreDriver::checkTimeline()
{
    timeline->refresh();
    const MessageRun &live = model->live;
    if (live.count > 0) {
        compare("messages in the timeline:", timeline->count(), quint64(live.number) + live.count);
        for (const int offset : {0, int(live.count) - 1, below(int(live.count))})
            checkRow(live, quint32(offset), nullptr);
    }
    for (int i = 0; i < 3 && !model->chunks.empty(); ++i) {
        const ModelFile &chunk = model->chunks[std::size_t(below(int(model->chunks.size())))];
        checkRow(chunk.messages, quint32(below(int(chunk.messages.count))), &chunk);
    }
    if (below(8) == 0)
        checkFilter();
}

void StoreDriver::checkRow(const MessageRun &run, quint32 offset, const ModelFile *chunk)
{
    const TraceRow row = timeline->row(run.number + offset);
    const bool mayBeGone = chunk && chunk->removed;
    if (row.state != TraceRow::Known)
        return require(mayBeGone,
                       QStringLiteral("no row %1 in the timeline").arg(run.number + offset));
    require(sameInChunk(row.message, run.at(offset)),
            QStringLiteral("row %1 of the timeline is wrong").arg(run.number + offset));
    if (chunk)
        compare("note in the timeline", row.note, chunk->notes.value(run.number + offset));
}

// One that has followed the trace from its beginning.
void StoreDriver::checkFilter()
{
    const auto isFound = [](const CAN::CanRxMessage &message) {
        return message.length > 0 && !message.remote && message.data[0] < 0x40;
    };
    std::vector<quint64> wanted;
    const auto add = [&](const MessageRun &run) {
        for (quint32 i = 0; i < run.count; ++i) {
            if (isFound(run.at(i)))
                wanted.push_back(quint64(run.number) + i);
        }
    };
    for (const ModelFile &chunk : model->chunks) {
        if (chunk.removed)
            return;
        add(chunk.messages);
    }
    add(model->live);
    require(filter->wait() && filter->messagesGone() == 0, QStringLiteral("the filter ends"));
    compare("messages found:", filter->count(), quint64(wanted.size()));
    for (int i = 0; i < 5 && !wanted.empty(); ++i) {
        const auto n = std::size_t(below(int(wanted.size())));
        compare("found message:", filter->at(n).value_or(0), wanted[n]);
    }
}

void StoreDriver::chunkAnnounced(quint32 index, const QString &time)
{
    const auto position = std::size_t(toldChunks++);
    const QString name = QStringLiteral("tmpData%1.dck").arg(index);
    if (position >= model->chunks.size() || model->chunks[position].name != name)
        return require(false, name + " was announced at the wrong time");
    const ModelFile &chunk = model->chunks[position];
    compare("announced", time, chunk.timeText());
    // A second name keeps the file of a chunk that may be removed at any moment.
    const QString kept = QFileInfo(store->chunkFolderPath()).path() + "/kept.dck";
    if (link(qPrintable(inChunkFolder(name)), qPrintable(kept)) != 0) {
        require(chunk.removed, name + " is missing");
        lostByBudgetUnseen += chunk.messages.count;
        return;
    }
    checkChunk(chunk, kept);
    QFile::remove(kept);
    verified += chunk.messages.count;
}

void StoreDriver::checkChunk(const ModelFile &expected, const QString &path)
{
    require(isWritten(expected, path), expected.name + " is not as expected");
}

void StoreDriver::checkExports()
{
    for (const ModelFile &exported : model->exports) {
        const auto isDone = [&] { return isWritten(exported, exported.name); };
        // Without the store all files are complete, and those in its own folder are gone.
        if (store || QFileInfo(exported.name).path() == folder.path())
            require(store ? comesTrue(isDone) : isDone(), exported.name + " is not as ordered");
        if (QFileInfo(exported.name).path() == folder.path())
            QFile::remove(exported.name);
    }
    model->exports.clear();
}

void StoreDriver::checkPartials(const QString &importName)
{
    const QString path = store->chunkFolderPath() + '\\' + importName + '\\';
    QStringList expected;
    for (const ModelFile &partial : model->partials) {
        const QString file = path + partial.name;
        expected += file + ' ' + importName + ' ' + partial.timeText();
        checkChunk(partial, file);
    }
    compare("partial chunks", std::exchange(toldPartials, {}), expected);
}

bool StoreDriver::comesTrue(const std::function<bool()> &condition)
{
    // A store that fails once fails often.
    static int patience = 60000;
    const bool came = QTest::qWaitFor(condition, patience);
    if (!came)
        patience = 1000;
    return came;
}

bool StoreDriver::showsLiveList() const
{
    const MessageRun &live = model->live;
    return store->getMessageCount() == live.count
        && (live.count == 0 || store->messageAt(0).messageNumber == live.number);
}

void StoreDriver::settle()
{
    const auto chunks = [this] { return int(model->chunks.size()); };
    const auto allTold = [&] { return toldChunks >= chunks() && toldRemovals >= model->removals; };
    if (!comesTrue(allTold))
        require(false, QStringLiteral("told %1 of %2 chunks").arg(toldChunks).arg(chunks()));
    // One that was on its way when the view left the live list may count for a later one.
    const auto isSwitched = [&] {
        return switches >= switchesSettled + model->switchesDue
            && (!model->isLive || showsLiveList());
    };
    const bool switched = comesTrue(isSwitched);
    switchesSettled = switches;
    const quint32 starts = switchStarts;
    require(switched && switchesSettled <= starts && starts <= model->rotations,
            QStringLiteral("the view was switched %1 times").arg(switchesSettled));
    model->settle();
    QCoreApplication::processEvents();
    checkExports();
    compare("chunks announced:", toldChunks, chunks());
    compare("removals told:", toldRemovals, model->removals);
    checkFolder();
    keepLastChunkYoung();
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
    expected.sort();
    QStringList files =
        QDir(store->chunkFolderPath()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    files.sort();
    compare("files", files, expected);
}

// A file that is never the oldest takes room, but is not removed.
void StoreDriver::keepLastChunkYoung()
{
    if (!lastChunk)
        return;
    const utimbuf future{4000000000, 4000000000};
    utime(qPrintable(lastChunk->name), &future);
    model->otherKibibytes = quint32(QFileInfo(lastChunk->name).size() / 1024);
}

void StoreDriver::forgetTrace()
{
    for (auto chunk = std::size_t(toldChunks); chunk < model->chunks.size(); ++chunk)
        lostWithReason += model->chunks[chunk].messages.count;
    lostWithReason += model->live.count + std::exchange(model->lostWithoutBudget, 0)
        + std::exchange(model->lostInContinuousMode, 0);
    toldChunks = 0;
    toldRemovals = 0;
}
