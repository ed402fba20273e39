#include "framewriter.h"

#include "headerdates.h"

namespace {

// "123" or "18EBFF00x".
void addId(LineBuffer &line, const ExportFrame &frame)
{
    line.addHex(frame.id);
    if (frame.extended)
        line.add('x');
}

class VectorAsc : public FrameWriter
{
public:
    explicit VectorAsc(TraceExport::Times times) : times(times) { }

private:
    void writeHeader(qint64 first, QByteArray &block) override
    {
        clock.start(first);
        const QByteArray date = ascDate(clock.startTime());
        block += "date " + date + "\nbase hex  timestamps "
            + (times == TraceExport::Delta ? "relative" : "absolute")
            + "\ninternal events logged\n// version 9.0.0\nBegin Triggerblock " + date + '\n';
    }

    void writeFrame(ExportFrame &frame, const QString &note, LineBuffer &line,
                    QByteArray &) override
    {
        constexpr int timeSize = 11;
        frame.loseIf(!note.isEmpty(), TraceExport::Note);
        line.addSeconds(times == TraceExport::Delta ? clock.sinceLast(frame)
                                                    : clock.sinceStart(frame));
        line.alignRight(0, timeSize);
        if (frame.isError)
            writeErrorFrame(frame, line);
        else if (frame.fd)
            writeFdFrame(frame, line);
        else
            writeClassicFrame(frame, line);
        line.add('\n');
    }

    void writeEnd(QByteArray &block) override { block += "End TriggerBlock\n"; }

    static void writeErrorFrame(ExportFrame &frame, LineBuffer &line)
    {
        frame.loseIf(frame.transmitted, TraceExport::Direction);
        frame.loseIf(frame.length > 0, TraceExport::ErrorType);
        line.add(' ');
        line.addNumber(frame.line);
        line.add("  ErrorFrame");
    }

    // "   1.500000 1  123             Rx   d 2 11 22  ID = 291"
    static void writeClassicFrame(const ExportFrame &frame, LineBuffer &line)
    {
        constexpr int idSize = 16;
        line.add(' ');
        line.addNumber(frame.line);
        line.add("  ");
        const int start = line.count();
        addId(line, frame);
        line.padTo(start + idSize);
        line.add(frame.transmitted ? "Tx   " : "Rx   ");
        line.add(frame.remote ? "r " : "d ");
        line.addNumber(frame.length);
        if (!frame.remote)
            line.addSpacedBytes(frame.data, frame.length);
        // Some readers take the last field of a line for anything but data.
        line.add("  ID = ");
        line.addNumber(frame.id);
        if (frame.extended)
            line.add('x');
    }

    // "   1.500000 CANFD   1 Rx        123  1 0 9 12 01 02 ...", then duration, bits, flags,
    // checksum and bit timings, of which only the flags are known.
    static void writeFdFrame(const ExportFrame &frame, LineBuffer &line)
    {
        constexpr int channelSize = 3;
        constexpr int idSize = 11;
        constexpr int lengthSize = 2;
        line.add(" CANFD ");
        int start = line.count();
        line.addNumber(frame.line);
        line.alignRight(start, start + channelSize);
        line.add(frame.transmitted ? " Tx" : " Rx");
        start = line.count();
        addId(line, frame);
        line.alignRight(start, start + idSize);
        line.add(frame.bitRateSwitch ? "  1 " : "  0 ");
        line.add(frame.errorState ? "1 " : "0 ");
        line.addHex(lengthCode(frame.length), 1);
        line.add(' ');
        start = line.count();
        line.addNumber(frame.length);
        line.alignRight(start, start + lengthSize); // by which asc2log finds the payload
        line.addSpacedBytes(frame.data, frame.length);
        line.add("        0    0     ");
        line.addHex(
            0x1000u | (frame.bitRateSwitch ? 0x2000u : 0) | (frame.errorState ? 0x4000u : 0), 4);
        line.add("        0        0        0        0        0");
    }

    const TraceExport::Times times;
    ExportClock clock;
};

} // namespace

std::unique_ptr<ExportWriter> vectorAscWriter(TraceExport::Times times)
{
    return std::make_unique<VectorAsc>(times);
}
