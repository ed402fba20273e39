#include "wiresharkcsvreader.h"

#include "canframe.h"
#include "linefields.h"

using namespace LineFields;

namespace {

enum Column { NumberColumn = 0, TimeColumn = 1, ProtocolColumn = 4 };

// Simplifies the line. The last field may stay as it is, because only its words are read.
template <typename Char> Text<Char> simplifiedRow(Text<Char> line, Scratch<Char> &scratch)
{
    line = trimmed(line);
    return isSimplified(line.substr(0, line.rfind(Char(',')))) ? line : simplified(line, scratch);
}

// "STD: 0x123 11 22 33": identifier, then payload bytes up to the first that is no number.
template <typename Char> void readStandardFrame(Text<Char> info, CAN::CanRxMessage &message)
{
    const Parts<Char> parts = splitAtBlanks(info);
    message.id = toNumber<quint32>(partAt(parts, 1), 16);
    int count = 0;
    bool ok = true;
    for (int i = 2; i < parts.size(); ++i) {
        const quint32 byte = toNumber<quint32>(parts[i], 16, &ok);
        if (!ok)
            break;
        storeByte(message, count++, quint8(byte));
    }
    message.length = qint8(count);
}

template <typename Char> bool readRow(Text<Char> line, CAN::CanRxMessage &message)
{
    if (contains(line, "Info"))
        return false;
    Scratch<Char> scratch;
    // Commas within quotes separate fields, too.
    const Parts<Char> fields = splitKeepingEmpty<','>(simplifiedRow(line, scratch));
    message.messageNumber = toNumber<quint32>(*Unquoted<Char>(fields, NumberColumn));
    readTimeStampInParentheses(*Unquoted<Char>(fields, TimeColumn), message);
    message.fdFrame = equals(*Unquoted<Char>(fields, ProtocolColumn), "CANFD");
    const Unquoted<Char> lastField(fields, fields.size() - 1);
    const Text<Char> info = *lastField;
    if (contains(info, "STD"))
        readStandardFrame(info, message);
    else if (contains(info, "ERR"))
        message.id = CAN::errorFrameId;
    else
        return false;
    return true;
}

} // namespace

Outcome readWiresharkCsv(LineSource &lines, TraceSink &sink, const TraceRequest &)
{
    const CAN::CanRxMessage blank;
    bool fdSeen = false;
    while (lines.next()) {
        if (!sink.turnEventLoop())
            return Outcome::givenUp();
        CAN::CanRxMessage message = blank;
        const bool isFrame = lines.visit([&message](auto line) { return readRow(line, message); });
        // A row that is passed over still shows that the capture holds CAN FD.
        fdSeen = fdSeen || message.fdFrame;
        if (!isFrame)
            continue;
        lines.keep();
        if (!sink.message(message))
            return Outcome::givenUp();
    }
    if (fdSeen)
        sink.fdFrames(true);
    return Outcome::done();
}
