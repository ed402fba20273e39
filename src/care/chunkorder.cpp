#include "chunkorder.h"

#include "checktexts.h"
#include "chunknames.h"

#include <algorithm>

using Finding = TraceFinding;

Numbering numberingOf(const QString &path)
{
    const QString run = ChunkListing::placeOf(path).run;
    return run.section(QLatin1Char('/'), -1) == ChunkNames::rotatedTemplate() ? Numbering::ByStore
                                                                              : Numbering::Free;
}

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
    const quint32 number = next.first.number;
    // Files that somebody else has named may hold one trace each.
    const bool isOther = number == 0
        && numberingOf(next.entry.isEmpty() ? next.path : next.entry) == Numbering::Free;
    if (number <= before.last.number && !isNext(before.last.number, number))
        tell(isOther ? Finding::Remark : Finding::Error, Finding::NumberRepeat,
             CheckTexts::tr("The chunk begins with message %1, but %2 ends with message %3.")
                 .arg(QString::number(number), name, QString::number(before.last.number)));
    else if (!isNext(before.last.number, number))
        tell(Finding::Error, Finding::NumberGap, CheckTexts::gap(before.last.number, number));
    if (next.first.time < before.last.time)
        tell(Finding::Remark, Finding::TimeFalls,
             CheckTexts::timeFalls(before.last.time, next.first.time));
}
