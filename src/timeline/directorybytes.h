#pragma once

#include <QByteArray>
#include <QtEndian>

#include <algorithm>

/// The numbers of a directory, in the order of its bytes.
namespace DirectoryBytes {

/// Takes a number from the front of \a from, which has as many bytes.
template <typename Integer> Integer get(const char *&from)
{
    const auto value = qFromLittleEndian<Integer>(from);
    from += sizeof value;
    return value;
}

/// Puts bytes into room of a size that is known before.
class Writer
{
public:
    explicit Writer(int size) : bytes(size, Qt::Uninitialized), at(bytes.data()) { }

    template <typename Integer> void put(Integer value)
    {
        qToLittleEndian(value, at);
        at += sizeof value;
    }
    void putBytes(const void *from, int size)
    {
        at = std::copy_n(static_cast<const char *>(from), size, at);
    }
    /// All of the room; what is not written yet may be anything.
    const QByteArray &room() const { return bytes; }
    /// How many bytes are written.
    int size() const { return int(at - bytes.constData()); }

private:
    QByteArray bytes;
    char *at;
};

} // namespace DirectoryBytes
