#pragma once

#include "canframe.h"
#include "linenumbers.h"
#include "lineparts.h"

#include <algorithm>
#include <limits>
#include <string>

/// Fields that several trace formats share. Numbers are read exactly as QString converts them.
namespace LineFields {

/// The position of a column, or noColumn for positions above 127, which count as absent.
constexpr int noColumn = -1;
inline int columnAt(int index)
{
    return index <= std::numeric_limits<qint8>::max() ? index : noColumn;
}

/// Converts the digits behind the point of a time in seconds. They are filled up to six with zeros,
/// and more than six are not cut: "5" is 500000, "1234567" is 1234567.
template <typename Char> qint32 toMicroseconds(Text<Char> fraction)
{
    constexpr qint32 weights[] = {1000000, 100000, 10000, 1000, 100, 10};
    constexpr std::size_t digits = std::size(weights);
    quint64 value = 0;
    if (fraction.size() < digits && readDigits<10>(fraction, value))
        return qint32(value) * weights[fraction.size()];
    if (fraction.size() >= digits)
        return toNumber<qint32>(fraction);
    Char padded[digits];
    const auto end = std::copy(fraction.begin(), fraction.end(), padded);
    std::fill(end, padded + digits, Char('0'));
    return toNumber<qint32>(Text<Char>(padded, digits));
}

/// Which part between the points of a time stamp is the fraction.
enum class FractionPart { Second, Last };

/// Reads "seconds.fraction" into a record. Seconds are the part before the first point, with
/// 0x and a leading 0 telling the base. Without a point, the last part is the first one too.
template <typename Char>
void readTimeStamp(Text<Char> text, FractionPart fractionPart, CAN::CanRxMessage &message)
{
    const std::size_t firstPoint = text.find(Char('.'));
    Text<Char> fraction;
    if (fractionPart == FractionPart::Last)
        fraction = text.substr(text.rfind(Char('.')) + 1);
    else if (firstPoint != text.npos)
        fraction =
            text.substr(firstPoint + 1, text.find(Char('.'), firstPoint + 1) - firstPoint - 1);
    message.seconds = toNumber<qint32>(text.substr(0, firstPoint), 0);
    message.microseconds = toMicroseconds(fraction);
}

/// Reads a time stamp such as "(12.5)", whose last part is the fraction. Parentheses may stand
/// anywhere in it.
template <typename Char>
void readTimeStampInParentheses(Text<Char> text, CAN::CanRxMessage &message)
{
    std::basic_string<Char> scratch;
    readTimeStamp(withoutBrackets<'(', ')'>(text, scratch), FractionPart::Last, message);
}

/// Reads the length from part \a index or, where that is no number, from the next one, in
/// \a nextBase. Returns the index of the part behind it, where the payload begins.
template <typename Char>
int readLengthAtOrBehind(const Parts<Char> &parts, int index, int nextBase,
                         CAN::CanRxMessage &message)
{
    bool ok = false;
    quint32 length = toNumber<quint32>(partAt(parts, index), 10, &ok);
    if (!ok)
        length = toNumber<quint32>(partAt(parts, ++index), nextBase);
    message.length = qint8(length);
    return index + 1;
}

/// Reads up to \a count parts, from \a first on, as payload bytes in \a base, as far as there are
/// parts and room for them. A number above 255 gives its low 8 bits. Words behind the payload that
/// \a message is known to have are no misreads.
template <typename Char>
void readBytes(const Parts<Char> &parts, int first, int count, int base, CAN::CanRxMessage &message)
{
    const int available = std::min({count, int(parts.size()) - first, CAN::maxDataBytes});
    const int payload = std::min(message.remote ? 0 : std::max<int>(message.length, 0), available);
    for (int i = 0; i < payload; ++i)
        message.data[i] = toByte(parts[first + i], base);
    for (int i = payload; i < available; ++i)
        message.data[i] = toByte<ByteField::Behind>(parts[first + i], base);
}

/// Stores one more payload byte where there is room for it.
inline void storeByte(CAN::CanRxMessage &message, int index, quint8 byte)
{
    if (index < CAN::maxDataBytes)
        message.data[index] = byte;
}

constexpr quint32 maxStandardId = 0x7FF;

} // namespace LineFields
