#include "canframe.h"
#include "ixxatcolumns.h"
#include "ixxatreader.h"
#include "lineparts.h"
#include "messagefeed.h"
#include "writtenfields.h"

using namespace LineFields;
using namespace WrittenFields;
using namespace IxxatColumns;

namespace {

using Reason = ImportReport::Reason;

constexpr quint8 maxClassicBytes = 8;

struct Trace
{
    Trace(LineSource &lines, TraceSink &sink) : lines(lines), channels(lines), feed(lines, sink) { }

    LineSource &lines;
    Channels channels;
    MessageFeed feed;
    Columns columns;
    QString date; // as the lines above the header tell it
};

// What the words in the columns of marks say.
struct Marks
{
    bool extended = false;
    bool standard = false;
    bool error = false;
};

// A header names a time, an identifier and a data column.
template <typename Char> bool readHeader(Text<Char> line, Trace &trace)
{
    for (const char separator : {',', ';', '\t'}) {
        const Parts<Char> names = splitRow(line, separator);
        const Columns columns = columnsOf(names, separator);
        if (!columns.areComplete())
            continue;
        trace.columns = columns;
        trace.lines.report().timeBase = toQString(unquoted(names[columns.time]));
        return true;
    }
    return false;
}

QDate toDate(const QString &text, bool isAmerican)
{
    const QString slashes = isAmerican ? QStringLiteral("M/d/yyyy") : QStringLiteral("d/M/yyyy");
    for (const QString &form : {slashes, QStringLiteral("d.M.yyyy"), QStringLiteral("d:M:yyyy"),
                                QStringLiteral("yyyy-M-d")}) {
        const QDate date = QDate::fromString(text, form);
        if (date.isValid())
            return date;
    }
    return {};
}

// "Date: 5/9/2024", where the clock in the line below tells the order of day and month, and
// "Start time: 2:37:37 PM".
void readStart(const QString &name, const QString &value, Trace &trace)
{
    if (name.compare(QLatin1String("date"), Qt::CaseInsensitive) == 0)
        trace.date = value;
    if (name.compare(QLatin1String("start time"), Qt::CaseInsensitive) != 0)
        return;
    const bool isAmerican = value.endsWith('M', Qt::CaseInsensitive);
    const QTime time = isAmerican ? QTime::fromString(value.toUpper(), QStringLiteral("h:m:s AP"))
                                  : QTime::fromString(value, QStringLiteral("h:m:s"));
    trace.lines.report().start = {toDate(trace.date, isAmerican), time, Qt::UTC};
}

// "ASCII Trace …" or "Name: value"
template <typename Char> LeftOut readPreamble(Text<Char> line, Trace &trace)
{
    line = trimmed(line);
    const std::size_t colon = line.find(Char(':'));
    const bool isNamed = colon != line.npos && digitValue(line[0]) > 9 && line[0] != '"';
    if (isNamed)
        readStart(toQString(line.substr(0, colon)), toQString(trimmed(line.substr(colon + 1))),
                  trace);
    return isNamed || beginsWithWord(line, "ascii trace") ? Reason::Header : Reason::WrongShape;
}

// ".fff" or ".mmm.uuu.n", with points or commas.
template <typename Char> bool readFraction(Text<Char> text, Fraction &fraction)
{
    constexpr int digitsOfGroup = 3;
    int digits = digitsOfGroup;
    for (const Char c : text) {
        const unsigned digit = digitValue(c);
        if (digit <= 9) {
            fraction.add(digit);
            ++digits;
        } else if ((c == '.' || c == ',') && digits == digitsOfGroup) {
            digits = 0;
        } else {
            return false;
        }
    }
    return true;
}

// "hh:mm:ss.fff" or seconds alone.
template <typename Char> bool readTime(Text<Char> text, qint64 &microseconds, bool &isCut)
{
    constexpr qint64 million = 1000000;
    constexpr int mostDigits = 10;
    constexpr int mostColons = 2;
    qint64 seconds = 0;
    qint64 part = 0;
    int digits = 0;
    int colons = 0;
    for (; !text.empty(); text.remove_prefix(1)) {
        const unsigned digit = digitValue(text[0]);
        if (digit <= 9 && digits++ < mostDigits) {
            part = part * 10 + digit;
        } else if (text[0] == ':' && digits > 0 && colons++ < mostColons) {
            seconds = (seconds + part) * 60;
            part = digits = 0;
        } else {
            break;
        }
    }
    seconds += part;
    Fraction fraction;
    const bool isTooLong = digits > mostDigits;
    if (digits == 0 || isTooLong || seconds > maxSeconds || !readFraction(text, fraction))
        return false;
    microseconds = seconds * million + fraction.microseconds();
    isCut = isCut || fraction.wasCut();
    return true;
}

template <typename Char> void readMark(Text<Char> word, Marks &marks, CAN::CanRxMessage &message)
{
    if (beginsWithWord(word, "ext") || isWord(word, "xtd"))
        marks.extended = true;
    else if (beginsWithWord(word, "std") || beginsWithWord(word, "stand"))
        marks.standard = true;
    else if (isWord(word, "rtr") || beginsWithWord(word, "remote"))
        message.remote = true;
    else if (isWord(word, "tx") || beginsWithWord(word, "self") || isWord(word, "srr"))
        message.transmitted = true;
    else if (isWord(word, "fd") || isWord(word, "fdf") || isWord(word, "edl"))
        message.fdFrame = true;
    else if (isWord(word, "brs"))
        message.flagC = true;
    else if (isWord(word, "esi"))
        message.flagB = true;
    else if (beginsWithWord(word, "err"))
        marks.error = true;
}

template <typename Char>
Marks readMarks(const Parts<Char> &fields, const Columns &columns, CAN::CanRxMessage &message)
{
    Marks marks;
    for (const int column : columns.marks) {
        const auto readWord = [&](Text<Char> word) { readMark(word, marks, message); };
        forEachPart<' '>(unquoted(partAt(fields, column)), readWord);
    }
    return marks;
}

// More than three hexadecimal digits are an extended identifier, unless a mark says otherwise.
template <typename Char>
bool readId(Text<Char> text, unsigned base, const Marks &marks, CAN::CanRxMessage &message)
{
    constexpr std::size_t standardDigits = 3;
    if (beginsWithWord(text, "0x"))
        text.remove_prefix(2);
    if (!text.empty() && (text.back() | 0x20) == 'h')
        text.remove_suffix(1);
    quint32 id = 0;
    if (!readNumber(text, base, id) || id > maxExtendedId)
        return false;
    const bool isWide = base == 16 && text.size() > standardDigits && !marks.standard;
    message.id = id;
    message.extended = marks.extended || isWide || id > maxStandardId;
    return true;
}

// "11 22 …" or "1122…"
template <typename Char>
LeftOut readBytes(Text<Char> text, unsigned base, CAN::CanRxMessage &message)
{
    constexpr std::size_t digitsOfByte = 2;
    const bool isJoined = base == 16 && text.size() > digitsOfByte && text[digitsOfByte] != ' '
        && text.size() % digitsOfByte == 0 && text.find(' ') == text.npos;
    int count = 0;
    while (!text.empty()) {
        std::size_t end = isJoined ? digitsOfByte : 0;
        while (end < text.size() && !isJoined && !isBlank(text[end]))
            ++end;
        if (count == CAN::maxDataBytes)
            return Reason::WrongShape;
        if (!readByte(text.substr(0, end), base, message.data[count++]))
            return Reason::UnparsableNumber;
        text.remove_prefix(end);
        while (!text.empty() && isBlank(text[0]))
            text.remove_prefix(1);
    }
    message.length = qint8(count);
    return {};
}

// The number of bytes, or their code, or nothing where the trace does not tell.
template <typename Char> std::optional<quint32> writtenLength(Text<Char> text)
{
    quint32 length = 0;
    return readNumber(text, 10, length) ? std::optional<quint32>(length) : std::nullopt;
}

template <typename Char>
LeftOut readPayload(Text<Char> field, Text<Char> length, Trace &trace, CAN::CanRxMessage &message)
{
    const LeftOut leftOut = readBytes(field, trace.columns.dataBase, message);
    if (leftOut)
        return leftOut;
    message.fdFrame = message.fdFrame || message.length > maxClassicBytes;
    const quint32 bytes = quint32(message.length);
    const quint32 written = writtenLength(length).value_or(bytes);
    const bool isCode = written < lengthOfCode.size() && lengthOfCode[written] == bytes;
    // Classic frames carry eight bytes for every code above.
    const bool isClassicCode = written > maxClassicBytes && written < lengthOfCode.size();
    if (written != bytes && !isCode && !(isClassicCode && bytes == maxClassicBytes))
        trace.lines.change(ImportReport::ChangedLength);
    return {};
}

// The length stands in its column, or is the number in the text that stands for the data.
template <typename Char>
void readRemoteLength(Text<Char> field, Text<Char> length, Trace &trace, CAN::CanRxMessage &message)
{
    while (!field.empty() && digitValue(field.front()) > 9)
        field.remove_prefix(1);
    std::size_t digits = 0;
    while (digits < field.size() && digitValue(field[digits]) <= 9)
        ++digits;
    const std::optional<quint32> inData = writtenLength(field.substr(0, digits));
    const quint32 written = writtenLength(length).value_or(inData.value_or(0));
    if (written > maxClassicBytes)
        trace.lines.change(ImportReport::ChangedLength);
    message.length = qint8(std::min(written, quint32(maxClassicBytes)));
}

template <typename Char> bool saysRemote(Text<Char> data)
{
    return !data.empty() && digitValue(data[0]) > 0xF
        && (hasWord(data, "remote") || hasWord(data, "rtr"));
}

template <typename Char>
LeftOut readFrame(const Parts<Char> &fields, Trace &trace, CAN::CanRxMessage &message)
{
    const Columns &columns = trace.columns;
    const Text<Char> id = unquoted(partAt(fields, columns.id));
    const Text<Char> data = unquoted(partAt(fields, columns.data));
    const Text<Char> length = unquoted(partAt(fields, columns.length));
    const Marks marks = readMarks(fields, columns, message);
    const bool isNumber = readId(id, columns.idBase, marks, message);
    if (marks.error || (!isNumber && hasWord(id, "error"))) {
        setErrorFrame(message);
        return {};
    }
    if (!isNumber)
        return Reason::UnparsableNumber;
    message.remote = message.remote || saysRemote(data);
    if (!message.remote)
        return readPayload(data, length, trace, message);
    readRemoteLength(data, length, trace, message);
    return {};
}

template <typename Char>
LeftOut readRow(const Parts<Char> &fields, Trace &trace, CAN::CanRxMessage &message)
{
    if (fields.size() <= trace.columns.last())
        return Reason::TooFewFields;
    qint64 microseconds = 0;
    bool isCut = false;
    if (!readTime(unquoted(fields[trace.columns.time]), microseconds, isCut))
        return Reason::UnparsableNumber;
    const LeftOut leftOut = readFrame(fields, trace, message);
    if (leftOut)
        return leftOut;
    setTime(message, microseconds);
    if (isCut)
        trace.lines.change(ImportReport::ChangedTime);
    const Text<Char> bus = unquoted(partAt(fields, trace.columns.bus));
    if (!bus.empty())
        message.line = trace.channels.lineOf(bus);
    return {};
}

template <typename Char> LeftOut readLine(Text<Char> line, Trace &trace, CAN::CanRxMessage &message)
{
    LeftOut leftOut = Reason::WrongShape;
    if (trace.columns.areComplete())
        leftOut = readRow(splitRow(line, trace.columns.separator), trace, message);
    if (!leftOut)
        return {};
    if (trimmed(line).empty())
        return Reason::Empty;
    if (readHeader(line, trace) || readPreamble(line, trace) == Reason::Header)
        return Reason::Header;
    return leftOut;
}

} // namespace

Outcome readIxxatTraceTolerantly(LineSource &lines, TraceSink &sink, const TraceRequest &)
{
    const CAN::CanRxMessage blank;
    Trace trace(lines, sink);
    return readNumberedLines(lines, [&](auto line) {
        if (!trace.feed.turnEventLoopWhenDue())
            return Outcome::givenUp();
        CAN::CanRxMessage message = blank;
        if (const LeftOut leftOut = readLine(line, trace, message)) {
            lines.leaveOut(*leftOut);
            return Outcome::done();
        }
        return trace.feed.addMessageToMessageList(message);
    });
}
