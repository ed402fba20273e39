#pragma once

#include <cerrno>

/// Calls \a open, which returns a file handle, again for as long as a signal comes in between: slow
/// file systems let themselves be interrupted.
template <typename Open> int uninterrupted(const Open &open)
{
    int handle = -1;
    do {
        handle = open();
    } while (handle < 0 && errno == EINTR);
    return handle;
}
