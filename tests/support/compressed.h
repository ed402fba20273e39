#pragma once

#include "compression.h"

#include <QByteArray>

/// All that a file may be compressed with.
constexpr Compression compressions[] = {Compression::Gzip, Compression::Bzip2, Compression::Xz,
                                        Compression::Zstd};

/// \a bytes as another program would compress them.
QByteArray compressed(Compression compression, const QByteArray &bytes);

/// What an xz or a zstd file says of the window that it needs, made 1.5 GiB and 2 GiB.
QByteArray withLongWindow(Compression compression, QByteArray bytes);
