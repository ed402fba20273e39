#pragma once

/// \file
/// How chunk files are named.

#include "datachunkglobal.h"

#include <QString>

/// How chunk files are named. Any thread.
namespace ChunkNames {

/// What the names of chunk files end in that this library makes.
constexpr char suffix[] = ".dck";

/// What is in the name of every chunk that a rotation has saved.
constexpr char rotatedMark[] = "tmpData";

/// "tmpData%1.dck", the name of the chunks that rotations save, with a place for their number.
DATACHUNK_EXPORT QString rotatedTemplate();

/// The same with \a number, which counts from 0.
DATACHUNK_EXPORT QString rotated(qint64 number);

/// The number in a name that rotated() has made; -1 for any other name.
DATACHUNK_EXPORT qint64 rotatedNumber(const QString &name);

/// The name of a part of a trace that is called \a base: "base_0.dck" and so on.
DATACHUNK_EXPORT QString part(const QString &base, quint32 number);

/// The name of the chunk that holds what stood behind the last rotation.
DATACHUNK_EXPORT QString last();

} // namespace ChunkNames

/// Whether files of that name are chunk files: it ends in "dck", in lower case and with or without
/// a dot. Others are texts. Any thread.
DATACHUNK_EXPORT bool isChunkName(const QString &fileName);
