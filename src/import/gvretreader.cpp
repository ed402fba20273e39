#include "gvretreader.h"

#include "canframe.h"
#include "csvcolumns.h"
#include "messagefeed.h"
#include "writtenfields.h"

using namespace LineFields;

namespace {

enum Column { Time, Id, Extended, Direction, Bus, Length, Data, columnCount };

constexpr CsvColumns::Name names[] = {
    {"time stamp", Time}, {"timestamp", Time}, {"id", Id},      {"extended", Extended},
    {"dir", Direction},   {"bus", Bus},        {"len", Length}, {"d1", Data},
};

using Positions = CsvColumns::Positions<columnCount>;

// The columns of a trace without a title row; older programs do not write the direction.
template <typename Char> Positions positionsOf(const Parts<Char> &cells)
{
    const Text<Char> fourth = CsvColumns::unquoted(partAt(cells, Direction));
    const bool hasDirection = equals(fourth, "Rx") || equals(fourth, "Tx");
    Positions positions;
    int next = 0;
    for (const int column : {Time, Id, Extended, Direction, Bus, Length, Data}) {
        if (column != Direction || hasDirection)
            positions[column] = next++;
    }
    return positions;
}

// Whole microseconds, or seconds with a fraction.
template <typename Char> bool readTime(Text<Char> text, qint64 &microseconds, bool &isCut)
{
    constexpr std::size_t mostDigits = 16;
    constexpr qint64 million = 1000000;
    if (text.find(Char('.')) != text.npos)
        return WrittenFields::readSeconds(text, microseconds, isCut);
    qint64 value = 0;
    for (const Char c : text) {
        if (WrittenFields::digitValue(c) > 9 || text.size() > mostDigits)
            return false;
        value = value * 10 + WrittenFields::digitValue(c);
    }
    if (text.empty() || value / million > std::numeric_limits<qint32>::max())
        return false;
    microseconds = value;
    return true;
}

/// Reads the rows of one file.
class FrameRows
{
public:
    FrameRows(LineSource &lines, TraceSink &sink) : lines(lines), feed(lines, sink), channels(lines)
    {
    }

    template <typename Char> Outcome readLine(Text<Char> line)
    {
        if (!feed.turnEventLoopWhenDue())
            return Outcome::givenUp();
        const Parts<Char> cells = splitKeepingEmpty<','>(line);
        if (!knowsColumns)
            readTitles(cells, positionsOf(cells));
        CAN::CanRxMessage message;
        bool isCut = false;
        const ImportReport::Reason reason = readFields(cells, message, isCut);
        if (reason != isFrame) {
            lines.leaveOut(reason);
            readTitles(cells, positions);
            return Outcome::done();
        }
        if (const auto bus = positions.cell(cells, Bus); !bus.empty())
            message.line = channels.lineOf(bus);
        tellChanges(cells, message, isCut);
        return feed.addMessageToMessageList(message);
    }

private:
    // A row of titles may come again, where files are joined.
    template <typename Char> void readTitles(const Parts<Char> &cells, const Positions &otherwise)
    {
        const Positions named(cells, names);
        const bool isTitleRow = named.has(Time) && named.has(Id) && named.has(Length);
        positions = isTitleRow ? named : otherwise;
        if (isTitleRow)
            lines.leaveOut(ImportReport::Header);
        knowsColumns = knowsColumns || isTitleRow || cells.size() > Length;
    }

    // Returns why the row is no frame, or isFrame.
    template <typename Char>
    ImportReport::Reason readFields(const Parts<Char> &cells, CAN::CanRxMessage &message,
                                    bool &isCut) const
    {
        qint64 microseconds = 0;
        quint32 length = 0;
        if (cells.size() == 1)
            return ImportReport::WrongShape;
        if (positions.cell(cells, Length).empty())
            return ImportReport::TooFewFields;
        if (!readTime(positions.cell(cells, Time), microseconds, isCut)
            || !WrittenFields::readHex(positions.cell(cells, Id), message.id)
            || message.id > WrittenFields::maxExtendedId
            || !WrittenFields::readNumber(positions.cell(cells, Length), 10, length)
            || length > CAN::maxDataBytes)
            return ImportReport::UnparsableNumber;
        constexpr quint32 classicBytes = 8;
        WrittenFields::setTime(message, microseconds);
        message.extended = CsvColumns::isTrue(positions.cell(cells, Extended))
            || message.id > WrittenFields::maxStandardId;
        message.transmitted =
            CsvColumns::equalsIgnoringCase(positions.cell(cells, Direction), "tx");
        message.length = qint8(length);
        message.fdFrame = length > classicBytes;
        return readPayload(cells, message);
    }

    template <typename Char>
    ImportReport::Reason readPayload(const Parts<Char> &cells, CAN::CanRxMessage &message) const
    {
        for (int i = 0; i < message.length; ++i) {
            const Text<Char> cell = trimmed(partAt(cells, dataCell() + i));
            if (cell.empty())
                return ImportReport::TooFewFields;
            if (!WrittenFields::readByte(cell, 16, message.data[i]))
                return ImportReport::UnparsableNumber;
        }
        return isFrame;
    }

    // The cell of the first byte.
    int dataCell() const
    {
        return positions.has(Data) ? positions.at(Data) : positions.at(Length) + 1;
    }

    // Devices fill the columns behind a short payload with zeros; anything else is a loss.
    template <typename Char>
    void tellChanges(const Parts<Char> &cells, const CAN::CanRxMessage &message, bool isTimeCut)
    {
        if (isTimeCut)
            lines.change(ImportReport::ChangedTime);
        for (int i = dataCell() + message.length; i < cells.size(); ++i) {
            const Text<Char> cell = trimmed(cells[i]);
            if (!cell.empty() && !equals(cell, "00") && !equals(cell, "0")) {
                lines.change(ImportReport::ChangedPayload);
                return;
            }
        }
    }

    static constexpr auto isFrame = ImportReport::Reason(ImportReport::reasonCount);

    LineSource &lines;
    MessageFeed feed;
    WrittenFields::Channels channels;
    Positions positions;
    bool knowsColumns = false;
};

} // namespace

Outcome readGvretCsv(LineSource &lines, TraceSink &sink, const TraceRequest &)
{
    FrameRows rows(lines, sink);
    return readNumberedLines(lines, [&rows](auto line) { return rows.readLine(line); });
}
