#pragma once

#include "tracestream.h"

/// The road of a TraceStream through chunks.
namespace ChunkStream {

struct Outcome
{
    TraceStream::Result result = TraceStream::Complete;
    QStringList errors; ///< as TraceStream::errorTexts()
};

Outcome readFile(const QString &fileName, const TraceStream::Take &take,
                 const TraceStream::GoesOn &goesOn);

Outcome readArchive(const QString &fileName, const TraceStream::Take &take,
                    const TraceStream::GoesOn &goesOn);

} // namespace ChunkStream
