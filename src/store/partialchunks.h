#pragma once

#include "chunksaver.h"
#include "trace.h"

#include <QVector>

/// The chunks that an import leaves in the chunk folder: each buffer that is full before its end,
/// and what is shown at last. Application's thread.
class PartialChunks
{
public:
    PartialChunks(Trace &trace, ChunkSaver &saver) : trace(trace), saver(saver) { }

    /// The name that the chunks of the imports from here on bear.
    void setImportName(const QString &name) { nameOfImport = name; }
    QString importName() const { return nameOfImport; }

    /// The chunks from here on are those of one import.
    void beginImport();
    /// Gives up the saves of its chunks and removes their files. A save that the disk holds up for
    /// longer than a moment removes its file itself when it ends.
    void discardImport();

    /// Has the browsing list saved with \a notes. Null where there is no chunk folder.
    SharedSaveJob save(const Notes &notes);

    /// Has the browsing list saved, unless nothing is to be saved at all, and empties it.
    void saveFullBuffer();
    /// The buffer before that; null when it is written.
    SharedSaveJob lastFullBuffer() const { return lastSave.lock(); }

private:
    struct Part
    {
        QString fileName;
        std::weak_ptr<SaveJob> job; // the saver drops a job that it has done
    };

    QString partName() const;

    Trace &trace;
    ChunkSaver &saver;
    QString nameOfImport;
    std::weak_ptr<SaveJob> lastSave;
    QVector<Part> ofImport;
    std::shared_ptr<std::atomic<bool>> discarded; // of the import
};
