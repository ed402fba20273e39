#pragma once

#include "chunkformat.h"
#include "chunknames.h"
#include "completion.h"
#include "datachunkhelper.h"
#include "messagelist.h"
#include "outcome.h"

#include <QList>
#include <QString>

#include <algorithm>
#include <atomic>
#include <functional>
#include <memory>

/// Which save it is, and what it is for.
struct SaveTicket
{
    QString fileName;
    DatachunkHelper::SavedMessageType type = DatachunkHelper::CurrentMessages;
    quint32 chunkIndex = 0; ///< number of the chunk in its trace
    QString importName;     ///< name of the import that a partial chunk belongs to
    /// Set once nothing of that import is wanted any more; null for other saves.
    std::shared_ptr<const std::atomic<bool>> importDiscarded;
    quint64 generation = 0; ///< which trace of the store the chunk belongs to
    quint32 packWish = 0;   ///< the wish to pack the chunks after this export; 0 for none
};

/// One save of messages to a file, with everything it writes: nothing of it is shared with
/// another save or with the store. Constant once it is handed on, but for its cancellation and its
/// completion, whatever the outcome.
struct SaveJob : SaveTicket, Completion
{
    MessageList messages;
    qint64 startPosition = 0;     ///< first position to save
    quint32 endPosition = 0;      ///< one past the last position to save
    QList<unsigned int> selected; ///< when not empty, exactly these positions are saved
    ChunkFormat::Notes notes;
    ChunkFormat::Bookmarks bookmarks;
    bool isPrivate = false;       ///< whether the file is for its user alone (mode 0600)
    quint32 maximumUsedSpace = 0; ///< budget of the target's folder in MiB

    /// Set to have the save given up; its file is then removed. Any thread.
    std::atomic<bool> cancelled{false};
};

using SharedSaveJob = std::shared_ptr<SaveJob>;

/// Calls \a take(message) for the messages that \a job saves, in order, until it returns false or
/// the job is cancelled. Without a selection they begin at position \a start.
template <typename Take> void forEachSaved(const SaveJob &job, qint64 start, const Take &take)
{
    constexpr int messagesBetweenChecks = 1024;
    const auto goOn = [&job](qint64 done) {
        return done % messagesBetweenChecks != 0 || !job.cancelled;
    };
    if (!job.selected.isEmpty()) {
        for (int i = 0; i < job.selected.size() && goOn(i); ++i) {
            const quint32 position = job.selected.at(i);
            if (position < quint32(job.messages.size()) && !take(job.messages.at(int(position))))
                return;
        }
        return;
    }
    const qint64 end = std::min<qint64>(job.endPosition, job.messages.size());
    for (qint64 i = std::max<qint64>(start, 0); i < end && goOn(i); ++i) {
        if (!take(job.messages.at(int(i))))
            return;
    }
}

/// The same for the messages of a chunk.
template <typename Take> void forEachSaved(const SaveJob &job, const Take &take)
{
    forEachSaved(job, job.startPosition, take);
}

/// What is told of a save when it has ended. It does not hold the messages: reports may wait long
/// for whoever takes them.
struct SaveReport : SaveTicket
{
    SaveReport(const SaveJob &job, Outcome outcome);

    QString timeText;          ///< header text of a chunk
    Outcome outcome;           ///< done with a text where the file may be incomplete
    bool chunkRemoved = false; ///< whether the budget has taken the oldest chunk
};

/// Called once for each save, on the thread that did it. Must not wait.
using TellSaved = std::function<void(const SaveReport &)>;

/// Called on the thread that saves when a chunk lies whole in its place, before that is told. What
/// becomes of it is no part of the save.
using ChunkWritten = std::function<void(const SaveJob &)>;

/// Text of the header of the chunk that a job writes.
QString chunkTimeText(const SaveJob &job);
/// The same for the positions \a first and \a last; a position outside the list
/// reads as a default record.
QString chunkTimeText(const MessageList &messages, qint64 first, qint64 last);

/// Writes a chunk file or a text, by the name of the file, and creates its folder where that is
/// one level deep. \a opened is called when a chunk file is there and nothing is written yet. The
/// text of the outcome is the system's reason; where it is done all the same, bytes are missing.
Outcome save(const SaveJob &job, const std::function<void()> &opened = {});

/// Writes the job's messages, notes and bookmarks as a chunk file.
Outcome writeChunkFile(const SaveJob &job, const std::function<void()> &opened = {});

/// Writes the job's messages as text, from the first message on even when the job starts later.
/// A named pipe is waited for until it has a reader.
Outcome writeTextFile(const SaveJob &job);
