#pragma once

#include "datachunkhandler.h"
#include "framesource.h"
#include "recordingfolder.h"

#include <memory>
#include <queue>

/// How much a recording may hold.
struct RecordingLimits
{
    quint32 storeMessages = 0; ///< limit of the store, which rotates 5000 messages below it
    qint64 budget = 0;         ///< bytes of all files together; 0 for any number
    qint64 reserve = 0;        ///< bytes of the disk that are left free
};

/// Brings the frames of a source through a store into a folder.
class Recorder : public QObject
{
    Q_OBJECT
public:
    /// How many messages came in, how many can be read in the folder, and how many were given up:
    /// for the budget, because they came faster than the disk takes them, or because it failed.
    /// Every message that was taken is one or the other.
    struct Totals
    {
        quint64 taken = 0;
        quint64 stored = 0;
        quint64 dropped = 0;
    };

    /// \a folder is open.
    Recorder(RecordingFolder &folder, FrameSource &source, const RecordingLimits &limits);
    ~Recorder() override;

    /// False, with a text printed, when the source or the store has no place to work.
    bool start();

    /// Takes no more messages and brings all that came into the folder.
    void finish();

    /// Final after finish().
    const Totals &totals() const { return total; }

    /// Whether the recording ended, or has a gap, for another reason than its source or its user.
    bool hasFailed() const { return failed || incomplete; }

signals:
    /// Nothing more is to be expected; finish() has to follow.
    void ended();

private:
    void take(const CAN::CanRxMessage &message);
    bool checkReserve();
    bool makeRoom(qint64 bytes);
    bool deleteOldest();
    bool waitForChunk();
    bool isBehind() const;
    void holdBack();
    void chunkWritten(quint32 index);
    void fail(const QString &subject, const QString &text);
    void storeFailed(QString text);
    void stopFailed();
    void stopIncomplete(const QString &text);
    void end();
    void sourceEnded();
    qint64 saveLastMessages();

    RecordingFolder &folder;
    FrameSource &source;
    const RecordingLimits limits;
    const quint32 messagesPerChunk;
    std::unique_ptr<DatachunkHandler> store; // gone after finish()
    Totals total;
    quint32 liveMessages = 0;   // in the store
    qint64 liveBytes = 0;       // that they will take in a file
    std::queue<qint64> waiting; // bytes of each rotated chunk that is not in the folder yet
    qint64 waitingBytes = 0;
    bool paused = false;
    bool discarding = false; // the source cannot wait
    bool deletionTold = false;
    bool failed = false; // what the folder holds has to be counted
    bool incomplete = false;
    bool ending = false;
};
