#pragma once

#include "chunkcheck.h"
#include "chunklisting.h"

#include <vector>

/// Of the messages in a chunk of that name.
Numbering numberingOf(const QString &path);

/// Whether the chunks of a folder or of an archive go on where the one before ends. Chunks that are
/// numbered under one name belong together.
class ChunkOrder
{
public:
    /// A chunk with messages. \a entry is its name within an archive.
    void add(const QString &path, const QString &entry, const CheckedChunk &chunk);

    /// What is to be told of them all.
    std::vector<TraceFinding> findings();

private:
    struct Chunk
    {
        ChunkListing::Place place;
        QString path;
        QString entry;
        qint64 recordsStart = 0;
        RecordCheck::Message first;
        RecordCheck::Message last;
    };

    static void compare(const Chunk &before, const Chunk &next, std::vector<TraceFinding> &found);

    std::vector<Chunk> chunks;
};
