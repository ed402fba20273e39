#include "candumpreader.h"

#include "canframe.h"
#include "linefields.h"
#include "messagefeed.h"

using namespace LineFields;

namespace {

void setId(CAN::CanRxMessage &message, quint32 id)
{
    message.id = id;
    message.extended = id > maxStandardId;
}

// Reads identifier and payload of "123#1122". A frame with more than one "#", as CAN FD has, is
// kept without either.
template <typename Char>
void readCompactFrame(Text<Char> id, Text<Char> digits, CAN::CanRxMessage &message)
{
    if (digits.find(Char('#')) != digits.npos) {
        ++misreads();
        return;
    }
    setId(message, toNumber<quint32>(id, 16));
    message.length = qint8((digits.size() + 1) / 2);
    // An odd last digit counts for the length, but its byte stays 0.
    if (digits.size() % 2 != 0)
        ++misreads();
    const int bytes = int(std::min(digits.size() / 2, std::size_t(CAN::maxDataBytes)));
    for (int i = 0; i < bytes; ++i)
        message.data[i] = toHexByte(Text<Char>(digits.data() + 2 * i, 2));
}

template <typename Char>
bool readCompactLine(Text<Char> line, const Parts<Char> &tokens, CAN::CanRxMessage &message)
{
    const Text<Char> frame = tokens[2];
    const std::size_t separator = frame.find(Char('#'));
    if (separator == frame.npos && line.find(Char('#')) == line.npos)
        return false;
    readTimeStampInParentheses(tokens[0], message);
    if (separator != frame.npos)
        readCompactFrame(frame.substr(0, separator), frame.substr(separator + 1), message);
    else
        ++misreads();
    return true;
}

template <typename Char> bool readSpacedLine(const Parts<Char> &tokens, CAN::CanRxMessage &message)
{
    const bool hasTime = tokens[0].front() == '(';
    if (hasTime && tokens[0].back() != ')')
        return false;
    const int interface = hasTime ? 1 : 0;
    if (hasTime)
        readTimeStampInParentheses(tokens[0], message);
    setId(message, toNumber<quint32>(tokens[interface + 1], 16));
    std::basic_string<Char> scratch;
    const Text<Char> length = withoutBrackets<'[', ']'>(tokens[interface + 2], scratch);
    message.length = qint8(toNumber<quint32>(length));
    readBytes(tokens, interface + 3, CAN::payloadSize(message), 16, message);
    return true;
}

template <typename Char> bool readLine(Text<Char> line, CAN::CanRxMessage &message)
{
    const Parts<Char> tokens = splitAtBlanks(line);
    if (tokens.size() == 3)
        return readCompactLine(line, tokens, message);
    return tokens.size() >= 5 && readSpacedLine(tokens, message);
}

} // namespace

Outcome readSocketCanDump(LineSource &lines, TraceSink &sink, const TraceRequest &)
{
    MessageFeed feed(lines, sink);
    return readNumberedLines(lines, [&feed](auto line) {
        if (!feed.turnEventLoopWhenDue())
            return Outcome::givenUp();
        CAN::CanRxMessage message;
        return readLine(line, message) ? feed.addMessageToMessageList(message) : Outcome::done();
    });
}
