#pragma once

#include "chunkindex.h"

#include <QString>

#include <optional>

/// Which file it is, and in which state. Whoever writes to a file, renames it or sets its times
/// gives it another one.
struct FileIdentity
{
    qint64 size = 0;     ///< in bytes
    qint64 modified = 0; ///< when its bytes were written, in nanoseconds since 1970
    qint64 changed = 0;  ///< when anything of it was; the system's own, nobody can set it
    quint64 inode = 0;

    /// Whether its last change is so many nanoseconds back. Two changes within one tick of the
    /// file system's clock look the same, so that a newer one may not be the last.
    bool hasRested(qint64 nanoseconds) const;

    /// Nothing where that is no regular file, or none that can be asked for.
    static std::optional<FileIdentity> of(const QString &path);
    static std::optional<FileIdentity> of(int handle);
    /// The same for a folder as well.
    static std::optional<FileIdentity> ofAny(const QString &path);
};

bool operator==(const FileIdentity &a, const FileIdentity &b);

/// What is known of one chunk of a folder.
struct DirectoryEntry
{
    QString name; ///< within the folder
    FileIdentity file;
    ChunkIndex index; ///< of the file when it had that identity
};

/// Whether \a entry is about a file that has the identity \a now.
bool describes(const DirectoryEntry &entry, const FileIdentity &now);
