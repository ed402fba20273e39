#include "peakreader.h"

#include "canframe.h"
#include "linefields.h"
#include "messagefeed.h"

using namespace LineFields;

namespace {

constexpr std::size_t longestStandardId = 4;

// Reads milliseconds and their fraction. The fraction is filled up to three digits; a longer one is
// neither cut nor scaled. Without a separator the number counts as both.
template <typename Char>
void converTimestringAndSetToCanMsg(Text<Char> text, CAN::CanRxMessage &message)
{
    Char separator = 0;
    for (const char candidate : {'.', ','}) {
        if (text.find(Char(candidate)) != text.npos)
            separator = Char(candidate);
    }
    constexpr std::size_t digits = 3;
    Scratch<Char> fraction;
    const Text<Char> written = text.substr(text.rfind(separator) + 1);
    fraction.append(written.data(), int(written.size()));
    while (fraction.size() < int(digits))
        fraction.append(Char('0'));
    const qint32 milliseconds = toNumber<qint32>(text.substr(0, text.find(separator)));
    message.seconds = milliseconds / 1000;
    const qint64 microseconds =
        qint64(milliseconds % 1000) * 1000 + toNumber<qint32>(textOf(fraction));
    message.microseconds = qint32(microseconds);
}

template <typename Char> void readId(Text<Char> text, CAN::CanRxMessage &message)
{
    message.id = toNumber<quint32>(text, 16);
    message.extended = text.size() > longestStandardId;
}

template <typename Char> Parts<Char> tokensOf(Text<Char> line)
{
    const bool isComment = !line.empty() && line.front() == ';';
    return isComment ? Parts<Char>() : splitAtBlanks(line);
}

// Reads a line of a 1.x file, from which the columns that 1.1 does not have are removed.
template <typename Char>
Outcome importVersion11StringList(const Parts<Char> &tokens, MessageFeed &feed)
{
    enum Token { TimeToken = 1, TypeToken, IdToken, LengthToken, DataToken };
    const Text<Char> type = partAt(tokens, TypeToken);
    if (type.empty())
        return Outcome::wrongLine();
    if (contains(type, "Warng")) {
        feed.appendNote(toQString(tokens.last()));
        return Outcome::done();
    }
    if (tokens.size() <= LengthToken)
        return Outcome::wrongLine();
    if (!feed.turnEventLoopWhenDue())
        return Outcome::givenUp();
    CAN::CanRxMessage message;
    converTimestringAndSetToCanMsg(tokens[TimeToken], message);
    message.transmitted = contains(type, "Tx");
    if (!message.transmitted && !contains(type, "Rx"))
        return Outcome::done();
    readId(tokens[IdToken], message);
    message.length = qint8(toNumber<qint32>(tokens[LengthToken]));
    message.remote = equals(partAt(tokens, DataToken), "RTR");
    if (!message.remote)
        readBytes(tokens, DataToken, CAN::maxDataBytes, 16, message);
    return feed.addMessageToMessageList(message);
}

enum class ExtraColumns { None, Bus, BusAndReserved };

template <typename Char> void removeExtraColumns(Parts<Char> &tokens, ExtraColumns columns)
{
    constexpr int busToken = 2;
    constexpr int reservedToken = 5;
    if (columns == ExtraColumns::BusAndReserved && tokens.size() > reservedToken)
        tokens.remove(reservedToken);
    if (columns != ExtraColumns::None && tokens.size() > busToken)
        tokens.remove(busToken);
}

Outcome importFileVersion1x(LineSource &lines, TraceSink &sink, ExtraColumns columns)
{
    MessageFeed feed(lines, sink);
    return readNumberedLines(lines, [&feed, columns](auto line) {
        auto tokens = tokensOf(line);
        if (tokens.isEmpty())
            return Outcome::done();
        removeExtraColumns(tokens, columns);
        return importVersion11StringList(tokens, feed);
    });
}

// Where the columns of a 2.x row stand.
struct Columns
{
    int time = noColumn;
    int type = noColumn;
    int id = noColumn;
    int direction = noColumn;
    int length = noColumn;
    int data = noColumn;
    int reserved = noColumn;

