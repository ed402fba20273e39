#pragma once

#include <QFileInfoList>
#include <QString>

#include <functional>

/// Folders by their handles: between two calls a path may come to mean something else, a handle
/// never does.
namespace FolderTree {

enum class Link { Refused, Followed };

/// Opens a folder; -1 when that fails, or when it is a symbolic link and that is refused.
int open(const QString &path, Link link = Link::Refused);

/// Calls \a act with the bare name of every entry of an open folder. False, with errno set, when
/// not all could be listed. Closes \a handle.
bool forEachEntry(int handle, const std::function<void(const char *name)> &act);

/// The regular files of a folder, links to them included, without hidden ones, in the order of the
/// folder. False, with errno set, when not all could be listed.
bool listFiles(const QString &path, QFileInfoList &files);

/// Removes everything in an open folder, links themselves instead of what they lead to. Closes
/// \a handle.
void removeContents(int handle);

} // namespace FolderTree
