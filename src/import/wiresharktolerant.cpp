#include "csvcolumns.h"
#include "wiresharkcsvreader.h"
#include "writtendates.h"
#include "writtenframe.h"

using namespace LineFields;

namespace {

enum Column {
    Number,
    Time,
    Protocol,
    Info,
    Id,
    Length,
    Data,
    Extended,
    Remote,
    Error,
    FdFrame,
    BitRateSwitch,
    ErrorState,
    Channel,
    PacketType,
    columnCount
};

// Titles of the packet list and names of fields, as they are exported.
constexpr CsvColumns::Name names[] = {
    {"no.", Number},
    {"no", Number},
    {"frame.number", Number},
    {"_ws.col.no.", Number},
    {"time", Time},
    {"frame.time", Time},
    {"frame.time_relative", Time},
    {"frame.time_epoch", Time},
    {"_ws.col.time", Time},
    {"protocol", Protocol},
    {"_ws.col.protocol", Protocol},
    {"info", Info},
    {"_ws.col.info", Info},
    {"can.id", Id},
    {"id", Id},
    {"can id", Id},
    {"identifier", Id},
    {"can.len", Length},
    {"canfd.len", Length},
    {"dlc", Length},
    {"frame-length", Length},
    {"data.data", Data},
    {"data", Data},
    {"can.data", Data},
    {"payload", Data},
    {"can.flags.xtd", Extended},
    {"extended flag", Extended},
    {"can.flags.rtr", Remote},
    {"remote transmission request flag", Remote},
    {"can.flags.err", Error},
    {"error message flag", Error},
    {"canfd.flags.fdf", FdFrame},
    {"canfd.flags.brs", BitRateSwitch},
    {"bit rate setting", BitRateSwitch},
    {"canfd.flags.esi", ErrorState},
    {"error state indicator", ErrorState},
    {"can.bus_id", Channel},
    {"frame.interface_name", Channel},
    {"frame.interface_id", Channel},
    {"interface", Channel},
    {"interface name", Channel},
    {"sll.pkttype", PacketType},
    {"packet type", PacketType},
};

using Positions = CsvColumns::Positions<columnCount>;

// The packet list as it is exported when nobody has changed it.
Positions packetList()
{
    Positions positions;
    positions[Number] = 0;
    positions[Time] = 1;
    positions[Protocol] = 4;
    positions[Info] = 6;
    return positions;
}

// What a row says of its frame so far.
struct Found
{
    explicit Found(WrittenFrame &frame) : frame(frame), message(frame.message) { }

