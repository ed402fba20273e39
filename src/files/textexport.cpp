#include "textexport.h"

#include "canframe.h"
#include "flagnumber.h"

#include <charconv>
#include <iterator>

namespace TextExport {

namespace {

enum class Align { Left, Right };

// Formats a number as QString::arg does, without searching for a marker.
template <typename Number>
void appendNumber(QString &line, Number value, int base, int width, Align align, char fill)
{
    char digits[24];
    const std::to_chars_result result =
        std::to_chars(std::begin(digits), std::end(digits), value, base);
    const char *start = digits;
    if (fill == '0' && *start == '-') {
        line += QLatin1Char('-');
        ++start;
        --width;
    }
    const int size = int(result.ptr - start);
    const auto padding = [&] {
        for (int i = size; i < width; ++i)
            line += QLatin1Char(fill);
    };
    if (align == Align::Right)
        padding();
    line += QLatin1String(start, size);
    if (align == Align::Left)
        padding();
}

void appendHexByte(QString &line, quint8 byte)
{
    static constexpr char digits[] = "0123456789abcdef";
    line += QLatin1Char(digits[byte >> 4]);
    line += QLatin1Char(digits[byte & 15]);
    line += QLatin1Char(' ');
}

void appendPrefix(QString &line, const CAN::CanRxMessage &message)
{
    line += QLatin1Char(' ');
    appendNumber(line, message.seconds, 10, 3, Align::Right, ' ');
    line += QLatin1Char('.');
    appendNumber(line, message.microseconds, 10, 6, Align::Right, '0');
    if (message.id == CAN::errorFrameId) {
        line += QLatin1String(" Error-frame");
    } else {
        line += QLatin1String(" 0x");
        appendNumber(line, message.id, 16, 3, Align::Right, '0');
        line += QLatin1Char('/');
        appendNumber(line, message.id, 10, 4, Align::Left, ' ');
    }
    line += QLatin1String(" (");
    line += QString::number(message.length);
    line += QLatin1String("): ");
}

} // namespace

QString headerLine()
{
    return QStringLiteral("# timestamp id (dlc): data;flags;notes\n");
}

void appendMessageLine(QString &text, const CAN::CanRxMessage &message, const QString &note)
{
    appendPrefix(text, message);
    if (message.remote) {
        text += QLatin1String("Remote Transmission Request");
    } else {
        for (int i = 0; i < CAN::payloadSize(message); ++i)
            appendHexByte(text, message.data[i]);
    }
    text += QLatin1Char(';');
    appendNumber(text, CAN::flagNumber(message), 10, 0, Align::Right, ' ');
    text += QLatin1Char(';');
    text += note;
    text += QLatin1Char('\n');
}

QString messageLine(const CAN::CanRxMessage &message, const QString &note)
{
    QString line;
    appendMessageLine(line, message, note);
    return line;
}

} // namespace TextExport
