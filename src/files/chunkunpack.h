#pragma once

#include "chunkarchive.h"

#include <QDir>

#include <functional>

namespace ChunkArchive {

/// Called for a chunk that was unpacked: the name of its file, the folder, its header text.
using Unpacked = std::function<void(const QString &, const QDir &, const QString &)>;

/// Unpacks every chunk, in order of the start, into a new folder below \a parent that is named
/// after the archive. A name that is taken gets a number. A damaged chunk is cut behind its
/// last whole record, and removed when it has none. A work that is given up leaves nothing. \a
/// damage is what the user is told of that; the outcome is done, or NotOpened, TooLarge, NoRoom or
/// GivenUp.
Outcome unpack(const QString &zipName, const QDir &parent, WorkProgress &work,
               const Unpacked &unpacked, QStringList &damage);

} // namespace ChunkArchive
