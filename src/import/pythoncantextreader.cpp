#include "pythoncantextreader.h"

#include "canframe.h"
#include "lineparts.h"
#include "writtendates.h"
#include "writtenframe.h"

using namespace LineFields;
using WrittenFields::readNumber;

namespace {

// Behind the identifier stand flags, as many as there are.
enum Word { TimeTitle, Time, IdTitle, Id, Flags };

constexpr quint32 maxClassicLength = 8;

template <typename Char> bool readFlag(Text<Char> word, CAN::CanRxMessage &message, bool &isError)
{
    if (equals(word, "X"))
        message.extended = true;
    else if (equals(word, "Tx"))
        message.transmitted = true;
    else if (equals(word, "E"))
        isError = true;
    else if (equals(word, "R"))
        message.remote = true;
    else if (equals(word, "F"))
        message.fdFrame = true;
    else if (equals(word, "BS"))
        message.flagC = true;
    else if (equals(word, "EI"))
        message.flagB = true;
    else
        return equals(word, "S") || equals(word, "Rx");
    return true;
}

template <typename Char> bool isLengthTitle(Text<Char> word)
{
    return equals(word, "DL:") || equals(word, "DLC:");
}

class PythonCanTextGrammar
{
public:
    explicit PythonCanTextGrammar(LineSource &lines) : lines(lines), channels(lines) { }

    template <typename Char> bool read(Text<Char> line, WrittenFrame &frame)
    {
        const Parts<Char> words = splitAtBlanks(line);
        if (!equals(partAt(words, TimeTitle), "Timestamp:"))
            return readHeader(words, frame);
        int title = Flags;
        bool isError = false;
        while (title < words.size() && readFlag(words[title], frame.message, isError))
            ++title;
        if (title + 1 >= words.size())
            return frame.fail(ImportReport::TooFewFields);
        if (!equals(words[IdTitle], "ID:") || !isLengthTitle(words[title]))
            return false;
        if (!readNumbers(words, words[title + 1], frame))
            return false;
        if (isError) {
            frame.isChanged[ImportReport::ChangedIdentifier] = frame.message.id != 0;
            WrittenFields::setErrorFrame(frame.message);
        }
        return readPayload(words, title + 2, frame);
    }

private:
    // "Connected to ..." and "Can Logger (Started on 2021-03-04 05:06:07.123456)".
    template <typename Char> bool readHeader(const Parts<Char> &words, WrittenFrame &frame) const
    {
        const bool tellsStart = equals(partAt(words, 2), "(Started");
        if (!tellsStart && !equals(partAt(words, 0), "Connected"))
            return false;
        const Text<Char> rest = spanFrom(words, 4);
        const Text<Char> date = rest.substr(0, rest.find(Char(')')));
        qint64 microseconds = 0;
        bool isCut = false;
        if (tellsStart && WrittenFields::readDateAndClock(date, microseconds, isCut))
            lines.report().start = QDateTime::fromMSecsSinceEpoch(microseconds / 1000, Qt::UTC);
        return frame.fail(ImportReport::Header);
    }

    // Standard identifiers have three digits, in older versions four.
    template <typename Char>
    static bool readNumbers(const Parts<Char> &words, Text<Char> lengthText, WrittenFrame &frame)
    {
        CAN::CanRxMessage &message = frame.message;
        qint64 microseconds = 0;
        quint32 length = 0;
        const quint32 maxLength = message.fdFrame ? quint32(CAN::maxDataBytes) : maxClassicLength;
        if (!WrittenFields::readSeconds(words[Time], microseconds,
                                        frame.isChanged[ImportReport::ChangedTime])
            || !WrittenFields::trySetTime(message, microseconds)
            || !readNumber(words[Id], 16, message.id) || message.id > WrittenFields::maxExtendedId
            || !readNumber(lengthText, 10, length) || length > maxLength)
            return frame.fail(ImportReport::UnparsableNumber);
        message.extended = message.extended || message.id > WrittenFields::maxStandardId;
        message.length = qint8(length);
        return true;
    }

    // "11 22    'AB'    Channel: vcan0", the last two where there are such.
    template <typename Char>
    bool readPayload(const Parts<Char> &words, int next, WrittenFrame &frame)
    {
        const int bytes = frame.message.remote ? 0 : frame.message.length;
        if (words.size() < next + bytes)
            return frame.fail(ImportReport::TooFewFields);
        for (int i = 0; i < bytes; ++i, ++next) {
            if (!WrittenFields::readHexPair(words[next], frame.message.data[i]))
                return frame.fail(ImportReport::UnparsableNumber);
        }
        if (next < words.size() && words[next].front() == '\'')
            ++next;
        if (next == words.size())
            return true;
        if (!equals(words[next], "Channel:"))
            return false;
        frame.message.line = channels.lineOf(spanFrom(words, next + 1));
        return true;
    }

    LineSource &lines;
    WrittenFields::Channels channels;
};

} // namespace

Outcome readPythonCanText(LineSource &lines, TraceSink &sink, const TraceRequest &)
{
    PythonCanTextGrammar grammar(lines);
    return readWrittenFrames(lines, sink, grammar);
}
