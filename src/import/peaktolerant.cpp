#include "canframe.h"
#include "lineparts.h"
#include "messagefeed.h"
#include "peaklayout.h"
#include "peakreader.h"
#include "writtenfields.h"

#include <cmath>

using namespace LineFields;
using namespace PeakRow;

namespace {

// Milliseconds with any number of digits behind a point or a comma, in rounded microseconds.
template <typename Char> bool readMilliseconds(Text<Char> text, qint64 &microseconds, bool &isCut)
{
    constexpr std::size_t digitsWithoutOverflow = 15;
    constexpr quint64 thousand = 1000;
    quint64 milliseconds = 0;
    WrittenFields::Fraction fraction; // of a millisecond, in nanoseconds
    if (WrittenFields::takeDigits(text, digitsWithoutOverflow, milliseconds) == 0
        || milliseconds / thousand > WrittenFields::maxSeconds)
        return false;
    if (!text.empty() && (text.front() == '.' || text.front() == ','))
        text.remove_prefix(1);
    else if (!text.empty())
        return false;
    for (const Char c : text) {
        if (digitValue(c) > 9)
            return false;
        fraction.add(digitValue(c));
    }
    // The fraction itself is rounded to nanoseconds, and half of a microsecond counts as one.
    const quint64 nanoseconds = quint64(fraction.microseconds());
    microseconds = qint64(milliseconds * thousand + (nanoseconds + thousand / 2) / thousand);
    isCut = isCut || fraction.wasCut() || nanoseconds % thousand != 0;
    return true;
}

// A start time is told in days since 1899-12-30, as spreadsheets count them.
QDateTime startTime(const QString &days)
{
    constexpr double millisecondsPerDay = 86400000;
    constexpr double lastDay = 2958465; // of the year 9999
    const double value = days.trimmed().toDouble();
    if (!(value > 0 && value <= lastDay))
        return {};
    const QDateTime dayZero(QDate(1899, 12, 30), QTime(0, 0), Qt::UTC);
    return dayZero.addMSecs(std::llround(value * millisecondsPerDay));
}

template <typename Char> Text<Char> headerValue(Text<Char> line, std::string_view name)
{
    if (line.size() < name.size() || !equals(line.substr(0, name.size()), name))
        return {};
    return trimmed(line.substr(name.size()));
}

/// Reads the rows of one trace. Every version is a layout; the rest is the same for all.
class PeakRows
{
public:
    PeakRows(LineSource &lines, TraceSink &sink) : lines(lines), feed(lines, sink), channels(lines)
    {
    }

    template <typename Char> Outcome readLine(Text<Char> line)
    {
        if (!feed.turnEventLoopWhenDue())
            return Outcome::givenUp();
        const Parts<Char> words = splitAtBlanks(line);
        if (words.isEmpty())
            return Outcome::done();
        if (words[0].front() != ';')
            return readRow(words);
        lines.leaveOut(isBehindHeader ? ImportReport::Comment : ImportReport::Header);
        readHeader(trimmed(line));
        return Outcome::done();
    }

private:
    template <typename Char> void readHeader(Text<Char> line)
    {
        if (line.size() < 2 || line[1] != '$')
            return;
        lines.leaveOut(ImportReport::Header);
        if (const auto version = headerValue(line, ";$FILEVERSION="); !version.empty())
            chooseVersion(version);
        else if (const auto columns = headerValue(line, ";$COLUMNS="); !columns.empty())
            readColumns(columns);
        else if (const auto days = headerValue(line, ";$STARTTIME="); !days.empty())
            lines.report().start = startTime(toQString(days));
    }

    template <typename Char> void chooseVersion(Text<Char> number)
    {
        for (const Version &version : versions) {
            if (equals(number, version.number))
                layout = layoutOf(version.columns);
        }
    }

    template <typename Char> void readColumns(Text<Char> names)
    {
        Layout named;
        forEachPart<','>(names, [&named](Text<Char> name) {
            name = trimmed(name);
            addColumn(named, name.size() == 1 ? unsigned(name[0]) : 0);
        });
        if (named.isUsable())
            layout = named;
    }

