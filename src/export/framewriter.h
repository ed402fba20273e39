#pragma once

#include "canframe.h"
#include "exportwriter.h"
#include "linebuffer.h"

/// A record as a frame that can be on a bus: all fields are within their bounds and agree.
struct ExportFrame
{
    qint64 time; ///< microseconds, from 0 to 2147483647.999999 seconds
    quint32 id;  ///< 29 bits, or 11 when not extended; nothing for an error frame
    int length;  ///< up to 8, for CAN FD one of those up to 64 that have a code
    quint16 line;
    bool isError; ///< then no other kind, and no flag
    bool extended;
    bool remote;
    bool fd;
    bool bitRateSwitch; ///< of CAN FD only
    bool errorState;    ///< as above
    bool transmitted;
    const quint8 *data;
    quint32 losses;                 ///< a bit for each that the frame has suffered
    quint8 room[CAN::maxDataBytes]; ///< where data are filled up to a length that has a code

    void lose(TraceExport::Loss loss) { losses |= 1u << loss; }
    void loseIf(bool isLost, TraceExport::Loss loss) { losses |= quint32(isLost) << loss; }
};

/// False for an identifier that no frame has. \a frame may point to the data of \a message.
bool toExportFrame(const CAN::CanRxMessage &message, ExportFrame &frame);

/// The data length code of the shortest CAN FD frame that has room for \a length bytes.
quint8 lengthCode(int length);

/// A format of frames: texts of a line for each, and captures.
class FrameWriter : public ExportWriter
{
public:
    bool append(const CAN::CanRxMessage &message, const QString &note, QByteArray &block) final;
    void finish(QByteArray &block) final;

protected:
    /// Whether the format has such frames.
    virtual bool takes(const ExportFrame &) const { return true; }
    /// The beginning of a trace whose first message has the time \a first.
    virtual void writeHeader(qint64 first, QByteArray &block) = 0;
    /// Fills an empty \a line, which is added to the block behind what is added here.
    virtual void writeFrame(ExportFrame &frame, const QString &note, LineBuffer &line,
                            QByteArray &block) = 0;
    virtual void writeEnd(QByteArray &) { }

private:
    void count(quint32 lossBits);

    bool hasHeader = false;
};

/// Times that count from a start, as headers tell it. A trace with times since 1970 starts with
/// its first message, in whole milliseconds, as headers cannot say more; any other one at 0.
class ExportClock
{
public:
    void start(qint64 first);
    /// Begins with the first message, whatever it counts from.
    void startExactly(qint64 first);

    /// Microseconds since 1970 or 0.
    qint64 startTime() const { return origin; }
    qint64 sinceStart(ExportFrame &frame);
    /// From the latest of the frames before; the first one counts from the start. So the sum of all
    /// is right again behind a frame that is out of order.
    qint64 sinceLast(ExportFrame &frame);

private:
    qint64 origin = 0;
    qint64 latest = 0;
};
