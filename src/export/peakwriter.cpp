#include "framewriter.h"

#include "canframe.h"
#include "headerdates.h"

#include <iterator>

namespace {

// What PEAK calls the types of errors, for those of a record by the number in its first byte.
quint8 peakErrorType(const ExportFrame &frame)
{
    constexpr quint8 bitError = 1;
    constexpr quint8 formError = 2;
    constexpr quint8 stuffError = 4;
    constexpr quint8 otherError = 8;
    constexpr quint8 types[] = {otherError, stuffError, formError, otherError, bitError, bitError};
    const std::size_t type = frame.length > 0 ? frame.data[0] : 0;
    return type < std::size(types) ? types[type] : otherError;
}

void addHeader(QByteArray &block, const char *version, const char *columns, qint64 start)
{
    block +=
        QByteArray(";$FILEVERSION=") + version + "\r\n;$STARTTIME=" + dayNumber(start) + "\r\n";
    if (columns)
        block += QByteArray(";$COLUMNS=") + columns + "\r\n";
    block += ";\r\n;   Start time: " + plainDate(start) + " UTC\r\n;\r\n";
}

class PeakTrace : public FrameWriter
{
protected:
    // The number and the time in milliseconds.
    void addFront(LineBuffer &line, ExportFrame &frame, bool isVersion1)
    {
        constexpr int numberSize = 7;
        const int timeSize = isVersion1 ? 19 : 21; // with the number
        line.addNumber(++number);
        if (isVersion1)
            line.add(')');
        line.alignRight(0, numberSize);
        const qint64 time = clock.sinceStart(frame);
        const auto fraction = quint32(time % perMillisecond);
        const int start = line.count();
        line.add(' ');
        line.addNumber(time / perMillisecond);
        line.add('.');
        // A tenth of a millisecond is all that version 1 has.
        if (isVersion1)
            line.addDigits(fraction / 100, 1);
        else
            line.addDigits(fraction, 3);
        frame.loseIf(isVersion1 && fraction % 100 != 0, TraceExport::TimeDigits);
        line.alignRight(start, timeSize);
    }

    static void addId(LineBuffer &line, const ExportFrame &frame)
    {
        constexpr int standardDigits = 4;
        constexpr int extendedDigits = 8;
        if (!frame.extended)
            line.fill(' ', extendedDigits - standardDigits);
        line.addHex(frame.id, frame.extended ? extendedDigits : standardDigits);
    }

    static void loseOfError(ExportFrame &frame)
    {
        frame.loseIf(frame.transmitted, TraceExport::Direction);
        frame.loseIf(frame.length > 0, TraceExport::ErrorType);
        frame.loseIf(frame.line != 0, TraceExport::Line);
    }

    ExportClock clock;

private:
    static constexpr qint64 perMillisecond = 1000;

    quint64 number = 0;
};

class PeakTrc11 : public PeakTrace
{
    bool takes(const ExportFrame &frame) const override { return !frame.fd; }

    void writeHeader(qint64 first, QByteArray &block) override
    {
        clock.start(first);
        addHeader(block, "1.1", nullptr, clock.startTime());
        block += ";   Message Number\r\n"
                 ";   |         Time Offset (ms)\r\n"
                 ";   |         |        Type\r\n"
                 ";   |         |        |        ID (hex)\r\n"
                 ";   |         |        |        |     Data Length\r\n"
                 ";   |         |        |        |     |   Data Bytes (hex) ...\r\n"
                 ";---+--   ----+----  --+--  ----+---  +  -+ -- -- -- -- -- -- --\r\n";
    }

    // "     3)      1059.9  Rx     00000300  2  11 22"
    void writeFrame(ExportFrame &frame, const QString &note, LineBuffer &line,
                    QByteArray &) override
    {
        frame.loseIf(!note.isEmpty(), TraceExport::Note);
        addFront(line, frame, true);
        if (frame.isError) {
            writeError(frame, line);
            return;
        }
        frame.loseIf(frame.line != 0, TraceExport::Line);
        line.add(frame.transmitted ? "  Tx     " : "  Rx     ");
        addId(line, frame);
        line.add("  ");
        line.addNumber(frame.length);
        line.add(' ');
        if (frame.remote)
            line.add(" RTR");
        else
            line.addSpacedBytes(frame.data, frame.length);
        line.add("\r\n");
    }

    static void writeError(ExportFrame &frame, LineBuffer &line)
    {
        loseOfError(frame);
        line.add("  Error  ");
        line.addHex(peakErrorType(frame), 8);
        // Direction, position and the two error counters are not known.
        line.add("  4  00 00 00 00\r\n");
    }
};

class PeakTrc21 : public PeakTrace
{
    void writeHeader(qint64 first, QByteArray &block) override
    {
        clock.start(first);
        // The length in bytes, "l", also tells those that have no code.
        addHeader(block, "2.1", "N,O,T,B,I,d,R,l,D", clock.startTime());
        block += ";   Message   Time    Type  ID     Rx/Tx\r\n"
                 ";   Number    Offset  |  Bus [hex]  |  Reserved\r\n"
                 ";   |         [ms]    |  |   |      |  |  Data Length\r\n"
                 ";   |         |       |  |   |      |  |  |  Data [hex] ...\r\n"
                 ";---+--  -----+------ +- +- -+------ +- +- +- -- -- -- -- -- -- --\r\n";
    }

    // "      3      1059.900 DT 1      0300 Rx -  2  11 22"
    void writeFrame(ExportFrame &frame, const QString &note, LineBuffer &line,
                    QByteArray &) override
    {
        frame.loseIf(!note.isEmpty(), TraceExport::Note);
        addFront(line, frame, false);
        line.add(' ');
        line.addText(typeOf(frame));
        line.add(' ');
        line.addNumber(frame.line);
        line.add(' ');
        if (frame.isError) {
            writeError(frame, line);
            return;
        }
        addId(line, frame);
        line.add(frame.transmitted ? " Tx -  " : " Rx -  ");
        line.addNumber(frame.length);
        line.add(' ');
        if (!frame.remote)
            line.addSpacedBytes(frame.data, frame.length);
        line.add("\r\n");
    }

    static std::string_view typeOf(const ExportFrame &frame)
    {
        static constexpr std::string_view fdTypes[] = {"FD", "FB", "FE", "BI"};
        if (frame.isError)
            return "ER";
        if (frame.fd)
            return fdTypes[(frame.bitRateSwitch ? 1 : 0) + (frame.errorState ? 2 : 0)];
        return frame.remote ? "RR" : "DT";
    }

    static void writeError(ExportFrame &frame, LineBuffer &line)
    {
        loseOfError(frame);
        line.add(frame.transmitted ? "       - Tx -  5  " : "       - Rx -  5  ");
        line.addHex(peakErrorType(frame), 2);
        line.add(" 00 00 00 00\r\n");
    }
};

} // namespace

std::unique_ptr<ExportWriter> peakTrc11Writer()
{
    return std::make_unique<PeakTrc11>();
}

std::unique_ptr<ExportWriter> peakTrc21Writer()
{
    return std::make_unique<PeakTrc21>();
}
