#pragma once

#include "datachunkglobal.h"
#include "tracefinding.h"

#include <functional>

/// What the check of a trace has come to.
struct TraceCheckTotals
{
    qint64 chunksInAll = 0; ///< that there are, once that is known
    qint64 chunks = 0;      ///< that were read
    qint64 messages = 0;    ///< in them
    qint64 errors = 0;      ///< findings of the severity Error
    qint64 remarks = 0;     ///< findings of the severity Remark
    bool isStopped = false; ///< the caller did not want to go on
};

/// Reads a chunk file, a folder of them or an archive from its start to its end and hands each
/// finding to \a tell, those of one chunk in the order of their places. Of one kind no more than 20
/// are told for each chunk; their number follows as one more. A file whose name does not end like
/// that of a chunk is taken for an archive. Writes nothing; takes the memory of an index, and of
/// the notes, for a chunk, and of its directory for a folder. \a goesOn is asked again and again
/// with the totals so far; false stops. Any thread.
DATACHUNK_EXPORT TraceCheckTotals
checkTrace(const QString &path, const std::function<void(const TraceFinding &)> &tell,
           const std::function<bool(const TraceCheckTotals &)> &goesOn);

/// The name of a kind for programs: lower case with hyphens.
DATACHUNK_EXPORT QString findingName(TraceFinding::Kind kind);
