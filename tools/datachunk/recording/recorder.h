#pragma once

#include "framecapture.h"
#include "framesource.h"
#include "recordingstore.h"

/// Brings the frames of a source that are wanted into the folder of a recording.
class Recorder : public QObject
{
    Q_OBJECT
public:
    /// How many messages came in, how many can be read in the folder, how many nobody wanted, and
    /// how many were given up: for the budget, because they came faster than the disk takes them,
    /// because it failed, or because the ring in front of a trigger was too small. Every message
    /// that was taken is one of the last three.
    struct Totals
    {
        quint64 taken = 0;
        quint64 stored = 0;
        quint64 filtered = 0;
        quint64 dropped = 0;
        quint64 captures = 0;
        quint64 gaps = 0; ///< places where messages are missing, those included that never came
    };

    /// \a folder is open. The recording ends when \a reserve bytes of the disk are left.
    Recorder(RecordingFolder &folder, FrameSource &source, const ChunkLimits &limits,
             qint64 reserve, const CaptureRules &rules);

    /// False, with a text printed, when the source or the store has no place to work.
    bool start();

    /// Ends the chunk file that has begun.
    void rotate();

    /// Takes no more messages and brings all that came into the folder.
    void finish();

    /// Final after finish(); before, only what came and the gaps are known.
    const Totals &totals() const { return total; }

    /// Whether the recording ended, or has a gap, for another reason than its source or its user.
    bool hasFailed() const { return failed || incomplete; }

signals:
    /// Nothing more is to be expected; finish() has to follow.
    void ended();
    /// The disk takes its time; several times a second while the recorder waits for it.
    void stillWaiting();

private:
    void take(const CAN::CanRxMessage &message);
    void keep(const CAN::CanRxMessage &message, const QString &note);
    void noteGap(const QString &text);
    bool checkReserve();
    void holdBack();
    void goOn();
    void tellDrop(bool &told, const QString &text);
    void stopFailed();
    void end();
    void sourceEnded();

    const QString path; // of the folder
    const qint64 reserve;
    FrameSource &source;
    RecordingStore output;
    FrameCapture capture;
    Totals total;
    QString keptNote;         // for the next message that is stored
    quint64 droppedInGap = 0; // since a message was stored
    bool ringTold = false;
    bool diskTold = false;
    bool paused = false;     // because of the disk
    bool discarding = false; // the source cannot wait
    bool failed = false;
    bool incomplete = false;
    bool ending = false;
};
