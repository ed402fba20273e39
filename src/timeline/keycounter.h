#pragma once

#include "framefilter.h"

/// Tells of one chunk after the other what a filter takes by its keys alone. Keys that chunks share
/// are judged once. The filter has to stay.
class KeyCounter
{
public:
    /// Positions in a chunk, the end not included.
    struct Span
    {
        quint32 begin = 0;
        quint32 end = 0;
    };

    explicit KeyCounter(const FrameFilter &filter) : filter(filter) { }

    /// See FrameFilter::count.
    FrameFilter::Count count(const ChunkIndex &index, bool isChunk);
    /// No message outside is taken.
    Span span(const ChunkIndex &index, bool isChunk);

private:
    using Verdict = FrameFilter::Verdict;

    /// What holds for keys where the same is known of their chunks.
    struct Judged
    {
        SharedFrames frames;
        std::vector<Verdict> facts;
        std::size_t begin = 0; ///< the first key that may be taken
        std::vector<quint32>
            taken;              ///< from there on, to the last: all bits where messages surely are
        std::vector<bool> open; ///< likewise where each has to be asked
        bool isAnyOpen = false;
    };

    const Judged &judged(const ChunkIndex &index, const ChunkFacts &facts);
    Judged judge(const ChunkIndex &index, const ChunkFacts &facts,
                 std::vector<Verdict> ofFacts) const;

    const FrameFilter &filter;
    QHash<const Frames *, Judged> known;
};
