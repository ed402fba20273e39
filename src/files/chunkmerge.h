#pragma once

#include "chunkarchive.h"
#include "chunkreading.h"

#include <QVector>

namespace ChunkArchive {

/// What the chunks of an archive hold together.
struct Merged : ChunkReading::Records
{
    Outcome outcome;          ///< done, or NotOpened, NewerVersion, TooLarge or GivenUp
    QStringList damage;       ///< what the user is told of damage, where the archive was read
    ChunkFormat::Notes notes; ///< of all chunks; for the same number the later chunk's
    ChunkFormat::Bookmarks bookmarks;
    bool hasBookmarkMap = false;   ///< whether any chunk has bookmarks, be it none
    QVector<bool> fdFramesByChunk; ///< for each chunk read, whether it holds CAN FD frames
};

/// Reads all chunks in order of their start, of equal ones only the last that is not damaged; those
/// without a header come last. A damaged chunk ends with its last whole record. Takes up to about
/// \a memoryLimit bytes; an archive that needs more is too large.
void merge(const QString &zipName, qint64 memoryLimit, WorkProgress &work, Merged &merged);

} // namespace ChunkArchive
