#pragma once

#include "backgroundthread.h"
#include "chunkfolder.h"
#include "savejob.h"

#include <deque>
#include <functional>
#include <memory>

/// Writes the chunks of one trace, in order, on a thread of its own: it numbers them, keeps them
/// in its folder and within the budget, and bounds what waits for the disk. Any thread; only
/// waitForAll() and, for a moment, the destructor wait for the disk.
class ChunkSaver
{
public:
    /// \a written is called for the chunks of the folder, and may be once this object is gone.
    explicit ChunkSaver(TellSaved tell, ChunkWritten written = {});

    /// Gives up all jobs. One that the disk holds up for longer than a moment ends later, by
    /// itself, and takes the folder with it.
    ~ChunkSaver();

    ChunkFolder &folder() const;

    /// The budget of the folder in MiB; with 0 nothing is to be saved.
    void setBudget(quint32 mebibytes);
    quint32 budget() const;
    /// Whether rotated messages are saved at all.
    bool saves() const;

    /// How many rotated messages may wait for the disk. Beyond that the oldest that have not begun
    /// to be written are given up, but never the ones that came last.
    void setMostWaiting(quint32 messages);
    /// Messages given up because the disk was too slow.
    quint64 givenUpCount() const;
    /// Messages of rotations whose chunk could not be written, or not to its end.
    quint64 unwrittenCount() const;

    /// Gives \a job the next number of its trace, which takes the place of the last "%1" in its
    /// file name, and puts it behind the others. May be called under a lock; start() follows,
    /// without it.
    void add(const SharedSaveJob &job);
    /// The same for a job with a number and a place of its own.
    void addUnnumbered(const SharedSaveJob &job);

    /// Has the jobs done. Where no thread can be had the caller does them, late being better than
    /// lost, and the result is false.
    bool start();

    quint32 chunkCount() const;

    /// Whether a save belonged to the trace that is recorded now.
    bool isCurrent(const SaveReport &report) const;
    quint64 generation() const;

    /// The job of chunk \a index while its file is not complete; null otherwise.
    SharedSaveJob pending(quint32 index) const;

    /// The jobs that have not ended, in order.
    std::deque<SharedSaveJob> unfinished() const;

    /// Waits for all jobs added so far, as long as \a keepGoing wants it. False when it does not.
    bool waitForAll(const std::function<bool()> &keepGoing);

    /// Keeps jobs from being begun while it lives.
    class Pause
    {
    public:
        explicit Pause(ChunkSaver &saver);
        ~Pause();

        Pause(const Pause &) = delete;
        Pause &operator=(const Pause &) = delete;

    private:
        ChunkSaver &saver;
    };

    /// Begins a new trace: gives up all jobs, without waiting for the one that is being done, and
    /// counts from 0 again. May be called under a lock; a Pause is to live until removeChunks().
    void clear();

    /// Deletes every file of the folder whose name contains "tmpData". The job that is being done
    /// is waited for a moment; where the disk holds it up, it removes its file when it ends.
    void removeChunks();

private:
    class State;

    const std::shared_ptr<State> state; // outlives this object where the disk holds up a job
    BackgroundThread thread;
};
