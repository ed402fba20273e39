#pragma once

#include "ownerlock.h"
#include "workfolder.h"

#include <QDir>
#include <QMap>

#include <memory>

/// The folder of a recording, which has one owner at a time. The store keeps its chunks in a hidden
/// work folder inside and takes them with it; a chunk is moved into the recording as soon as it is
/// written, so that it survives whatever happens to the program.
class RecordingFolder
{
public:
    explicit RecordingFolder(const QString &path);

    /// Creates the folder and the work folder in it; stores created from now on work there.
    /// False, with a text printed, when that fails, the folder holds a recording or somebody else
    /// records into it.
    bool open();

    /// Tells where the store writes its chunks.
    void setChunkFolder(const QString &path) { chunkFolder.setPath(path); }

    /// Moves chunk \a index into the recording; returns 0, or the system's error. Waits for the
    /// disk; on one thread, whatever the others do meanwhile.
    int moveChunkIn(quint32 index) const;

    /// Counts chunk \a index, which was moved in and has \a messageCount messages.
    void addChunk(quint32 index, quint32 messageCount);

    /// Where to write the messages behind the last chunk.
    QString unfinishedLastChunk() const;

    /// Takes that file into the recording, cut to its whole records; returns their number. 0 when
    /// there are none, and when a text was printed because it could not be done.
    qint64 addLastChunk();

    /// Deletes the oldest chunk. False when there is none; with a text printed, when that fails.
    bool removeOldest();

    QString path() const { return folder.path(); }
    QString workPath() const { return work->filePath(QString()).chopped(1); }
    qint64 byteCount() const { return bytes; } ///< of all chunks
    int chunkCount() const { return chunks.size(); }
    quint64 messageCount() const { return messages; } ///< of all chunks

    /// Cuts every chunk to its whole records and returns their number; chunks without any go.
    qint64 countRecords();

private:
    QString chunkPath(quint32 index) const;
    int moveIn(const QString &from, const QString &to) const;

    const QDir folder;
    OwnerLock lock;
    std::unique_ptr<WorkFolder> work;
    QDir chunkFolder;
    struct Chunk
    {
        qint64 bytes = 0;
        quint32 messages = 0;
    };
    QMap<quint32, Chunk> chunks;
    qint64 bytes = 0;
    quint64 messages = 0;
};
