#pragma once

#include <QString>

#include <optional>

constexpr qint64 bytesPerMebibyte = 1024LL * 1024;

/// Room in a file system, in bytes.
struct DiskSpace
{
    qint64 size = 0;
    qint64 available = 0; ///< to this user
};

/// The room where a folder lies; nothing where the system does not tell.
std::optional<DiskSpace> diskSpaceOf(const QString &folder);

/// A size for the user, as in "0.5 MiB".
QString mebibyteText(qint64 bytes);
