#pragma once

#include "chunkformat.h"
#include "recordview.h"

/// Goes through the whole records that \a begin to \a end begins with and calls visit(RecordView)
/// with each until it returns false. Returns where the first record begins that was not visited to
/// its end: one that the visitor refused, that is cut short, or whose length is none.
template <typename Visit>
const char *walkRecords(const char *begin, const char *end, bool hasLine, Visit &&visit)
{
    const char *record = begin;
    while (record != end) {
        const qint8 length = *record;
        if (length < 0 || length > CAN::maxDataBytes
            || end - record < RecordView::size(length, hasLine)
            || !visit(RecordView(record, hasLine)))
            break;
        record += RecordView::size(length, hasLine);
    }
    return record;
}
