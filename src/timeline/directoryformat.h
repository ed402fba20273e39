#pragma once

#include "directoryentry.h"

#include <QByteArray>

#include <functional>
#include <optional>
#include <vector>

/// The bytes of the directory of a chunk folder, as docs/directory-format.md describes them. Plain
/// functions. \a key is what the seals are made with.
namespace DirectoryFormat {

constexpr quint32 version = 1;

/// Longer directories are none.
constexpr qint64 mostBytes = 256LL * 1024 * 1024;

/// What is this user's and this machine's alone, so that other directories are none.
quint64 ownKey();

/// What every directory begins with. \a compactBytes is how long it was when everything superseded
/// was last left out of it.
QByteArray head(qint64 compactBytes, quint64 key);

/// That number from the front of \a bytes; nothing when that is no head.
std::optional<qint64> compactBytes(const QByteArray &bytes, quint64 key);

constexpr int headSize = 36;

/// The bytes of \a entry; none when its name or its index is too long for a directory.
QByteArray encoded(const DirectoryEntry &entry, quint64 key);

/// An entry with any \a payload, whole as far as its seal can tell.
QByteArray framed(const QByteArray &payload, quint64 key);

/// Reads bytes of a directory from an offset in front of its end, and returns how many it could.
using ReadAt = std::function<qint64(char *to, qint64 offset, qint64 size)>;

/// The entries in a directory of \a size bytes that are whole and sound, of equal names the last
/// one. None when it has no head. The directory is read from its start to its end, about 1 MiB at
/// once. \a damagedAt, where it is set, becomes the offset of the first byte that belongs to
/// nothing whole and sound: 0 without a head, -1 when there is none.
std::vector<DirectoryEntry> entries(const ReadAt &read, qint64 size, quint64 key,
                                    qint64 *damagedAt = nullptr);
/// The same for one in memory.
std::vector<DirectoryEntry> entries(const QByteArray &bytes, quint64 key);

} // namespace DirectoryFormat
