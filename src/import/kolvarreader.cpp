#include "kolvarreader.h"

#include "kolvarline.h"
#include "messagefeed.h"

using namespace LineFields;

namespace {

enum class LineKind { Frame, Other, EndOfTrace };

// The note is the last field, even where that is the flag number; empty where there is no field.
template <typename Char> QString noteOf(Text<Char> line)
{
    const std::size_t separator = line.rfind(Char(';'));
    if (separator == line.npos)
        return {};
    const Text<Char> note = line.substr(separator + 1);
    if (std::all_of(note.begin(), note.end(), [](Char c) { return isBlank(c); }))
        return {};
    return toQString(line.substr(separator)).simplified().mid(1);
}

template <typename Char>
LineKind readLine(Text<Char> line, CAN::CanRxMessage &message, QString &note)
{
    const Parts<Char> tokens = splitAtBlanks(line);
    if (!KolvarLine::hasFrameShape(tokens))
        return LineKind::Other;
    const Text<Char> flagNumber = partAt(splitKeepingEmpty<';'>(line), 1);
    if (!KolvarLine::readFrame(tokens, toNumberIfAny<quint32>(flagNumber), message))
        return LineKind::EndOfTrace;
    note = noteOf(line);
    return LineKind::Frame;
}

} // namespace

Outcome readKolvarTxt(LineSource &lines, TraceSink &sink, const TraceRequest &)
{
    const CAN::CanRxMessage blank;
    MessageFeed feed(lines, sink);
    while (lines.next()) {
        if (!sink.turnEventLoop())
            return Outcome::givenUp();
        CAN::CanRxMessage message = blank;
        QString note;
        const LineKind kind = lines.visit([&](auto line) { return readLine(line, message, note); });
        if (kind == LineKind::EndOfTrace)
            return Outcome::done();
        if (kind == LineKind::Other)
            continue;
        const Outcome result = feed.addMessageWithNote(message, note);
        if (!result.isDone())
            return result;
    }
    return Outcome::done();
}
