#pragma once

#include <QByteArray>
#include <QString>

/// How a file is compressed, by its first bytes; its name decides nothing.
enum class Compression { None, Gzip, Bzip2, Xz, Zstd };

/// \a start is the beginning of the file, compressionBytes of it or all.
Compression compressionOf(const QByteArray &start);
constexpr int compressionBytes = 10;

/// "gzip" and so on.
QString compressionName(Compression compression);

/// What a compressed file would be called when it is unpacked: without ".gz" and the like.
QString nameInside(const QString &fileName);
