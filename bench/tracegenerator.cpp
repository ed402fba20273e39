#include "tracegenerator.h"

#include "textexport.h"

#include <cstdarg>
#include <cstdio>

namespace {

quint32 nextRandom(quint32 &state)
{
    state = state * 1664525u + 1013904223u;
    return state >> 8;
}

__attribute__((format(printf, 2, 3))) void print(QByteArray &text, const char *format, ...)
{
    char line[256];
    va_list arguments;
    va_start(arguments, format);
    const int size = std::vsnprintf(line, sizeof line, format, arguments);
    va_end(arguments);
    text.append(line, size);
}

void printPayload(QByteArray &text, const CAN::CanRxMessage &message, const char *byteFormat)
{
    char byte[8];
    for (int i = 0; i < message.length; ++i)
        text.append(byte, std::snprintf(byte, sizeof byte, byteFormat, message.data[i]));
}

const char *idFormat(const CAN::CanRxMessage &message)
{
    return message.extended ? "%08X" : "%03X";
}

QByteArray idText(const CAN::CanRxMessage &message, const char *extendedSuffix = "")
{
    char id[16];
    std::snprintf(id, sizeof id, idFormat(message), message.id);
    return QByteArray(id) + (message.extended ? extendedSuffix : "");
}

void candumpCompact(QByteArray &text, const CAN::CanRxMessage &m)
{
    print(text, "(%d.%06d) can0 %s#", m.seconds, m.microseconds, idText(m).constData());
    printPayload(text, m, "%02X");
    text += '\n';
}

void candumpScreen(QByteArray &text, const CAN::CanRxMessage &m)
{
    print(text, " (%d.%06d)  can0  %s   [%d] ", m.seconds, m.microseconds, idText(m).constData(),
          m.length);
    printPayload(text, m, " %02X");
    text += '\n';
}

void ascStart(QByteArray &text, const CAN::CanRxMessage &m)
{
    print(text, "%4d.%06d 1  %-15s Rx   d %d", m.seconds % 10000, m.microseconds,
          idText(m, "x").constData(), m.length);
    printPayload(text, m, " %02X");
}

void ascWithBitCount(QByteArray &text, const CAN::CanRxMessage &m)
{
    ascStart(text, m);
    print(text, "  Length = 243910 BitCount = 125 ID = %u%s\n", m.id, m.extended ? "x" : "");
}

void ascWithoutBitCount(QByteArray &text, const CAN::CanRxMessage &m)
{
    ascStart(text, m);
    print(text, " %u\n", m.id);
}

QByteArray peakId(const CAN::CanRxMessage &m)
{
    char id[16];
    std::snprintf(id, sizeof id, m.extended ? "%08X" : "%04X", m.id);
    return id;
}

void peak11(QByteArray &text, const CAN::CanRxMessage &m)
{
    print(text, "%7u) %9d.%d  Rx     %8s  %d ", m.messageNumber + 1,
          m.seconds % 100000 * 1000 + m.microseconds / 1000, m.microseconds / 100 % 10,
          peakId(m).constData(), m.length);
    printPayload(text, m, " %02X");
    text += '\n';
}

void peak21(QByteArray &text, const CAN::CanRxMessage &m)
{
    print(text, "%7u %9d.%03d DT 1 %8s Rx -  %d   ", m.messageNumber + 1,
          m.seconds % 100000 * 1000 + m.microseconds / 1000, m.microseconds % 1000,
          peakId(m).constData(), m.length);
    printPayload(text, m, " %02X");
    text += '\n';
}

void wireshark(QByteArray &text, const CAN::CanRxMessage &m)
{
    print(text, "\"%u\",\"%d.%06d000\",\"\",\"\",\"CAN\",\"16\",\"%s: 0x%08x  ",
          m.messageNumber + 1, m.seconds, m.microseconds, m.extended ? "XTD" : "STD", m.id);
    printPayload(text, m, " %02x");
    text += "\"\n";
}

void kolvar(QByteArray &text, const CAN::CanRxMessage &m)
{
    text += TextExport::messageLine(m, QString()).toUtf8();
}

void kvaserTxt(QByteArray &text, const CAN::CanRxMessage &m)
{
    print(text, "%9d.%06d  1  %8X  Rx  %d", m.seconds % 100000, m.microseconds, m.id, m.length);
    printPayload(text, m, " %02X");
    print(text, "  %u\n", m.messageNumber + 1);
}

void canKing(QByteArray &text, const CAN::CanRxMessage &m)
{
    print(text, "0    %08x %s %d", m.id, m.extended ? "X" : "", m.length);
    printPayload(text, m, "  %02x");
    print(text, "  %d.%06d R\n", m.seconds % 100000, m.microseconds);
}

void ixxat(QByteArray &text, const CAN::CanRxMessage &m)
{
    print(text, "\"1\",\"%u\",\"%02d:%02d:%02d.%03d.%03d\",\"\",\"%X\",\"%s\",\"%d\",\"",
          m.messageNumber + 1, m.seconds / 3600 % 24, m.seconds / 60 % 60, m.seconds % 60,
          m.microseconds / 1000, m.microseconds % 1000, m.id, m.extended ? "Ext" : "Std", m.length);
    printPayload(text, m, "%02X ");
    if (m.length > 0)
        text.chop(1);
    text += "\",\"\",\n";
}

void coctt(QByteArray &text, const CAN::CanRxMessage &m)
{
    print(text, "%u : %02d:%02d:%02d.%03d : Test CAN : 1 %X Rx SD %d", m.messageNumber + 1,
          m.seconds / 3600 % 24, m.seconds / 60 % 60, m.seconds % 60, m.microseconds / 1000, m.id,
          m.length);
    printPayload(text, m, " %02X");
    text += '\n';
}

void described(QByteArray &text, const CAN::CanRxMessage &m)
{
    print(text, "%d.%06d 1 %X Rx d %d", m.seconds, m.microseconds, m.id, m.length);
    printPayload(text, m, " %02X");
    text += '\n';
}

} // namespace