    bool areComplete() const
    {
        return std::min({time, type, id, direction, length, data}) != noColumn;
    }
};

// Position of the first item that is one of \a letters.
template <typename Char> int columnNamed(const Parts<Char> &names, std::string_view letters)
{
    for (int i = 0; i < names.size(); ++i) {
        for (const char letter : letters) {
            if (equals(names[i], {&letter, 1}))
                return columnAt(i);
        }
    }
    return noColumn;
}

template <typename Char> Columns check2xColumnPos(Text<Char> list)
{
    Scratch<Char> scratch;
    const Parts<Char> names = splitKeepingEmpty<','>(simplified(list, scratch));
    Columns columns;
    columns.time = columnNamed(names, "O");
    columns.type = columnNamed(names, "T");
    columns.id = columnNamed(names, "I");
    columns.direction = columnNamed(names, "d");
    columns.length = columnNamed(names, "lL");
    columns.data = columnNamed(names, "D");
    columns.reserved = columnNamed(names, "R");
    return columns;
}

// Only the first line that speaks of columns counts.
Columns checkValidColumns(LineSource &lines)
{
    constexpr int headerLines = 10;
    Columns columns;
    bool found = false;
    for (int i = 0; i < headerLines && !found && lines.next(); ++i) {
        found = lines.visit([&columns](auto line) {
            if (!contains(line, "COLUMNS"))
                return false;
            columns = check2xColumnPos(line.substr(line.rfind('=') + 1));
            return true;
        });
    }
    return columns;
}

template <typename Char>
Outcome importVersion20StringList(const Parts<Char> &tokens, const Columns &columns,
                                  MessageFeed &feed)
{
    constexpr int fewestTokens = 6;
    if (tokens.size() < fewestTokens)
        return Outcome::wrongLine();
    if (!feed.turnEventLoopWhenDue())
        return Outcome::givenUp();
    if (columns.type >= tokens.size())
        return Outcome::wrongLine();
    CAN::CanRxMessage message;
    message.remote = equals(tokens[columns.type], "RR");
    if (!message.remote && !equals(tokens[columns.type], "DT"))
        return Outcome::done();
    // The data column may lie behind the end: rows of remote frames end before it.
    if (std::max({columns.time, columns.id, columns.direction, columns.length}) >= tokens.size())
        return Outcome::wrongLine();
    converTimestringAndSetToCanMsg(tokens[columns.time], message);
    readId(tokens[columns.id], message);
    message.transmitted = contains(tokens[columns.direction], "Tx");
    const quint8 length = quint8(toNumber<qint32>(tokens[columns.length]));
    message.length = qint8(std::min(int(length), CAN::maxDataBytes));
    if (!message.remote)
        readBytes(tokens, columns.data, CAN::maxDataBytes, 16, message);
    return feed.addMessageToMessageList(message);
}

enum class RowMark { None, MinusWhereReserved };

Outcome importFileVersion2x(LineSource &lines, TraceSink &sink, RowMark mark)
{
    const Columns columns = checkValidColumns(lines);
    if (!columns.areComplete())
        return Outcome::noColumns();
    const bool needsMinus = mark == RowMark::MinusWhereReserved && columns.reserved != noColumn;
    lines.rewind();
    MessageFeed feed(lines, sink);
    return readNumberedLines(lines, [&](auto line) {
        const auto tokens = tokensOf(line);
        if (tokens.isEmpty() || (needsMinus && line.find('-') == line.npos))
            return Outcome::done();
        return importVersion20StringList(tokens, columns, feed);
    });
}

} // namespace

DatachunkHelper::ImportFileType peakTraceType(DatachunkHelper::ImportFileType type)
{
    const bool isPeakTrace =
        type >= DatachunkHelper::PeakTrc11 && type <= DatachunkHelper::PeakTrc21;
    return isPeakTrace ? type : DatachunkHelper::PeakTrc10;
}

Outcome refuseFileVersion10(LineSource &, TraceSink &, const TraceRequest &)
{
    return Outcome::notOpened();
}

Outcome importFileVersion11(LineSource &lines, TraceSink &sink, const TraceRequest &)
{
    return importFileVersion1x(lines, sink, ExtraColumns::None);
}

Outcome importFileVersion12(LineSource &lines, TraceSink &sink, const TraceRequest &)
{
    return importFileVersion1x(lines, sink, ExtraColumns::Bus);
}

Outcome importFileVersion13(LineSource &lines, TraceSink &sink, const TraceRequest &)
{
    return importFileVersion1x(lines, sink, ExtraColumns::BusAndReserved);
}

Outcome importFileVersion20(LineSource &lines, TraceSink &sink, const TraceRequest &)
{
    return importFileVersion2x(lines, sink, RowMark::None);
}

Outcome importFileVersion21(LineSource &lines, TraceSink &sink, const TraceRequest &)
{
    return importFileVersion2x(lines, sink, RowMark::MinusWhereReserved);
}
