#pragma once

#include "chunkindex.h"
#include "chunkreading.h"
#include "recordview.h"

#include <QString>

/// What reading a chunk for its index has come to.
struct IndexedChunk
{
    Outcome::Kind result = Outcome::NotOpened; ///< Done, NewerVersion, TooLarge or GivenUp
    ChunkIndex index;                          ///< where it is done
    ChunkReading::Front front;                 ///< with the notes and bookmarks
    ChunkFormat::RecordsEnd end;
    QString damage; ///< of the archive that it is in, a sentence; mostly empty
};

/// Reads a chunk from its start to its end. What cannot be read of it is left out, as loading it
/// does: a last record that is cut short counts, unless \a dropsCut is set and returns true. Each
/// whole record is shown to \a look, where that is set.
IndexedChunk indexChunk(QIODevice &device, const ChunkReading::Bounds &bounds,
                        const std::function<bool()> &dropsCut = {},
                        const std::function<void(RecordView)> &look = {});
