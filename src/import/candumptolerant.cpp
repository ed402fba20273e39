#include "candumpreader.h"

#include "canframe.h"
#include "escapesequences.h"
#include "writtendates.h"
#include "writtenframe.h"

using namespace WrittenFields;
using LineFields::equals;
using LineFields::isBlank;
using LineFields::Parts;
using LineFields::trimmed;

namespace {

constexpr quint32 errorFlag = 0x20000000;
constexpr std::size_t maxIdDigits = 8;
constexpr std::size_t standardIdDigits = 3;

// With a "#" in front it may also be what a shell was told as root.
template <typename Char> bool isComment(Text<Char> line)
{
    const Char first = line.front();
    return first == '#' || first == ';' || first == '$' || first == '%'
        || (first == '/' && equals(line.substr(0, 2), "//"));
}

template <typename Char> bool removeBrackets(Text<Char> &text, char open, char close)
{
    if (text.size() < 2 || text.front() != Char(open) || text.back() != Char(close))
        return false;
    text = text.substr(1, text.size() - 2);
    return true;
}

// "123", "00000123", "0x123" or "<0x123>".
template <typename Char> bool readId(Text<Char> text, WrittenFrame &frame)
{
    removeBrackets(text, '<', '>');
    if (equals(text.substr(0, 2), "0x") || equals(text.substr(0, 2), "0X"))
        text.remove_prefix(2);
    if (text.empty())
        return false;
    quint32 id = 0;
    if (text.size() > maxIdDigits || !readNumber(text, 16, id) || id >= 2 * errorFlag)
        return frame.fail(ImportReport::UnparsableNumber);
    if (id & errorFlag) {
        setErrorFrame(frame.message);
        // The other bits tell the class of the error, for which a record has no room.
        frame.isChanged[ImportReport::ChangedIdentifier] = id != errorFlag;
        return true;
    }
    frame.message.id = id;
    frame.message.extended = text.size() > standardIdDigits || id > maxStandardId;
    return true;
}

// "T" or "TX" and their counterparts.
template <typename Char> bool readDirection(Text<Char> word, CAN::CanRxMessage &message)
{
    if (word.empty() || word.size() > 2 || (word.size() == 2 && (word[1] | 0x20) != 'x'))
        return false;
    const bool isTransmitted = word[0] == 'T' || word[0] == 't';
    if (!isTransmitted && word[0] != 'R' && word[0] != 'r')
        return false;
    message.transmitted = isTransmitted;
    return true;
}

// Classic CAN lets a length code above 8 stand for 8 bytes.
bool setLengthOfCode(unsigned code, WrittenFrame &frame)
{
    if (code > 15)
        return frame.fail(ImportReport::UnparsableNumber);
    frame.setClassicLength(code);
    return true;
}

// "_E" behind a frame of 8 bytes.
template <typename Char> bool readLengthCode(Text<Char> text, WrittenFrame &frame)
{
    return text.empty()
        || (text.size() == 2 && text.front() == '_'
            && quint32(frame.message.length) == maxClassicBytes
            && setLengthOfCode(digitValue(text[1]), frame));
}

// "R", "R8" or "R8_E", without the "R".
template <typename Char> bool readRemote(Text<Char> text, WrittenFrame &frame)
{
    frame.message.remote = true;
    if (text.empty())
        return true;
    const unsigned length = digitValue(text.front());
    if (length > maxClassicBytes)
        return frame.fail(ImportReport::UnparsableNumber);
    frame.message.length = qint8(length);
    return readLengthCode(text.substr(1), frame);
}

// "1122" or "11.22".
template <typename Char> bool readJoinedBytes(Text<Char> text, WrittenFrame &frame)
{
    CAN::CanRxMessage &message = frame.message;
    while (!text.empty() && text.front() != '_') {
        if (text.front() == '.' && message.length > 0) {
            text.remove_prefix(1);
            continue;
        }
        if (message.length == CAN::maxDataBytes)
            return false;
        if (text.size() < 2 || !readByte(text.substr(0, 2), 16, message.data[message.length])) {
            // The header fields of CAN XL are separated by colons.
            return frame.fail(text.find(Char(':')) != text.npos ? ImportReport::UnkeptFrameKind
                                                                : ImportReport::UnparsableNumber);
        }
        ++message.length;
        text.remove_prefix(2);
    }
    return readLengthCode(text, frame);
}

// What stands behind the first "#".
template <typename Char> bool readJoinedPayload(Text<Char> text, WrittenFrame &frame)
{
    if (!text.empty() && (text.front() == 'R' || text.front() == 'r'))
        return readRemote(text.substr(1), frame);
    if (text.empty() || text.front() != '#')
        return readJoinedBytes(text, frame);
    const unsigned flags = text.size() > 1 ? digitValue(text[1]) : 255;
    if (flags > 15)
        return frame.fail(ImportReport::UnparsableNumber);
    frame.message.fdFrame = true;
    frame.message.flagC = (flags & 1) != 0;
    frame.message.flagB = (flags & 2) != 0;
    return readJoinedBytes(text.substr(2), frame);
}

// "[8]" or "[ 8]", for CAN FD "[08]", or "{E}" with the code that was on the bus.
template <typename Char> bool readLength(Text<Char> text, WrittenFrame &frame)
{
    constexpr std::size_t xlDigits = 4;
    if (removeBrackets(text, '{', '}'))
        return text.size() == 1 && setLengthOfCode(digitValue(text.front()), frame);
    quint32 length = 0;
    if (!removeBrackets(text, '[', ']') || !readNumber(text = trimmed(text), 10, length))
        return frame.fail(ImportReport::UnparsableNumber);
    if (text.size() == xlDigits)
        return frame.fail(ImportReport::UnkeptFrameKind);
    if (text.size() > 2 || length > quint32(CAN::maxDataBytes))
        return frame.fail(ImportReport::UnparsableNumber);
    frame.message.length = qint8(length);
    frame.message.fdFrame = text.size() == 2;
    return true;
}

// Hexadecimal, or binary with all digits.
template <typename Char> bool readShownByte(Text<Char> text, quint8 &byte)
{
    constexpr std::size_t bits = 8;
    quint32 value = 0;
    if (text.size() != bits || !readNumber(text, 2, value))
        return readByte(text, 16, byte);
    byte = quint8(value);
    return true;
}

// "11 22", or "22`11" with the last byte first. Leaves in \a text what follows.
template <typename Char> bool readShownBytes(Text<Char> &text, WrittenFrame &frame)
{
    CAN::CanRxMessage &message = frame.message;
    bool isSwapped = false;
    for (int i = 0; i < message.length; ++i) {
        std::size_t start = 0;
        if (i > 0 && !text.empty() && text.front() == '`') {
            isSwapped = true;
            start = 1;
        }
        while (start < text.size() && isBlank(text[start]))
            ++start;
        std::size_t end = start;
        while (end < text.size() && !isBlank(text[end]) && text[end] != '`')
            ++end;
        if (start == end)
            return frame.fail(ImportReport::TooFewFields);
        if (!readShownByte(text.substr(start, end - start), message.data[i]))
            return frame.fail(ImportReport::UnparsableNumber);
        text.remove_prefix(end);
    }
    if (isSwapped)
        std::reverse(message.data, message.data + message.length);
    return true;
}

// Keeps what stands behind a frame, unless it is one more frame.
template <typename Char> bool readRemark(Text<Char> text, WrittenFrame &frame)
{
    if (text.empty())
        return true;
    if (text.front() == '(' || text.front() == EscapeSequences::escape)
        return false;
    frame.note = toQString(text);
    return true;
}

// The payload as text and the word for an error frame say nothing more than the frame.
template <typename Char> bool readShownRemark(Text<Char> text, WrittenFrame &frame)
{
    if (text.empty() || text.front() == '\'' || text.front() == '`' || equals(text, "ERRORFRAME"))
        return true;
    const auto wordEnd = std::find_if(text.begin(), text.end(), isBlank<Char>);
    quint8 byte = 0;
    return !readByte(text.substr(0, std::size_t(wordEnd - text.begin())), 16, byte)
        && readRemark(text, frame);
}

class CandumpGrammar
{
public:
    explicit CandumpGrammar(LineSource &lines) : channels(lines) { }

