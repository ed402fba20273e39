#pragma once

#include "recordview.h"

/// Finds where the records of a chunk end that was left in the middle. Bytes count from the start
/// of the first record.
class RecordsTail
{
public:
    void look(RecordView record);

    struct Zeros
    {
        qint64 begin = 0; ///< of the first byte that does not count
        qint64 records = 0;
        quint32 lastNumber = 0; ///< of the last message that counts, where there is one
    };
    /// Records at the end that hold nothing but zeros, \a hasRest when zeros that are no whole
    /// record follow. The first record begins at byte \a recordsStart of the file.
    Zeros zeros(qint64 recordsStart, bool hasRest) const;

    /// Of the last message, whether it counts or not.
    quint32 lastNumber() const { return zeroRecords > 0 ? 0 : number; }

private:
    qint64 end = 0;
    qint64 zeroRecords = 0; // in a row up to here
    qint64 lastBegin = 0;   // of the record in front of them
    qint64 lastEnd = 0;
    qint64 lastZeros = 0;  // bytes that it ends with
    qint64 keptBefore = 0; // where what counts ends without it, and the records of zeros from there
    qint64 zerosBefore = 0;
    quint32 number = 0; // of it, and of the one in front of it
    quint32 numberBefore = 0;
    bool hasLast = false;
};