    WrittenFrame &frame;
    CAN::CanRxMessage &message;
    int bytes = 0;
    bool hasId = false;
    bool hasLength = false;
    bool hasData = false; // also where it is empty
    bool isError = false;
};

// "0x166" or "358"; a number with other digits than decimal ones is hexadecimal.
template <typename Char> bool readAnyBase(Text<Char> text, quint32 &number)
{
    const bool hasPrefix = text.size() > 1 && text[1] == 'x';
    return (!hasPrefix && WrittenFields::readNumber(text, 10, number))
        || WrittenFields::readHex(text, number);
}

// Counts bytes for which there is no room, too.
template <typename Char> bool addByte(Text<Char> text, Found &found)
{
    quint8 byte = 0;
    if (!WrittenFields::readHexPair(text, byte))
        return false;
    if (found.bytes < CAN::maxDataBytes)
        found.message.data[found.bytes] = byte;
    ++found.bytes;
    return true;
}

// Payload up to the first word that is no byte of two digits.
template <typename Char> void readWords(const Parts<Char> &words, int first, Found &found)
{
    while (first < words.size() && addByte(words[first], found))
        ++first;
    found.hasData = found.hasData || found.bytes > 0;
}

// A remote frame has its mark right behind the length: "5(Remote".
template <typename Char> Text<Char> digitsAtFront(Text<Char> text)
{
    std::size_t size = 0;
    while (size < text.size() && digitValue(text[size]) <= 9)
        ++size;
    return text.substr(0, size);
}

// "ID: 358 (0x166), Length: 4", where "Ext." may stand before "ID:", and payload behind it.
template <typename Char> void readIdInfo(const Parts<Char> &words, int idWord, Found &found)
{
    enum Word { Decimal = 1, LengthName = 3, Length = 4, Payload = 5 };
    quint32 length = 0;
    found.hasId = WrittenFields::readNumber(partAt(words, idWord + Decimal), 10, found.message.id);
    found.message.extended = idWord > 0;
    const Text<Char> number = digitsAtFront(partAt(words, idWord + Length));
    if (!equals(partAt(words, idWord + LengthName), "Length:")
        || !WrittenFields::readNumber(number, 10, length) || length > CAN::maxDataBytes)
        return;
    found.hasLength = true;
    found.message.length = qint8(length);
    readWords(words, idWord + Payload, found);
}

// "STD: 0x00000123   11 22 33"; the number has eight digits for standard identifiers too.
template <typename Char> void readKindInfo(const Parts<Char> &words, Found &found)
{
    constexpr int payload = 2;
    found.isError = equals(words[0], "ERR:");
    found.message.extended = equals(words[0], "XTD:");
    if (!found.isError && !found.message.extended && !equals(words[0], "STD:"))
        return;
    found.hasId = WrittenFields::readHex(partAt(words, 1), found.message.id);
    found.hasData = true;
    readWords(words, payload, found);
}

template <typename Char> void readInfo(Text<Char> info, Found &found)
{
    const Parts<Char> words = splitAtBlanks(info);
    if (words.isEmpty())
        return;
    found.message.remote = contains(info, "Remote Transmission Request");
    if (equals(words[0], "ID:"))
        readIdInfo(words, 0, found);
    else if (equals(words[0], "Ext.") && equals(partAt(words, 1), "ID:"))
        readIdInfo(words, 1, found);
    else
        readKindInfo(words, found);
}

// "01020304", "01:02:03:04" or "01 02 03 04".
template <typename Char> bool readData(Text<Char> text, Found &found)
{
    found.bytes = 0;
    while (!text.empty()) {
        if (!addByte(text.substr(0, 2), found))
            return false;
        text.remove_prefix(2);
        if (!text.empty() && (text[0] == ':' || text[0] == ' '))
            text.remove_prefix(1);
    }
    found.hasData = true;
    return true;
}

// Reads the date before a time of day, if there is one.
template <typename Char> Text<Char> clockBehindDate(const Parts<Char> &words, qint64 &date)
{
    enum Word { Month, Day, Year, ClockBehindYear };
    constexpr std::size_t isoDateSize = 10;
    const Text<Char> first = partAt(words, 0);
    if (WrittenFields::readIsoDate(first.substr(0, isoDateSize), date))
        return first.size() == isoDateSize ? partAt(words, 1) : first.substr(isoDateSize + 1);
    const bool isNamed = WrittenFields::readNamedDate(partAt(words, Month), partAt(words, Day),
                                                      partAt(words, Year), date);
    return isNamed ? partAt(words, ClockBehindYear) : first;
}

// Seconds, a time of day, or a date with a time; "Jul  8, 2020 01:41:02.5 CEST" as well.
template <typename Char> bool readTime(Text<Char> text, qint64 &microseconds, bool &isCut)
{
    std::basic_string<Char> scratch;
    text = withoutBrackets<'(', ')'>(text, scratch);
    if (WrittenFields::readSeconds(text, microseconds, isCut))
        return true;
    if (!text.empty() && text.back() == 'Z')
        text.remove_suffix(1);
    const Parts<Char> words = splitAtBlanks(text);
    qint64 date = 0;
    qint64 clock = 0;
    if (!WrittenFields::readClock(clockBehindDate(words, date), clock, isCut))
        return false;
    microseconds = date + clock;
    return true;
}

class WiresharkGrammar
{
public:
    explicit WiresharkGrammar(LineSource &lines) : channels(lines), positions(packetList()) { }

    template <typename Char> bool read(Text<Char> line, WrittenFrame &frame)
    {
        if (separator == 0)
            separator = CsvColumns::separatorOf(line);
        const Parts<Char> cells = CsvColumns::cellsOf(line, separator);
        Found found(frame);
        if (!readFields(cells, found))
            return readTitles(cells) ? frame.fail(ImportReport::Header) : false;
        if (!readFlags(cells, found) || !readPayload(cells, found) || !readStamp(cells, frame))
            return false;
        if (const auto channel = positions.cell(cells, Channel); !channel.empty())
            frame.message.line = channels.lineOf(channel);
        WrittenFields::readNumber(positions.cell(cells, Number), 10, frame.message.messageNumber);
        return true;
    }

private:
    // False for a row that names no frame.
    template <typename Char> bool readFields(const Parts<Char> &cells, Found &found)
    {
        readInfo(positions.cell(cells, Info), found);
        if (const auto id = positions.cell(cells, Id); !id.empty())
            found.hasId = readAnyBase(id, found.message.id);
        // Where the fields of an error frame are exported, its identifier is left empty.
        found.isError = found.isError || flag(cells, Error);
        return found.hasId || found.isError;
    }

