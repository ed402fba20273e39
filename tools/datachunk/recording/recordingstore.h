#pragma once

#include "datachunkhandler.h"
#include "diskthread.h"
#include "recordingfolder.h"

#include <memory>
#include <queue>

/// How large the files of a recording may become.
struct ChunkLimits
{
    quint32 storeMessages = 0; ///< limit of the store, which rotates 5000 messages below it
    qint64 chunkBytes = 0;     ///< of one chunk file; 0 for any number
    qint64 budget = 0;         ///< bytes of all files together; 0 for any number
};

/// Brings messages into the folder of a recording, chunk by chunk, and keeps the budget. What is
/// not on the disk yet is in memory; whoever adds messages asks whether it is too much.
class RecordingStore : public QObject
{
    Q_OBJECT
public:
    /// \a folder is open.
    RecordingStore(RecordingFolder &folder, const ChunkLimits &limits);
    ~RecordingStore() override;

    /// False, with a text printed, when the store has no place to work.
    bool check();

    /// Adds a message; a note that is not empty goes along. Nothing is added after a failure.
    void append(const CAN::CanRxMessage &message, const QString &note);

    /// Ends the chunk that has begun; without a message there is none.
    void rotate();

    /// Whether so many messages wait for the disk that no more should be added.
    bool isBehind() const { return waitingMessages > mostWaiting; }

    /// What the messages in memory will take on the disk.
    qint64 unwrittenBytes() const { return waitingBytes + live.bytes; }

    /// Writes all that was added, and waits for it. Returns the number of messages that can be read
    /// in the folder.
    quint64 finish();

    bool hasFailed() const { return broken; }

signals:
    /// A text was printed, and nothing is added any more.
    void failed();
    /// Fewer messages wait.
    void chunkWritten();
    /// The disk takes its time, and the caller waits; emitted several times a second.
    void stillWaiting();

private:
    bool makeRoom(qint64 bytes);
    bool deleteOldest();
    bool waitForChunk();
    void takeChunk(quint32 index);
    void countChunk(quint32 index, int error);
    void fail(const QString &text);
    void storeFailed(QString text);
    void breakOff();
    void waitForSaves();
    quint64 saveLastMessages();

    struct Chunk
    {
        quint32 messages = 0;
        qint64 bytes = 0;
    };

    RecordingFolder &folder;
    const ChunkLimits limits;
    const quint32 messagesPerChunk;
    const quint64 mostWaiting;
    std::unique_ptr<DatachunkHandler> store; // gone after finish()
    quint32 nextNumber = 0;                  // that the store gives
    Chunk live;                              // what the store will write next
    std::queue<Chunk> waiting;               // rotated and not in the folder yet
    qint64 waitingBytes = 0;
    quint64 waitingMessages = 0;
    bool deletionTold = false;
    bool broken = false; // what the folder holds has to be counted
    DiskThread disk;     // last: what it does uses the others
};
