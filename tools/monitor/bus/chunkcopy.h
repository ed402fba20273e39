#pragma once

#include <QString>

#include <functional>

/// Brings all chunks of a folder into the new folder \a to: where both lie on one disk they take no
/// room twice. Returns why it failed, in whole sentences, or nothing; after a failure, and when
/// \a goesOn, which is told the percents done, returns false, there is no new folder. Any thread.
QString copyChunks(const QString &from, const QString &to,
                   const std::function<bool(int percent)> &goesOn);

/// Deletes the chunks of a folder.
void removeChunks(const QString &folder);

/// Makes a folder, and those above it. Returns why it failed.
QString makeFolder(const QString &path);

/// Moves a file to a name that may be taken. Returns why it failed, and the file is gone then.
QString replaceFile(const QString &from, const QString &to);
