#pragma once

#include "canframe.h"
#include "linenumbers.h"

#include <array>
#include <limits>
#include <string>
#include <vector>

/// Fields as tolerant readers take them: a field is what it says or none at all. Every function
/// returns false, and changes nothing, for a text that is no such field.
namespace WrittenFields {

constexpr quint32 maxStandardId = 0x7FF;
constexpr quint32 maxExtendedId = 0x1FFFFFFF;
constexpr quint32 maxClassicBytes = 8; // of a frame without CAN FD

using LineFields::digitValue;

/// Whether \a text is \a word, which is in small letters, in letters of any size.
template <typename Char> bool isWord(Text<Char> text, std::string_view word)
{
    const auto same = [](Char c, char letter) {
        return c == Char(letter) || (c >= 'A' && c <= 'Z' && c + 'a' - 'A' == letter);
    };
    return text.size() == word.size() && std::equal(text.begin(), text.end(), word.begin(), same);
}

/// Whether \a text begins with \a word, as above.
template <typename Char> bool beginsWithWord(Text<Char> text, std::string_view word)
{
    return isWord(text.substr(0, word.size()), word);
}

/// Whether \a text holds \a word anywhere, as above.
template <typename Char> bool hasWord(Text<Char> text, std::string_view word)
{
    for (; text.size() >= word.size(); text.remove_prefix(1)) {
        if (beginsWithWord(text, word))
            return true;
    }
    return false;
}

/// A number of nothing but digits, with up to 32 bits.
template <typename Char>
Q_ALWAYS_INLINE bool readNumber(Text<Char> text, unsigned base, quint32 &number)
{
    constexpr std::size_t digitsWithoutOverflow = 15;
    while (text.size() > digitsWithoutOverflow && text.front() == '0')
        text.remove_prefix(1);
    if (text.empty() || text.size() > digitsWithoutOverflow)
        return false;
    quint64 value = 0;
    for (const Char c : text) {
        const unsigned digit = digitValue(c);
        if (digit >= base)
            return false;
        value = value * base + digit;
    }
    if (value > std::numeric_limits<quint32>::max())
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

/// A byte of exactly two hexadecimal digits.
template <typename Char> bool readHexPair(Text<Char> text, quint8 &byte)
{
    if (text.size() != 2)
        return false;
    const unsigned high = digitValue(text[0]);
    const unsigned low = digitValue(text[1]);
    if ((high | low) >= LineFields::noDigit)
        return false;
    byte = quint8(high << 4 | low);
    return true;
}

/// A byte of one or two digits, or up to three decimal ones.
template <typename Char> Q_ALWAYS_INLINE bool readByte(Text<Char> text, unsigned base, quint8 &byte)
{
    if (base == 16 && text.size() == 2)
        return readHexPair(text, byte);
    quint32 value = 0;
    const std::size_t mostDigits = base == 16 ? 2 : 3;
    if (text.size() > mostDigits || !readNumber(text, base, value) || value > 0xFF)
        return false;
    byte = quint8(value);
    return true;
}

constexpr quint32 maxSeconds = std::numeric_limits<qint32>::max();

/// The digits behind the point of a time in seconds, rounded to microseconds.
class Fraction
{
public:
    static constexpr std::size_t mostDigits = 6;
    /// Microseconds in the last of so many digits.
    static constexpr std::array<qint32, mostDigits + 1> weights{1000000, 100000, 10000, 1000,
                                                                100,     10,     1};

    void add(unsigned digit)
    {
        if (count < mostDigits) {
            value = value * 10 + qint32(digit);
            ++count;
            return;
        }
        isRoundedUp = isRoundedUp || (!isRounded && digit >= 5);
        isRounded = true;
        isCut = isCut || digit != 0;
    }
    /// A million when the digits are rounded up to the next second.
    qint32 microseconds() const { return value * weights[count] + qint32(isRoundedUp); }
    /// Whether digits behind the sixth are not all 0.
    bool wasCut() const { return isCut; }

private:
    qint32 value = 0;
    std::size_t count = 0;
    bool isRounded = false;
    bool isRoundedUp = false;
    bool isCut = false;
};

/// The number of the decimal digits that \a text begins with, at most \a most, which are removed
/// from it. The result is how many they are.
template <typename Char> std::size_t takeDigits(Text<Char> &text, std::size_t most, quint64 &number)
{
    const std::size_t end = std::min(text.size(), most);
    std::size_t digits = 0;
    for (unsigned digit = 0; digits < end && (digit = unsigned(text[digits]) - '0') < 10; ++digits)
        number = number * 10 + digit;
    text.remove_prefix(digits);
    return digits;
}

/// "12.345678" or "12", in microseconds. Further digits are rounded, and \a isCut is set when they
/// are not all 0.
template <typename Char> bool readSeconds(Text<Char> text, qint64 &microseconds, bool &isCut)
{
    constexpr std::size_t digitsWithoutOverflow = 15;
    quint64 seconds = 0;
    quint64 fraction = 0;
    if (takeDigits(text, digitsWithoutOverflow, seconds) == 0 || seconds > maxSeconds)
        return false;
    std::size_t digits = 0;
    if (!text.empty() && text.front() == '.') {
        text.remove_prefix(1);
        digits = takeDigits(text, Fraction::mostDigits, fraction);
    }
    const bool isRoundedUp = digits == Fraction::mostDigits && !text.empty() && text.front() >= '5';
    bool cut = false;
    for (const Char c : text) {
        if (digits != Fraction::mostDigits || digitValue(c) > 9)
            return false;
        cut = cut || c != '0';
    }
    microseconds = qint64(seconds) * Fraction::weights[0]
        + qint64(fraction) * Fraction::weights[digits] + qint64(isRoundedUp);
    isCut = isCut || cut;
    return true;
}

/// Sets the time of a record, which has room for 31 bits of seconds and their sign; false for one
/// that is further away. Microseconds count forward from the second, also before 0.
inline bool trySetTime(CAN::CanRxMessage &message, qint64 microseconds)
{
    constexpr qint64 million = 1000000;
    constexpr qint64 limit = qint64(std::numeric_limits<qint32>::max()) * million;
    if (microseconds >= limit + million || microseconds < -limit)
        return false;
    const qint64 fraction = (microseconds % million + million) % million;
    message.seconds = qint32((microseconds - fraction) / million);
    message.microseconds = qint32(fraction);
    return true;
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

/// Finds the bus lines of channels: that of a number is the number, that of a name the number at
/// its end, as in "can1", so that logs of several interfaces do not get mixed up. Names without
/// one, or with that of another channel, get the first line that is free. The report knows them
/// all.
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
        const auto isSame = [name](const auto &known) {
            return std::equal(name.begin(), name.end(), known.first.begin(), known.first.end());
        };
        auto known = std::find_if(lineOfName.begin(), lineOfName.end(), isSame);
        if (known == lineOfName.end())
            known = lineOfName.insert(known, {{name.begin(), name.end()}, newLine(name)});
        lastName = known->first;
        last = known->second;
    }

    template <typename Char> quint16 newLine(Text<Char> name)
    {
        constexpr quint32 mostNamed = 0xFF; // lines are told apart by eight bits
        quint32 number = 0;
        const Text<Char> digits = digitsAtEnd(name);
        const bool isNumber = readNumber(digits, 10, number);
        const bool isNumberAlone = isNumber && digits.size() == name.size()
            && number <= std::numeric_limits<quint16>::max();
        const bool isLine =
            isNumberAlone || (isNumber && number <= mostNamed && !isTaken(quint16(number)));
        const quint16 line = isLine ? quint16(number) : freeLine();
        lines.report().channels.append({toQString(name), line});
        return line;
    }

    template <typename Char> static Text<Char> digitsAtEnd(Text<Char> name)
    {
        std::size_t begin = name.size();
        while (begin > 0 && name[begin - 1] >= '0' && name[begin - 1] <= '9')
            --begin;
        return name.substr(begin);
    }

    bool isTaken(quint16 line) const
    {
        return std::any_of(lineOfName.begin(), lineOfName.end(),
                           [line](const auto &known) { return known.second == line; });
    }

    quint16 freeLine()
    {
        while (isTaken(nextNamed))
            ++nextNamed;
        return nextNamed++;
    }

    LineSource &lines;
    std::vector<std::pair<std::u16string, quint16>> lineOfName;
    std::u16string lastName;
    quint16 last = 0;
    quint16 nextNamed = 0;
};

} // namespace WrittenFields
