#include "plaintextreader.h"

#include "canframe.h"
#include "kolvarline.h"
#include "messagefeed.h"

using namespace LineFields;

namespace {

enum class Origin { PcanExplorer, Other };

Origin findOrigin(LineSource &lines)
{
    bool mentioned = false;
    while (!mentioned && lines.next())
        mentioned = lines.visit([](auto line) { return contains(line, "PCAN-Explorer"); });
    lines.rewind();
    return mentioned ? Origin::PcanExplorer : Origin::Other;
}

template <typename Char> bool allDigits(Text<Char> text)
{
    return std::all_of(text.begin(), text.end(), [](Char c) { return digitValue(c) < 10; });
}

// Splits a time that consists of digits around one point or comma. False for anything else.
template <typename Char> bool splitTime(Text<Char> text, Text<Char> &whole, Text<Char> &fraction)
{
    const std::size_t point = std::min({text.find(Char('.')), text.find(Char(',')), text.size()});
    whole = text.substr(0, point);
    fraction = text.substr(std::min(point + 1, text.size()));
    return !whole.empty() && allDigits(whole) && allDigits(fraction);
}

template <typename Char> bool readSeconds(Text<Char> text, CAN::CanRxMessage &message)
{
    Text<Char> whole;
    Text<Char> fraction;
    if (!splitTime(text, whole, fraction))
        return false;
    message.seconds = toNumber<qint32>(whole);
    message.microseconds = toMicroseconds(fraction.substr(0, 6));
    return true;
}

template <typename Char> bool readMilliseconds(Text<Char> text, CAN::CanRxMessage &message)
{
    Text<Char> whole;
    Text<Char> fraction;
    if (!splitTime(text, whole, fraction))
        return false;
    const quint64 milliseconds = toNumber<quint64>(whole);
    message.seconds = qint32(milliseconds / 1000);
    message.microseconds =
        qint32(milliseconds % 1000) * 1000 + toMicroseconds(fraction.substr(0, 3)) / 1000;
    return true;
}

template <typename Char> bool readId(Text<Char> text, CAN::CanRxMessage &message)
{
    bool ok = true;
    message.id = contains(text, "Error") ? CAN::errorFrameId : toNumber<quint32>(text, 16, &ok);
    message.extended = message.id != CAN::errorFrameId && message.id > maxStandardId;
    return ok;
}

template <typename Char> bool readLength(Text<Char> text, CAN::CanRxMessage &message)
{
    bool ok = false;
    const quint32 length = toNumber<quint32>(text, 10, &ok);
    message.length = qint8(length);
    return ok && length <= quint32(CAN::maxDataBytes);
}

// "12.5 0x123/291 (2): 01 ff ;5;a note". The note goes up to the end of the line, as it
// was exported; words in it do not change the frame.
template <typename Char>
bool readExportLine(Text<Char> line, CAN::CanRxMessage &message, QString &note)
{
    const std::size_t frameEnd = std::min(line.find(Char(';')), line.size());
    const Parts<Char> tokens = splitAtBlanks(line.substr(0, frameEnd));
    if (!KolvarLine::hasFrameShape(tokens))
        return false;
    const Text<Char> fields = line.substr(std::min(frameEnd + 1, line.size()));
    const std::size_t flagsEnd = fields.find(Char(';'));
    if (flagsEnd != fields.npos)
        note = toQString(fields.substr(flagsEnd + 1));
    return KolvarLine::readFrame(tokens, toNumberIfAny<quint32>(fields.substr(0, flagsEnd)),
                                 message);
}

// Reads a word between identifier and length. False for a word that cannot stand there.
template <typename Char> bool readFlag(Text<Char> text, CAN::CanRxMessage &message)
{
    message.remote = message.remote || equals(text, "r");
    message.extended = message.extended || equals(text, "e");
    message.transmitted = message.transmitted || equals(text, "Tx");
    return text.empty() || equals(text, "r") || equals(text, "e") || equals(text, "Rx")
        || equals(text, "Tx");
}

template <typename Char>
void readDataFields(const Parts<Char> &fields, int first, CAN::CanRxMessage &message)
{
    int count = 0;
    for (int field = first; field < fields.size(); ++field) {
        for (const Text<Char> byte : splitAtBlanks(fields[field]))
            storeByte(message, count++, toHexByte(byte));
    }
}

// "12.5;123;Rx;2;01;ff": time, identifier, any number of flags, length, payload.
template <char separator, typename Char>
bool readSeparatedLine(Text<Char> line, CAN::CanRxMessage &message)
{
    constexpr int minFields = 4;
    const Parts<Char> fields = splitKeepingEmpty<separator>(line);
    if (fields.size() < minFields || !readSeconds(trimmed(partAt(fields, 0)), message)
        || !readId(trimmed(partAt(fields, 1)), message))
        return false;
    int lengthField = 2;
    while (lengthField < fields.size() && readFlag(trimmed(partAt(fields, lengthField)), message))
        ++lengthField;
    if (!readLength(trimmed(partAt(fields, lengthField)), message))
        return false;
    readDataFields(fields, lengthField + 1, message);
    return true;
}

template <typename Char> bool isRowType(Text<Char> text)
{
    return equals(text, "Rx") || equals(text, "Tx") || equals(text, "Error");
}

// "1) 1059.9 Rx 0300 2 01 ff": number, milliseconds, type, identifier, length, payload. The type
// may be missing, a bus number may stand in front of it and a "-" in front of the length.
template <typename Char> bool readTraceRow(Text<Char> line, CAN::CanRxMessage &message)
{
    const Parts<Char> tokens = splitAtBlanks(line);
    if (tokens.size() < 4 || tokens[0].back() != ')' || !readMilliseconds(tokens[1], message))
        return false;
    int at = isRowType(tokens[3]) ? 3 : 2;
    const Text<Char> type = isRowType(tokens[at]) ? tokens[at++] : Text<Char>();
    const Text<Char> id = partAt(tokens, at++);
    if (!readId(equals(type, "Error") ? type : id, message))
        return false;
    constexpr std::size_t maxStandardIdDigits = 4;
    message.extended =
        message.id != CAN::errorFrameId && (message.extended || id.size() > maxStandardIdDigits);
    message.transmitted = equals(type, "Tx");
    if (equals(partAt(tokens, at), "-"))
        ++at;
    if (!readLength(partAt(tokens, at++), message))
        return false;
    message.remote = equals(partAt(tokens, at), "RTR");
    readBytes(tokens, at, CAN::payloadSize(message), 16, message);
    return true;
}

// Reads the line in the first form that it has, each time into a fresh record.
template <typename Char>
bool readLine(Text<Char> line, Origin origin, CAN::CanRxMessage &message, QString &note)
{
    const CAN::CanRxMessage blank;
    message = blank;
    if (origin == Origin::PcanExplorer ? readTraceRow(line, message)
                                       : readExportLine(line, message, note))
        return true;
    note.clear();
    message = blank;
    if (readSeparatedLine<';'>(line, message))
        return true;
    message = blank;
    return readSeparatedLine<'\t'>(line, message);
}

} // namespace

Outcome readPlainText(LineSource &lines, TraceSink &sink, const TraceRequest &)
{
    const Origin origin = findOrigin(lines);
    MessageFeed feed(lines, sink);
    while (lines.next()) {
        if (!sink.turnEventLoop())
            return Outcome::givenUp();
        CAN::CanRxMessage message;
        QString note;
        if (!lines.visit([&](auto line) { return readLine(line, origin, message, note); }))
            continue;
        const Outcome result = feed.addMessageWithNote(message, note);
        if (!result.isDone())
            return result;
    }
    return Outcome::done();
}
