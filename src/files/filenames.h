#pragma once

#include <QString>

/// Names of files as the file system counts them.
namespace FileNames {

/// The most bytes of a name.
constexpr int longest = 255;

/// As much of \a name, from its beginning, as takes at most \a bytes in the file system.
QString cutToBytes(QString name, int bytes);

} // namespace FileNames
