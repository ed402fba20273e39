#include "chunkmove.h"

#include "chunkdirectory.h"

#include <QFileInfo>

#include <algorithm>

namespace {

// What is known of a chunk as it is.
std::optional<DirectoryEntry> entryOf(const QString &chunk)
{
    const QFileInfo file(chunk);
    const auto now = FileIdentity::of(chunk);
    std::vector<DirectoryEntry> entries = ChunkDirectory::read(file.absolutePath());
    const auto known = std::find_if(
        entries.begin(), entries.end(),
        [name = file.fileName()](const DirectoryEntry &entry) { return entry.name == name; });
    if (!now || known == entries.end() || !describes(*known, *now))
        return {};
    return std::move(*known);
}

} // namespace

bool moveChunk(const QString &from, const QString &to, const std::function<bool()> &move)
{
    auto entry = entryOf(from);
    if (!move())
        return false;
    const auto now = FileIdentity::of(to);
    if (!entry || !now)
        return true;
    // A new name gives a file another time of change, and nothing else.
    entry->name = QFileInfo(to).fileName();
    entry->file.changed = now->changed;
    if (describes(*entry, *now))
        ChunkDirectory::add(QFileInfo(to).absolutePath(), *entry);
    return true;
}
