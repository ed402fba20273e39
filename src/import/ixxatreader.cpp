#include "ixxatreader.h"

#include "canframe.h"
#include "linefields.h"
#include "messagefeed.h"

#include <QDebug>

using namespace LineFields;

namespace {

// No header names the frame format, so that frames are never marked as extended.
struct Columns
{
    int time = noColumn;
    int id = noColumn;
    int length = noColumn;
    int data = noColumn;
    bool valid = true; // false once a header has left out a column that is needed

    bool areComplete() const { return std::min({time, id, data}) != noColumn; }
};

template <typename Char> bool isHeader(Text<Char> line)
{
    return contains(line, "ID") && contains(line, "Time") && contains(line, "Data");
}

template <typename Char> int *columnFor(Text<Char> item, Columns &columns)
{
    if (contains(item, "Time"))
        return &columns.time;
    if (contains(item, "ID") && !contains(item, "Node"))
        return &columns.id;
    if (contains(item, "DLC"))
        return &columns.length;
    return contains(item, "Data") ? &columns.data : nullptr;
}

// A column that this header does not name stays where an earlier header has put it.
template <typename Char> void getColumnsFromLine(Text<Char> line, Columns &columns)
{
    Scratch<Char> scratch;
    const Parts<Char> items = splitKeepingEmpty<','>(simplified(line, scratch));
    for (const Text<Char> item : items) {
        if (int *const column = columnFor(item, columns))
            *column = columnAt(int(std::find(items.begin(), items.end(), item) - items.begin()));
    }
    columns.valid = columns.areComplete();
    qDebug() << "void IxxatFileImporter::getColumnsFromLine(QString)"
             << "Line:" << __LINE__ << columns.valid;
}

// A text that begins with a zero loses all its zeros: 050 is 5, and 1050 stays 1050. Of 000 nothing
// is left, and the parts behind the seconds may be missing.
template <typename Number, typename Char> Number toNumberWithoutZeroes(Text<Char> text)
{
    Scratch<Char> scratch;
    if (!text.empty() && text.front() == '0') {
        std::remove_copy(text.begin(), text.end(), std::back_inserter(scratch), Char('0'));
        text = textOf(scratch);
    }
    return text.empty() ? 0 : toNumber<Number>(text, 0);
}

// Does the same for a few characters that are known to be digits.
template <typename Char> quint32 digitsWithoutZeroes(Text<Char> text)
{
    const bool keepsZeroes = text.front() != '0';
    quint32 value = 0;
    for (const Char c : text)
        value = value * (keepsZeroes || c != '0' ? 10 : 1) + digitValue(c);
    return value;
}

// "hh:mm:ss.mmm.uuu" or "sss.mmm.uuu".
template <typename Char>
void convertTimestringAndSetToCanMsg(Text<Char> text, CAN::CanRxMessage &message)
{
    if (hasLayout(text, "00:00:00.000.000")) {
        const auto number = [text](std::size_t start, std::size_t digits) {
            return digitsWithoutZeroes(text.substr(start, digits));
        };
        message.seconds = qint32(number(0, 2) * 3600 + number(3, 2) * 60 + number(6, 2));
        message.microseconds = qint32(number(9, 3) * 1000 + number(13, 3));
        return;
    }
    const Parts<Char> parts = splitKeepingEmpty<'.'>(text);
    const Parts<Char> clock = splitKeepingEmpty<':'>(parts[0]);
    if (clock.size() > 1) {
        const quint32 hours = toNumberWithoutZeroes<quint32>(clock[0]);
        const quint32 minutes = toNumberWithoutZeroes<quint32>(clock[1]);
        const quint32 seconds = toNumberWithoutZeroes<quint32>(partAt(clock, 2));
        message.seconds = qint32(hours * 3600 + minutes * 60 + seconds);
    } else {
        message.seconds = toNumberWithoutZeroes<qint32>(parts[0]);
    }
    const qint64 milliseconds = toNumberWithoutZeroes<qint32>(partAt(parts, 1));
    const qint64 microseconds = toNumberWithoutZeroes<qint32>(partAt(parts, 2));
    message.microseconds = qint32(milliseconds * 1000 + microseconds);
}

// The number of bytes is the length, whatever the length column says; an empty field is one byte.
template <typename Char> void readPayload(Text<Char> field, CAN::CanRxMessage &message)
{
    int count = 0;
    forEachPart<' '>(field, [&](Text<Char> byte) { storeByte(message, count++, toHexByte(byte)); });
    message.length = qint8(count);
}

template <typename Char>
Outcome importCANMsgLine(Text<Char> line, const Columns &columns, MessageFeed &feed)
{
    constexpr int fewestElements = 6;
    Parts<Char> elements = splitOutsideQuotes<',', '"'>(line);
    // What stands behind the last separator is no field: rows end with one.
    elements.removeLast();
    if (elements.size() < fewestElements)
        return Outcome::done();
    if (!feed.turnEventLoopWhenDue())
        return Outcome::givenUp();
    CAN::CanRxMessage message;
    bool isId = false;
    message.id = toNumber<quint32>(*Unquoted<Char>(elements, columns.id), 16, &isId);
    if (!isId)
        return Outcome::done();
    convertTimestringAndSetToCanMsg(*Unquoted<Char>(elements, columns.time), message);
    const Unquoted<Char> data(elements, columns.data);
    message.remote = contains(*data, "Remote Frame");
    if (message.remote)
        message.length = qint8(toNumber<qint32>(*Unquoted<Char>(elements, columns.length)));
    else
        readPayload(*data, message);
    return feed.addMessageToMessageList(message);
}

template <typename Char> Outcome readLine(Text<Char> line, Columns &columns, MessageFeed &feed)
{
    if (isHeader(line)) {
        getColumnsFromLine(line, columns);
        return Outcome::done();
    }
    if (!columns.valid)
        return Outcome::noColumns();
    if (!columns.areComplete())
        return Outcome::done();
    Scratch<Char> scratch;
    return importCANMsgLine(simplified(line, scratch), columns, feed);
}

} // namespace

Outcome readIxxatTrace(LineSource &lines, TraceSink &sink, const TraceRequest &)
{
    Columns columns;
    MessageFeed feed(lines, sink);
    const Outcome result =
        readNumberedLines(lines, [&](auto line) { return readLine(line, columns, feed); });
    // An unusable header fails with the line below it. That may be the empty line behind the last
    // line feed.
    if (result.isDone() && !columns.valid && lines.endsWithLineFeed())
        return Outcome::noColumns();
    return result;
}
