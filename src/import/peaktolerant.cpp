#include "peaklayout.h"
#include "peakreader.h"
#include "writtenframe.h"

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

/// Every version is a layout; the rest is the same for all.
class PeakGrammar
{
public:
    explicit PeakGrammar(LineSource &lines) : report(lines.report()), channels(lines) { }

    template <typename Char> bool read(Text<Char> line, WrittenFrame &frame)
    {
        const Parts<Char> words = splitAtBlanks(line);
        if (words.isEmpty())
            return false;
        if (words[0].front() != ';')
            return readRow(words, frame);
        const bool isHeader = readHeader(trimmed(line)) || !isBehindHeader;
        return frame.fail(isHeader ? ImportReport::Header : ImportReport::Comment);
    }

private:
    template <typename Char> bool readHeader(Text<Char> line)
    {
        if (line.size() < 2 || line[1] != '$')
            return false;
        if (const auto version = headerValue(line, ";$FILEVERSION="); !version.empty())
            chooseVersion(version);
        else if (const auto columns = headerValue(line, ";$COLUMNS="); !columns.empty())
            readColumns(columns);
        else if (const auto days = headerValue(line, ";$STARTTIME="); !days.empty())
            report.start = startTime(toQString(days));
        return true;
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

    template <typename Char> bool readRow(const Parts<Char> &words, WrittenFrame &frame)
    {
        isBehindHeader = true;
        const bool isWithoutHeader = layout.size == 0;
        if (isWithoutHeader ? !isNumber(words[0]) : !isNumbered(words))
            return false;
        if (isWithoutHeader)
            layout = layoutOf(columnsOfRow(words));
        const RowType *const type = typeOf(words, frame);
        if (!type)
            return false;
        switch (type->kind) {
        case Kind::Status:
            return frame.fail(ImportReport::Statistics);
        case Kind::Warning:
        case Kind::Event:
            return keepNote(words, type->kind, frame);
        default:
            break;
        }
        if (!readTime(wordAt(words, layout.time), frame))
            return false;
        const bool isError = type->kind == Kind::Error;
        return isError ? readErrorFrame(words, frame) : readFrame(words, *type, frame);
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
    template <typename Char> const RowType *typeOf(const Parts<Char> &words, WrittenFrame &frame)
    {
        if (layout.type == noWord)
            return typeOfVersion10(words, frame);
        const Text<Char> word = wordAt(words, layout.type);
        const RowType *const type = typeNamed(word);
        if (!type && word.size() == 2)
            frame.fail(ImportReport::UnkeptFrameKind);
        return type;
    }

    // Version 1.0 tells the kind of a row in other columns.
    template <typename Char>
    const RowType *typeOfVersion10(const Parts<Char> &words, WrittenFrame &frame)
    {
        static constexpr RowType ofFrame{"RX", Kind::Frame};
        static constexpr RowType ofWarning{"WA", Kind::Warning};
        if (equals(wordAt(words, layout.data), "ERROR")) {
            frame.fail(ImportReport::UnkeptFrameKind);
            return nullptr;
        }
        return equals(wordAt(words, layout.id), "FFFFFFFF") ? &ofWarning : &ofFrame;
    }

    // Columns behind the payload are counted from the end of the row.
    template <typename Char> Text<Char> wordAt(const Parts<Char> &words, int column) const
    {
        const bool isBehindData = layout.data != noWord && column > layout.data;
        return partAt(words, isBehindData ? words.size() - (layout.size - column) : column);
    }

    template <typename Char> static bool readTime(Text<Char> text, WrittenFrame &frame)
    {
        qint64 microseconds = 0;
        return readMilliseconds(text, microseconds, frame.isChanged[ImportReport::ChangedTime])
            ? frame.setTime(microseconds)
            : frame.fail(ImportReport::UnparsableNumber);
    }

    // A warning says in its last word what is the matter, an event in all words behind its bus.
    template <typename Char> bool keepNote(const Parts<Char> &words, Kind kind, WrittenFrame &frame)
    {
        const bool isEvent = kind == Kind::Event;
        const int behindType = std::max(layout.type, layout.bus) + 1;
        frame.note = joined(words, isEvent ? behindType : words.size() - 1);
        return frame.fail(ImportReport::Comment);
    }

    template <typename Char> static QString joined(const Parts<Char> &words, int first)
    {
        QStringList text;
        for (int i = first; i < words.size(); ++i) {
            if (!isPlaceholder(words[i]))
                text.append(toQString(words[i]));
        }
        return text.join(' ');
    }

    template <typename Char> bool readErrorFrame(const Parts<Char> &words, WrittenFrame &frame)
    {
        frame.setErrorFrame();
        // Error rows of version 2 bring no more than their time.
        if (layout.direction == noWord)
            readBus(words, frame);
        return true;
    }

    template <typename Char> void readBus(const Parts<Char> &words, WrittenFrame &frame)
    {
        const Text<Char> bus = wordAt(words, layout.bus);
        if (!bus.empty() && !isPlaceholder(bus))
            frame.message.line = channels.lineOf(bus);
    }

    template <typename Char>
    bool readFrame(const Parts<Char> &words, const RowType &type, WrittenFrame &frame)
    {
        CAN::CanRxMessage &message = frame.message;
        quint32 length = 0;
        if (words.size() <= std::max(layout.id, layout.length))
            return frame.fail(ImportReport::TooFewFields);
        if (!readId(wordAt(words, layout.id), frame))
            return false;
        if (!WrittenFields::readNumber(wordAt(words, layout.length), 10, length))
            return frame.fail(ImportReport::UnparsableNumber);
        if (!frame.setLength(length, ImportReport::UnkeptFrameKind))
            return false;
        message.fdFrame = type.fdFrame;
        message.flagC = type.bitRateSwitch;
        message.flagB = type.errorState;
        message.transmitted =
            type.transmitted || typeNamed(wordAt(words, layout.direction)) == &rowTypes[1];
        message.remote = type.kind == Kind::Remote || equals(partAt(words, layout.data), "RTR");
        if (!message.remote && !readPayload(words, frame))
            return false;
        readBus(words, frame);
        return true;
    }

    // Eight digits are an extended identifier, four a standard one.
    template <typename Char> static bool readId(Text<Char> text, WrittenFrame &frame)
    {
        constexpr std::size_t longestStandardId = 4;
        quint32 id = 0;
        return WrittenFields::readHex(text, id) ? frame.setId(id, text.size() > longestStandardId)
                                                : frame.fail(ImportReport::UnparsableNumber);
    }

    // Only bytes of two digits are whole; a row that ends before is cut.
    template <typename Char> bool readPayload(const Parts<Char> &words, WrittenFrame &frame) const
    {
        CAN::CanRxMessage &message = frame.message;
        if (layout.data == noWord) {
            frame.isChanged[ImportReport::ChangedPayload] = message.length > 0;
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
        if (!settleLength(count, frame))
            return frame.fail(ImportReport::TooFewFields);
        // What stands behind the last bytes becomes a note on the frame.
        if (end == words.size() && word < end)
            frame.note = joined(words, word);
        return true;
    }

    // Some programs write the length of a CAN FD frame where others write its code, and classic
    // codes above 8 mean 8 bytes. The bytes tell which one is meant.
    static bool settleLength(int count, WrittenFrame &frame)
    {
        CAN::CanRxMessage &message = frame.message;
        constexpr int classicBytes = WrittenFields::maxClassicBytes;
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
            frame.setClassicLength(quint32(written));
            return true;
        }
        frame.isChanged[ImportReport::ChangedPayload] = count > written;
        return count > written;
    }

    ImportReport &report;
    WrittenFields::Channels channels;
    Layout layout;
    bool isBehindHeader = false;
};

} // namespace

Outcome readPeakTolerantly(LineSource &lines, TraceSink &sink, const TraceRequest &)
{
    PeakGrammar grammar(lines);
    return readWrittenFrames(lines, sink, grammar);
}
