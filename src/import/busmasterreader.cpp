#include "busmasterreader.h"

#include "writtendates.h"
#include "writtenframe.h"

using namespace LineFields;

namespace {

enum Word { Time, Direction, Channel, Id, Type, Length, Data };

// "11:49:12:9420", whose last part is the fraction of the second.
template <typename Char> bool readTime(Text<Char> text, qint64 &microseconds, bool &isCut)
{
    const std::size_t lastColon = text.rfind(Char(':'));
    if (std::count(text.begin(), text.end(), Char(':')) != 3)
        return WrittenFields::readClock(text, microseconds, isCut);
    Scratch<Char> withPoint;
    withPoint.append(text.data(), int(text.size()));
    withPoint[int(lastColon)] = Char('.');
    return WrittenFields::readClock(textOf(withPoint), microseconds, isCut);
}

// "s" and "x" are frames with a standard and an extended identifier, "r" behind it remote ones.
template <typename Char> bool readType(Text<Char> text, CAN::CanRxMessage &message)
{
    if (text.empty() || text.size() > 2 || (text[0] != 's' && text[0] != 'x'))
        return false;
    message.extended = text[0] == 'x' || message.id > WrittenFields::maxStandardId;
    message.remote = text.size() == 2;
    return !message.remote || text[1] == 'r';
}

class BusmasterGrammar
{
public:
    explicit BusmasterGrammar(LineSource &lines) : report(lines.report()), channels(lines) { }

    template <typename Char> bool read(Text<Char> line, WrittenFrame &frame)
    {
        line = trimmed(line);
        if (line.empty())
            return false;
        if (line.front() != '*')
            return readFrame(splitAtBlanks(line), frame);
        readHeader(line);
        return frame.fail(ImportReport::Header);
    }

private:
    template <typename Char> void readHeader(Text<Char> line)
    {
        if (equals(line, "***DEC***") || equals(line, "***HEX***"))
            base = equals(line, "***DEC***") ? 10 : 16;
        else if (contains(line, " MODE***"))
            report.timeBase = toQString(line).remove('*');
        else if (contains(line, "***START DATE AND TIME "))
            readStart(toQString(line).remove('*').section(' ', 4));
    }

    // "8:11:2014 17:9:3:271": day, month and year, then milliseconds behind the time of day.
    void readStart(const QString &text)
    {
        const QString dayText = text.section(' ', 0, 0);
        const QString clockText = text.section(' ', 1, 1);
        const QDate date(dayText.section(':', 2, 2).toInt(), dayText.section(':', 1, 1).toInt(),
                         dayText.section(':', 0, 0).toInt());
        const QTime clock(
            clockText.section(':', 0, 0).toInt(), clockText.section(':', 1, 1).toInt(),
            clockText.section(':', 2, 2).toInt(), clockText.section(':', 3, 3).toInt());
        if (date.isValid() && clock.isValid())
            report.start = QDateTime(date, clock, Qt::UTC);
    }

    template <typename Char> bool readFrame(const Parts<Char> &words, WrittenFrame &frame)
    {
        CAN::CanRxMessage &message = frame.message;
        qint64 microseconds = 0;
        quint32 length = 0;
        if (!readTime(words[Time], microseconds, frame.isChanged[ImportReport::ChangedTime]))
            return false;
        if (words.size() <= Length)
            return frame.fail(ImportReport::TooFewFields);
        message.transmitted = equals(words[Direction], "Tx");
        if (!message.transmitted && !equals(words[Direction], "Rx"))
            return false;
        if (!readId(words[Id], frame))
            return false;
        if (!WrittenFields::readNumber(words[Length], 10, length))
            return frame.fail(ImportReport::UnparsableNumber);
        if (!frame.setLength(length, ImportReport::UnparsableNumber))
            return false;
        if (!readType(words[Type], message))
            return frame.fail(ImportReport::UnkeptFrameKind);
        if (!frame.setTime(microseconds) || (!message.remote && !readPayload(words, frame)))
            return false;
        message.line = channels.lineOf(words[Channel]);
        return true;
    }

    template <typename Char> bool readId(Text<Char> text, WrittenFrame &frame) const
    {
        quint32 id = 0;
        const bool isRead =
            base == 16 ? WrittenFields::readHex(text, id) : WrittenFields::readNumber(text, 10, id);
        return isRead ? frame.setId(id, false) : frame.fail(ImportReport::UnparsableNumber);
    }

    template <typename Char> bool readPayload(const Parts<Char> &words, WrittenFrame &frame) const
    {
        const int length = frame.message.length;
        frame.message.fdFrame = length > int(WrittenFields::maxClassicBytes);
        return words.size() - Data <= length && frame.readBytes(words, Data, length, base);
    }

    ImportReport &report;
    WrittenFields::Channels channels;
    unsigned base = 16;
};

} // namespace

Outcome readBusmasterLog(LineSource &lines, TraceSink &sink, const TraceRequest &)
{
    BusmasterGrammar grammar(lines);
    return readWrittenFrames(lines, sink, grammar);
}
