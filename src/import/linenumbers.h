#pragma once

#include "linesource.h"
#include "misreads.h"

#include <algorithm>
#include <array>
#include <limits>
#include <type_traits>

/// Numbers in a line, read exactly as QString converts them.
namespace LineFields {

constexpr unsigned noDigit = 16;

constexpr std::array<quint8, 256> makeDigitValues()
{
    std::array<quint8, 256> values{};
    for (std::size_t c = 0; c < values.size(); ++c) {
        const bool isDecimal = c >= '0' && c <= '9';
        const std::size_t letter = (c | 0x20) - 'a';
        values[c] = quint8(isDecimal ? c - '0' : letter < 6 ? letter + 10 : noDigit);
    }
    return values;
}

constexpr std::array<quint8, 256> digitValues = makeDigitValues();

/// The value of a digit in bases up to 16, or noDigit for any other character.
inline unsigned digitValue(char c)
{
    return digitValues[static_cast<unsigned char>(c)];
}
inline unsigned digitValue(char16_t c)
{
    return c < digitValues.size() ? digitValues[c] : noDigit;
}

/// Whether \a text is like \a layout, where a 0 stands for any decimal digit: "12:30" is like
/// "00:00".
template <typename Char> bool hasLayout(Text<Char> text, std::string_view layout)
{
    bool same = text.size() == layout.size();
    for (std::size_t i = 0; same && i < layout.size(); ++i)
        same = layout[i] == '0' ? digitValue(text[i]) < 10 : text[i] == Char(layout[i]);
    return same;
}

/// QString's own conversion, used for everything but plain digits.
template <typename Number> Number toNumberByQt(const QString &text, int base, bool *ok)
{
    if constexpr (std::is_same_v<Number, quint16>)
        return text.toUShort(ok, base);
    else if constexpr (std::is_same_v<Number, quint32>)
        return text.toUInt(ok, base);
    else if constexpr (std::is_same_v<Number, qint32>)
        return text.toInt(ok, base);
    else if constexpr (std::is_same_v<Number, quint64>)
        return text.toULongLong(ok, base);
    else
        return text.toLongLong(ok, base);
}

/// Whether a text with this character is no number. False for blanks and non-ASCII characters,
/// about which QString decides.
template <typename Char> bool isForeignToNumbers(Char c, int base)
{
    if (c <= ' ' || c > '~' || c == '+' || c == '-')
        return false;
    return base == 10 ? digitValue(c) >= 10 : digitValue(c) == noDigit && c != 'x' && c != 'X';
}

/// Reads up to 15 plain digits. False for any other text.
template <unsigned base, typename Char> bool readDigits(Text<Char> text, quint64 &value)
{
    constexpr std::size_t digitsWithoutOverflow = 15;
    if (text.empty() || text.size() > digitsWithoutOverflow)
        return false;
    value = 0;
    for (const Char c : text) {
        const unsigned digit = digitValue(c);
        if (digit >= base)
            return false;
        value = value * base + digit;
    }
    return true;
}

/// toUnusualNumber, told in any case whether the text is a number.
template <typename Number, typename Char>
Number toCheckedNumber(Text<Char> text, int base, bool *ok)
{
    const bool isPrefixed =
        base != 10 && text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
    quint64 value = 0;
    if (isPrefixed && readDigits<16>(text.substr(2), value)
        && value <= quint64(std::numeric_limits<Number>::max())) {
        *ok = true;
        return Number(value);
    }
    const bool isWord = text.empty() || std::any_of(text.begin(), text.end(), [base](Char c) {
                            return isForeignToNumbers(c, base);
                        });
    if (!isWord)
        return toNumberByQt<Number>(toQString(text), base, ok);
    *ok = false;
    return 0;
}

/// The part of toNumber for texts that are no plain digits or out of range.
template <typename Number, typename Char>
Q_NEVER_INLINE Number toUnusualNumber(Text<Char> text, int base, bool *ok)
{
    bool isNumber = false;
    const Number number = toCheckedNumber<Number>(text, base, &isNumber);
    if (ok)
        *ok = isNumber;
    else if (!isNumber)
        ++misreads();
    return number;
}

/// \a text as a number the way QString converts it, in \a base 10, 16 or 0 (found from the
/// prefix); 0 when it is none or out of range. That is a misread unless \a ok tells the caller.
template <typename Number, typename Char>
Number toNumber(Text<Char> text, int base = 10, bool *ok = nullptr)
{
    quint64 value = 0;
    // With base 0, a leading zero means that the number is octal or hexadecimal.
    const bool isPlain = base == 16                      ? readDigits<16>(text, value)
        : base == 0 && text.size() > 1 && text[0] == '0' ? false
                                                         : readDigits<10>(text, value);
    if (!isPlain || value > quint64(std::numeric_limits<Number>::max()))
        return toUnusualNumber<Number>(text, base, ok);
    if (ok)
        *ok = true;
    return Number(value);
}

/// The same for a field that may as well be missing or a word.
template <typename Number, typename Char> Number toNumberIfAny(Text<Char> text, int base = 10)
{
    bool isNumber = false;
    return toNumber<Number>(text, base, &isNumber);
}

/// What stands where a byte may be: one of the payload, or a field behind it, which may as well be
/// a word.
enum class ByteField { Payload, Behind };

template <ByteField field, typename Char>
Q_NEVER_INLINE quint8 toUnusualByte(Text<Char> text, int base)
{
    bool isNumber = false;
    quint32 value = 0;
    // A fast way out: words behind the payload are common.
    if (text.empty() || !isForeignToNumbers(text.front(), base))
        value = toNumber<quint32>(text, base, &isNumber);
    constexpr quint32 largest = std::numeric_limits<quint8>::max();
    if (field == ByteField::Payload && !(isNumber && value <= largest))
        ++misreads();
    return quint8(value);
}

/// The low 8 bits of a number. A text of the payload that is no byte is a misread.
template <ByteField field = ByteField::Payload, typename Char>
quint8 toByte(Text<Char> text, int base)
{
    if (text.size() == 2 && base == 16) {
        const unsigned high = digitValue(text[0]);
        const unsigned low = digitValue(text[1]);
        if ((high | low) < noDigit)
            return quint8(high << 4 | low);
    }
    return toUnusualByte<field>(text, base);
}

template <typename Char> quint8 toHexByte(Text<Char> text)
{
    return toByte(text, 16);
}

} // namespace LineFields
