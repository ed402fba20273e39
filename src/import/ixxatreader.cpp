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
    bool valid = true; // not known to be unusable

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

// Columns that an earlier header found and this one does not name stay where they are.
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

// Once a text begins with a zero, all its zeros go: 050 is 5 and 1050 is 1050.
template <typename Number, typename Char> Number toNumberWithoutZeroes(Text<Char> text)
{
    if (text.empty() || text.front() != '0')
        return toNumber<Number>(text, 0);
    Scratch<Char> scratch;
    for (const Char c : text) {
        if (c != '0')
            scratch.append(c);
    }
    return toNumber<Number>(textOf(scratch), 0);
}

// "hh:mm:ss.mmm.uuu" or "sss.mmm.uuu".
template <typename Char>
void convertTimestringAndSetToCanMsg(Text<Char> text, CAN::CanRxMessage &message)
{
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
template <typename Char> void readData(Text<Char> field, CAN::CanRxMessage &message)
{
    message.remote = contains(field, "Remote Frame");
    if (message.remote)
        return;
    const Parts<Char> bytes = splitKeepingEmpty<' '>(field);
    message.length = qint8(bytes.size());
    readBytes(bytes, 0, CAN::maxDataBytes, 16, message);
}

template <typename Char>
ReadResult importCANMsgLine(Text<Char> line, const Columns &columns, MessageFeed &feed)
{
    constexpr int fewestElements = 6;
    Parts<Char> elements = splitOutsideQuotes<',', '"'>(line);
    // What stands behind the last separator is no field: rows end with one.
    elements.removeLast();
    if (elements.size() < fewestElements)
        return ReadResult::done();
    if (!feed.turnEventLoopWhenDue())
        return ReadResult::stopped();
    CAN::CanRxMessage message;
    bool isId = false;
    message.id = toNumber<quint32>(*Unquoted<Char>(elements, columns.id), 16, &isId);
    if (!isId)
        return ReadResult::done();
    convertTimestringAndSetToCanMsg(*Unquoted<Char>(elements, columns.time), message);
    message.length = qint8(toNumber<qint32>(*Unquoted<Char>(elements, columns.length)));
    readData(*Unquoted<Char>(elements, columns.data), message);
    return feed.addMessageToMessageList(message);
}

template <typename Char> ReadResult readLine(Text<Char> line, Columns &columns, MessageFeed &feed)
{
    if (isHeader(line)) {
        getColumnsFromLine(line, columns);
        return ReadResult::done();
    }
    if (!columns.valid)
        return ReadResult::noColumns();
    if (!columns.areComplete())
        return ReadResult::done();
    Scratch<Char> scratch;
    return importCANMsgLine(simplified(line, scratch), columns, feed);
}

} // namespace

ReadResult readIxxatTrace(LineSource &lines, TraceSink &sink, const TraceRequest &)
{
    Columns columns;
    MessageFeed feed(sink);
    const ReadResult result =
        readNumberedLines(lines, [&](auto line) { return readLine(line, columns, feed); });
    // An unusable header fails with the line below it, be it the empty one behind the last line
    // feed.
    if (result.isDone() && !columns.valid && lines.endsWithLineFeed())
        return ReadResult::noColumns();
    return result;
}
