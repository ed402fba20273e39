#pragma once

#include <cerrno>

/// Calls \a open, which returns a file handle, and repeats the call when a signal has interrupted
/// it, as may happen on slow file systems.
template <typename Open> int uninterrupted(const Open &open)
{
    int handle = -1;
    do {
        handle = open();
    } while (handle < 0 && errno == EINTR);
    return handle;
}
