#include "bytepattern.h"

#include <algorithm>

namespace {

constexpr int windowBytes = int(sizeof(quint64));

} // namespace

void BytePattern::add(quint8 value, quint8 mask)
{
    const quint8 masked = value & mask;
    if (size() < windowBytes) {
        headValue |= quint64(masked) << (8 * size());
        headMask |= quint64(mask) << (8 * size());
    }
    if (anchorMask == 0) {
        anchorValue = masked * everyByte;
        anchorMask = mask * everyByte;
    }
    bytes.push_back({masked, mask});
}

bool BytePattern::isAnywhere(const quint8 *data, int length) const
{
    const int lastStart = length - size();
    const int lastWindow = std::max(length - windowBytes, 0);
    for (int start = 0; start <= lastStart; ++start) {
        // Bytes behind the payload are not read, but for those that are there in any case.
        const int base = std::min(start, lastWindow);
        const quint64 window = qFromLittleEndian<quint64>(data + base) >> (8 * (start - base));
        if ((window & headMask) == headValue && continues(data + start))
            return true;
    }
    return false;
}

// Whether the bytes behind the first 8 are there as well.
bool BytePattern::continues(const quint8 *data) const
{
    for (int i = windowBytes; i < size(); ++i) {
        if ((data[i] & bytes[std::size_t(i)].mask) != bytes[std::size_t(i)].value)
            return false;
    }
    return true;
}
