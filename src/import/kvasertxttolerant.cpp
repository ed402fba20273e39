#include "kvasertxtreader.h"

#include "kvaserfields.h"

using namespace KvaserFields;
using LineFields::contains;
using LineFields::equals;
using LineFields::Parts;
using LineFields::splitAtBlanks;
using WrittenFields::readNumber;

namespace {

constexpr int idColumn = 2; // behind time and channel

// "Format of id field:   HEX", which leaves the base as it is when it says neither.
template <typename Char> bool readBase(Text<Char> line, std::string_view title, unsigned &base)
{
    if (!contains(line, title))
        return false;
    if (contains(line, "HEX"))
        base = 16;
    else if (contains(line, "DEC"))
        base = 10;
    return true;
}

// Behind ": ", in the time of the place where the log was made.
template <typename Char> void readStart(Text<Char> line, ImportReport &report)
{
    bool isCut = false;
    qint64 microseconds = 0;
    const Text<Char> date = LineFields::trimmed(line.substr(line.find(Char(':')) + 1));
    if (!report.start.isValid() && WrittenFields::readDateAndClock(date, microseconds, isCut))
        report.start = QDateTime::fromMSecsSinceEpoch(microseconds / 1000, Qt::UTC);
}

// The columns of a frame's line; an extended identifier has an "x" right behind it.
template <typename Char> struct Columns
{
    explicit Columns(Text<Char> line) : parts(splitAtBlanks(line))
    {
        if (parts.size() <= idColumn)
            return;
        id = parts[idColumn];
        isExtended = id.back() == 'x' || id.back() == 'X';
        if (isExtended)
            id.remove_suffix(1);
        length = idColumn + 1;
        while (length < parts.size() && (parts[length][0] < '0' || parts[length][0] > '9'))
            ++length;
    }

    int behindLength() const { return parts.size() - length - 1; }

    Parts<Char> parts;
    Text<Char> id;
    bool isExtended = false;
    int length = idColumn + 1;
};

class KvaserTxtGrammar
{
public:
    explicit KvaserTxtGrammar(LineSource &lines) : lines(lines), channels(lines)
    {
        lookAhead(lines, [this](auto line) { return seeBases(line); });
        dataBase = dataBase != 0 ? dataBase : dataGuess.base(idGuess.base(16));
        idBase = idBase != 0 ? idBase : idGuess.base(dataBase);
    }

    template <typename Char> bool read(Text<Char> line, WrittenFrame &frame)
    {
        const Columns<Char> columns(line);
        if (columns.parts.isEmpty())
            return false;
        if (!readTime(columns.parts[0], frame))
            return readTextLine(line, frame);
        if (columns.parts.size() > 1 && equals(columns.parts[1], "Trigger"))
            return frame.fail(ImportReport::Comment);
        if (columns.parts.size() <= idColumn + 1)
            return frame.fail(ImportReport::TooFewFields);
        quint32 channel = 0;
        if (!readNumber(columns.parts[1], 10, channel))
            return frame.fail(ImportReport::UnparsableNumber);
        const bool isErrorFrame = equals(columns.id, "ErrorFrame");
        if (isErrorFrame ? !readErrorFrame(columns, frame) : !readFrame(columns, frame))
            return false;
        frame.message.line = channels.lineOf(columns.parts[1]);
        isBehindHeader = true;
        return true;
    }

private:
    // Whether both bases are known for certain.
    template <typename Char> bool seeBases(Text<Char> line)
    {
        if (!readBase(line, "Format of data field", dataBase)
            && !readBase(line, "Format of id field", idBase))
            seeNumbers(line);
        return (dataBase != 0 || dataGuess.isSure()) && (idBase != 0 || idGuess.isSure());
    }

    template <typename Char> void seeNumbers(Text<Char> line)
    {
        const Columns<Char> columns(line);
        WrittenFrame frame;
        if (columns.behindLength() < 0 || !readTime(columns.parts[0], frame)
            || equals(columns.id, "ErrorFrame"))
            return;
        idGuess.seeId(columns.id, columns.isExtended);
        // The last column counts the frames in decimal.
        for (int i = columns.length + 1; i + 1 < columns.parts.size(); ++i) {
            if (!equals(columns.parts[i], "RTR"))
                dataGuess.seeByte(columns.parts[i]);
        }
    }

    template <typename Char> bool readTextLine(Text<Char> line, WrittenFrame &frame)
    {
        if (contains(line, "DateTime:") || contains(line, "created at:")) {
            readStart(line, lines.report());
            return frame.fail(ImportReport::Header);
        }
        return frame.fail(isBehindHeader ? ImportReport::WrongShape : ImportReport::Header);
    }

    // "12.5 1 ErrorFrame Rx ERROR FRAME 1"
    template <typename Char>
    static bool readErrorFrame(const Columns<Char> &columns, WrittenFrame &frame)
    {
        readDirection(columns.parts[idColumn + 1], frame.message.transmitted);
        frame.setErrorFrame();
        return true;
    }

    // "12.5 1 123x Rx FB 9 11 22 ... 1"
    template <typename Char> bool readFrame(const Columns<Char> &columns, WrittenFrame &frame) const
    {
        CAN::CanRxMessage &message = frame.message;
        message.extended = columns.isExtended;
        for (int i = idColumn + 1; i < columns.length; ++i) {
            // A lonely "R" is the flag of a remote frame.
            const bool isDirection =
                columns.parts[i].size() > 1 && readDirection(columns.parts[i], message.transmitted);
            if (!isDirection && !readFlags(columns.parts[i], "P", message))
                return false;
        }
        quint32 length = 0;
        if (columns.behindLength() < 0)
            return frame.fail(ImportReport::TooFewFields);
        if (!readNumber(columns.parts[columns.length], 10, length))
            return frame.fail(ImportReport::UnparsableNumber);
        if (!readId(columns.id, idBase, frame))
            return false;
        if (!message.remote)
            return readPayload(columns, length, frame);
        frame.setClassicLength(length);
        return true;
    }

    // A counter stands behind the payload.
    template <typename Char>
    bool readPayload(const Columns<Char> &columns, quint32 length, WrittenFrame &frame) const
    {
        const int behind = columns.behindLength();
        int bytes = behind - 1;
        if (!setLength(length, bytes, frame) && !setLength(length, behind, frame)) {
            // The program can be told to write no more than some bytes of each frame.
            const bool isCut = frame.message.fdFrame && bytes >= int(WrittenFields::maxClassicBytes)
                && bytes < frame.message.length;
            if (!isCut)
                return false;
            frame.isChanged[ImportReport::ChangedPayload] = true;
        } else {
            bytes = frame.message.length;
        }
        return frame.readBytes(columns.parts, columns.length + 1, bytes, dataBase);
    }

    LineSource &lines;
    WrittenFields::Channels channels;
    BaseGuess dataGuess;
    BaseGuess idGuess;
    unsigned dataBase = 0; // 0 until it is known
    unsigned idBase = 0;
    bool isBehindHeader = false;
};

} // namespace

Outcome readKvaserTxtTolerantly(LineSource &lines, TraceSink &sink, const TraceRequest &)
{
    KvaserTxtGrammar grammar(lines);
    return readWrittenFrames(lines, sink, grammar);
}
