#include "cocttreader.h"

#include "canframe.h"
#include "cantimestamp.h"
#include "linefields.h"
#include "messagefeed.h"
#include "writtendates.h"
#include "writtenframe.h"

using namespace LineFields;

namespace {

constexpr std::string_view frameTag = "Test CAN";

// Splits a simplified line at " : ", keeping empty parts; the parts are simplified as well.
template <typename Char> Parts<Char> splitEntry(Text<Char> line)
{
    Parts<Char> parts;
    std::size_t start = 0;
    CharMask::forEach(line, CharMask::Is<':'>(), [&](std::size_t colon) {
        const bool isSeparator = colon > start && line[colon - 1] == ' ' && colon + 1 < line.size()
            && line[colon + 1] == ' ';
        if (!isSeparator)
            return;
        parts.append(line.substr(start, colon - 1 - start));
        start = colon + 2;
    });
    parts.append(line.substr(start));
    return parts;
}

template <typename Char> QTime timeOfDay(Text<Char> text)
{
    if (!hasLayout(text, "00:00:00.000"))
        return QTime::fromString(toQString(text), QStringLiteral("hh:mm:ss.zzz"));
    const auto number = [text](std::size_t start, std::size_t digits) {
        return toNumber<qint32>(text.substr(start, digits));
    };
    return QTime(number(0, 2), number(3, 2), number(6, 2), number(9, 3));
}

template <typename Char> void setTimeStamp(Text<Char> text, CAN::CanRxMessage &message)
{
    const CanTimeStamp timeStamp(timeOfDay(text));
    message.seconds = timeStamp.seconds();
    message.microseconds = timeStamp.microseconds();
}

// False when identifier or length cannot be read, or bytes are missing.
template <typename Char> bool readFrame(const Parts<Char> &tokens, CAN::CanRxMessage &message)
{
    enum Token { IdToken = 1, DirectionToken, KindToken, LengthToken, DataToken };
    bool isId = false;
    bool isLength = false;
    message.id = toNumber<quint32>(tokens[IdToken], 16, &isId);
    message.transmitted = equals(tokens[DirectionToken], "Tx");
    message.remote = equals(tokens[KindToken], "SR");
    message.length = qint8(toNumber<qint32>(tokens[LengthToken], 10, &isLength));
    if (!isId || !isLength)
        return false;
    if (message.remote)
        return true;
    readBytes(tokens, DataToken, CAN::payloadSize(message), 16, message);
    return tokens.size() - DataToken >= message.length;
}

template <typename Char> Outcome importCANMsgLine(Text<Char> line, MessageFeed &feed)
{
    constexpr int fewestTokens = 5;
    const Parts<Char> parts = splitEntry(line);
    const auto tag = std::find_if(parts.begin(), parts.end(),
                                  [](Text<Char> part) { return equals(part, frameTag); });
    // Where the tag is only a piece of a field, the first field is taken for the frame.
    const int tagIndex = tag == parts.end() ? -1 : int(tag - parts.begin());
    const Parts<Char> tokens = splitAtBlanks(partAt(parts, tagIndex + 1));
    if (tokens.size() < fewestTokens)
        return Outcome::wrongLine();
    if (!feed.turnEventLoopWhenDue())
        return Outcome::givenUp();
    CAN::CanRxMessage message;
    if (!readFrame(tokens, message))
        return Outcome::wrongLine();
    if (tagIndex > 0)
        setTimeStamp(parts[1], message);
    return feed.addMessageToMessageList(message);
}

template <typename Char> bool isRemark(Text<Char> line)
{
    return contains(line, "Test Notice") || contains(line, "Test Info")
        || contains(line, "Test Error");
}

template <typename Char> void importNoticeLine(Text<Char> line, MessageFeed &feed)
{
    if (line.find(Char(':')) != line.npos)
        feed.appendNote(toQString(line));
}

template <typename Char> Outcome readEntry(Text<Char> line, MessageFeed &feed)
{
    Scratch<Char> scratch;
    line = simplified(line, scratch);
    if (contains(line, frameTag))
        return importCANMsgLine(line, feed);
    if (isRemark(line))
        importNoticeLine(line, feed);
    return Outcome::done();
}

class CoCTTGrammar
{
public:
    explicit CoCTTGrammar(LineSource &lines) : channels(lines) { }

    template <typename Char> bool read(Text<Char> line, WrittenFrame &frame)
    {
        Scratch<Char> scratch;
        line = simplified(line, scratch);
        const Parts<Char> parts = splitEntry(line);
        const auto tag = std::find_if(parts.begin(), parts.end(),
                                      [](Text<Char> part) { return equals(part, frameTag); });
        if (tag == parts.end()) {
            if (!isRemark(line))
                return false;
            frame.note = toQString(line);
            return frame.fail(ImportReport::Comment);
        }
        return readTime(parts, int(tag - parts.begin()), frame)
            && readWords(splitAtBlanks(partAt(parts, int(tag - parts.begin()) + 1)), frame);
    }

private:
    enum Word { ChannelAt, IdAt, DirectionAt, KindAt, LengthAt, DataAt };

    // The time of day in front of the tag, in whichever field.
    template <typename Char>
    static bool readTime(const Parts<Char> &parts, int tagIndex, WrittenFrame &frame)
    {
        for (int i = 0; i < tagIndex; ++i) {
            qint64 microseconds = 0;
            if (WrittenFields::readClock(parts[i], microseconds,
                                         frame.isChanged[ImportReport::ChangedTime]))
                return frame.setTime(microseconds);
        }
        return tagIndex == 0 || frame.fail(ImportReport::UnparsableNumber);
    }

    // "1 123 Rx SD 2 11 22", where the kind is standard or extended, data or remote.
    template <typename Char> bool readWords(const Parts<Char> &words, WrittenFrame &frame)
    {
        CAN::CanRxMessage &message = frame.message;
        quint32 id = 0;
        quint32 length = 0;
        if (words.size() <= LengthAt)
            return frame.fail(ImportReport::TooFewFields);
        const Text<Char> direction = words[DirectionAt];
        const Text<Char> kind = words[KindAt];
        const bool isKind = kind.size() == 2 && (kind[0] == 'S' || kind[0] == 'E')
            && (kind[1] == 'D' || kind[1] == 'R');
        if (!isKind || (!equals(direction, "Rx") && !equals(direction, "Tx")))
            return false;
        if (!WrittenFields::readHex(words[IdAt], id)
            || !WrittenFields::readNumber(words[LengthAt], 10, length))
            return frame.fail(ImportReport::UnparsableNumber);
        message.transmitted = direction[0] == 'T';
        message.remote = kind[1] == 'R';
        if (!frame.setId(id, kind[0] == 'E')
            || !frame.setLength(length, ImportReport::UnparsableNumber))
            return false;
        const int bytes = message.remote ? 0 : message.length;
        if (!frame.readBytes(words, DataAt, bytes, 16))
            return false;
        frame.isChanged[ImportReport::ChangedPayload] = words.size() > DataAt + bytes;
        message.line = channels.lineOf(words[ChannelAt]);
        return true;
    }

    WrittenFields::Channels channels;
};

} // namespace

Outcome readCoCTTLogTolerantly(LineSource &lines, TraceSink &sink, const TraceRequest &)
{
    CoCTTGrammar grammar(lines);
    return readWrittenFrames(lines, sink, grammar);
}

Outcome readCoCTTLog(LineSource &lines, TraceSink &sink, const TraceRequest &)
{
    MessageFeed feed(lines, sink);
    return readNumberedLines(lines, [&feed](auto line) { return readEntry(line, feed); });
}
