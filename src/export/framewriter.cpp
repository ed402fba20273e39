#include "framewriter.h"

#include <algorithm>
#include <limits>

namespace {

constexpr quint32 maxStandardId = 0x7FF;
constexpr quint32 maxExtendedId = 0x1FFFFFFF;
constexpr int maxClassicBytes = 8;
constexpr int fdLengths[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 12, 16, 20, 24, 32, 48, 64}; // by the code
constexpr qint64 million = 1000000;
constexpr qint64 lastTime = std::numeric_limits<qint32>::max() * million + million - 1;

void setTime(const CAN::CanRxMessage &message, ExportFrame &frame)
{
    const qint64 time = CAN::timeOf(message);
    frame.time = qBound(qint64(0), time, lastTime);
    frame.loseIf(frame.time != time, TraceExport::Time);
}

// An error frame and a remote frame are never CAN FD.
void setClassicLength(const CAN::CanRxMessage &message, ExportFrame &frame)
{
    frame.length = qBound(0, int(message.length), maxClassicBytes);
    frame.loseIf(frame.length != message.length, TraceExport::Length);
    frame.loseIf(message.flagB || message.flagC, TraceExport::Flags);
}

void setErrorFrame(const CAN::CanRxMessage &message, ExportFrame &frame)
{
    frame.isError = true;
    setClassicLength(message, frame);
    frame.loseIf(message.extended || message.remote || message.fdFrame, TraceExport::Flags);
}

void setRemoteFrame(const CAN::CanRxMessage &message, ExportFrame &frame)
{
    frame.remote = true;
    setClassicLength(message, frame);
    frame.loseIf(message.fdFrame, TraceExport::RemoteFd);
    const auto isSet = [](quint8 byte) { return byte != 0; };
    frame.loseIf(std::any_of(message.data, message.data + CAN::payloadSize(message), isSet),
                 TraceExport::RemotePayload);
}

// Programs refuse lines of other lengths, and some the whole trace.
void fillUp(ExportFrame &frame)
{
    const int length = fdLengths[lengthCode(frame.length)];
    if (length == frame.length)
        return;
    std::copy_n(frame.data, frame.length, frame.room);
    frame.data = frame.room;
    frame.length = length;
}

void setDataFrame(const CAN::CanRxMessage &message, ExportFrame &frame)
{
    frame.length = CAN::payloadSize(message);
    frame.fd = message.fdFrame || frame.length > maxClassicBytes;
    if (frame.fd)
        fillUp(frame);
    frame.loseIf(frame.length != message.length, TraceExport::Length);
    frame.loseIf(frame.fd != message.fdFrame, TraceExport::LongFrame);
    frame.bitRateSwitch = frame.fd && message.flagC;
    frame.errorState = frame.fd && message.flagB;
    frame.loseIf(!frame.fd && (message.flagB || message.flagC), TraceExport::Flags);
}

} // namespace

bool toExportFrame(const CAN::CanRxMessage &message, ExportFrame &frame)
{
    frame = {};
    setTime(message, frame);
    frame.line = message.line;
    frame.transmitted = message.transmitted;
    frame.data = message.data;
    frame.loseIf(message.flagD, TraceExport::Flags);
    if (message.id == CAN::errorFrameId) {
        setErrorFrame(message, frame);
        return true;
    }
    frame.id = message.id;
    frame.extended = message.extended || message.id > maxStandardId;
    frame.loseIf(frame.extended != message.extended, TraceExport::StandardIdentifier);
    if (message.remote)
        setRemoteFrame(message, frame);
    else
        setDataFrame(message, frame);
    return message.id <= maxExtendedId;
}

quint8 lengthCode(int length)
{
    const int *const enough = std::lower_bound(std::begin(fdLengths), std::end(fdLengths), length);
    return quint8(enough - fdLengths);
}

bool FrameWriter::append(const CAN::CanRxMessage &message, const QString &note, QByteArray &block)
{
    ExportFrame frame;
    if (!toExportFrame(message, frame)) {
        lose(TraceExport::Identifier);
        return false;
    }
    if (!takes(frame)) {
        lose(TraceExport::FdFrame);
        return false;
    }
    if (!hasHeader)
        writeHeader(frame.time, block);
    hasHeader = true;
    LineBuffer line;
    writeFrame(frame, note, line, block);
    line.flushTo(block);
    if (frame.losses != 0)
        count(frame.losses);
    return true;
}

void FrameWriter::finish(QByteArray &block)
{
    if (!hasHeader)
        writeHeader(0, block);
    hasHeader = true;
    writeEnd(block);
}

void FrameWriter::count(quint32 lossBits)
{
    for (int loss = 0; loss < TraceExport::lossCount; ++loss) {
        if (lossBits >> loss & 1)
            lose(TraceExport::Loss(loss));
    }
}

void ExportClock::start(qint64 first)
{
    constexpr qint64 firstDate = 100000000 * million; // counted from 1970; times of day end before
    constexpr qint64 thousand = 1000;
    origin = first >= firstDate ? first - first % thousand : 0;
    latest = origin;
}

void ExportClock::startExactly(qint64 first)
{
    origin = first;
    latest = first;
}

qint64 ExportClock::sinceStart(ExportFrame &frame)
{
    frame.loseIf(origin != 0, TraceExport::StartTime);
    frame.loseIf(frame.time < origin, TraceExport::Time);
    return std::max(qint64(0), frame.time - origin);
}

qint64 ExportClock::sinceLast(ExportFrame &frame)
{
    frame.loseIf(origin != 0, TraceExport::StartTime);
    frame.loseIf(frame.time < latest, TraceExport::Time);
    const qint64 time = std::max(frame.time, latest);
    const qint64 passed = time - latest;
    latest = time;
    return passed;
}
