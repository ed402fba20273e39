#pragma once

#include <QtGlobal>

#include <cerrno>
#include <cstddef>

#include <unistd.h>

/// Calls \a call, which returns a negative number and sets errno where it fails, and repeats that
/// when a signal has interrupted it, as may happen on slow file systems.
template <typename Call> auto uninterrupted(const Call &call)
{
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

/// False, with errno set, when not all of the bytes can be written.
inline bool writeAll(int handle, const char *bytes, qint64 size)
{
    for (qint64 done = 0; done < size;) {
        const auto written =
            uninterrupted([&] { return ::write(handle, bytes + done, std::size_t(size - done)); });
        if (written <= 0)
            return false;
        done += written;
    }
    return true;
}
