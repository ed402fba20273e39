#pragma once

#include <QString>

#include <functional>

/// Folders by their handles: between two calls a path may come to mean something else, a handle
/// never does.
namespace FolderTree {

/// Opens a folder unless it is a symbolic link; -1 when that fails.
int open(const QString &path);
int openFollowing(const QString &path);

/// Calls \a act with the bare name of every entry of an open folder. Closes \a handle.
void forEachEntry(int handle, const std::function<void(const char *name)> &act);

/// Removes everything in an open folder, links themselves instead of what they lead to. Closes
/// \a handle.
void removeContents(int handle);

} // namespace FolderTree
