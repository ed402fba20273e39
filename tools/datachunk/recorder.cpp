#include "recorder.h"

#include "canframe.h"
#include "diskspace.h"
#include "rotation.h"
#include "terminal.h"

#include <QCoreApplication>
#include <QThread>

#include <limits>

namespace {

// The most rotated chunks that may wait for the disk, and stay in memory meanwhile.
constexpr std::size_t mostChunksBehind = 4;

// The most bytes in front of the records of a chunk file without notes, and the bytes of a record
// besides its data.
constexpr qint64 headerBytes = 256;
constexpr qint64 recordBytes = 25;

constexpr quint64 messagesBetweenChecks = 1024;

// The most that may arrive between two checks, and before the source stops: one block of text.
constexpr qint64 bytesUntilEnd = 512LL * 1024;

} // namespace

Recorder::Recorder(RecordingFolder &folder, FrameSource &source, const RecordingLimits &limits)
    : folder(folder), source(source), limits(limits),
      messagesPerChunk(limits.storeMessages - rotationMargin),
      store(std::make_unique<DatachunkHandler>(limits.storeMessages)), liveBytes(headerBytes)
{
    // The store deletes only what it has written already, and one file at a time.
    store->setMaximumHDDSpace(std::numeric_limits<quint32>::max());
    folder.setChunkFolder(store->chunkFolderPath());
    connect(store.get(), &DatachunkHandler::newDataFile, this, &Recorder::chunkWritten);
    connect(store.get(), &DatachunkHandler::newErrorMessage, this, &Recorder::storeFailed);
    connect(&source, &FrameSource::received, this, &Recorder::take);
    connect(&source, &FrameSource::ended, this, &Recorder::sourceEnded);
}

Recorder::~Recorder() = default;

bool Recorder::start()
{
    if (store->chunkFolderPath().isEmpty())
        fail(folder.path(), Cli::tr("The folder for chunk files could not be created."));
    else if (checkReserve() && !source.start())
        fail(source.name(), source.errorText());
    return !hasFailed();
}

void Recorder::take(const CAN::CanRxMessage &message)
{
    const qint64 size = recordBytes + CAN::payloadSize(message);
    if (total.taken++ % messagesBetweenChecks == 0)
        checkReserve();
    if (discarding || failed)
        return;
    if (limits.budget != 0 && liveBytes + size > limits.budget) {
        fail(folder.path(),
             Cli::tr("The messages of one chunk file do not fit into the budget of %1; take a "
                     "smaller --limit.")
                 .arg(mebibyteText(limits.budget)));
        return;
    }
    const bool rotates = liveMessages == messagesPerChunk;
    if (rotates && !makeRoom(liveBytes))
        return;
    store->appendCanMessage(message);
    if (rotates) {
        waiting.push(liveBytes);
        waitingBytes += liveBytes;
        liveBytes = headerBytes;
        liveMessages = 0;
    }
    liveBytes += size;
    ++liveMessages;
    if (!paused && isBehind())
        holdBack();
}

// False, and the recording ends, when no more than the reserve is left beside what is still in
// memory.
bool Recorder::checkReserve()
{
    const std::optional<DiskSpace> space = diskSpaceOf(folder.path());
    if (ending || !space || limits.reserve == 0
        || space->available - waitingBytes - liveBytes - bytesUntilEnd > limits.reserve)
        return true;
    stopIncomplete(Cli::tr("No more than the reserve of %1 is left on the disk, so the recording "
                           "ends. --reserve sets another one, and --budget has old chunk files "
                           "deleted.")
                       .arg(mebibyteText(limits.reserve)));
    return false;
}

// Deletes the oldest chunks so that \a bytes more do not exceed the budget. False when that failed.
bool Recorder::makeRoom(qint64 bytes)
{
    while (limits.budget != 0 && folder.byteCount() + waitingBytes + bytes > limits.budget) {
        if (folder.chunkCount() == 0 ? waitForChunk() : deleteOldest())
            continue;
        stopFailed();
        return false;
    }
    return true;
}

bool Recorder::deleteOldest()
{
    if (!deletionTold)
        printError(folder.path(),
                   Cli::tr("The budget of %1 is used up: the oldest chunk files are deleted.")
                       .arg(mebibyteText(limits.budget)));
    deletionTold = true;
    return folder.removeOldest();
}

// Waits until a chunk is written. False when none is under way or writing it failed.
bool Recorder::waitForChunk()
{
    constexpr unsigned long microsecondsBetweenLooks = 1000;
    const std::size_t before = waiting.size();
    while (!failed && before != 0 && waiting.size() == before) {
        QThread::usleep(microsecondsBetweenLooks);
        QCoreApplication::sendPostedEvents(store.get());
    }
    return waiting.size() != before;
}

bool Recorder::isBehind() const
{
    return waiting.size() > mostChunksBehind;
}

void Recorder::holdBack()
{
    paused = true;
    discarding = !source.setPaused(true);
    if (discarding && !incomplete) {
        printError(folder.path(),
                   Cli::tr("Messages are dropped: they come faster than the disk takes them."));
        incomplete = true;
    }
}

void Recorder::chunkWritten(quint32 index)
{
    if (!waiting.empty()) {
        waitingBytes -= waiting.front();
        waiting.pop();
    }
    if (!folder.addChunk(index))
        stopFailed();
    if (!paused || ending || isBehind())
        return;
    paused = false;
    discarding = false;
    source.setPaused(false);
}

void Recorder::fail(const QString &subject, const QString &text)
{
    printError(subject, text);
    stopFailed();
}

void Recorder::storeFailed(QString text)
{
    // The text names the place that the file was meant for, which the user knows.
    text.replace(store->chunkFolderPath(), folder.path());
    fail(folder.path(), text.replace(folder.workPath(), folder.path()));
}

// A recording must not go on with a gap in it.
void Recorder::stopFailed()
{
    failed = true;
    end();
}

void Recorder::stopIncomplete(const QString &text)
{
    printError(folder.path(), text);
    incomplete = true;
    end();
}

void Recorder::end()
{
    if (ending)
        return;
    ending = true;
    source.setPaused(true);
    QMetaObject::invokeMethod(this, &Recorder::ended, Qt::QueuedConnection);
}

void Recorder::sourceEnded()
{
    if (source.errorText().isEmpty())
        emit ended();
    else
        fail(source.name(), source.errorText());
}

void Recorder::finish()
{
    source.disconnect(this);
    source.setPaused(true);
    store->waitForSaves();
    QCoreApplication::sendPostedEvents(store.get());
    if (!waiting.empty() && !failed)
        fail(folder.path(), Cli::tr("Not every chunk file was written."));
    waitingBytes = 0;
    total.stored = quint64(saveLastMessages());
    // After a failure a chunk may be cut short.
    total.stored +=
        failed ? quint64(folder.countRecords()) : quint64(folder.chunkCount()) * messagesPerChunk;
    total.dropped = total.taken - total.stored;
}

qint64 Recorder::saveLastMessages()
{
    if (liveMessages > 0) {
        makeRoom(liveBytes);
        store->saveMessagesToFile(folder.unfinishedLastChunk(), DatachunkHelper::CurrentMessages,
                                  {}, 0, 0);
        store->waitForSaves();
        QCoreApplication::sendPostedEvents(store.get());
    }
    store.reset();
    const qint64 saved = liveMessages > 0 ? folder.addLastChunk() : 0;
    if (saved != liveMessages && !failed)
        fail(folder.path(), Cli::tr("The last messages could not be written completely."));
    return saved;
}
