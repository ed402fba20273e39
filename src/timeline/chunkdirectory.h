#pragma once

#include "directoryentry.h"

#include <QString>

#include <vector>

/// The directory of a chunk folder: a hidden file beside the chunks that holds the index of each,
/// so that a folder need not be read to know what is in it. It may be missing, out of date or
/// damaged at any time, and whoever uses it has to be able to do without. Plain functions, any
/// thread, any process; those that write wait for one another, but not for long.
namespace ChunkDirectory {

/// Where the directory of \a folder lies.
QString path(const QString &folder);

/// What can be relied on, of equal names what was written last. Whether an entry describes the file
/// that is there is for the caller to find out.
std::vector<DirectoryEntry> read(const QString &folder);

/// The same, with what reading it was like.
struct Content
{
    enum State {
        Missing,
        Unreadable, ///< something of that name that is no file, or cannot be read
        Foreign,    ///< it does not begin as those of this user on this machine do
        Damaged,    ///< some of it is no entry
        Whole
    };
    State state = Missing;
    qint64 damagedAt = -1; ///< its first byte that belongs to no entry, where it is damaged
    std::vector<DirectoryEntry> entries;
};
Content look(const QString &folder);

/// Adds \a entry in place of those of the same name, and creates the directory where there is none.
/// False when it cannot be written.
bool add(const QString &folder, const DirectoryEntry &entry);

/// Replaces the directory at one stroke. Where \a entries are too many, the last ones are kept.
/// False, with the old one left, when it cannot be written.
bool rewrite(const QString &folder, const std::vector<DirectoryEntry> &entries);

} // namespace ChunkDirectory
