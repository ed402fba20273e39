#pragma once

#include <QStringList>

/// Gives a file another name in the same file system, where nothing may be yet. Returns 0 or the
/// errno of the failure, EEXIST for a name that is taken.
int moveFile(const QString &from, const QString &to);

/// Moves each of the \a files to the name at the same place of \a names, and prints the names.
/// All of them are moved or, with a text printed, none: nothing is ever overwritten.
bool moveFiles(const QStringList &files, const QStringList &names);

/// The same for the chunks of a folder, which is told of them in its directory.
bool moveChunks(const QStringList &files, const QStringList &names);
