#pragma once

#include "workfolder.h"

#include <QDir>
#include <QMap>

#include <memory>

/// The folder of a recording. The store keeps its chunks in a hidden work folder inside and takes
/// them with it; a chunk becomes part of the recording by a hard link as soon as it is written,
/// so that it survives whatever happens to the program. Where the file system has no hard links
/// the chunks are moved at the end.
class RecordingFolder
{
public:
    explicit RecordingFolder(const QString &path);

    /// Creates the folder and the work folder in it; stores created from now on work there.
    /// False, with a text printed, when that fails or the folder holds a recording.
    bool open();

    /// Tells where the store writes its chunks.
    void setChunkFolder(const QString &path) { chunkFolder.setPath(path); }

    /// Takes chunk \a index into the recording. False, with a text printed, when that fails.
    bool addChunk(quint32 index);

    /// Takes out of the recording what the store has deleted for its disk budget.
    void dropRemovedChunks();

    /// Moves the chunks that could not be linked; the store has to exist still. False, with a
    /// text printed, when that fails.
    bool moveRemaining();

    QString path() const { return folder.path(); }

    /// Name of the file for the messages behind the last chunk.
    QString lastChunkPath() const;

    QStringList chunkPaths() const;
    int chunkCount() const { return chunks.size(); }
    int droppedCount() const { return dropped; }

private:
    enum class Place { Linked, WorkFolder };

    QString chunkPath(quint32 index) const;
    QString workPath(quint32 index) const;

    const QDir folder;
    std::unique_ptr<WorkFolder> work;
    QDir chunkFolder;
    QMap<quint32, Place> chunks;
    int dropped = 0;
};
