#pragma once

#include "directoryentry.h"

#include <QByteArray>

/// What a directory says of one chunk, without the mark and the seal around it.
namespace DirectoryPayload {

constexpr quint64 mostBytes = 64ULL * 1024 * 1024;

/// The bytes of \a entry; none when its name or its index is too long for a directory.
QByteArray encoded(const DirectoryEntry &entry);

/// Reads one after the other. What several have in common they share.
class Reader
{
public:
    /// False when the \a size bytes are no entry; nothing is made room for that is not there.
    bool read(const char *from, quint32 size, DirectoryEntry &entry);

private:
    FramePool pool;
    Frames frames;
};

} // namespace DirectoryPayload