    template <typename Char> bool read(Text<Char> line, WrittenFrame &frame)
    {
        const Text<Char> text = trimmed(line);
        const bool isFrame = !text.empty() && (readLine(text, frame) || readColoured(text, frame));
        // Details of an error are shown on indented lines below its frame.
        if (!isFrame && isAfterError && !text.empty() && line.front() == '\t')
            return frame.fail(ImportReport::Comment);
        isAfterError = isFrame && frame.message.id == CAN::errorFrameId;
        return isFrame;
    }

private:
    // Looks for colours in lines that are no frames only, which keeps the others fast.
    template <typename Char> bool readColoured(Text<Char> line, WrittenFrame &frame)
    {
        LineFields::Scratch<Char> scratch;
        const Text<Char> text = trimmed(EscapeSequences::withoutThem(line, scratch));
        if (text.empty() || text.size() == line.size())
            return false;
        frame = {};
        return readLine(text, frame);
    }

    // The words of a line behind its time. The layout shows in the word with the payload, or with
    // its length, and in how many stand before it.
    template <typename Char> struct Line
    {
        // From word \a index to the end.
        Text<Char> from(int index) const { return LineFields::spanFrom(words, index); }

        // Word \a index and the one behind it, and what stands between them.
        Text<Char> twoWordsFrom(int index) const
        {
            return from(index).substr(0, from(index).size() - from(index + 2).size());
        }

        bool hasTime;
        Parts<Char> words;
    };

