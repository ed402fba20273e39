#include "chunkmove.h"

#include "chunkbytes.h"
#include "chunkdirectory.h"
#include "chunklisting.h"
#include "damage.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>

#include <algorithm>

namespace {

// What is known of a chunk as it is.
std::optional<DirectoryEntry> entryOf(const QString &chunk)
{
    const QFileInfo file(chunk);
    std::vector<DirectoryEntry> entries = ChunkDirectory::read(file.absolutePath());
    const auto known = std::find_if(
        entries.begin(), entries.end(),
        [name = file.fileName()](const DirectoryEntry &entry) { return entry.name == name; });
    if (known == entries.end())
        return {};
    return std::move(*known);
}

// What the entry says counts only as long as the file is as it was.
bool moveKnown(std::optional<DirectoryEntry> entry, const QString &from, const QString &to,
               const std::function<bool()> &move)
{
    const auto before = FileIdentity::of(from);
    if (entry && (!before || !describes(*entry, *before)))
        entry.reset();
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

} // namespace

bool moveChunk(const QString &from, const QString &to, const std::function<bool()> &move)
{
    return moveKnown(entryOf(from), from, to, move);
}

bool moveChunks(const QString &from, const QString &to, const QStringList &names,
                const std::function<bool(const QString &)> &move)
{
    QHash<QString, DirectoryEntry> known;
    for (DirectoryEntry &entry : ChunkDirectory::read(from))
        known[QString(entry.name)] = std::move(entry);
    const QDir source(from);
    const QDir target(to);
    return std::all_of(names.begin(), names.end(), [&](const QString &name) {
        const auto entry = known.constFind(name);
        return moveKnown(entry == known.constEnd() ? std::nullopt : std::optional(*entry),
                         source.absoluteFilePath(name), target.absoluteFilePath(name),
                         [&] { return move(name); });
    });
}

bool indexChunks(const QString &folder)
{
    QHash<QString, FileIdentity> known;
    for (const DirectoryEntry &entry : ChunkDirectory::read(folder))
        known.insert(entry.name, entry.file);
    bool isWritten = true;
    const QStringList files = ChunkListing::filesIn(folder);
    for (const QString &path : files) {
        const QString name = QFileInfo(path).fileName();
        const auto file = FileIdentity::of(path);
        if (!file || (known.contains(name) && known.value(name) == *file))
            continue;
        IndexedChunk chunk = ChunkFileBytes(path, *file).index([] { return true; });
        // A damaged chunk is read by whoever opens it, and its damage told.
        const bool isGood = chunk.result == Outcome::Done
            && Damage::ofChunk(name, chunk.front, chunk.end, chunk.index.count).isEmpty();
        if (isGood)
            isWritten =
                ChunkDirectory::add(folder, {name, *file, std::move(chunk.index)}) && isWritten;
    }
    return isWritten;
}
