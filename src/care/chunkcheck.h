#pragma once

#include "chunkindexing.h"
#include "recordcheck.h"

#include <vector>

/// What checking a chunk has come to.
struct CheckedChunk
{
    IndexedChunk indexed;
    std::vector<TraceFinding> findings; ///< without the path
    std::optional<RecordCheck::Message> first;
    std::optional<RecordCheck::Message> last;
};

/// Reads a chunk from its start to its end, or as far as it can be read. A last record that is cut
/// short is no finding if \a isDamaged, where it is set, returns true: the device ends too early.
CheckedChunk checkChunk(QIODevice &device, Numbering numbering, const ChunkReading::Bounds &bounds,
                        const std::function<bool()> &isDamaged = {});
