#pragma once

#include "damage.h"
#include "outcome.h"
#include "ziparchive.h"

#include <QString>

#include <vector>

/// Archives of chunk files, as docs/archives.md describes them. Plain functions; they may take
/// long and belong on a thread of their own.
namespace ChunkArchive {

/// An entry whose name ends in "dck", in whatever folder.
struct Chunk
{
    Zip::Entry entry;
    QString timeText; ///< the chunk's header text, empty when it cannot be read
    /// In seconds, from the header text: 0 when it does not begin with a number, infinite when
    /// it cannot be read.
    double start = 0;

    bool hasHeader() const;
};

/// The chunks of an archive in ascending order of their start, equal ones as in the archive. What
/// is left out because of damage is added to \a damage. None when there are too many entries.
std::vector<Chunk> chunksByStart(const Zip::Reader &archive, WorkProgress &work,
                                 Damage::List &damage);

/// From chunks in that order, takes one for each start: the last undamaged one, or the last one if
/// all are damaged. Chunks without a header are all taken.
std::vector<Chunk> lastOfEachStart(const Zip::Reader &archive, const std::vector<Chunk> &chunks,
                                   WorkProgress &work, Damage::List &damage);

/// The text for the user about a damaged entry, of which \a kept was read.
QString damageOf(const Zip::Reader &archive, const Chunk &chunk, const Zip::EntryDevice &content,
                 const QString &kept);

/// The bytes that the chunks claim to have, unpacked.
qint64 totalSize(const std::vector<Chunk> &chunks);

/// Whether the archive claims more for a chunk, or for all, than can honestly be in it.
bool isBomb(const Zip::Reader &archive, const std::vector<Chunk> &chunks);

Outcome tooLarge(const std::vector<Chunk> &chunks);

/// Judges an archive by its directory alone: Done, or why it cannot be read.
Outcome checkDirectory(const Zip::Reader &archive);

} // namespace ChunkArchive
