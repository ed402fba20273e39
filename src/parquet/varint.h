#pragma once

#include <QByteArray>

namespace Parquet {

/// Seven bits in a byte, the lowest first; the highest bit says that more follow.
inline void addVarint(quint64 value, QByteArray &bytes)
{
    constexpr quint64 more = 0x80;
    for (; value >= more; value >>= 7)
        bytes += char(value | more);
    bytes += char(value);
}

/// The same with small numbers for those near 0, whatever their sign.
inline void addZigzag(qint64 value, QByteArray &bytes)
{
    addVarint(quint64(value) << 1 ^ quint64(value >> 63), bytes);
}

} // namespace Parquet
