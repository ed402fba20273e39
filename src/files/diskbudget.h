#pragma once

#include <QDir>
#include <QFileInfoList>
#include <QString>

/// The disk space that chunk files may take.
namespace DiskBudget {

/// The files of \a folder, the newest first. Of two files with the same modification time the
/// one with the higher chunk number is the newer: time stamps of a file system are coarser than
/// rotations are quick.
QFileInfoList filesByAge(const QDir &folder);

/// Deletes the oldest file of \a folder when all its files together take more than
/// \a mebibytes and the oldest one is a chunk file. Sizes are added up in whole KiB and the sum
/// is compared in whole MiB. Returns whether a file was deleted.
bool removeOldestAbove(const QDir &folder, unsigned int mebibytes);

} // namespace DiskBudget
