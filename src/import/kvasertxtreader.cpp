#include "kvasertxtreader.h"

#include "linefields.h"
#include "messagefeed.h"

using namespace LineFields;

namespace {

struct NumberBases
{
    int data = 16;
    int id = 16;
};

// "; Format of data field: DEC"
template <typename Char> void readBase(Text<Char> line, std::string_view title, int &base)
{
    if (contains(line, title) && contains(partAt(splitKeepingEmpty<':'>(line), 1), "DEC"))
        base = 10;
}

// Whether the header goes on behind this line.
template <typename Char> bool readHeaderLine(Text<Char> line, NumberBases &bases)
{
    readBase(line, "Format of data field:", bases.data);
    readBase(line, "Format of id field:", bases.id);
    return !contains(line, "Trigger");
}

void readHeader(LineSource &lines, NumberBases &bases)
{
    const auto readLine = [&bases](auto line) { return readHeaderLine(line, bases); };
    bool goesOn = true;
    while (goesOn && lines.next()) {
        goesOn = lines.visit(readLine);
        lines.leaveOut(ImportReport::Header);
    }
}

// "12.5 1 123 Rx 2 11 22 1": time, channel, identifier, flags, length, payload, counter.
template <typename Char>
bool readFrameLine(Text<Char> line, const NumberBases &bases, CAN::CanRxMessage &message)
{
    const Parts<Char> tokens = splitAtBlanks(line);
    if (tokens.isEmpty())
        return false;
    readTimeStamp(tokens[0], FractionPart::Last, message);
    message.id = toNumber<quint32>(partAt(tokens, 2), bases.id);
    const int dataStart = readLengthAtOrBehind(tokens, 4, 10, message);
    // The last token is never data. Other fields behind the payload are read as data.
    const int dataEnd = tokens.size() - 1;
    readBytes(tokens, dataStart, dataEnd - dataStart, bases.data, message);
    return true;
}

} // namespace

Outcome readKvaserTxt(LineSource &lines, TraceSink &sink, const TraceRequest &)
{
    const CAN::CanRxMessage blank;
    NumberBases bases;
    readHeader(lines, bases);
    MessageFeed feed(lines, sink);
    while (lines.next()) {
        if (lines.visit([](auto line) { return contains(line, "ErrorFrame"); })) {
            lines.leaveOut(ImportReport::UnkeptFrameKind);
            continue;
        }
        if (!feed.turnEventLoopWhenDue())
            return Outcome::givenUp();
        CAN::CanRxMessage message = blank;
        if (!lines.visit([&](auto line) { return readFrameLine(line, bases, message); }))
            continue;
        const Outcome result = feed.addMessageToMessageList(message);
        if (!result.isDone())
            return result;
    }
    return Outcome::done();
}
