#include "canframe.h"
#include "lineparts.h"
#include "messagefeed.h"
#include "vectorascreader.h"
#include "writtenfields.h"

using namespace LineFields;
using namespace WrittenFields;

namespace {

constexpr quint32 messagesBetweenTurns = 10000;

using Reason = ImportReport::Reason;

constexpr quint32 maxClassicBytes = 8;

struct Log
{
    Log(LineSource &lines, TraceSink &sink)
        : lines(lines), channels(lines), feed(lines, sink, messagesBetweenTurns)
    {
    }

    LineSource &lines;
    Channels channels;
    MessageFeed feed;
    unsigned base = 16; // of identifiers and payload
    bool hasFdFrames = false;
};

// A month by the beginning of its English or German name, or 0.
template <typename Char> int monthOf(Text<Char> name)
{
    constexpr std::pair<std::string_view, int> names[] = {
        {"jan", 1},  {"feb", 2},  {"mar", 3},  {"mrz", 3}, {"apr", 4}, {"may", 5},
        {"mai", 5},  {"jun", 6},  {"jul", 7},  {"aug", 8}, {"sep", 9}, {"oct", 10},
        {"okt", 10}, {"nov", 11}, {"dec", 12}, {"dez", 12}};
    for (const auto &[beginning, month] : names) {
        if (beginsWithWord(name, beginning))
            return month;
    }
    // What an umlaut becomes depends on the encoding.
    return name.size() >= 3 && beginsWithWord(name, "m") && (name.back() | 0x20) == 'r' ? 3 : 0;
}

// "15:06:13.191", on a clock of twelve hours with \a half, which is "am" or "pm".
template <typename Char> QTime clockTime(Text<Char> text, Text<Char> half)
{
    const Parts<Char> parts = splitKeepingEmpty<':'>(text);
    quint32 hours = 0;
    quint32 minutes = 0;
    qint64 microseconds = 0;
    bool isCut = false;
    if (parts.size() != 3 || !readNumber(parts[0], 10, hours) || !readNumber(parts[1], 10, minutes)
        || !readSeconds(parts[2], microseconds, isCut))
        return {};
    if (isWord(half, "am") || isWord(half, "pm"))
        hours = hours % 12 + (isWord(half, "pm") ? 12 : 0);
    const auto milliseconds = int(microseconds / 1000);
    return {int(hours), int(minutes), milliseconds / 1000, milliseconds % 1000};
}

// "Thu Apr 28 10:44:52.480 am 2022" from part \a at on.
template <typename Char> QDateTime dateTimeAt(const Parts<Char> &parts, int at)
{
    quint32 day = 0;
    quint32 year = 0;
    if (!readNumber(partAt(parts, at + 2), 10, day) || !readNumber(parts.last(), 10, year))
        return {};
    return {QDate(int(year), monthOf(parts[at + 1]), int(day)),
            clockTime(partAt(parts, at + 3), partAt(parts, at + 4)), Qt::UTC};
}

// "base hex  timestamps absolute"
template <typename Char> void readBase(const Parts<Char> &parts, Log &log)
{
    log.base = isWord(partAt(parts, 1), "dec") ? 10 : 16;
    if (isWord(partAt(parts, 2), "timestamps"))
        log.lines.report().timeBase = toQString(partAt(parts, 3));
}

template <typename Char> void readStart(const Parts<Char> &parts, int at, Log &log)
{
    QDateTime &start = log.lines.report().start;
    if (!start.isValid())
        start = dateTimeAt(parts, at);
}

// A line that does not begin with a time.
template <typename Char> Reason readOtherLine(const Parts<Char> &parts, Log &log)
{
    const Text<Char> first = parts[0];
    if (beginsWithWord(first, "//") || first[0] == ';')
        return Reason::Comment;
    const bool isTriggerBlock = beginsWithWord(partAt(parts, 1), "trigger");
    if (isWord(first, "base"))
        readBase(parts, log);
    else if (isWord(first, "date"))
        readStart(parts, 1, log);
    else if (isWord(first, "begin") && isTriggerBlock)
        readStart(parts, 2, log);
    else if (!(isWord(first, "end") && isTriggerBlock) && !isWord(first, "internal")
             && !isWord(first, "no"))
        return Reason::WrongShape;
    return Reason::Header;
}

template <typename Char> bool readDirection(Text<Char> text, bool &transmitted)
{
    const bool isTx = isWord(text, "tx") || isWord(text, "txrq");
    if (!isTx && !isWord(text, "rx"))
        return false;
    transmitted = isTx;
    return true;
}

// Why a line with a time that is no frame of CAN is left out: the events of a log are comments,
// and what has a direction is a frame of another bus or of a protocol above the bus.
template <typename Char> Reason reasonOfEvent(const Parts<Char> &parts)
{
    for (const std::string_view word :
         {"start", "log", "comment", "sv:", "tfs:", "gm", "trigger"}) {
        if (beginsWithWord(partAt(parts, 1), word))
            return Reason::Comment;
    }
    for (int i = 1; i < std::min(4, int(parts.size())); ++i) {
        if (beginsWithWord(parts[i], "statistic") || beginsWithWord(parts[i], "status"))
            return Reason::Statistics;
        if (isWord(parts[i], "overloadframe"))
            return Reason::UnkeptFrameKind;
    }
    bool transmitted = false;
    for (const Text<Char> part : parts) {
        if (readDirection(part, transmitted))
            return Reason::UnkeptFrameKind;
    }
    return parts.size() < 3 ? Reason::TooFewFields : Reason::WrongShape;
}

// "1ABx" is an extended identifier.
template <typename Char> bool readId(Text<Char> text, unsigned base, CAN::CanRxMessage &message)
{
    const bool isMarked = !text.empty() && (text.back() | 0x20) == 'x';
    if (isMarked)
        text.remove_suffix(1);
    quint32 id = 0;
    if (!readNumber(text, base, id) || id > maxExtendedId)
        return false;
    message.id = id;
    message.extended = isMarked || id > maxStandardId;
    return true;
}

// Where a symbolic name stands for the identifier, the end of the line tells it: "ID = 291".
template <typename Char>
bool readIdBehind(const Parts<Char> &parts, int at, CAN::CanRxMessage &message)
{
    while (at < parts.size() && !isWord(parts[at], "id"))
        ++at;
    return equals(partAt(parts, at + 1), "=") && readId(partAt(parts, at + 2), 10, message);
}

// The first \a count bytes from part \a at on.
template <typename Char>
LeftOut readBytes(const Parts<Char> &parts, int at, int count, unsigned base,
                  CAN::CanRxMessage &message)
{
    if (parts.size() - at < count)
        return Reason::TooFewFields;
    for (int i = 0; i < count; ++i) {
        if (!readByte(parts[at + i], base, message.data[i]))
            return Reason::UnparsableNumber;
    }
    message.length = qint8(count);
    return {};
}

// "8 11 22 …" from part \a at on: the length code of classic CAN and the payload.
template <typename Char>
LeftOut readClassicData(const Parts<Char> &parts, int at, Log &log, CAN::CanRxMessage &message)
{
    quint32 code = 0;
    if (!readNumber(parts[at], 16, code))
        return Reason::UnparsableNumber;
    const int count = int(std::min(code, maxClassicBytes));
    const int end = at + 1 + count;
    const LeftOut leftOut = readBytes(parts, at + 1, count, log.base, message);
    if (leftOut)
        return leftOut;
    if (code > maxClassicBytes)
        log.lines.change(ImportReport::ChangedLength);
    quint8 further = 0;
    if (readByte(partAt(parts, end), log.base, further))
        log.lines.change(ImportReport::ChangedPayload);
    return {};
}

// "r 8"; the length may be missing.
template <typename Char>
LeftOut readRemote(const Parts<Char> &parts, int at, Log &log, CAN::CanRxMessage &message)
{
    quint32 code = 0;
    message.remote = true;
    if (readNumber(partAt(parts, at), 16, code) && code > maxClassicBytes)
        log.lines.change(ImportReport::ChangedLength);
    message.length = qint8(std::min(code, maxClassicBytes));
    return {};
}

template <typename Char>
LeftOut readError(const Parts<Char> &parts, int channel, Log &log, CAN::CanRxMessage &message)
{
    setErrorFrame(message);
    message.transmitted = false;
    message.line = log.channels.lineOf(parts[channel]);
    return {};
}

// "12.5 1 123x Rx d 2 11 22 …", the "d" may be missing.
template <typename Char>
LeftOut readClassicFrame(const Parts<Char> &parts, Log &log, CAN::CanRxMessage &message)
{
    if (isWord(partAt(parts, 2), "errorframe"))
        return readError(parts, 1, log, message);
    if (parts.size() < 5 || !readDirection(parts[3], message.transmitted))
        return reasonOfEvent(parts);
    if (!readId(parts[2], log.base, message) && !readIdBehind(parts, 5, message))
        return Reason::UnparsableNumber;
    const bool isRemote = isWord(parts[4], "r");
    const int at = isRemote || isWord(parts[4], "d") ? 5 : 4;
    if (!isRemote && parts.size() <= at)
        return Reason::TooFewFields;
    const LeftOut leftOut =
        isRemote ? readRemote(parts, at, log, message) : readClassicData(parts, at, log, message);
    if (!leftOut)
        message.line = log.channels.lineOf(parts[1]);
    return leftOut;
}

template <typename Char> bool readBit(Text<Char> text, bool &bit)
{
    if (text.size() != 1 || (text[0] != '0' && text[0] != '1'))
        return false;
    bit = text[0] == '1';
    return true;
}

// Behind the payload stand duration, bits and flags, one of which marks a remote frame.
template <typename Char> bool hasRemoteFlag(const Parts<Char> &parts, int dataEnd)
{
    constexpr quint32 remoteFlag = 0x10;
    quint32 flags = 0;
    return readNumber(partAt(parts, dataEnd + 2), 16, flags) && (flags & remoteFlag) != 0;
}

// "1 0 9 12 11 22 …" from part \a at on: bit rate switch, error state, length code, then the length
// in bytes, which is 0 in remote frames.
template <typename Char>
LeftOut readFdData(const Parts<Char> &parts, int at, Log &log, CAN::CanRxMessage &message)
{
    quint32 code = 0;
    quint32 length = 0;
    if (!readBit(parts[at], message.flagC) || !readBit(parts[at + 1], message.flagB))
        return Reason::WrongShape;
    if (!readNumber(parts[at + 2], 16, code) || !readNumber(parts[at + 3], 10, length))
        return Reason::UnparsableNumber;
    if (length > CAN::maxDataBytes)
        return Reason::WrongShape;
    at += 4;
    if (length == 0 && (code != 0 || hasRemoteFlag(parts, at)))
        message.remote = true;
    if (!message.remote)
        return readBytes(parts, at, int(length), log.base, message);
    if (code > maxClassicBytes)
        log.lines.change(ImportReport::ChangedLength);
    message.length = qint8(std::min(code, maxClassicBytes));
    return {};
}

// "12.5 CANFD 1 Rx 123x Name 1 0 9 12 11 22 …", the name may be missing.
template <typename Char>
LeftOut readFdFrame(const Parts<Char> &parts, Log &log, CAN::CanRxMessage &message)
{
    constexpr int fieldsOfData = 4;
    if (isWord(partAt(parts, 3), "errorframe") || isWord(partAt(parts, 4), "errorframe"))
        return readError(parts, 2, log, message);
    quint32 channel = 0;
    if (!readNumber(partAt(parts, 2), 10, channel)
        || !readDirection(partAt(parts, 3), message.transmitted))
        return reasonOfEvent(parts);
    if (!readId(partAt(parts, 4), log.base, message))
        return Reason::UnparsableNumber;
    bool isBit = false;
    const int at = readBit(partAt(parts, 5), isBit) ? 5 : 6;
    if (parts.size() < at + fieldsOfData)
        return Reason::TooFewFields;
    const LeftOut leftOut = readFdData(parts, at, log, message);
    if (leftOut)
        return leftOut;
    message.fdFrame = log.hasFdFrames = true;
    message.line = log.channels.lineOf(parts[2]);
    return {};
}

template <typename Char> LeftOut readLine(Text<Char> line, Log &log, CAN::CanRxMessage &message)
{
    const Parts<Char> parts = splitAtBlanks(line);
    if (parts.isEmpty())
        return Reason::Empty;
    qint64 microseconds = 0;
    bool isCut = false;
    if (!readSeconds(parts[0], microseconds, isCut))
        return readOtherLine(parts, log);
    quint32 channel = 0;
    LeftOut leftOut;
    if (readNumber(partAt(parts, 1), 10, channel))
        leftOut = readClassicFrame(parts, log, message);
    else if (isWord(partAt(parts, 1), "canfd"))
        leftOut = readFdFrame(parts, log, message);
    else
        leftOut = reasonOfEvent(parts);
    setTime(message, microseconds);
    if (isCut && !leftOut)
        log.lines.change(ImportReport::ChangedTime);
    return leftOut;
}

} // namespace

Outcome readVectorAscTolerantly(LineSource &lines, TraceSink &sink, const TraceRequest &)
{
    const CAN::CanRxMessage blank;
    Log log(lines, sink);
    while (lines.next()) {
        if (!log.feed.turnEventLoopWhenDue())
            return Outcome::givenUp();
        CAN::CanRxMessage message = blank;
        const LeftOut leftOut =
            lines.visit([&](auto line) { return readLine(line, log, message); });
        if (leftOut) {
            lines.leaveOut(*leftOut);
            continue;
        }
        const Outcome result = log.feed.addMessageToMessageList(message);
        if (!result.isDone())
            return result;
    }
    sink.fdFrames(log.hasFdFrames);
    return Outcome::done();
}
