#pragma once

#include "datachunkhandler.h"
#include "framesource.h"
#include "recordingfolder.h"

#include <memory>

/// Brings the frames of a source through a store into a folder.
class Recorder : public QObject
{
    Q_OBJECT
public:
    /// How many messages came in, how many are in the folder, and how many were given up for the
    /// disk budget or because they came faster than the disk takes them.
    struct Totals
    {
        quint64 taken = 0;
        quint64 stored = 0;
        quint64 dropped = 0;
    };

    /// \a folder is open. The store rotates \a limit - 5000 messages at a time into a chunk.
    Recorder(RecordingFolder &folder, FrameSource &source, quint32 limit, quint32 budget);
    ~Recorder() override;

    /// False, with a text printed, when the source or the store has no place to work.
    bool start();

    /// Takes no more messages and brings all that came into the folder.
    void finish();

    /// Final after finish().
    const Totals &totals() const { return total; }
    bool hasFailed() const { return failed; }

signals:
    /// Nothing more is to be expected; finish() has to follow.
    void ended();

private:
    void take(const CAN::CanRxMessage &message);
    quint64 rotations() const;
    bool isBehind() const;
    void holdBack();
    void chunkWritten(quint32 index);
    void fail(const QString &subject, const QString &text);
    void stopFailed();
    void sourceEnded();
    void waitForChunks();
    quint64 messagesInChunks() const;
    quint64 saveLastMessages();
    quint64 countMessages(const QString &chunkFile) const;

    RecordingFolder &folder;
    FrameSource &source;
    const quint32 messagesPerChunk;
    std::unique_ptr<DatachunkHandler> store; // gone after finish()
    Totals total;
    quint64 appended = 0;
    quint64 overflowed = 0;
    quint64 announced = 0;
    bool paused = false;
    bool discarding = false; // the source cannot wait
    bool failed = false;
};