    template <typename Char> bool readLine(Text<Char> text, WrittenFrame &frame)
    {
        if (isComment(text))
            return frame.fail(ImportReport::Comment);
        const bool hasTime = text.front() == '(';
        if (hasTime && !readTime(text, frame))
            return false;
        const Line<Char> line{hasTime, LineFields::splitAtBlanks(text)};
        if (!line.words.isEmpty() && line.words[0].front() == EscapeSequences::escape)
            return false;
        constexpr int mostBefore = 5;
        for (int i = 0; i < std::min(int(line.words.size()), mostBefore + 1); ++i) {
            const Text<Char> word = line.words[i];
            if (word.front() == '[' || word.front() == '{')
                return readShownFrame(line, i, frame);
            const auto separator = std::find(word.begin(), word.end(), Char('#'));
            if (separator != word.end())
                return readJoinedFrame(line, i, std::size_t(separator - word.begin()), frame);
        }
        return frame.fail(reasonWithoutFrame(line));
    }

    // "(12.5)", "( 2020-12-19 12:04:45.485261)"; leaves in \a text what follows.
    template <typename Char> static bool readTime(Text<Char> &text, WrittenFrame &frame)
    {
        const std::size_t end = text.find(Char(')'));
        if (end == text.npos)
            return false;
        const Text<Char> time = trimmed(text.substr(1, end - 1));
        text.remove_prefix(end + 1);
        qint64 microseconds = 0;
        bool &isCut = frame.isChanged[ImportReport::ChangedTime];
        const bool isTime =
            readSeconds(time, microseconds, isCut) || readDateAndClock(time, microseconds, isCut);
        return (isTime && trySetTime(frame.message, microseconds))
            || frame.fail(ImportReport::UnparsableNumber);
    }