    template <typename Char> Outcome readRow(const Parts<Char> &words)
    {
        isBehindHeader = true;
        const bool isWithoutHeader = layout.size == 0;
        if (isWithoutHeader ? !isNumber(words[0]) : !isNumbered(words))
            return Outcome::done();
        if (isWithoutHeader)
            layout = layoutOf(columnsOfRow(words));
        const RowType *const type = typeOf(words);
        if (!type)
            return Outcome::done();
        switch (type->kind) {
        case Kind::Status:
            return leaveOut(ImportReport::Statistics);
        case Kind::Warning:
        case Kind::Event:
            return keepNote(words, type->kind);
        default:
            break;
        }
        CAN::CanRxMessage message;
        if (!readTime(wordAt(words, layout.time), message))
            return leaveOut(ImportReport::UnparsableNumber);
        const bool isError = type->kind == Kind::Error;
        return isError ? keepErrorFrame(words, message) : keepFrame(words, *type, message);
    }

    Outcome leaveOut(ImportReport::Reason reason)
    {
        lines.leaveOut(reason);
        return Outcome::done();
    }

    template <typename Char> bool isNumbered(const Parts<Char> &words) const
    {
        return layout.number == noWord || isNumber(wordAt(words, layout.number));
    }

    // Version 1 writes a parenthesis behind it.
    template <typename Char> static bool isNumber(Text<Char> word)
    {
        quint32 number = 0;
        if (!word.empty() && word.back() == ')')
            word.remove_suffix(1);
        return WrittenFields::readNumber(word, 10, number);
    }

    // Null for a row that is no frame, because it is of none of these types.
    template <typename Char> const RowType *typeOf(const Parts<Char> &words)
    {
        if (layout.type == noWord)
            return typeOfVersion10(words);
        const Text<Char> word = wordAt(words, layout.type);
        const RowType *const type = typeNamed(word);
        if (!type && word.size() == 2)
            lines.leaveOut(ImportReport::UnkeptFrameKind);
        return type;
    }

    // Version 1.0 tells the kind of a row in other columns.
    template <typename Char> const RowType *typeOfVersion10(const Parts<Char> &words)
    {
        static constexpr RowType frame{"RX", Kind::Frame};
        static constexpr RowType warning{"WA", Kind::Warning};
        if (equals(wordAt(words, layout.data), "ERROR")) {
            lines.leaveOut(ImportReport::UnkeptFrameKind);
            return nullptr;
        }
        return equals(wordAt(words, layout.id), "FFFFFFFF") ? &warning : &frame;
    }

    // Columns behind the payload are counted from the end of the row.
    template <typename Char> Text<Char> wordAt(const Parts<Char> &words, int column) const
    {
        const bool isBehindData = layout.data != noWord && column > layout.data;
        return partAt(words, isBehindData ? words.size() - (layout.size - column) : column);
    }

    template <typename Char> bool readTime(Text<Char> text, CAN::CanRxMessage &message)
    {
        qint64 microseconds = 0;
        isTimeCut = false;
        if (!readMilliseconds(text, microseconds, isTimeCut))
            return false;
        WrittenFields::setTime(message, microseconds);
        return true;
    }

    // A warning says in its last word what is the matter, an event in all words behind its bus.
    template <typename Char> Outcome keepNote(const Parts<Char> &words, Kind kind)
    {
        const bool isEvent = kind == Kind::Event;
        const int behindType = std::max(layout.type, layout.bus) + 1;
        appendNote(words, isEvent ? behindType : words.size() - 1);
        return leaveOut(ImportReport::Comment);
    }

    template <typename Char> void appendNote(const Parts<Char> &words, int first)
    {
        QStringList text;
        for (int i = first; i < words.size(); ++i) {
            if (!isPlaceholder(words[i]))
                text.append(toQString(words[i]));
        }
        if (!text.isEmpty())
            feed.appendNote(text.join(' '));
    }

    template <typename Char>
    Outcome keepErrorFrame(const Parts<Char> &words, CAN::CanRxMessage &message)
    {
        WrittenFields::setErrorFrame(message);
        // Error rows of version 2 bring no more than their time.
        if (layout.direction == noWord)
            readBus(words, message);
        return handOn(message);
    }

