#pragma once

#include "directoryformat.h"

#include <algorithm>

/// The part of a directory that is in memory.
class DirectoryWindow
{
public:
    DirectoryWindow(const DirectoryFormat::ReadAt &read, qint64 size) : read(read), size(size) { }

    /// The bytes from \a offset on, at least \a bytes of them, until the next call; null where
    /// there are fewer.
    const char *at(qint64 offset, qint64 bytes);
    /// How many there are.
    qint64 bytesAt(qint64 offset) const { return begin + filled - offset; }

private:
    static constexpr qint64 usualSize = 1024LL * 1024;

    const DirectoryFormat::ReadAt &read;
    const qint64 size; // of the directory
    QByteArray buffer;
    qint64 begin = 0;
    qint64 filled = 0;
};

inline const char *DirectoryWindow::at(qint64 offset, qint64 bytes)
{
    if (offset + bytes > size)
        return nullptr;
    if (offset < begin || bytesAt(offset) < bytes) {
        const qint64 wanted = std::min(std::max(bytes, usualSize), size - offset);
        if (buffer.size() < wanted)
            buffer = QByteArray(int(wanted), Qt::Uninitialized);
        begin = offset;
        filled = read(buffer.data(), offset, wanted);
    }
    return bytesAt(offset) < bytes ? nullptr : buffer.constData() + (offset - begin);
}
