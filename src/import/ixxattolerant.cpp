#include "ixxatcolumns.h"
#include "ixxatreader.h"
#include "writtenframe.h"

#include <optional>

using namespace LineFields;
using namespace WrittenFields;
using namespace IxxatColumns;

namespace {

using Reason = ImportReport::Reason;

// What the words in the columns of marks say.
struct Marks
{
    bool extended = false;
    bool standard = false;
    bool error = false;
};

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

// ".fff" or ".mmm.uuu.n", with points or commas.
template <typename Char> bool readFraction(Text<Char> text, Fraction &fraction)
{
    constexpr std::size_t digitsOfGroup = 3;
    std::size_t digits = digitsOfGroup;
    while (!text.empty()) {
        if (digits != digitsOfGroup || (text.front() != '.' && text.front() != ','))
            return false;
        text.remove_prefix(1);
        for (digits = 0; digits < text.size() && digitValue(text[digits]) <= 9; ++digits)
            fraction.add(digitValue(text[digits]));
        text.remove_prefix(digits);
    }
    return true;
}

// "hh:mm:ss.fff" or seconds alone.
template <typename Char> bool readTime(Text<Char> text, WrittenFrame &frame)
{
    constexpr qint64 million = 1000000;
    constexpr std::size_t mostDigits = 10;
    qint64 seconds = 0;
    quint64 part = 0;
    bool isNumber = takeDigits(text, mostDigits, part) > 0;
    for (int colons = 0; isNumber && colons < 2 && !text.empty() && text[0] == ':'; ++colons) {
        text.remove_prefix(1);
        seconds = (seconds + qint64(part)) * 60;
        part = 0;
        isNumber = takeDigits(text, mostDigits, part) > 0;
    }
    seconds += qint64(part);
    Fraction fraction;
    if (!isNumber || seconds > maxSeconds || !readFraction(text, fraction))
        return frame.fail(Reason::UnparsableNumber);
    frame.isChanged[ImportReport::ChangedTime] = fraction.wasCut();
    return frame.setTime(seconds * million + fraction.microseconds());
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
        const Text<Char> text = unquoted(partAt(fields, column));
        const auto readWord = [&](Text<Char> word) { readMark(word, marks, message); };
        if (!text.empty())
            forEachPart<' '>(text, readWord);
    }
    return marks;
}

// More than three hexadecimal digits are an extended identifier, unless a mark says otherwise.
template <typename Char>
bool readId(Text<Char> text, unsigned base, const Marks &marks, WrittenFrame &frame)
{
    constexpr std::size_t standardDigits = 3;
    if (beginsWithWord(text, "0x"))
        text.remove_prefix(2);
    if (!text.empty() && (text.back() | 0x20) == 'h')
        text.remove_suffix(1);
    quint32 id = 0;
    if (!readNumber(text, base, id))
        return frame.fail(Reason::UnparsableNumber);
    const bool isWide = base == 16 && text.size() > standardDigits && !marks.standard;
    return frame.setId(id, marks.extended || isWide);
}

// "1122…"
template <typename Char> bool readJoinedBytes(Text<Char> text, WrittenFrame &frame)
{
    qint8 &length = frame.message.length;
    for (; !text.empty(); text.remove_prefix(2)) {
        if (length == CAN::maxDataBytes)
            return frame.fail(Reason::WrongShape);
        if (!readHexPair(text.substr(0, 2), frame.message.data[length++]))
            return frame.fail(Reason::UnparsableNumber);
    }
    return true;
}

// "11 22 …" or "1122…"
template <typename Char> bool readBytes(Text<Char> text, unsigned base, WrittenFrame &frame)
{
    constexpr std::size_t digitsOfByte = 2;
    const bool isJoined = base == 16 && text.size() > digitsOfByte && text[digitsOfByte] != ' '
        && text.size() % digitsOfByte == 0 && text.find(' ') == text.npos;
    if (isJoined)
        return readJoinedBytes(text, frame);
    const Parts<Char> words = splitAtBlanks(text);
    const int count = std::min(int(words.size()), CAN::maxDataBytes);
    frame.message.length = qint8(count);
    return frame.readBytes(words, 0, count, base)
        && (count == words.size() || frame.fail(Reason::WrongShape));
}

// The number of bytes, or their code, or nothing where the trace does not tell.
template <typename Char> std::optional<quint32> writtenLength(Text<Char> text)
{
    quint32 length = 0;
    return readNumber(text, 10, length) ? std::optional<quint32>(length) : std::nullopt;
}

template <typename Char>
bool readPayload(Text<Char> field, Text<Char> length, unsigned base, WrittenFrame &frame)
{
    if (!readBytes(field, base, frame))
        return false;
    const quint32 bytes = quint32(frame.message.length);
    frame.message.fdFrame = frame.message.fdFrame || bytes > maxClassicBytes;
    const quint32 written = writtenLength(length).value_or(bytes);
    const bool isCode = written < lengthOfCode.size() && lengthOfCode[written] == bytes;
    // Classic frames carry eight bytes for every code above.
    const bool isClassicCode = written > maxClassicBytes && written < lengthOfCode.size();
    frame.isChanged[ImportReport::ChangedLength] =
        written != bytes && !isCode && !(isClassicCode && bytes == maxClassicBytes);
    return true;
}

