#pragma once

#include "ziparchive.h"

#include <QString>

#include <vector>

/// Archives of chunk files, as docs/archives.md describes them. Plain functions; they may take
/// long and belong on a thread of their own.
namespace ChunkArchive {

/// An entry whose name ends in "dck" and is safe to use.
struct Chunk
{
    Zip::Entry entry;
    QString timeText; ///< the chunk's header text, empty when it cannot be read
    double start = 0; ///< in seconds, read from the header text; 0 when there is none
};

/// The chunks of an archive in ascending order of their start, equal ones as in the archive.
std::vector<Chunk> chunksByStart(const Zip::Reader &archive, const Zip::KeepGoing &keepGoing);

/// What became of an archive that was read.
struct Outcome
{
    enum Result {
        Done,
        NotOpened,    ///< no archive
        NewerVersion, ///< a chunk is of a version that we do not know
        TooLarge,
        NoRoom, ///< on the disk
        GivenUp
    };
    Result result = Done;
    quint32 messages = 0; ///< how many there may be in all, when the archive is too large
    QString systemError;  ///< what the user is told of a call that failed; mostly empty
};

/// The bytes that the chunks claim to have, unpacked.
qint64 totalSize(const std::vector<Chunk> &chunks);

/// Whether the archive claims more for a chunk, or for all, than can honestly be in it.
bool isBomb(const Zip::Reader &archive, const std::vector<Chunk> &chunks);

Outcome tooLarge(const std::vector<Chunk> &chunks);

} // namespace ChunkArchive