    // "can0 123#1122 T". Time or interface may be missing, but not both.
    template <typename Char>
    bool readJoinedFrame(const Line<Char> &line, int at, std::size_t separator, WrittenFrame &frame)
    {
        const Text<Char> word = line.words[at];
        if (at > 1 || (at == 0 && !line.hasTime) || !readId(word.substr(0, separator), frame)
            || !readJoinedPayload(word.substr(separator + 1), frame))
            return false;
        const bool hasDirection =
            readDirection(LineFields::partAt(line.words, at + 1), frame.message);
        if (!readRemark(line.from(at + (hasDirection ? 2 : 1)), frame))
            return false;
        if (at > 0)
            frame.message.line = channels.lineOf(line.words[0]);
        return true;
    }

    // "can0  TX B E  123  [08]  11 22 ...": all in front of the identifier may be missing.
    template <typename Char>
    bool readShownFrame(const Line<Char> &line, int at, WrittenFrame &frame)
    {
        const bool isPadded = line.words[at].size() == 1; // "[" and "8]"
        const Text<Char> length = isPadded ? trimmed(line.twoWordsFrom(at)) : line.words[at];
        const int data = at + (isPadded ? 2 : 1);
        if (at == 0 || !readFlags(line, at - 1, frame.message) || !readId(line.words[at - 1], frame)
            || !readLength(length, frame))
            return false;
        Text<Char> rest = line.from(data);
        if (equals(LineFields::partAt(line.words, data), "remote")) {
            frame.message.remote = true;
            rest = line.from(data + 2); // behind "remote request"
        } else if (readByteWords(line, data, frame.message)) {
            rest = line.from(data + frame.message.length);
        } else if (!readShownBytes(rest, frame)) {
            return false;
        }
        if (!readShownRemark(trimmed(rest), frame))
            return false;
        if (at > 1)
            frame.message.line = channels.lineOf(line.words[0]);
        return true;
    }

    // What nearly all payloads are: words of two digits.
    template <typename Char>
    static bool readByteWords(const Line<Char> &line, int first, CAN::CanRxMessage &message)
    {
        if (line.words.size() - first < message.length)
            return false;
        for (int i = 0; i < message.length; ++i) {
            if (!readByte(line.words[first + i], 16, message.data[i]))
                return false;
        }
        return true;
    }

    // Direction, bit rate switch and error state between interface and identifier; or the
    // interface of the log that is played, in parentheses.
    template <typename Char>
    static bool readFlags(const Line<Char> &line, int idAt, CAN::CanRxMessage &message)
    {
        Text<Char> played = idAt == 2 ? line.words[1] : Text<Char>();
        if (removeBrackets(played, '(', ')')) {
            message.transmitted = true;
            return true;
        }
        for (int i = 1; i < idAt; ++i) {
            const Text<Char> word = line.words[i];
            if (i == 1 ? !readDirection(word, message) : word.size() != 1)
                return false;
            message.flagC = message.flagC || (i > 1 && word[0] == 'B');
            message.flagB = message.flagB || (i > 1 && word[0] == 'E');
        }
        return true;
    }

    template <typename Char> static ImportReport::Reason reasonWithoutFrame(const Line<Char> &line)
    {
        if (line.words.isEmpty())
            return ImportReport::TooFewFields;
        if (equals(line.words.last(), "ERROR"))
            return ImportReport::UnkeptFrameKind;
        if (equals(line.words[0], "DROPCOUNT:"))
            return ImportReport::Statistics;
        if (equals(line.words[0], "interface") && equals(LineFields::partAt(line.words, 1), "="))
            return ImportReport::Header;
        return line.hasTime ? ImportReport::TooFewFields : ImportReport::WrongShape;
    }

    Channels channels;
    bool isAfterError = false;
};

} // namespace

Outcome readSocketCanDumpTolerantly(LineSource &lines, TraceSink &sink, const TraceRequest &)
{
    CandumpGrammar grammar(lines);
    return readWrittenFrames(lines, sink, grammar);
}
