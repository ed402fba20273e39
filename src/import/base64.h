#pragma once

#include "lineparts.h"

/// Bytes in base64, decoded in place.
namespace Base64 {

constexpr quint32 noDigit = 64;

template <typename Char> quint32 digitValue(Char c)
{
    if (c >= 'A' && c <= 'Z')
        return quint32(c - 'A');
    if (c >= 'a' && c <= 'z')
        return quint32(c - 'a') + 26;
    if (c >= '0' && c <= '9')
        return quint32(c - '0') + 52;
    if (c == '+')
        return 62;
    return c == '/' ? 63 : noDigit;
}

/// Writes up to \a most bytes and returns how many they are. Negative for a text of another shape
/// or of more bytes, of which some may have been written.
template <typename Char> int decode(Text<Char> text, quint8 *bytes, int most)
{
    constexpr std::size_t digits = 4; // for 3 bytes
    if (text.size() % digits != 0)
        return -1;
    for (int i = 0; i < 2 && !text.empty() && text.back() == '='; ++i)
        text.remove_suffix(1);
    quint32 bits = 0;
    int count = 0;
    int bitCount = 0;
    for (const Char c : text) {
        const quint32 digit = digitValue(c);
        if (digit == noDigit)
            return -1;
        bits = bits << 6 | digit;
        bitCount += 6;
        if (bitCount < 8)
            continue;
        if (count == most)
            return -1;
        bitCount -= 8;
        bytes[count++] = quint8(bits >> bitCount);
    }
    return count;
}

} // namespace Base64
