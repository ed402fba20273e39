#include "gvretreader.h"

#include "csvcolumns.h"
#include "writtenframe.h"

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

class GvretGrammar
{
public:
    explicit GvretGrammar(LineSource &lines) : channels(lines) { }

    template <typename Char> bool read(Text<Char> line, WrittenFrame &frame)
    {
        const Parts<Char> cells = splitKeepingEmpty<','>(line);
        if (!knowsColumns)
            readTitles(cells, positionsOf(cells));
        if (!readFrame(cells, frame))
            return readTitles(cells, positions) ? frame.fail(ImportReport::Header) : false;
        if (const auto bus = positions.cell(cells, Bus); !bus.empty())
            frame.message.line = channels.lineOf(bus);
        return true;
    }

private:
    // A row of titles may come again, where files are joined. False for any other row.
    template <typename Char> bool readTitles(const Parts<Char> &cells, const Positions &otherwise)
    {
        const Positions named(cells, names);
        const bool isTitleRow = named.has(Time) && named.has(Id) && named.has(Length);
        positions = isTitleRow ? named : otherwise;
        knowsColumns = knowsColumns || isTitleRow || cells.size() > Length;
        return isTitleRow;
    }

    template <typename Char> bool readFrame(const Parts<Char> &cells, WrittenFrame &frame) const
    {
        CAN::CanRxMessage &message = frame.message;
        qint64 microseconds = 0;
        quint32 id = 0;
        quint32 length = 0;
        if (cells.size() == 1)
            return false;
        if (positions.cell(cells, Length).empty())
            return frame.fail(ImportReport::TooFewFields);
        if (!readTime(positions.cell(cells, Time), microseconds,
                      frame.isChanged[ImportReport::ChangedTime])
            || !WrittenFields::readHex(positions.cell(cells, Id), id)
            || !WrittenFields::readNumber(positions.cell(cells, Length), 10, length))
            return frame.fail(ImportReport::UnparsableNumber);
        message.transmitted =
            CsvColumns::equalsIgnoringCase(positions.cell(cells, Direction), "tx");
        message.fdFrame = length > WrittenFields::maxClassicBytes;
        return frame.setTime(microseconds)
            && frame.setId(id, CsvColumns::isTrue(positions.cell(cells, Extended)))
            && frame.setLength(length, ImportReport::UnparsableNumber) && readPayload(cells, frame);
    }

    // Devices fill the columns behind a short payload with zeros; anything else is a loss.
    template <typename Char> bool readPayload(const Parts<Char> &cells, WrittenFrame &frame) const
    {
        const int first = positions.has(Data) ? positions.at(Data) : positions.at(Length) + 1;
        const int end = first + frame.message.length;
        for (int i = first; i < end; ++i) {
            const Text<Char> cell = trimmed(partAt(cells, i));
            if (cell.empty())
                return frame.fail(ImportReport::TooFewFields);
            if (!WrittenFields::readByte(cell, 16, frame.message.data[i - first]))
                return frame.fail(ImportReport::UnparsableNumber);
        }
        bool &isCut = frame.isChanged[ImportReport::ChangedPayload];
        for (int i = end; i < cells.size() && !isCut; ++i) {
            const Text<Char> cell = trimmed(cells[i]);
            isCut = !cell.empty() && !equals(cell, "00") && !equals(cell, "0");
        }
        return true;
    }

    WrittenFields::Channels channels;
    Positions positions;
    bool knowsColumns = false;
};

} // namespace

Outcome readGvretCsv(LineSource &lines, TraceSink &sink, const TraceRequest &)
{
    GvretGrammar grammar(lines);
    return readWrittenFrames(lines, sink, grammar);
}
