#include "savedchunk.h"

#include "chunkdirectory.h"
#include "savejob.h"

#include <QFileInfo>

namespace {

ChunkIndex indexOf(const SaveJob &job)
{
    ChunkIndexer indexer(ChunkFormat::currentVersion, 0);
    forEachSaved(job, [&indexer](const CAN::CanRxMessage &message) {
        indexer.add(MessageView(message));
        return true;
    });
    ChunkIndex index = indexer.finish();
    index.notes = quint32(job.notes.size());
    index.bookmarks = quint32(job.bookmarks.size());
    return index;
}

} // namespace

bool addSavedChunk(const SaveJob &job)
{
    const auto file = FileIdentity::of(job.fileName);
    const QFileInfo chunk(job.fileName);
    DirectoryEntry entry{chunk.fileName(), file.value_or(FileIdentity()), indexOf(job)};
    entry.index.moveBy(entry.file.size - entry.index.recordsEnd);
    return file && !job.cancelled && entry.index.isSound(entry.file.size)
        && ChunkDirectory::add(chunk.absolutePath(), entry);
}
