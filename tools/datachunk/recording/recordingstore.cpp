#include "recordingstore.h"

#include "canframe.h"
#include "diskspace.h"
#include "rotation.h"
#include "terminal.h"

#include <QCoreApplication>
#include <QThread>

#include <limits>

namespace {

// The most bytes in front of the records of a chunk file without notes, the bytes of a record
// besides its data, and those of a note besides its text.
constexpr qint64 headerBytes = 256;
constexpr qint64 recordBytes = 25;
constexpr qint64 noteBytes = 8;

// How many chunks may wait for the disk, and how many messages where that is fewer.
constexpr quint64 mostChunksWaiting = 4;
constexpr quint64 mostMessagesWaiting = 1000000;

quint64 mostWaitingOf(quint64 messagesPerChunk)
{
    return qMax(messagesPerChunk, qMin(messagesPerChunk * mostChunksWaiting, mostMessagesWaiting));
}

qint64 sizeOf(const CAN::CanRxMessage &message, const QString &note)
{
    const qint64 noteSize = note.isEmpty() ? 0 : noteBytes + note.size() * qint64(sizeof(QChar));
    return recordBytes + CAN::payloadSize(message) + noteSize;
}

} // namespace

RecordingStore::RecordingStore(RecordingFolder &folder, const ChunkLimits &limits)
    : folder(folder), limits(limits), messagesPerChunk(limits.storeMessages - rotationMargin),
      mostWaiting(mostWaitingOf(messagesPerChunk)),
      store(std::make_unique<DatachunkHandler>(limits.storeMessages)), live{0, headerBytes}
{
    // The store deletes only what it has written already, and one file at a time; what waits is
    // bounded here, where every message that is given up is known.
    store->setMaximumHDDSpace(std::numeric_limits<quint32>::max());
    store->setMaximumWaitingMessages(std::numeric_limits<quint32>::max());
    folder.setChunkFolder(store->chunkFolderPath());
    connect(store.get(), &DatachunkHandler::newDataFile, this, &RecordingStore::takeChunk);
    connect(store.get(), &DatachunkHandler::newErrorMessage, this, &RecordingStore::storeFailed);
}

RecordingStore::~RecordingStore() = default;

bool RecordingStore::check()
{
    if (store->chunkFolderPath().isEmpty())
        fail(Cli::tr("The folder for chunk files could not be created."));
    return !broken;
}

void RecordingStore::append(const CAN::CanRxMessage &message, const QString &note)
{
    const qint64 size = sizeOf(message, note);
    if (limits.budget != 0 && live.bytes + size > limits.budget) {
        fail(Cli::tr("The messages of one chunk file do not fit into the budget of %1; take a "
                     "smaller --limit.")
                 .arg(mebibyteText(limits.budget)));
        return;
    }
    const bool isFull = live.messages == messagesPerChunk
        || (limits.chunkBytes != 0 && live.bytes + size > limits.chunkBytes);
    if (isFull)
        rotate();
    if (broken)
        return;
    store->appendCanMessage(message);
    if (!note.isEmpty())
        store->setMessageNote(nextNumber, note);
    ++nextNumber;
    ++live.messages;
    live.bytes += size;
}

void RecordingStore::rotate()
{
    if (broken || live.messages == 0 || !makeRoom(live.bytes))
        return;
    store->rotate();
    waiting.push(live);
    waitingBytes += live.bytes;
    waitingMessages += live.messages;
    live = {0, headerBytes};
}

// Deletes the oldest chunks so that \a bytes more do not exceed the budget. False when that failed.
bool RecordingStore::makeRoom(qint64 bytes)
{
    while (limits.budget != 0 && folder.byteCount() + waitingBytes + bytes > limits.budget) {
        if (folder.chunkCount() == 0 ? waitForChunk() : deleteOldest())
            continue;
        breakOff();
        return false;
    }
    return true;
}

bool RecordingStore::deleteOldest()
{
    if (!deletionTold)
        printError(folder.path(),
                   Cli::tr("The budget of %1 is used up: the oldest chunk files are deleted.")
                       .arg(mebibyteText(limits.budget)));
    deletionTold = true;
    return folder.removeOldest();
}

// Waits until a chunk is written. False when none is under way or writing it failed.
bool RecordingStore::waitForChunk()
{
    constexpr unsigned long microsecondsBetweenLooks = 1000;
    constexpr int looksBetweenSigns = 250;
    const std::size_t before = waiting.size();
    for (int looks = 1; !broken && before != 0 && waiting.size() == before; ++looks) {
        QThread::usleep(microsecondsBetweenLooks);
        QCoreApplication::sendPostedEvents(store.get());
        QCoreApplication::sendPostedEvents(this);
        if (looks % looksBetweenSigns == 0)
            emit stillWaiting();
    }
    return waiting.size() != before;
}

// A disk that does not answer must not hold up the messages that come in.
void RecordingStore::takeChunk(quint32 index)
{
    disk.run([this, index] {
        const int error = folder.moveChunkIn(index);
        QMetaObject::invokeMethod(
            this, [this, index, error] { countChunk(index, error); }, Qt::QueuedConnection);
    });
}

void RecordingStore::countChunk(quint32 index, int error)
{
    Chunk written;
    if (!waiting.empty()) {
        written = waiting.front();
        waiting.pop();
        waitingBytes -= written.bytes;
        waitingMessages -= written.messages;
    }
    if (error == 0)
        folder.addChunk(index, written.messages);
    else
        fail(systemErrorText(error));
    emit chunkWritten();
}

void RecordingStore::fail(const QString &text)
{
    printError(folder.path(), text);
    breakOff();
}

void RecordingStore::storeFailed(QString text)
{
    // The text names the place that the file was meant for, which the user knows.
    text.replace(store->chunkFolderPath(), folder.path());
    fail(text.replace(folder.workPath(), folder.path()));
}

void RecordingStore::breakOff()
{
    broken = true;
    emit failed();
}

void RecordingStore::waitForSaves()
{
    constexpr int millisecondsBetweenSigns = 250;
    while (!store->waitForSaves(millisecondsBetweenSigns))
        emit stillWaiting();
    QCoreApplication::sendPostedEvents(store.get());
    while (!disk.wait(millisecondsBetweenSigns))
        emit stillWaiting();
    QCoreApplication::sendPostedEvents(this);
}

quint64 RecordingStore::finish()
{
    waitForSaves();
    if (!waiting.empty() && !broken)
        fail(Cli::tr("Not every chunk file was written."));
    waiting = {};
    waitingBytes = 0;
    waitingMessages = 0;
    const quint64 last = saveLastMessages();
    // After a failure a chunk may be cut short.
    return last + (broken ? quint64(folder.countRecords()) : folder.messageCount());
}

quint64 RecordingStore::saveLastMessages()
{
    if (live.messages > 0) {
        makeRoom(live.bytes);
        store->exportMessages(folder.unfinishedLastChunk(), DatachunkHelper::ExportWithNotes);
        waitForSaves();
    }
    store.reset();
    const auto saved = live.messages > 0 ? quint64(folder.addLastChunk()) : 0;
    if (saved != live.messages && !broken)
        fail(Cli::tr("The last messages could not be written completely."));
    return saved;
}