    template <typename Char> bool flag(const Parts<Char> &cells, Column column) const
    {
        return CsvColumns::isTrue(positions.cell(cells, column));
    }

    // A row of titles may come again, where exports are joined. False for any other row.
    template <typename Char> bool readTitles(const Parts<Char> &cells)
    {
        const Positions named(cells, names);
        if (!named.has(Info) && !named.has(Id))
            return false;
        positions = named;
        return true;
    }

    template <typename Char> bool readFlags(const Parts<Char> &cells, Found &found) const
    {
        const Text<Char> protocol = positions.cell(cells, Protocol);
        CAN::CanRxMessage &message = found.message;
        if (CsvColumns::equalsIgnoringCase(protocol, "canxl"))
            return found.frame.fail(ImportReport::UnkeptFrameKind);
        if (!found.isError
            && !found.frame.setId(message.id, message.extended || flag(cells, Extended)))
            return false;
        // Frames of classic CAN have no bit rate switch: the cell is empty, not 0.
        message.fdFrame = CsvColumns::equalsIgnoringCase(protocol, "canfd") || flag(cells, FdFrame)
            || !positions.cell(cells, BitRateSwitch).empty();
        message.flagC = flag(cells, BitRateSwitch);
        message.flagB = flag(cells, ErrorState);
        message.remote = message.remote || flag(cells, Remote);
        const Text<Char> packetType = positions.cell(cells, PacketType);
        message.transmitted = equals(packetType, "4") || contains(packetType, "Sent by us");
        return true;
    }

    template <typename Char> bool readPayload(const Parts<Char> &cells, Found &found) const
    {
        WrittenFrame &frame = found.frame;
        if (found.isError) {
            frame.setErrorFrame();
            frame.message.length = 0;
            return true;
        }
        quint32 length = 0;
        const Text<Char> lengthCell = positions.cell(cells, Length);
        const Text<Char> dataCell = positions.cell(cells, Data);
        if (!lengthCell.empty()) {
            if (!WrittenFields::readNumber(lengthCell, 10, length))
                return frame.fail(ImportReport::UnparsableNumber);
            if (!frame.setLength(length, ImportReport::UnparsableNumber))
                return false;
            found.hasLength = true;
        }
        if (!dataCell.empty() && !readData(dataCell, found))
            return frame.fail(ImportReport::UnparsableNumber);
        if (!settleLength(found))
            return frame.fail(ImportReport::TooFewFields);
        // An export need not have a column that tells the kind.
        if (quint32(frame.message.length) > WrittenFields::maxClassicBytes && !frame.message.remote)
            frame.message.fdFrame = true;
        return true;
    }

    // The payload of a frame may not be in the export at all; then its length is all there is.
    static bool settleLength(Found &found)
    {
        CAN::CanRxMessage &message = found.message;
        if (!found.hasLength) {
            message.length = qint8(std::min(found.bytes, CAN::maxDataBytes));
            return (found.hasData || message.remote) && found.bytes <= CAN::maxDataBytes;
        }
        if (message.remote || found.bytes == message.length)
            return true;
        const bool isOther = found.bytes == 0 || found.bytes > message.length;
        found.frame.isChanged[ImportReport::ChangedPayload] = isOther;
        return isOther;
    }

    template <typename Char> bool readStamp(const Parts<Char> &cells, WrittenFrame &frame) const
    {
        const Text<Char> cell = positions.cell(cells, Time);
        qint64 microseconds = 0;
        return cell.empty()
                || readTime(cell, microseconds, frame.isChanged[ImportReport::ChangedTime])
            ? frame.setTime(microseconds)
            : frame.fail(ImportReport::UnparsableNumber);
    }

    WrittenFields::Channels channels;
    Positions positions;
    char separator = 0;
};

} // namespace

Outcome readWiresharkTolerantly(LineSource &lines, TraceSink &sink, const TraceRequest &)
{
    WiresharkGrammar grammar(lines);
    return readWrittenFrames(lines, sink, grammar);
}
