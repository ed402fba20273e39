#include "vectorascreader.h"

#include "canframe.h"
#include "linefields.h"
#include "messagefeed.h"

using namespace LineFields;

namespace {

constexpr quint32 messagesBetweenTurns = 10000;

// Lines without a frame are collected in a note. A log of nothing else must not fill the memory.
constexpr int maxNoteLength = 16 * 1024 * 1024;

template <typename Char> bool containsIgnoringCase(Text<Char> text, std::string_view word)
{
    if constexpr (std::is_same_v<Char, char>) {
        const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? char(c + 'a' - 'A') : c; };
        const auto same = [lower](char a, char b) { return lower(a) == lower(b); };
        return std::search(text.begin(), text.end(), word.begin(), word.end(), same) != text.end();
    } else {
        return toQString(text).contains(QLatin1String(word.data(), int(word.size())),
                                        Qt::CaseInsensitive);
    }
}

template <typename Char> bool beginsTriggerBlock(Text<Char> line)
{
    return containsIgnoringCase(line, "Begin Triggerblock");
}

template <typename Char> bool endsTriggerBlock(Text<Char> line)
{
    // Frames hold no "k", and searching for one character is much faster than for words.
    if constexpr (std::is_same_v<Char, char>) {
        if (line.find('k') == line.npos && line.find('K') == line.npos)
            return false;
    }
    return containsIgnoringCase(line, "End Triggerblock");
}

// "1ABx" is an extended identifier. One without "x" leaves the record's flag as it is.
template <typename Char> void readId(Text<Char> text, CAN::CanRxMessage &message)
{
    std::basic_string<Char> scratch;
    if (!text.empty() && text.back() == 'x') {
        message.extended = true;
        text = withoutBrackets<'x', 'x'>(text, scratch);
    }
    message.id = toNumber<quint32>(text, 16);
}

// "12.5 1 123x Rx d 2 11 22 …", the "d" may be missing.
template <typename Char>
void readClassicFrame(const Parts<Char> &tokens, CAN::CanRxMessage &message)
{
    // Channel numbers are hexadecimal: channel 10 is line 16.
    message.line = toNumber<quint16>(partAt(tokens, 1), 16);
    readId(partAt(tokens, 2), message);
    const int dataStart = readLengthAtOrBehind(tokens, 4, 10, message);
    // The last token is never data. Other fields behind the payload are read as data.
    const int dataEnd = tokens.size() - 1;
    readBytes(tokens, dataStart, dataEnd - dataStart, 16, message);
}

// "12.5 CANFD 1 Rx 123x 1 0 9 12 11 22 …": flags, length code, then the length in bytes.
template <typename Char> void readFdFrame(const Parts<Char> &tokens, CAN::CanRxMessage &message)
{
    message.line = toNumber<quint16>(partAt(tokens, 2), 16);
    message.fdFrame = true;
    readId(partAt(tokens, 4), message);
    message.length = qint8(toNumber<quint32>(partAt(tokens, 8)));
    readBytes(tokens, 9, CAN::payloadSize(message), 16, message);
}

template <typename Char> void readFrameLine(Text<Char> line, CAN::CanRxMessage &message)
{
    const Parts<Char> tokens = splitAtBlanks(line);
    readTimeStamp(partAt(tokens, 0), FractionPart::Second, message);
    readClassicFrame(tokens, message);
}

template <typename Char> bool readBlockLine(Text<Char> line, CAN::CanRxMessage &message)
{
    const Parts<Char> tokens = splitAtBlanks(line);
    if (tokens.isEmpty())
        return false;
    readTimeStamp(tokens[0], FractionPart::Second, message);
    if (contains(line, "CANFD"))
        readFdFrame(tokens, message);
    else
        readClassicFrame(tokens, message);
    return true;
}

template <typename Char> void noteSkippedLine(Text<Char> line, QString &note)
{
    if (note.size() < maxNoteLength)
        note += QLatin1String("Skipped line: ") + toQString(line);
}

bool skipToTriggerBlock(LineSource &lines)
{
    while (lines.next()) {
        lines.leaveOut(ImportReport::Header);
        if (lines.visit([](auto line) { return beginsTriggerBlock(line); }))
            return true;
    }
    return false;
}

} // namespace

Outcome readVectorAsc(LineSource &lines, TraceSink &sink, const TraceRequest &)
{
    MessageFeed feed(lines, sink, messagesBetweenTurns);
    CAN::CanRxMessage message;
    QString pendingNote;
    while (lines.next()) {
        if (!lines.visit([](auto line) { return contains(line, "BitCount"); })) {
            lines.visit([&pendingNote](auto line) { noteSkippedLine(line, pendingNote); });
            continue;
        }
        if (!feed.turnEventLoopWhenDue())
            return Outcome::givenUp();
        lines.visit([&message](auto line) { readFrameLine(line, message); });
        const Outcome result = feed.addMessageWithNote(message, pendingNote);
        if (!result.isDone())
            return result;
        pendingNote.clear();
    }
    return Outcome::done();
}

Outcome readVectorAscWithoutBitcount(LineSource &lines, TraceSink &sink, const TraceRequest &)
{
    MessageFeed feed(lines, sink, messagesBetweenTurns);
    CAN::CanRxMessage message;
    const bool hasBlock = skipToTriggerBlock(lines);
    while (hasBlock && lines.next()
           && !lines.visit([](auto line) { return endsTriggerBlock(line); })) {
        if (!feed.turnEventLoopWhenDue())
            return Outcome::givenUp();
        if (!lines.visit([&message](auto line) { return readBlockLine(line, message); }))
            continue;
        const Outcome result = feed.addMessageToMessageList(message);
        if (!result.isDone())
            return result;
    }
    // The record keeps the flag once it is set, so the last frame speaks for all.
    sink.fdFrames(message.fdFrame);
    return Outcome::done();
}
