#include "busmasterreader.h"

#include "canframe.h"
#include "lineparts.h"
#include "messagefeed.h"
#include "writtendates.h"

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

/// Reads the lines of one log.
class LogLines
{
public:
    LogLines(LineSource &lines, TraceSink &sink) : lines(lines), feed(lines, sink), channels(lines)
    {
    }

    template <typename Char> Outcome readLine(Text<Char> line)
    {
        if (!feed.turnEventLoopWhenDue())
            return Outcome::givenUp();
        line = trimmed(line);
        if (line.empty() || line.front() != '*')
            return readFrame(splitAtBlanks(line));
        lines.leaveOut(ImportReport::Header);
        readHeader(line);
        return Outcome::done();
    }

private:
    template <typename Char> void readHeader(Text<Char> line)
    {
        if (equals(line, "***DEC***") || equals(line, "***HEX***"))
            base = equals(line, "***DEC***") ? 10 : 16;
        else if (contains(line, " MODE***"))
            lines.report().timeBase = toQString(line).remove('*');
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
            lines.report().start = QDateTime(date, clock, Qt::UTC);
    }

    template <typename Char> Outcome readFrame(const Parts<Char> &words)
    {
        CAN::CanRxMessage message;
        bool isCut = false;
        const ImportReport::Reason reason =
            words.isEmpty() ? ImportReport::WrongShape : readFields(words, message, isCut);
        if (reason != isFrame) {
            lines.leaveOut(reason);
            return Outcome::done();
        }
        message.line = channels.lineOf(words[Channel]);
        if (isCut)
            lines.change(ImportReport::ChangedTime);
        return feed.addMessageToMessageList(message);
    }

    // Returns why the line is no frame, or isFrame.
    template <typename Char>
    ImportReport::Reason readFields(const Parts<Char> &words, CAN::CanRxMessage &message,
                                    bool &isCut) const
    {
        qint64 microseconds = 0;
        quint32 length = 0;
        if (!readTime(words[Time], microseconds, isCut))
            return ImportReport::WrongShape;
        if (words.size() <= Length)
            return ImportReport::TooFewFields;
        message.transmitted = equals(words[Direction], "Tx");
        if (!message.transmitted && !equals(words[Direction], "Rx"))
            return ImportReport::WrongShape;
        if (!readId(words[Id], message) || !WrittenFields::readNumber(words[Length], 10, length)
            || length > CAN::maxDataBytes)
            return ImportReport::UnparsableNumber;
        if (!readType(words[Type], message))
            return ImportReport::UnkeptFrameKind;
        WrittenFields::setTime(message, microseconds);
        message.length = qint8(length);
        return message.remote ? isFrame : readPayload(words, message);
    }

    template <typename Char> bool readId(Text<Char> text, CAN::CanRxMessage &message) const
    {
        const bool isRead = base == 16 ? WrittenFields::readHex(text, message.id)
                                       : WrittenFields::readNumber(text, 10, message.id);
        return isRead && message.id <= WrittenFields::maxExtendedId;
    }

    template <typename Char>
    ImportReport::Reason readPayload(const Parts<Char> &words, CAN::CanRxMessage &message) const
    {
        constexpr int classicBytes = 8;
        const int count = words.size() - Data;
        message.fdFrame = message.length > classicBytes;
        if (count != message.length)
            return count < message.length ? ImportReport::TooFewFields : ImportReport::WrongShape;
        for (int i = 0; i < count; ++i) {
            if (!WrittenFields::readByte(words[Data + i], base, message.data[i]))
                return ImportReport::UnparsableNumber;
        }
        return isFrame;
    }

    static constexpr auto isFrame = ImportReport::Reason(ImportReport::reasonCount);

    LineSource &lines;
    MessageFeed feed;
    WrittenFields::Channels channels;
    unsigned base = 16;
};

} // namespace

Outcome readBusmasterLog(LineSource &lines, TraceSink &sink, const TraceRequest &)
{
    LogLines log(lines, sink);
    return readNumberedLines(lines, [&log](auto line) { return log.readLine(line); });
}
