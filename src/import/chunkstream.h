#pragma once

#include "tracestream.h"

class UnpackedFile;

/// Tells how far a reading has come, as long as what it reads lives.
using ReadingPlace = std::function<ImportProgress()>;
ReadingPlace placeIn(const UnpackedFile &file);

/// The road of a TraceStream through chunks; what TraceStream::errorTexts() tells is added to
/// \a errors.
namespace ChunkStream {

TraceStream::Result readFile(const QString &fileName, const TraceStream::Take &take,
                             const TraceStream::GoesOn &goesOn, ReadingPlace &place,
                             QStringList &errors);

TraceStream::Result readArchive(const QString &fileName, const TraceStream::Take &take,
                                const TraceStream::GoesOn &goesOn, ReadingPlace &place,
                                QStringList &errors);

} // namespace ChunkStream
