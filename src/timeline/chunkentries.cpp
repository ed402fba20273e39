#include "chunkentries.h"

#include "chunkdirectory.h"
#include "savejob.h"

#include <QFileInfo>

#include <algorithm>

namespace {

QString folderOf(const QString &chunk)
{
    return QFileInfo(chunk).absolutePath();
}

QString nameOf(const QString &chunk)
{
    return QFileInfo(chunk).fileName();
}

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

// What is known of a chunk as it is.
std::optional<DirectoryEntry> entryOf(const QString &chunk)
{
    const auto now = FileIdentity::of(chunk);
    std::vector<DirectoryEntry> entries = ChunkDirectory::read(folderOf(chunk));
    const auto known = std::find_if(
        entries.begin(), entries.end(),
        [name = nameOf(chunk)](const DirectoryEntry &entry) { return entry.name == name; });
    if (!now || known == entries.end() || !describes(*known, *now))
        return {};
    return std::move(*known);
}

} // namespace

bool addSavedChunk(const SaveJob &job)
{
    const auto file = FileIdentity::of(job.fileName);
    DirectoryEntry entry{nameOf(job.fileName), file.value_or(FileIdentity()), indexOf(job)};
    entry.index.moveBy(entry.file.size - entry.index.recordsEnd);
    return file && !job.cancelled && entry.index.isSound(entry.file.size)
        && ChunkDirectory::add(folderOf(job.fileName), entry);
}

bool moveChunk(const QString &from, const QString &to, const std::function<bool()> &move)
{
    auto entry = entryOf(from);
    if (!move())
        return false;
    const auto now = FileIdentity::of(to);
    if (!entry || !now)
        return true;
    // A new name gives a file another time of change, and nothing else.
    entry->name = nameOf(to);
    entry->file.changed = now->changed;
    if (describes(*entry, *now))
        ChunkDirectory::add(folderOf(to), *entry);
    return true;
}
