#include "kolvarreader.h"

#include "flagnumber.h"
#include "lineparts.h"
#include "writtenframe.h"

using namespace LineFields;

namespace {

class KolvarGrammar
{
public:
    template <typename Char> bool read(Text<Char> line, WrittenFrame &frame)
    {
        const std::size_t dataEnd = std::min(line.find(Char(';')), line.size());
        const Parts<Char> parts = splitAtBlanks(line.substr(0, dataEnd));
        if (contains(line, "# timestamp id"))
            return frame.fail(ImportReport::Header);
        if (!hasShape(parts))
            return false;
        return readTime(parts[0], frame) && readFields(line.substr(dataEnd), frame)
            && readId(parts[1], frame) && readPayload(parts, frame) && readNote(line, frame);
    }

private:
    enum Part { LengthAt = 2, DataAt = 3 };

    // "12.5 0x123/291 (2):"
    template <typename Char> static bool hasShape(const Parts<Char> &parts)
    {
        const Text<Char> length = partAt(parts, LengthAt);
        return length.size() > 3 && length.front() == '('
            && equals(length.substr(length.size() - 2), "):");
    }

    // The seconds of a time before 0 have a sign, behind which its microseconds count forward.
    template <typename Char> static bool readTime(Text<Char> text, WrittenFrame &frame)
    {
        const bool isNegative = text.front() == '-';
        if (isNegative)
            text.remove_prefix(1);
        qint64 microseconds = 0;
        if (!WrittenFields::readSeconds(text, microseconds,
                                        frame.isChanged[ImportReport::ChangedTime])
            || !frame.setTime(microseconds))
            return frame.fail(ImportReport::UnparsableNumber);
        if (isNegative)
            frame.message.seconds = -frame.message.seconds;
        return true;
    }

    // ";flags;note", of which both may be missing.
    template <typename Char> static bool readFields(Text<Char> text, WrittenFrame &frame)
    {
        if (text.empty())
            return true;
        text.remove_prefix(1);
        const std::size_t flagsEnd = std::min(text.find(Char(';')), text.size());
        quint32 flags = 0;
        const Text<Char> digits = trimmed(text.substr(0, flagsEnd));
        if (!digits.empty() && !WrittenFields::readNumber(digits, 10, flags))
            return frame.fail(ImportReport::UnparsableNumber);
        CAN::setFlags(flags, frame.message);
        return true;
    }

    // To the letter: it is the last field, and may hold what parts the others. Only of a frame.
    template <typename Char> static bool readNote(Text<Char> line, WrittenFrame &frame)
    {
        const std::size_t flagsAt = line.find(Char(';'));
        const std::size_t noteAt =
            flagsAt == line.npos ? flagsAt : line.find(Char(';'), flagsAt + 1);
        if (noteAt != line.npos && !trimmed(line.substr(noteAt + 1)).empty())
            frame.note = toQString(line.substr(noteAt + 1));
        return true;
    }

    // "0x123/291" or "Error-frame".
    template <typename Char> static bool readId(Text<Char> text, WrittenFrame &frame)
    {
        if (contains(text, "Error")) {
            frame.setErrorFrame();
            return true;
        }
        const std::size_t slash = std::min(text.find(Char('/')), text.size());
        quint32 id = 0;
        quint32 decimal = 0;
        if (!WrittenFields::readHex(text.substr(0, slash), id))
            return frame.fail(ImportReport::UnparsableNumber);
        const bool isSame = slash == text.size()
            || (WrittenFields::readNumber(text.substr(slash + 1), 10, decimal) && decimal == id);
        return isSame ? frame.setId(id, frame.message.extended)
                      : frame.fail(ImportReport::UnparsableNumber);
    }

    template <typename Char> static bool readPayload(const Parts<Char> &parts, WrittenFrame &frame)
    {
        const Text<Char> text = parts[LengthAt].substr(1, parts[LengthAt].size() - 3);
        quint32 length = 0;
        if (!WrittenFields::readNumber(text, 10, length))
            return frame.fail(ImportReport::UnparsableNumber);
        if (!frame.setLength(length, ImportReport::UnparsableNumber))
            return false;
        frame.message.remote = equals(partAt(parts, DataAt), "Remote");
        if (frame.message.remote)
            return true;
        frame.isChanged[ImportReport::ChangedPayload] = parts.size() > DataAt + int(length);
        return frame.readBytes(parts, DataAt, int(length), 16);
    }
};

} // namespace

Outcome readKolvarTxtTolerantly(LineSource &lines, TraceSink &sink, const TraceRequest &)
{
    KolvarGrammar grammar;
    return readWrittenFrames(lines, sink, grammar);
}
