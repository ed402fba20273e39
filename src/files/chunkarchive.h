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
std::vector<Chunk> chunksByStart(const Zip::Reader &archive, const Zip::KeepGoing &keepGoing,
                                 Damage::List &damage);

/// Of chunks in that order, the last of each start that is not damaged, or the last one where
/// all are. Chunks without a header have no start in common.
std::vector<Chunk> lastOfEachStart(const Zip::Reader &archive, const std::vector<Chunk> &chunks,
                                   const Zip::KeepGoing &keepGoing, Damage::List &damage);

/// What the user is told of an entry that is damaged, and of which \a kept was read.
QString damageOf(const Zip::Reader &archive, const Chunk &chunk, const Zip::EntryDevice &content,
                 const QString &kept);

/// The bytes that the chunks claim to have, unpacked.
qint64 totalSize(const std::vector<Chunk> &chunks);

/// Whether the archive claims more for a chunk, or for all, than can honestly be in it.
bool isBomb(const Zip::Reader &archive, const std::vector<Chunk> &chunks);

Outcome tooLarge(const std::vector<Chunk> &chunks);

/// Done for an archive that can be read as far as that is known of its directory alone.
Outcome checkDirectory(const Zip::Reader &archive);

} // namespace ChunkArchive
