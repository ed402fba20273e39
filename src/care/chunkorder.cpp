#include "chunkorder.h"

#include "checktexts.h"

#include <algorithm>

using Finding = TraceFinding;

void ChunkOrder::add(const QString &path, const QString &entry, const CheckedChunk &chunk)
{
    if (chunk.first)
        chunks.push_back({ChunkListing::placeOf(entry.isEmpty() ? path : entry), path, entry,
                          chunk.indexed.index.recordsStart, *chunk.first, *chunk.last});
}

std::vector<TraceFinding> ChunkOrder::findings()
{
    std::vector<TraceFinding> found;
    std::stable_sort(chunks.begin(), chunks.end(),
                     [](const Chunk &a, const Chunk &b) { return a.place < b.place; });
    for (std::size_t i = 1; i < chunks.size(); ++i) {
        if (chunks[i - 1].place.run == chunks[i].place.run)
            compare(chunks[i - 1], chunks[i], found);
    }
    return found;
}

void ChunkOrder::compare(const Chunk &before, const Chunk &next, std::vector<TraceFinding> &found)
{
    const QString name =
        (before.entry.isEmpty() ? before.path : before.entry).section(QLatin1Char('/'), -1);
    const auto tell = [&](Finding::Severity severity, Finding::Kind kind, const QString &text) {
        found.push_back({severity, kind, next.path, next.entry, 0, next.recordsStart, text});
    };
    if (next.first.number <= before.last.number)
        tell(Finding::Error, Finding::NumberRepeat,
             CheckTexts::tr("The chunk begins with message %1, but %2 ends with message %3.")
                 .arg(next.first.number)
                 .arg(name)
                 .arg(before.last.number));
    else if (next.first.number - before.last.number > 1)
        tell(Finding::Error, Finding::NumberGap,
             CheckTexts::gap(before.last.number, next.first.number));
    if (next.first.time < before.last.time)
        tell(Finding::Remark, Finding::TimeFalls,
             CheckTexts::timeFalls(before.last.time, next.first.time));
}
