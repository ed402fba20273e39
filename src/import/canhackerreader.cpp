#include "canhackerreader.h"

#include "lineparts.h"
#include "writtenfields.h"
#include "writtenframe.h"

using namespace LineFields;

namespace {

enum Word { Time, Id, Length, Data };

constexpr std::size_t standardIdDigits = 3;
constexpr std::size_t extendedIdDigits = 8;
constexpr quint32 maxLength = 8;

// "12.345", in some countries "12,345".
template <typename Char> bool readTime(Text<Char> text, WrittenFrame &frame)
{
    const auto point =
        std::find_if(text.begin(), text.end(), [](Char c) { return c == '.' || c == ','; });
    if (point == text.end())
        return false;
    Scratch<Char> withPoint;
    withPoint.append(text.data(), int(text.size()));
    withPoint[int(point - text.begin())] = Char('.');
    qint64 microseconds = 0;
    return WrittenFields::readSeconds(textOf(withPoint), microseconds,
                                      frame.isChanged[ImportReport::ChangedTime])
        && WrittenFields::trySetTime(frame.message, microseconds);
}

// The number of digits tells extended identifiers.
template <typename Char> bool readId(Text<Char> text, CAN::CanRxMessage &message)
{
    message.extended = text.size() == extendedIdDigits;
    return (message.extended || text.size() == standardIdDigits)
        && WrittenFields::readNumber(text, 16, message.id)
        && message.id
        <= (message.extended ? WrittenFields::maxExtendedId : WrittenFields::maxStandardId);
}

class CanHackerGrammar
{
public:
    template <typename Char> bool read(Text<Char> line, WrittenFrame &frame) const
    {
        const Parts<Char> words = splitAtBlanks(line);
        if (words.isEmpty())
            return false;
        if (equals(words[Time], "Time") && equals(partAt(words, Id), "ID"))
            return frame.fail(ImportReport::Header);
        if (!readTime(words[Time], frame))
            return false;
        if (words.size() <= Length)
            return frame.fail(ImportReport::TooFewFields);
        quint32 length = 0;
        if (!readId(words[Id], frame.message)
            || !WrittenFields::readNumber(words[Length], 10, length) || length > maxLength)
            return frame.fail(ImportReport::UnparsableNumber);
        frame.message.length = qint8(length);
        return readPayload(words, frame);
    }

private:
    template <typename Char> static bool readPayload(const Parts<Char> &words, WrittenFrame &frame)
    {
        const int comment = Data + frame.message.length;
        if (words.size() < comment)
            return frame.fail(ImportReport::TooFewFields);
        for (int i = 0; i < frame.message.length; ++i) {
            if (!WrittenFields::readHexPair(words[Data + i], frame.message.data[i]))
                return frame.fail(ImportReport::UnparsableNumber);
        }
        frame.note = toQString(spanFrom(words, comment));
        return true;
    }
};

} // namespace

Outcome readCanHackerTrace(LineSource &lines, TraceSink &sink, const TraceRequest &)
{
    CanHackerGrammar grammar;
    return readWrittenFrames(lines, sink, grammar);
}
