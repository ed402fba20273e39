#include "vectorascreader.h"
#include "writtenframe.h"

using namespace LineFields;
using namespace WrittenFields;

namespace {

using Reason = ImportReport::Reason;

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
template <typename Char> bool readId(Text<Char> text, unsigned base, WrittenFrame &frame)
{
    const bool isMarked = !text.empty() && (text.back() | 0x20) == 'x';
    if (isMarked)
        text.remove_suffix(1);
    quint32 id = 0;
    return readNumber(text, base, id) ? frame.setId(id, isMarked)
                                      : frame.fail(Reason::UnparsableNumber);
}

// Where a symbolic name stands for the identifier, the end of the line tells it: "ID = 291".
template <typename Char> bool readIdBehind(const Parts<Char> &parts, int at, WrittenFrame &frame)
{
    while (at < parts.size() && !isWord(parts[at], "id"))
        ++at;
    return equals(partAt(parts, at + 1), "=") && readId(partAt(parts, at + 2), 10, frame);
}

// "r 8"; the length may be missing.
template <typename Char> bool readRemote(Text<Char> length, WrittenFrame &frame)
{
    quint32 code = 0;
    readNumber(length, 16, code);
    frame.message.remote = true;
    frame.setClassicLength(code);
    return true;
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

class VectorAscGrammar
{
public:
    explicit VectorAscGrammar(LineSource &lines) : report(lines.report()), channels(lines) { }

    template <typename Char> bool read(Text<Char> line, WrittenFrame &frame)
    {
        const Parts<Char> parts = splitAtBlanks(line);
        if (parts.isEmpty())
            return false;
        qint64 microseconds = 0;
        if (!readSeconds(parts[0], microseconds, frame.isChanged[ImportReport::ChangedTime]))
            return frame.fail(readOtherLine(parts));
        quint32 channel = 0;
        bool isFrame = false;
        if (readNumber(partAt(parts, 1), 10, channel))
            isFrame = readClassicFrame(parts, frame);
        else if (isWord(partAt(parts, 1), "canfd"))
            isFrame = readFdFrame(parts, frame);
        else
            frame.fail(reasonOfEvent(parts));
        return isFrame && frame.setTime(microseconds);
    }

private:
    // A line that does not begin with a time.
    template <typename Char> Reason readOtherLine(const Parts<Char> &parts)
    {
        const Text<Char> first = parts[0];
        if (beginsWithWord(first, "//") || first[0] == ';')
            return Reason::Comment;
        const bool isTriggerBlock = beginsWithWord(partAt(parts, 1), "trigger");
        if (isWord(first, "base"))
            readBase(parts);
        else if (isWord(first, "date"))
            readStart(parts, 1);
        else if (isWord(first, "begin") && isTriggerBlock)
            readStart(parts, 2);
        else if (!(isWord(first, "end") && isTriggerBlock) && !isWord(first, "internal")
                 && !isWord(first, "no"))
            return Reason::WrongShape;
        return Reason::Header;
    }

    // "base hex  timestamps absolute"
    template <typename Char> void readBase(const Parts<Char> &parts)
    {
        base = isWord(partAt(parts, 1), "dec") ? 10 : 16;
        if (isWord(partAt(parts, 2), "timestamps"))
            report.timeBase = toQString(partAt(parts, 3));
    }

    template <typename Char> void readStart(const Parts<Char> &parts, int at)
    {
        if (!report.start.isValid())
            report.start = dateTimeAt(parts, at);
    }

    // "12.5 1 123x Rx d 2 11 22 …", the "d" may be missing.
    template <typename Char> bool readClassicFrame(const Parts<Char> &parts, WrittenFrame &frame)
    {
        if (isWord(partAt(parts, 2), "errorframe"))
            return readErrorFrame(parts[1], frame);
        if (parts.size() < 5 || !readDirection(parts[3], frame.message.transmitted))
            return frame.fail(reasonOfEvent(parts));
        if (!readId(parts[2], base, frame) && !readIdBehind(parts, 5, frame))
            return false;
        const bool isRemote = isWord(parts[4], "r");
        const int at = isRemote || isWord(parts[4], "d") ? 5 : 4;
        if (!isRemote && parts.size() <= at)
            return frame.fail(Reason::TooFewFields);
        if (isRemote ? !readRemote(partAt(parts, at), frame) : !readClassicData(parts, at, frame))
            return false;
        frame.message.line = channels.lineOf(parts[1]);
        return true;
    }

    template <typename Char> bool readErrorFrame(Text<Char> channel, WrittenFrame &frame)
    {
        frame.setErrorFrame();
        frame.message.line = channels.lineOf(channel);
        return true;
    }

    // "8 11 22 …" from part \a at on: the length code of classic CAN and the payload.
    template <typename Char>
    bool readClassicData(const Parts<Char> &parts, int at, WrittenFrame &frame) const
    {
        quint32 code = 0;
        if (!readNumber(parts[at], 16, code))
            return frame.fail(Reason::UnparsableNumber);
        frame.setClassicLength(code);
        const int end = at + 1 + frame.message.length;
        if (!frame.readBytes(parts, at + 1, frame.message.length, base))
            return false;
        quint8 further = 0;
        frame.isChanged[ImportReport::ChangedPayload] = readByte(partAt(parts, end), base, further);
        return true;
    }

    // "12.5 CANFD 1 Rx 123x Name 1 0 9 12 11 22 …", the name may be missing.
    template <typename Char> bool readFdFrame(const Parts<Char> &parts, WrittenFrame &frame)
    {
        constexpr int fieldsOfData = 4;
        if (isWord(partAt(parts, 3), "errorframe") || isWord(partAt(parts, 4), "errorframe"))
            return readErrorFrame(parts[2], frame);
        quint32 channel = 0;
        if (!readNumber(partAt(parts, 2), 10, channel)
            || !readDirection(partAt(parts, 3), frame.message.transmitted))
            return frame.fail(reasonOfEvent(parts));
        if (!readId(partAt(parts, 4), base, frame))
            return false;
        bool isBit = false;
        const int at = readBit(partAt(parts, 5), isBit) ? 5 : 6;
        if (parts.size() < at + fieldsOfData)
            return frame.fail(Reason::TooFewFields);
        if (!readFdData(parts, at, frame))
            return false;
        frame.message.fdFrame = true;
        frame.message.line = channels.lineOf(parts[2]);
        return true;
    }

    // "1 0 9 12 11 22 …" from part \a at on: bit rate switch, error state, length code, then the
    // length in bytes, which is 0 in remote frames.
    template <typename Char>
    bool readFdData(const Parts<Char> &parts, int at, WrittenFrame &frame) const
    {
        CAN::CanRxMessage &message = frame.message;
        quint32 code = 0;
        quint32 length = 0;
        if (!readBit(parts[at], message.flagC) || !readBit(parts[at + 1], message.flagB))
            return frame.fail(Reason::WrongShape);
        if (!readNumber(parts[at + 2], 16, code) || !readNumber(parts[at + 3], 10, length))
            return frame.fail(Reason::UnparsableNumber);
        if (length == 0 && (code != 0 || hasRemoteFlag(parts, at + 4)))
            return readRemote(parts[at + 2], frame);
        return frame.setLength(length, Reason::WrongShape)
            && frame.readBytes(parts, at + 4, message.length, base);
    }

    ImportReport &report;
    Channels channels;
    unsigned base = 16; // of identifiers and payload
};

} // namespace

Outcome readVectorAscTolerantly(LineSource &lines, TraceSink &sink, const TraceRequest &)
{
    VectorAscGrammar grammar(lines);
    return readWrittenFrames(lines, sink, grammar);
}
