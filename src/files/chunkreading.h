#pragma once

#include "chunkformat.h"
#include "lineset.h"
#include "messagelist.h"
#include "outcome.h"

#include <functional>

/// Reading a whole chunk from any device within bounds. Plain functions; what is read is the
/// caller's, and nothing but the device is changed.
namespace ChunkReading {

/// What reading may take.
struct Bounds
{
    qint64 memory = 0;               ///< in bytes, about
    std::function<bool()> keepGoing; ///< asked again and again; false gives the reading up
};

/// Everything in front of the records.
struct Front
{
    ChunkFormat::Preamble preamble;
    ChunkFormat::Maps maps;
    qint64 memory = 0; ///< what the maps take, about
    qint64 size = 0;   ///< in bytes of the file
    bool headerIsDamaged = false;
    bool mapsAreDamaged = false;
    qint64 damagedMap = 0; ///< where the first damaged map begins, counted from the chunk's start
};

/// Reads over \a front, whose maps are as QDataStream's own operators read them: a map that is
/// damaged or cut short is empty, and what follows is read from where its reading ended. Of a
/// newer version no map is read, and the outcome is NewerVersion; otherwise it may be TooLarge or
/// GivenUp.
Outcome::Kind readFront(QIODevice &device, ChunkFormat::BookmarkMap bookmarkMap,
                        const Bounds &bounds, Front &front);

/// The whole records of a chunk that may be cut off in the middle of one.
struct WholeRecords
{
    Outcome::Kind result = Outcome::Done; ///< how reading what stands in front of them ended
    qint64 count = 0;
    qint64 end = 0; ///< where in the file the last one ends; 0 when there is none
};

/// Finds them from the beginning of \a device on. A chunk with damage in front of its records has
/// none.
WholeRecords findWholeRecords(QIODevice &device, const Bounds &bounds);

/// What the records of chunks hold together.
struct Records
{
    MessageList messages;
    LineSet lines;
};

/// How many records may be read between two questions whether to go on.
constexpr int recordsBetweenTurns = 100000;

/// Adds the records to those that are there, which count for \a bounds as well. A last record
/// that is cut short is added as far as it goes, unless \a dropsCut is set and returns true.
/// Sets \a hasFdFrame where one of those added is a CAN FD frame.
Outcome::Kind readRecords(ChunkFormat::RecordReader &reader, const Bounds &bounds, Records &records,
                          bool &hasFdFrame, const std::function<bool()> &dropsCut = {});

} // namespace ChunkReading
