#pragma once

#include "canframe.h"
#include "linenumbers.h"
#include "linesource.h"

#include <array>
#include <limits>

/// Fields as tolerant readers take them: a field is what it says or none at all. Every function
/// returns false, and changes nothing, for a text that is no such field.
namespace WrittenFields {

constexpr quint32 maxStandardId = 0x7FF;
constexpr quint32 maxExtendedId = 0x1FFFFFFF;

using LineFields::digitValue;
using LineFields::noDigit;

/// A number of nothing but digits, with up to 32 bits.
template <typename Char> bool readNumber(Text<Char> text, unsigned base, quint32 &number)
{
    quint64 value = 0;
    for (const Char c : text) {
        const unsigned digit = digitValue(c);
        if (digit >= base)
            return false;
        value = value * base + digit;
        if (value > std::numeric_limits<quint32>::max())
            return false;
    }
    if (text.empty())
        return false;
    number = quint32(value);
    return true;
}

/// The same in hexadecimal, with or without "0x".
template <typename Char> bool readHex(Text<Char> text, quint32 &number)
{
    if (text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X'))
        text.remove_prefix(2);
    return readNumber(text, 16, number);
}

/// A byte of two hexadecimal digits.
template <typename Char> bool readHexPair(Text<Char> text, quint8 &byte)
{
    if (text.size() != 2)
        return false;
    const unsigned high = digitValue(text[0]);
    const unsigned low = digitValue(text[1]);
    if ((high | low) >= noDigit)
        return false;
    byte = quint8(high << 4 | low);
    return true;
}

/// A byte of one or two digits, or up to three decimal ones.
template <typename Char> bool readByte(Text<Char> text, unsigned base, quint8 &byte)
{
    if (base == 16 && readHexPair(text, byte))
        return true;
    quint32 value = 0;
    const std::size_t mostDigits = base == 16 ? 2 : 3;
    if (text.size() > mostDigits || !readNumber(text, base, value) || value > 0xFF)
        return false;
    byte = quint8(value);
    return true;
}

/// "12.345678" or "12", in microseconds; \a isCut is set when more digits are not 0.
template <typename Char> bool readSeconds(Text<Char> text, qint64 &microseconds, bool &isCut)
{
    constexpr qint64 million = 1000000;
    const std::size_t point = text.find(Char('.'));
    quint32 seconds = 0;
    if (!readNumber(text.substr(0, point), 10, seconds))
        return false;
    qint64 fraction = 0;
    qint64 weight = million / 10;
    bool cut = false;
    for (std::size_t i = point; i != text.npos && ++i < text.size(); weight /= 10) {
        const unsigned digit = digitValue(text[i]);
        if (digit > 9)
            return false;
        fraction += weight * digit;
        cut = cut || (weight == 0 && digit != 0);
    }
    microseconds = seconds * million + fraction;
    isCut = isCut || cut;
    return true;
}

inline void setTime(CAN::CanRxMessage &message, qint64 microseconds)
{
    constexpr qint64 million = 1000000;
    message.seconds = qint32(microseconds / million);
    message.microseconds = qint32(microseconds % million);
}

/// Payload bytes for a data length code of 0 to 15; those above 8 are CAN FD's.
constexpr std::array<quint8, 16> lengthOfCode{0, 1,  2,  3,  4,  5,  6,  7,
                                              8, 12, 16, 20, 24, 32, 48, 64};

/// Marks a record as an error frame.
inline void setErrorFrame(CAN::CanRxMessage &message)
{
    message.id = CAN::errorFrameId;
    message.extended = false;
    message.remote = false;
}

/// Finds the bus lines of channels: that of a number is the number, names get lines from 0 on in
/// the order in which they appear. The report knows them all.
class Channels
{
public:
    explicit Channels(LineSource &lines) : lines(lines) { }

    /// The line of a channel that the current line of the trace names.
    template <typename Char> quint16 lineOf(Text<Char> name)
    {
        // Hardly ever is the channel another one than before.
        if (name.size() != lastName.size()
            || !std::equal(name.begin(), name.end(), lastName.begin()))
            find(name);
        return last;
    }

private:
    template <typename Char> void find(Text<Char> name)
    {
        lastName.assign(name.begin(), name.end());
        const QString text = toQString(name);
        for (const ImportReport::Channel &channel : qAsConst(lines.report().channels)) {
            if (channel.name == text) {
                last = channel.line;
                return;
            }
        }
        quint32 number = 0;
        last = readNumber(name, 10, number) && number <= std::numeric_limits<quint16>::max()
            ? quint16(number)
            : nextNamed++;
        lines.report().channels.append({text, last});
    }

    LineSource &lines;
    std::u16string lastName;
    quint16 last = 0;
    quint16 nextNamed = 0;
};

} // namespace WrittenFields
