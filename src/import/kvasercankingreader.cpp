#include "kvasercankingreader.h"

#include "canframe.h"
#include "linefields.h"
#include "messagefeed.h"

using namespace LineFields;

namespace {

constexpr std::size_t headSize = 1048576;
constexpr int minTokens = 6;

template <typename Char> bool hasLowerHexLetter(Text<Char> text)
{
    return std::any_of(text.begin(), text.end(), [](Char c) { return c >= 'a' && c <= 'f'; });
}

// Header words count like any other: a title with an "a" makes the log hexadecimal.
int numberBase(LineSource &lines)
{
    std::size_t charactersLeft = headSize;
    bool isHex = false;
    while (!isHex && charactersLeft > 0 && lines.next()) {
        lines.visit([&](auto line) {
            isHex = hasLowerHexLetter(line.substr(0, charactersLeft));
            charactersLeft -= std::min(charactersLeft, line.size() + 1);
        });
    }
    lines.rewind();
    return isHex ? 16 : 10;
}

// Only spaces separate columns here; other white space belongs to them.
template <typename Char> Parts<Char> splitAtSpaces(Text<Char> line)
{
    return splitDroppingEmpty(line, CharMask::Is<' '>());
}

// "0 123 X 2 11 22 12.5 R": the flags before the length may be missing.
template <typename Char> bool readLine(Text<Char> line, int base, CAN::CanRxMessage &message)
{
    constexpr int flagsOrLength = 2;
    const Parts<Char> tokens = splitAtSpaces(line);
    if (tokens.size() < minTokens)
        return false;
    message.id = toNumber<quint32>(tokens[1], base);
    const int dataStart = readLengthAtOrBehind(tokens, flagsOrLength, 0, message);
    const bool hasFlags = dataStart > flagsOrLength + 1;
    message.extended = hasFlags && contains(tokens[flagsOrLength], "X");
    if (tokens.size() < message.length + dataStart)
        return false;
    readBytes(tokens, dataStart, CAN::payloadSize(message), base, message);
    readTimeStamp(tokens[tokens.size() - 2], FractionPart::Last, message);
    return true;
}

} // namespace

Outcome readKvaserCanKing(LineSource &lines, TraceSink &sink, const TraceRequest &)
{
    const CAN::CanRxMessage blank;
    const int base = numberBase(lines);
    MessageFeed feed(lines, sink);
    while (lines.next()) {
        CAN::CanRxMessage message = blank;
        if (!lines.visit([&](auto line) { return readLine(line, base, message); }))
            continue;
        if (!feed.turnEventLoopWhenDue())
            return Outcome::givenUp();
        const Outcome result = feed.addMessageToMessageList(message);
        if (!result.isDone())
            return result;
    }
    return Outcome::done();
}
