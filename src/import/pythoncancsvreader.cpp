#include "pythoncancsvreader.h"

#include "base64.h"
#include "canframe.h"
#include "csvcolumns.h"
#include "writtenfields.h"
#include "writtenframe.h"

using namespace LineFields;

namespace {

enum Column { Time, Id, Extended, Remote, Error, Length, Data, columnCount };

constexpr CsvColumns::Name names[] = {
    {"timestamp", Time}, {"arbitration_id", Id}, {"extended", Extended}, {"remote", Remote},
    {"error", Error},    {"dlc", Length},        {"data", Data},
};

using Positions = CsvColumns::Positions<columnCount>;

constexpr quint32 maxClassicLength = 8;

// Seconds as a floating point number: "1483389946.197", or "5e-05" below a tenth of a millisecond.
template <typename Char> bool readTime(Text<Char> text, WrittenFrame &frame)
{
    constexpr double million = 1e6;
    bool &isCut = frame.isChanged[ImportReport::ChangedTime];
    qint64 microseconds = 0;
    if (!WrittenFields::readSeconds(text, microseconds, isCut)) {
        bool isNumber = false;
        const double seconds = contains(text, "e-") ? toQString(text).toDouble(&isNumber) : 0;
        if (!isNumber || seconds < 0 || seconds >= 1)
            return false;
        microseconds = qRound64(seconds * million);
        isCut = !qFuzzyCompare(double(microseconds), seconds * million);
    }
    return WrittenFields::trySetTime(frame.message, microseconds);
}

template <typename Char> bool readFlag(Text<Char> cell, bool &isSet)
{
    isSet = CsvColumns::isTrue(cell);
    return isSet || equals(cell, "0") || CsvColumns::equalsIgnoringCase(cell, "false");
}

class PythonCanCsvGrammar
{
public:
    PythonCanCsvGrammar()
    {
        for (int column = 0; column < columnCount; ++column)
            positions[column] = column;
    }

    template <typename Char> bool read(Text<Char> line, WrittenFrame &frame)
    {
        const Parts<Char> cells = splitKeepingEmpty<','>(line);
        if (cells.size() == 1)
            return false;
        if (readFields(cells, frame))
            return true;
        if (readTitles(cells))
            return frame.fail(ImportReport::Header);
        return false;
    }

private:
    // Files that are joined have a row of titles each.
    template <typename Char> bool readTitles(const Parts<Char> &cells)
    {
        const Positions named(cells, names);
        for (int column = 0; column < columnCount; ++column) {
            if (!named.has(column))
                return false;
        }
        positions = named;
        return true;
    }

    template <typename Char> bool readFields(const Parts<Char> &cells, WrittenFrame &frame) const
    {
        CAN::CanRxMessage &message = frame.message;
        bool isErrorFrame = false;
        quint32 length = 0;
        if (cells.size() < columnCount)
            return frame.fail(ImportReport::TooFewFields);
        if (!readTime(positions.cell(cells, Time), frame)
            || !WrittenFields::readHex(positions.cell(cells, Id), message.id)
            || message.id > WrittenFields::maxExtendedId
            || !WrittenFields::readNumber(positions.cell(cells, Length), 10, length)
            || length > quint32(CAN::maxDataBytes))
            return frame.fail(ImportReport::UnparsableNumber);
        if (!readFlag(positions.cell(cells, Extended), message.extended)
            || !readFlag(positions.cell(cells, Remote), message.remote)
            || !readFlag(positions.cell(cells, Error), isErrorFrame))
            return frame.fail(ImportReport::WrongShape);
        message.length = qint8(length);
        message.extended = message.extended || message.id > WrittenFields::maxStandardId;
        message.fdFrame = length > maxClassicLength && !message.remote;
        if (isErrorFrame) {
            frame.isChanged[ImportReport::ChangedIdentifier] = message.id != 0;
            WrittenFields::setErrorFrame(message);
        }
        return message.remote || readPayload(positions.cell(cells, Data), frame);
    }

    template <typename Char> static bool readPayload(Text<Char> text, WrittenFrame &frame)
    {
        const int bytes = Base64::decode(text, frame.message.data, CAN::maxDataBytes);
        if (bytes < 0)
            return frame.fail(ImportReport::UnparsableNumber);
        if (bytes < frame.message.length)
            return frame.fail(ImportReport::TooFewFields);
        frame.isChanged[ImportReport::ChangedPayload] = bytes > frame.message.length;
        return true;
    }

    Positions positions;
};

} // namespace

Outcome readPythonCanCsv(LineSource &lines, TraceSink &sink, const TraceRequest &)
{
    PythonCanCsvGrammar grammar;
    return readWrittenFrames(lines, sink, grammar);
}
