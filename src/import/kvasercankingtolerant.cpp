#include "kvasercankingreader.h"

#include "kvaserfields.h"

using namespace KvaserFields;
using LineFields::equals;
using LineFields::Parts;
using LineFields::splitAtBlanks;

namespace {

constexpr int flagsStart = 2; // behind channel and identifier

template <typename Char> bool isDigit(Text<Char> text)
{
    return !text.empty() && text[0] >= '0' && text[0] <= '9';
}

// The columns of "0 123 X 2 11 22 12.5 R"; the flags and the direction may be missing.
struct Columns
{
    int length = 0;
    int bytes = 0; // how many follow the length
    int time = 0;
    bool hasDirection = false;
    bool isTransmitted = false;

    // The direction and the time are told from the end.
    template <typename Char> void findTime(const Parts<Char> &parts)
    {
        hasDirection = readDirection(parts.last(), isTransmitted);
        time = parts.size() - (hasDirection ? 2 : 1);
    }
};

template <typename Char> bool findColumns(const Parts<Char> &parts, Columns &columns)
{
    if (parts.isEmpty())
        return false;
    columns.length = flagsStart;
    while (columns.length < parts.size() && !isDigit(parts[columns.length]))
        ++columns.length;
    columns.findTime(parts);
    columns.bytes = columns.time - columns.length - 1;
    const bool isTime = columns.hasDirection
        || (columns.bytes >= 0 && parts[columns.time].find(Char('.')) != Text<Char>::npos);
    return columns.bytes >= 0 && isTime && isDigit(parts[0]);
}

// The words stand in place of flags, length and payload.
template <typename Char> bool isErrorFrame(const Parts<Char> &parts)
{
    const int end = std::min(int(parts.size()), flagsStart + 2);
    return std::any_of(parts.begin(), parts.begin() + end,
                       [](Text<Char> part) { return equals(part, "ErrorFrame"); });
}

class CanKingGrammar
{
public:
    explicit CanKingGrammar(LineSource &lines) : channels(lines)
    {
        BaseGuess guess;
        lookAhead(lines, [&guess](auto line) { return seeNumbers(line, guess); });
        base = guess.base(10);
    }

    template <typename Char> bool read(Text<Char> line, WrittenFrame &frame)
    {
        const Parts<Char> parts = splitAtBlanks(line);
        if (parts.isEmpty())
            return false;
        if (equals(parts[0], "Chn"))
            return frame.fail(ImportReport::Header);
        if (equals(parts[0], "Logging"))
            return frame.fail(ImportReport::Comment);
        const bool isRead =
            isErrorFrame(parts) ? readErrorFrame(parts, frame) : readFrame(parts, frame);
        if (isRead)
            frame.message.line = channels.lineOf(parts[0]);
        return isRead;
    }

private:
    // One base for identifier and payload, as all numbers of such a log have.
    template <typename Char> static bool seeNumbers(Text<Char> line, BaseGuess &guess)
    {
        const Parts<Char> parts = splitAtBlanks(line);
        Columns columns;
        if (!findColumns(parts, columns))
            return false;
        const bool isExtended =
            std::any_of(parts.begin() + flagsStart, parts.begin() + columns.length,
                        [](Text<Char> flags) { return flags.find(Char('X')) != flags.npos; });
        guess.seeId(parts[1], isExtended);
        for (int i = 0; i < columns.bytes; ++i)
            guess.seeByte(parts[columns.length + 1 + i]);
        return guess.isSure();
    }

    template <typename Char> bool readFrame(const Parts<Char> &parts, WrittenFrame &frame) const
    {
        CAN::CanRxMessage &message = frame.message;
        Columns columns;
        if (!findColumns(parts, columns))
            return isDigit(parts[0]) && parts.size() > 1 && frame.fail(ImportReport::TooFewFields);
        for (int i = flagsStart; i < columns.length; ++i) {
            if (!readFlags(parts[i], "EP", message))
                return false;
        }
        message.flagB = message.flagB && message.fdFrame;
        quint32 channel = 0;
        quint32 length = 0;
        if (!WrittenFields::readNumber(parts[0], 10, channel)
            || !WrittenFields::readNumber(parts[columns.length], 10, length))
            return frame.fail(ImportReport::UnparsableNumber);
        if (!readId(parts[1], base, frame) || !readTimeAndDirection(parts, columns, frame))
            return false;
        if (!message.remote)
            return setLength(length, columns.bytes, frame)
                && frame.readBytes(parts, columns.length + 1, columns.bytes, base);
        frame.setClassicLength(length);
        // A remote frame carries nothing, so that bytes in its columns are left from another one.
        frame.isChanged[ImportReport::ChangedPayload] = columns.bytes > 0;
        return true;
    }

    // "0 00000000 ErrorFrame 12.5 R"
    template <typename Char>
    static bool readErrorFrame(const Parts<Char> &parts, WrittenFrame &frame)
    {
        Columns columns;
        columns.findTime(parts);
        if (columns.time < flagsStart || !isDigit(parts[0]))
            return frame.fail(ImportReport::TooFewFields);
        frame.setErrorFrame();
        return readTimeAndDirection(parts, columns, frame);
    }

    template <typename Char>
    static bool readTimeAndDirection(const Parts<Char> &parts, const Columns &columns,
                                     WrittenFrame &frame)
    {
        frame.message.transmitted = columns.isTransmitted;
        return readTime(parts[columns.time], frame);
    }

    WrittenFields::Channels channels;
    unsigned base = 10;
};

} // namespace

Outcome readKvaserCanKingTolerantly(LineSource &lines, TraceSink &sink, const TraceRequest &)
{
    CanKingGrammar grammar(lines);
    return readWrittenFrames(lines, sink, grammar);
}
