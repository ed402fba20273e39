#pragma once

#include <QString>

#include <atomic>

/// Named pipes as targets. Writing waits for a reader who may never come, so every call can be
/// given up from another thread.
namespace Pipes {

bool isPipe(const QString &path);

/// Opens a pipe as soon as it has a reader; -1 when that fails or was given up. The handle does
/// not block and belongs to write().
int open(const QString &path, const std::atomic<bool> &givenUp);

/// Writes all of \a size bytes; false when the reader went away or it was given up.
bool write(int handle, const char *bytes, qint64 size, const std::atomic<bool> &givenUp);

} // namespace Pipes
