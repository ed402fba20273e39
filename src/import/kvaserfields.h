#pragma once

#include "canframe.h"
#include "lineparts.h"
#include "writtendates.h"
#include "writtenframe.h"

/// What the texts of Kvaser's programs share. None of them says in a frame's line whether numbers
/// are hexadecimal.
namespace KvaserFields {

/// Finds out the base of the numbers in a column.
class BaseGuess
{
public:
    /// A payload byte: two digits in hexadecimal, as few as needed in decimal.
    template <typename Char> void seeByte(Text<Char> text)
    {
        seeLetters(text);
        if (text.size() > 2)
            hasDecimal = true;
        else if (text.size() == 2 && text[0] == '0')
            hasPadding = true;
        else if (text.size() == 1)
            hasShort = true;
    }

    /// An identifier: only an extended one has four digits in hexadecimal.
    template <typename Char> void seeId(Text<Char> text, bool isExtended)
    {
        seeLetters(text);
        if (text.empty())
            return;
        if (text[0] == '0' && text.size() > 1)
            hasPaddedId = true;
        else if (text.size() > 3 && !isExtended)
            hasDecimal = true;
    }

    /// Whether more numbers cannot change anything.
    bool isSure() const { return hasLetter || hasDecimal; }

    unsigned base(unsigned otherwise) const
    {
        if (hasLetter)
            return 16;
        if (hasDecimal)
            return 10;
        if (hasPadding)
            return 16;
        if (hasShort)
            return 10;
        return hasPaddedId ? 16 : otherwise;
    }

private:
    template <typename Char> void seeLetters(Text<Char> text)
    {
        hasLetter = hasLetter || std::any_of(text.begin(), text.end(), [](Char c) {
                        const unsigned digit = WrittenFields::digitValue(c);
                        return digit >= 10 && digit < 16;
                    });
    }

    bool hasLetter = false;
    bool hasDecimal = false;
    bool hasPadding = false;
    bool hasShort = false;
    bool hasPaddedId = false;
};

/// How much of a trace is looked at for the bases.
constexpr std::size_t headSize = 1048576;

/// Lets \a see(line) look at the head of a trace until it returns true, and goes back to the start.
template <typename See> void lookAhead(LineSource &lines, See see)
{
    std::size_t charactersLeft = headSize;
    bool isDone = false;
    while (!isDone && charactersLeft > 0 && lines.next()) {
        isDone = lines.visit([&](auto line) {
            charactersLeft -= std::min(charactersLeft, line.size() + 1);
            return see(line);
        });
    }
    lines.rewind();
}

/// "Tx", "TxRq", "T" and their counterparts.
template <typename Char> bool readDirection(Text<Char> word, bool &isTransmitted)
{
    using LineFields::equals;
    const bool isTx = equals(word, "Tx") || equals(word, "TxRq") || equals(word, "T");
    if (!isTx && !equals(word, "Rx") && !equals(word, "R"))
        return false;
    isTransmitted = isTx;
    return true;
}

/// Letters such as "x" or "FB", of which those in \a errorStates stand for the error state
/// indicator. What else is said of the receiver's state has no place in a record.
template <typename Char>
bool readFlags(Text<Char> word, std::string_view errorStates, CAN::CanRxMessage &message)
{
    constexpr std::string_view ofReceiver = "ENWOT#!";
    for (const Char c : word) {
        if (c == 'x' || c == 'X')
            message.extended = true;
        else if (c == 'R')
            message.remote = true;
        else if (c == 'F')
            message.fdFrame = true;
        else if (c == 'B')
            message.flagC = true;
        else if (c < 0x80 && errorStates.find(char(c)) != errorStates.npos)
            message.flagB = true;
        else if (c >= 0x80 || ofReceiver.find(char(c)) == ofReceiver.npos)
            return false;
    }
    return true;
}

/// The identifier, whose flags have been read.
template <typename Char> bool readId(Text<Char> text, unsigned base, WrittenFrame &frame)
{
    quint32 id = 0;
    if (!WrittenFields::readNumber(text, base, id))
        return frame.fail(ImportReport::UnparsableNumber);
    return frame.setId(id, frame.message.extended);
}

/// Seconds, which are negative in front of a trigger that times are counted from.
template <typename Char> bool readTime(Text<Char> text, WrittenFrame &frame)
{
    const bool isNegative = !text.empty() && text[0] == '-';
    if (isNegative)
        text.remove_prefix(1);
    qint64 microseconds = 0;
    if (!WrittenFields::readSeconds(text, microseconds, frame.isChanged[ImportReport::ChangedTime]))
        return frame.fail(ImportReport::UnparsableNumber);
    return frame.setTime(isNegative ? -microseconds : microseconds);
}

/// The length that a frame with \a written in its length column and \a bytes of payload has; CAN FD
/// frames have the length or its code there. False for one that fits neither.
inline bool setLength(quint32 written, int bytes, WrittenFrame &frame)
{
    constexpr quint32 maxCode = 15;
    int length = int(std::min(written, quint32(CAN::maxDataBytes + 1)));
    if (bytes != length && written <= maxCode)
        length = frame.message.fdFrame ? WrittenFields::lengthOfCode[written]
                                       : int(std::min(written, WrittenFields::maxClassicBytes));
    frame.message.length = qint8(length);
    frame.isChanged[ImportReport::ChangedLength] =
        !frame.message.fdFrame && written > quint32(length);
    return bytes == length && length <= CAN::maxDataBytes;
}

} // namespace KvaserFields