QVector<CAN::CanRxMessage> generateTraffic(int count)
{
    static constexpr qint8 lengths[] = {8, 8, 8, 8, 8, 6, 4, 4, 3, 2};
    QVector<CAN::CanRxMessage> traffic;
    traffic.reserve(count);
    quint32 state = 1;
    for (int i = 0; i < count; ++i) {
        CAN::CanRxMessage message;
        message.seconds = 1700000000 + i / 5000;
        message.microseconds = i % 5000 * 200 + 7;
        message.extended = nextRandom(state) % 100 < 19;
        message.id = message.extended ? 0x800 + nextRandom(state) : nextRandom(state) % 0x800;
        message.length = lengths[nextRandom(state) % 10];
        for (int byte = 0; byte < message.length; ++byte)
            message.data[byte] = quint8(nextRandom(state));
        message.messageNumber = quint32(i);
        traffic.append(message);
    }
    return traffic;
}

const QVector<GeneratedFormat> &generatedFormats()
{
    using H = DatachunkHelper;
    static const QVector<GeneratedFormat> formats{
        {"candump", ".log", H::SocketCanDump, "", "", candumpCompact, ""},
        {"candumpScreen", ".log", H::SocketCanDump, "", "", candumpScreen, ""},
        {"ascBitCount", ".asc", H::VectorAsc, "",
         "date Mon Mar 3 10:00:00 2025\nbase hex  timestamps absolute\n", ascWithBitCount, ""},
        {"asc", ".asc", H::VectorAscWithoutBitcount, "",
         "date Mon Mar 3 10:00:00 2025\nBegin Triggerblock\n", ascWithoutBitCount,
         "End TriggerBlock\n"},
        {"peak11", ".trc", H::PeakTrc11, "", ";$FILEVERSION=1.1\n;\n", peak11, ""},
        {"peak21", ".trc", H::PeakTrc21, "", ";$FILEVERSION=2.1\n;$COLUMNS=N,O,T,B,I,d,R,L,D\n;\n",
         peak21, ""},
        {"wireshark", ".csv", H::WiresharkCsv, "",
         "\"No.\",\"Time\",\"Source\",\"Destination\",\"Protocol\",\"Length\",\"Info\"\n",
         wireshark, ""},
        {"kolvar", ".txt", H::KolvarTxt, "", "# timestamp id (dlc): data;flags;notes\n", kolvar,
         ""},
        {"kvaserTxt", ".txt", H::KvaserTxtLog, "", "Kvaser\nFormat of data field: HEX\nTrigger\n",
         kvaserTxt, ""},
        {"canKing", ".txt", H::KvaserCanKingLog, "", "", canKing, ""},
        {"ixxat", ".csv", H::IxxatTrace, "",
         "\"Bus\",\"No\",\"Time (abs)\",\"State\",\"ID (hex)\",\"Format\",\"DLC\",\"Data\","
         "\"ASCII\",\n",
         ixxat, ""},
        {"coctt", ".txt", H::CoCTTLog, "", "", coctt, ""},
        {"described", ".txt", H::GenericFormat, "t n i ? ? l d", "", described, ""},
    };
    return formats;
}

QByteArray generateTrace(const GeneratedFormat &format, const QVector<CAN::CanRxMessage> &traffic)
{
    QByteArray text = format.header;
    text.reserve(traffic.size() * 110);
    for (const CAN::CanRxMessage &message : traffic)
        format.appendLine(text, message);
    return text + format.footer;
}
