#pragma once

#include "tracestream.h"

/// The road of a TraceStream through chunks; what TraceStream::errorTexts() tells is added to
/// \a errors.
namespace ChunkStream {

TraceStream::Result readFile(const QString &fileName, const TraceStream::Take &take,
                             const TraceStream::GoesOn &goesOn, QStringList &errors);

TraceStream::Result readArchive(const QString &fileName, const TraceStream::Take &take,
                                const TraceStream::GoesOn &goesOn, QStringList &errors);

} // namespace ChunkStream