    template <typename Char> void readBus(const Parts<Char> &words, CAN::CanRxMessage &message)
    {
        const Text<Char> bus = wordAt(words, layout.bus);
        if (!bus.empty() && !isPlaceholder(bus))
            message.line = channels.lineOf(bus);
    }

    template <typename Char>
    Outcome keepFrame(const Parts<Char> &words, const RowType &type, CAN::CanRxMessage &message)
    {
        quint32 length = 0;
        if (words.size() <= std::max(layout.id, layout.length))
            return leaveOut(ImportReport::TooFewFields);
        if (!readId(wordAt(words, layout.id), message)
            || !WrittenFields::readNumber(wordAt(words, layout.length), 10, length))
            return leaveOut(ImportReport::UnparsableNumber);
        if (length > CAN::maxDataBytes)
            return leaveOut(ImportReport::UnkeptFrameKind);
        message.fdFrame = type.fdFrame;
        message.flagC = type.bitRateSwitch;
        message.flagB = type.errorState;
        message.transmitted =
            type.transmitted || typeNamed(wordAt(words, layout.direction)) == &rowTypes[1];
        message.remote = type.kind == Kind::Remote || equals(partAt(words, layout.data), "RTR");
        message.length = qint8(length);
        if (!message.remote && !readPayload(words, message))
            return leaveOut(ImportReport::TooFewFields);
        readBus(words, message);
        return handOn(message);
    }

    // Eight digits are an extended identifier, four a standard one.
    template <typename Char> static bool readId(Text<Char> text, CAN::CanRxMessage &message)
    {
        constexpr std::size_t longestStandardId = 4;
        if (!WrittenFields::readHex(text, message.id) || message.id > WrittenFields::maxExtendedId)
            return false;
        message.extended =
            text.size() > longestStandardId || message.id > WrittenFields::maxStandardId;
        return true;
    }

    // Only bytes of two digits are whole; a row that ends before is cut.
    template <typename Char> bool readPayload(const Parts<Char> &words, CAN::CanRxMessage &message)
    {
        if (layout.data == noWord) {
            if (message.length > 0)
                lines.change(ImportReport::ChangedPayload);
            return true;
        }
        const int end = words.size() - (layout.size - layout.data - 1);
        int count = 0;
        int word = layout.data;
        const int last = std::min(end, layout.data + CAN::maxDataBytes);
        while (word < last && words[word].size() == 2
               && WrittenFields::readByte(words[word], 16, message.data[count])) {
            ++word;
            ++count;
        }
        if (!settleLength(count, message))
            return false;
        // What stands behind the last bytes becomes a note on the frame.
        if (end == words.size() && word < end)
            appendNote(words, word);
        return true;
    }

    // Some programs write the length of a CAN FD frame where others write its code, and classic
    // codes above 8 mean 8 bytes. The bytes tell which one is meant.
    bool settleLength(int count, CAN::CanRxMessage &message)
    {
        constexpr int classicBytes = 8;
        const int written = message.length;
        if (count == written)
            return true;
        const bool isCode = written < int(WrittenFields::lengthOfCode.size());
        if (message.fdFrame && isCode
            && count == WrittenFields::lengthOfCode[std::size_t(written)]) {
            message.length = qint8(count);
            return true;
        }
        if (!message.fdFrame && written > classicBytes && isCode && count == classicBytes) {
            message.length = classicBytes;
            lines.change(ImportReport::ChangedLength);
            return true;
        }
        if (count > written)
            lines.change(ImportReport::ChangedPayload);
        return count > written;
    }

    Outcome handOn(CAN::CanRxMessage &message)
    {
        if (isTimeCut)
            lines.change(ImportReport::ChangedTime);
        return feed.addMessageToMessageList(message);
    }

    LineSource &lines;
    MessageFeed feed;
    WrittenFields::Channels channels;
    Layout layout;
    bool isBehindHeader = false;
    bool isTimeCut = false;
};

} // namespace

Outcome readPeakTolerantly(LineSource &lines, TraceSink &sink, const TraceRequest &)
{
    PeakRows rows(lines, sink);
    return readNumberedLines(lines, [&rows](auto line) { return rows.readLine(line); });
}
