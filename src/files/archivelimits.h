#pragma once

#include <QString>

/// Limits for archives of unknown origin.
namespace ArchiveLimits {

/// The most entries of an archive that is read or written.
constexpr quint64 maxEntries = 100000;

/// Whether an entry of this name may become a file: not empty, "." or "..", without slashes and
/// backslashes, and at most 255 bytes long in the file system.
bool isSafeName(const QString &name);

/// What the user calls an archive: the last part of its path without ".zip".
QString archiveName(const QString &zipName);

/// Name of the folder that an archive is unpacked into: its own name where that is safe and
/// cannot be taken for a chunk file, otherwise "archive".
QString folderName(const QString &archiveName);

/// The most that \a packedSize packed bytes can honestly hold: 1000 for each of them, or 64 MiB.
qint64 mostUnpacked(qint64 packedSize);

/// Whether \a size bytes are more than that.
bool isBomb(qint64 packedSize, qint64 size);

/// The memory in bytes that a load may take: half of the machine's, or of what the control groups
/// of this process leave of it.
qint64 memoryLimit();

/// The most messages that chunks of \a bytes in all can hold.
quint32 messagesIn(qint64 bytes);

} // namespace ArchiveLimits
