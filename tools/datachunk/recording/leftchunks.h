#pragma once

#include "ownerlock.h"

#include <QStringList>

#include <memory>
#include <vector>

/// Chunk files that lie together: in the chunk folder of a store, or in the folder of a recording
/// with what its recorder had not moved there yet.
struct LeftChunks
{
    QString folder;
    QStringList files; ///< in the order of their numbers
    /// Somebody works in the folder. Files that belong to somebody else's folder beside are not
    /// among those above either.
    bool isInUse = false;
    /// Kept as long as the files are needed, so that nobody begins to work there.
    std::vector<std::unique_ptr<OwnerLock>> locks;
};

/// Whatever chunks there are in the files and folders \a paths and in folders below, links left
/// out; one for each folder that has some. Nothing is changed. False, with a text printed, when
/// some of it cannot be looked at.
bool findLeftChunks(const QStringList &paths, std::vector<LeftChunks> &found);
