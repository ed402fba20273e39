#pragma once

#include "chunkbytes.h"
#include "directoryentry.h"
#include "tracesegment.h"

/// Chunks whose notes and bookmarks somebody has changed. Their records are the same, a few bytes
/// further on, so that nobody has to read them again.

/// Has \a index be that of a chunk with the same records behind \a front.
void putBehind(const ChunkReading::Front &front, ChunkIndex &index);

/// The index of a file that begins with \a front, where that is the chunk that had \a index when
/// it was \a before: its records take as many bytes and were written at the same moment, which a
/// change of the marks does not touch.
std::optional<ChunkIndex> remarkedIndex(const ChunkIndex &index, const FileIdentity &before,
                                        const FileIdentity &now, const ChunkReading::Front &front);

/// The number of message \a offset of the chunk \a path, which is \a now; nothing where it cannot
/// be read.
std::optional<quint32> numberAt(const QString &path, const FileIdentity &now,
                                const ChunkIndex &index, quint32 offset);

/// The same chunk in the file \a path, which was \a now a moment ago, and is \a now again when this
/// returns: it may change at any time. Null where it is another one. Looks at the ends of the
/// records.
SharedSegment remarkedSegment(const QString &path, const TraceSegment &segment,
                              const FileIdentity &before, FileIdentity &now);
