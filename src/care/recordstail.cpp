#include "recordstail.h"

#include <algorithm>
#include <utility>

void RecordsTail::look(RecordView record)
{
    const char *const begin = record.bytes();
    const char *const behind = record.end();
    const char *nonZero = behind;
    while (nonZero != begin && nonZero[-1] == 0)
        --nonZero;
    const qint64 start = end;
    end += behind - begin;
    if (nonZero == begin) {
        ++zeroRecords;
        return;
    }
    // The first message of a trace may be all zeros, and no other one.
    const bool isFirst = !hasLast && zeroRecords == 1;
    keptBefore = isFirst ? start : lastEnd;
    zerosBefore = isFirst ? 0 : zeroRecords;
    zeroRecords = 0;
    hasLast = true;
    lastBegin = start;
    lastEnd = end;
    lastZeros = behind - nonZero;
    numberBefore = std::exchange(number, record.number());
}

RecordsTail::Zeros RecordsTail::zeros(qint64 recordsStart, bool hasRest) const
{
    // The smallest piece that a disk writes.
    constexpr qint64 sector = 512;
    // One alone is the first message.
    if (zeroRecords == 0 || (!hasLast && zeroRecords == 1 && !hasRest))
        return {end, 0, number};
    const qint64 fileEnd = recordsStart + lastEnd;
    const qint64 lastSector = (fileEnd - 1) / sector * sector;
    // Nobody can tell whether the zeros of a record are its own when they go on from the start of a
    // sector to its end.
    const bool isTorn =
        hasLast && lastSector > recordsStart + lastBegin && lastSector >= fileEnd - lastZeros;
    return isTorn ? Zeros{keptBefore, zerosBefore + 1 + zeroRecords, numberBefore}
                  : Zeros{lastEnd, zeroRecords, number};
}
