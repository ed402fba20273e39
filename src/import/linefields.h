#pragma once

#include "canframe.h"
#include "linesource.h"

#include <QVarLengthArray>

#include <algorithm>
#include <array>
#include <iterator>
#include <limits>
#include <string>
#include <type_traits>

/// Fields that several trace formats share. What a field means follows QString's conversions
/// exactly; the plain cases are read in place.
namespace LineFields {

/// Parts of a line. Long enough for a CAN FD frame without an allocation.
template <typename Char> using Parts = QVarLengthArray<Text<Char>, 96>;

/// What QChar::isSpace says of a character.
inline bool isBlank(char c)
{
    // Nearly every character is above all blanks.
    return c <= ' ' && (c == ' ' || (c >= '\t' && c <= '\r'));
}
inline bool isBlank(char16_t c)
{
    return QChar(c).isSpace();
}

template <typename Char> bool contains(Text<Char> text, std::string_view word)
{
    if constexpr (std::is_same_v<Char, char>) {
        return text.find(word) != text.npos;
    } else {
        return std::search(text.begin(), text.end(), word.begin(), word.end()) != text.end();
    }
}

template <typename Char> bool equals(Text<Char> text, std::string_view word)
{
    return text.size() == word.size() && std::equal(text.begin(), text.end(), word.begin());
}

/// The parts between runs of separators.
template <typename Char, typename IsSeparator>
Parts<Char> splitDroppingEmpty(Text<Char> line, IsSeparator isSeparator)
{
    Parts<Char> parts;
    const Char *at = line.data();
    const Char *const end = at + line.size();
    for (;;) {
        while (at != end && isSeparator(*at))
            ++at;
        if (at == end)
            return parts;
        const Char *const start = at;
        while (at != end && !isSeparator(*at))
            ++at;
        parts.append(Text<Char>(start, std::size_t(at - start)));
    }
}

/// The parts between runs of blanks: simplified() and split at " " without empty parts.
template <typename Char> Parts<Char> splitAtBlanks(Text<Char> line)
{
    return splitDroppingEmpty(line, [](Char c) { return isBlank(c); });
}

/// Without the blanks around it.
template <typename Char> Text<Char> trimmed(Text<Char> text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

/// Room for a changed copy of a piece of a line, without an allocation for ordinary ones.
template <typename Char> using Scratch = QVarLengthArray<Char, 512>;

template <typename Char> Text<Char> textOf(const Scratch<Char> &scratch)
{
    return {scratch.constData(), std::size_t(scratch.size())};
}

/// QString::simplified; kept in \a scratch when blanks inside have to change.
template <typename Char> Text<Char> simplified(Text<Char> text, Scratch<Char> &scratch)
{
    text = trimmed(text);
    bool isSimple = true;
    for (std::size_t i = 0; isSimple && i < text.size(); ++i)
        isSimple = !isBlank(text[i]) || (text[i] == ' ' && !isBlank(text[i + 1]));
    if (isSimple)
        return text;
    scratch.clear();
    for (const Text<Char> part : splitAtBlanks(text)) {
        scratch.append(part.data(), int(part.size()));
        scratch.append(Char(' '));
    }
    scratch.removeLast();
    return textOf(scratch);
}

/// Split at every \a separator, keeping empty parts.
template <typename Char> Parts<Char> splitKeepingEmpty(Text<Char> text, char separator)
{
    Parts<Char> parts;
    for (;;) {
        const std::size_t end = text.find(Char(separator));
        parts.append(text.substr(0, end));
        if (end == text.npos)
            return parts;
        text.remove_prefix(end + 1);
    }
}

/// Part \a index, or an empty text when there are not so many.
template <typename Char> Text<Char> partAt(const Parts<Char> &parts, int index)
{
    return index >= 0 && index < parts.size() ? parts[index] : Text<Char>();
}

/// The position of a column, or noColumn: positions are kept in a signed byte, and those above
/// 127 count as absent.
constexpr int noColumn = -1;
inline int columnAt(int index)
{
    return index <= std::numeric_limits<qint8>::max() ? index : noColumn;
}

constexpr std::array<quint8, 128> makeDigitValues()
{
    std::array<quint8, 128> values{};
    for (std::size_t c = 0; c < values.size(); ++c) {
        const bool isDecimal = c >= '0' && c <= '9';
        const std::size_t letter = (c | 0x20) - 'a';
        values[c] = quint8(isDecimal ? c - '0' : letter < 6 ? letter + 10 : 16);
    }
    return values;
}

constexpr std::array<quint8, 128> digitValues = makeDigitValues();

/// The value of a digit in bases up to 16, or 16 for any other character.
template <typename Char> unsigned digitValue(Char c)
{
    const auto code = std::make_unsigned_t<Char>(c);
    return code < digitValues.size() ? digitValues[code] : 16;
}

/// QString's own conversion, for everything but plain digits.
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

/// Whether no number holds this character. Says nothing of blanks and of other scripts.
template <typename Char> bool isForeignToNumbers(Char c, int base)
{
    if (c <= ' ' || c > '~' || c == '+' || c == '-')
        return false;
    return base == 10 ? digitValue(c) >= 10 : digitValue(c) == 16 && c != 'x' && c != 'X';
}

/// Reads plain digits, few enough not to overflow. False for any other text.
template <typename Char> bool readDigits(Text<Char> text, unsigned base, quint64 &value)
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

/// \a text as a number the way QString converts it, in \a base 10, 16 or 0 (found from the
/// prefix); 0 when it is none or out of range.
template <typename Number, typename Char>
Number toNumber(Text<Char> text, int base = 10, bool *ok = nullptr)
{
    const bool isPrefixed =
        base != 10 && text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
    const bool isOctal = base == 0 && !isPrefixed && text.size() > 1 && text[0] == '0';
    const unsigned digitBase = base == 10 || (base == 0 && !isPrefixed) ? 10 : 16;
    quint64 value = 0;
    if (isOctal || !readDigits(isPrefixed ? text.substr(2) : text, digitBase, value)) {
        const bool isWord = std::any_of(text.begin(), text.end(),
                                        [base](Char c) { return isForeignToNumbers(c, base); });
        if (!isWord)
            return toNumberByQt<Number>(toQString(text), base, ok);
        if (ok)
            *ok = false;
        return 0;
    }
    const bool inRange = value <= quint64(std::numeric_limits<Number>::max());
    if (ok)
        *ok = inRange;
    return inRange ? Number(value) : 0;
}

/// A payload byte: the low 8 bits of a number.
template <typename Char> quint8 toByte(Text<Char> text, int base)
{
    if (text.size() == 2 && base == 16) {
        const unsigned high = digitValue(text[0]);
        const unsigned low = digitValue(text[1]);
        if ((high | low) < 16)
            return quint8(high << 4 | low);
    }
    return quint8(toNumber<quint32>(text, base));
}

template <typename Char> quint8 toHexByte(Text<Char> text)
{
    return toByte(text, 16);
}

/// A fraction of a second, as written behind the point: padded on the right to six digits and
/// never cut.
template <typename Char> qint32 toMicroseconds(Text<Char> fraction)
{
    constexpr int digits = 6;
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

/// \a text without any \a open and \a close; kept in \a scratch when they stand inside.
template <typename Char>
Text<Char> withoutBrackets(Text<Char> text, char open, char close, std::basic_string<Char> &scratch)
{
    const auto isBracket = [open, close](Char c) { return c == Char(open) || c == Char(close); };
    while (!text.empty() && isBracket(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBracket(text.back()))
        text.remove_suffix(1);
    if (std::none_of(text.begin(), text.end(), isBracket))
        return text;
    scratch.clear();
    std::remove_copy_if(text.begin(), text.end(), std::back_inserter(scratch), isBracket);
    return scratch;
}

/// A time stamp with its last part as the fraction, in parentheses wherever they stand.
template <typename Char>
void readTimeStampInParentheses(Text<Char> text, CAN::CanRxMessage &message)
{
    std::basic_string<Char> scratch;
    readTimeStamp(withoutBrackets(text, '(', ')', scratch), FractionPart::Last, message);
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

/// Reads up to \a count parts from \a first on as payload bytes in \a base, the low 8 bits of
/// each, as far as there are parts and room for them.
template <typename Char>
void readBytes(const Parts<Char> &parts, int first, int count, int base, CAN::CanRxMessage &message)
{
    const int available = std::min(count, int(parts.size()) - first);
    for (int i = 0; i < std::min(available, CAN::maxDataBytes); ++i)
        message.data[i] = toByte(parts[first + i], base);
}

/// Stores one more payload byte where there is room for it.
inline void storeByte(CAN::CanRxMessage &message, int index, quint8 byte)
{
    if (index < CAN::maxDataBytes)
        message.data[index] = byte;
}

constexpr quint32 maxStandardId = 0x7FF;

} // namespace LineFields
