#pragma once

#include "chunkreading.h"

#include <QString>

#include <functional>

/// Changing the notes and bookmarks of a chunk file. Its records are copied byte by byte, and it is
/// replaced at one stroke: whoever opens it finds it as it was or as it is to be. Plain functions;
/// any thread, any process. Those that change the same chunk wait for one another.
namespace ChunkMarks {

/// What a change has come to.
struct Changed
{
    enum State {
        Done,
        Gone,  ///< no chunk is there, or not the one that is meant
        Failed ///< and the chunk is as it was
    };
    State state = Failed;
    QString error; ///< where it has failed, a sentence
};

/// The number of the message that is meant, in an open file with \a front in front of its records;
/// nothing where that is another chunk.
using FindNumber =
    std::function<std::optional<quint32>(int handle, const ChunkReading::Front &front)>;
/// Takes the file that is in its place.
using Placed = std::function<void(int handle, const ChunkReading::Front &front)>;

/// Changes what is written on a message of the chunk \a fileName, in a version that has it and the
/// same records. Its rights and its time of writing stay, so that a budget takes it in its turn;
/// what is deleted meanwhile does not come back. Both are called while nobody else changes what
/// stood there before, \a placed only where it was replaced.
Changed change(const QString &fileName, const MarkChange &change, const FindNumber &findNumber,
               const Placed &placed);

/// How many chunks this process has changed: the clock of a file system is too coarse to tell.
quint64 changeCount();

} // namespace ChunkMarks