// The length stands in its column, or is the number in the text that stands for the data.
template <typename Char>
void readRemoteLength(Text<Char> field, Text<Char> length, WrittenFrame &frame)
{
    while (!field.empty() && digitValue(field.front()) > 9)
        field.remove_prefix(1);
    std::size_t digits = 0;
    while (digits < field.size() && digitValue(field[digits]) <= 9)
        ++digits;
    const std::optional<quint32> inData = writtenLength(field.substr(0, digits));
    frame.setClassicLength(writtenLength(length).value_or(inData.value_or(0)));
}

template <typename Char> bool saysRemote(Text<Char> data)
{
    return !data.empty() && digitValue(data[0]) > 0xF
        && (hasWord(data, "remote") || hasWord(data, "rtr"));
}

class IxxatGrammar
{
public:
    explicit IxxatGrammar(LineSource &lines) : report(lines.report()), channels(lines) { }

    template <typename Char> bool read(Text<Char> line, WrittenFrame &frame)
    {
        if (columns.areComplete() && readRow(splitRow(line, columns.separator), frame))
            return true;
        if (trimmed(line).empty())
            return frame.fail(Reason::Empty);
        return readHeader(line) || readPreamble(line) ? frame.fail(Reason::Header) : false;
    }

private:
    template <typename Char> bool readRow(const Parts<Char> &fields, WrittenFrame &frame)
    {
        if (fields.size() <= columns.last())
            return frame.fail(Reason::TooFewFields);
        if (!readTime(unquoted(fields[columns.time]), frame) || !readFrame(fields, frame))
            return false;
        const Text<Char> bus = unquoted(partAt(fields, columns.bus));
        if (!bus.empty())
            frame.message.line = channels.lineOf(bus);
        return true;
    }

    template <typename Char> bool readFrame(const Parts<Char> &fields, WrittenFrame &frame) const
    {
        CAN::CanRxMessage &message = frame.message;
        const Text<Char> id = unquoted(partAt(fields, columns.id));
        const Text<Char> data = unquoted(partAt(fields, columns.data));
        const Text<Char> length = unquoted(partAt(fields, columns.length));
        const Marks marks = readMarks(fields, columns, message);
        const bool isNumber = readId(id, columns.idBase, marks, frame);
        if (marks.error || (!isNumber && hasWord(id, "error"))) {
            frame.setErrorFrame();
            return true;
        }
        if (!isNumber)
            return false;
        message.remote = message.remote || saysRemote(data);
        if (!message.remote)
            return readPayload(data, length, columns.dataBase, frame);
        readRemoteLength(data, length, frame);
        return true;
    }

    // A header names a time, an identifier and a data column.
    template <typename Char> bool readHeader(Text<Char> line)
    {
        for (const char separator : {',', ';', '\t'}) {
            const Parts<Char> names = splitRow(line, separator);
            const Columns named = columnsOf(names, separator);
            if (!named.areComplete())
                continue;
            columns = named;
            report.timeBase = toQString(unquoted(names[columns.time]));
            return true;
        }
        return false;
    }

    // "ASCII Trace …" or "Name: value"
    template <typename Char> bool readPreamble(Text<Char> line)
    {
        line = trimmed(line);
        const std::size_t colon = line.find(Char(':'));
        const bool isNamed = colon != line.npos && digitValue(line[0]) > 9 && line[0] != '"';
        if (isNamed)
            readStart(toQString(line.substr(0, colon)), toQString(trimmed(line.substr(colon + 1))));
        return isNamed || beginsWithWord(line, "ascii trace");
    }

    // "Date: 5/9/2024", where the clock in the line below tells the order of day and month, and
    // "Start time: 2:37:37 PM".
    void readStart(const QString &name, const QString &value)
    {
        if (name.compare(QLatin1String("date"), Qt::CaseInsensitive) == 0)
            date = value;
        if (name.compare(QLatin1String("start time"), Qt::CaseInsensitive) != 0)
            return;
        const bool isAmerican = value.endsWith('M', Qt::CaseInsensitive);
        const QTime time = isAmerican
            ? QTime::fromString(value.toUpper(), QStringLiteral("h:m:s AP"))
            : QTime::fromString(value, QStringLiteral("h:m:s"));
        report.start = {toDate(date, isAmerican), time, Qt::UTC};
    }

    ImportReport &report;
    Channels channels;
    Columns columns;
    QString date; // as the lines above the header tell it
};

} // namespace

Outcome readIxxatTraceTolerantly(LineSource &lines, TraceSink &sink, const TraceRequest &)
{
    IxxatGrammar grammar(lines);
    return readWrittenFrames(lines, sink, grammar);
}
