#pragma once

#include "chunkformat.h"
#include "datachunkhelper.h"
#include "messagelist.h"

#include <QList>
#include <QMutex>
#include <QString>
#include <QWaitCondition>

#include <atomic>
#include <memory>

/// One save of messages to a file, with everything it writes: nothing of it is shared with
/// another save or with the store. Constant once it is handed to a SaveQueue, but for the
/// members at the end.
struct SaveJob
{
    QString fileName;
    DatachunkHelper::SavedMessageType type = DatachunkHelper::CurrentMessages;
    MessageList messages;
    qint64 startPosition = 0;     ///< first position to save
    quint32 endPosition = 0;      ///< one past the last position to save
    QList<unsigned int> selected; ///< when not empty, exactly these positions are saved
    ChunkFormat::Notes notes;
    ChunkFormat::Bookmarks bookmarks;
    quint32 maximumUsedSpace = 0; ///< budget of the target's folder in MiB
    quint32 chunkIndex = 0;       ///< number of the chunk in its trace
    QString importName; ///< name of the import that a partial chunk belongs to
    quint64 generation = 0;       ///< which trace of the store the chunk belongs to
    quint32 packRequest = 0;      ///< the wish to pack the chunks after this export; 0 for none

    /// Set to have the save given up; its file is then removed. Any thread.
    std::atomic<bool> cancelled{false};

    void markFinished();
    /// Waits until the save has ended, whatever its outcome; false when \a milliseconds passed
    /// before. Any thread.
    bool waitForFinished(unsigned long milliseconds);

private:
    QMutex mutex;
    QWaitCondition finishedCondition;
    bool finished = false;
};

using SharedSaveJob = std::shared_ptr<SaveJob>;

/// What became of a save.
struct SaveOutcome
{
    enum Result {
        Saved, ///< the file is there; with an error text it may be incomplete
        NotOpened,
        GivenUp
    };
    Result result = Saved;
    QString timeText;  ///< header text of a chunk
    QString errorText; ///< empty when every byte was taken
};

/// Text of a chunk's header for the positions \a first and \a last; a position outside the list
/// reads as a default record.
QString chunkTimeText(const MessageList &messages, qint64 first, qint64 last);

/// Writes the job's messages, notes and bookmarks as a chunk file.
SaveOutcome writeChunkFile(const SaveJob &job);

/// Writes the job's messages as text, from the first message on even when the job starts later.
SaveOutcome writeTextFile(const SaveJob &job);
