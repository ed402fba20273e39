#include "framewriter.h"

namespace {

// The class of errors on the bus. It gives no byte of the payload a meaning, so that the payload of
// a record can stand there as it is.
constexpr quint32 busErrorId = 0x20000080;

void addId(LineBuffer &line, const ExportFrame &frame)
{
    constexpr int standardDigits = 3;
    constexpr int extendedDigits = 8;
    if (frame.isError)
        line.addHex(busErrorId, extendedDigits);
    else
        line.addHex(frame.id, frame.extended ? extendedDigits : standardDigits);
}

void addInterface(LineBuffer &line, const ExportFrame &frame)
{
    line.add("can");
    line.addNumber(frame.line);
}

class CandumpLog : public FrameWriter
{
    void writeHeader(qint64, QByteArray &) override { }

    // "(1436509052.249713) can0 123#1122", "123##31122" for CAN FD, "123#R2".
    void writeFrame(ExportFrame &frame, const QString &note, LineBuffer &line,
                    QByteArray &) override
    {
        frame.loseIf(!note.isEmpty(), TraceExport::Note);
        frame.loseIf(frame.transmitted, TraceExport::Direction);
        line.add('(');
        line.addSeconds(frame.time);
        line.add(") ");
        addInterface(line, frame);
        line.add(' ');
        addId(line, frame);
        line.add('#');
        if (frame.remote) {
            addRemote(line, frame.length);
            return;
        }
        if (frame.fd) {
            line.add('#');
            line.add(char('0' + (frame.bitRateSwitch ? 1 : 0) + (frame.errorState ? 2 : 0)));
        }
        line.addBytes(frame.data, frame.length);
        line.add('\n');
    }

    static void addRemote(LineBuffer &line, int length)
    {
        line.add('R');
        if (length > 0)
            line.addNumber(length);
        line.add('\n');
    }
};

class CandumpScreen : public FrameWriter
{
public:
    explicit CandumpScreen(TraceExport::Times times) : times(times) { }

private:
    void writeHeader(qint64 first, QByteArray &) override
    {
        if (times == TraceExport::Delta)
            clock.startExactly(first);
    }

    // " (1436509052.249713)  can0  RX - -  123   [2]  11 22", "[02]" for CAN FD.
    void writeFrame(ExportFrame &frame, const QString &note, LineBuffer &line,
                    QByteArray &) override
    {
        frame.loseIf(!note.isEmpty(), TraceExport::Note);
        addTime(line, frame);
        addInterface(line, frame);
        line.add(frame.transmitted ? "  TX " : "  RX ");
        line.add(frame.bitRateSwitch ? "B " : "- ");
        line.add(frame.errorState ? "E  " : "-  ");
        addId(line, frame);
        line.addText(frame.fd ? "  [" : "   [");
        line.addDigits(quint32(frame.length), frame.fd ? 2 : 1);
        line.add("] ");
        if (frame.remote)
            line.add(" remote request");
        else
            line.addSpacedBytes(frame.data, frame.length);
        if (frame.isError)
            line.add("   ERRORFRAME");
        line.add('\n');
    }

    void addTime(LineBuffer &line, ExportFrame &frame)
    {
        constexpr int deltaSize = 12; // "(000.000123", which is never shorter
        line.add(" (");
        if (times == TraceExport::Absolute) {
            line.addSeconds(frame.time);
        } else {
            const int start = line.count();
            line.addSeconds(clock.sinceLast(frame));
            line.alignRight(start, deltaSize, '0');
        }
        line.add(")  ");
    }

    const TraceExport::Times times;
    ExportClock clock;
};

} // namespace

std::unique_ptr<ExportWriter> candumpLogWriter()
{
    return std::make_unique<CandumpLog>();
}

std::unique_ptr<ExportWriter> candumpScreenWriter(TraceExport::Times times)
{
    return std::make_unique<CandumpScreen>(times);
}
