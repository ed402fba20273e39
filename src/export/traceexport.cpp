#include "traceexport.h"

#include "exportwriter.h"

#include <QCoreApplication>

#include <iterator>

namespace {

constexpr const char *names[] = {"candump", "candump-screen", "asc",   "trc11", "trc21",
                                 "csv",     "jsonl",          "pcapng"};

struct OtherName
{
    const char *name;
    TraceExport::Format format;
};

// What the formats are called as well, and the ends of file names.
constexpr OtherName otherNames[] = {{"log", TraceExport::Candump},
                                    {"trc", TraceExport::PeakTrc21},
                                    {"json", TraceExport::JsonLines},
                                    {"ndjson", TraceExport::JsonLines}};

std::unique_ptr<ExportWriter> writerFor(TraceExport::Format format, TraceExport::Times times)
{
    switch (format) {
    case TraceExport::Candump:
        return candumpLogWriter();
    case TraceExport::CandumpScreen:
        return candumpScreenWriter(times);
    case TraceExport::VectorAsc:
        return vectorAscWriter(times);
    case TraceExport::PeakTrc11:
        return peakTrc11Writer();
    case TraceExport::PeakTrc21:
        return peakTrc21Writer();
    case TraceExport::Csv:
        return csvWriter();
    case TraceExport::JsonLines:
        return jsonLinesWriter();
    case TraceExport::Pcapng:
        break;
    }
    return pcapngWriter();
}

// %1 is the number of messages.
constexpr const char *lossTexts[] = {
    QT_TRANSLATE_NOOP("TraceExport", "Left out: CAN FD frames (%1)."),
    QT_TRANSLATE_NOOP("TraceExport",
                      "Left out: frames whose identifier has more than 29 bits "
                      "(%1)."),
    QT_TRANSLATE_NOOP("TraceExport", "Not written: the direction of sent messages (%1)."),
    QT_TRANSLATE_NOOP("TraceExport", "Not written: notes (%1)."),
    QT_TRANSLATE_NOOP("TraceExport", "Cut: notes longer than the format allows (%1)."),
    QT_TRANSLATE_NOOP("TraceExport", "Not written: the bus lines of messages (%1)."),
    QT_TRANSLATE_NOOP("TraceExport",
                      "Not written: the payload of error frames, which tells their "
                      "type (%1)."),
    QT_TRANSLATE_NOOP("TraceExport", "Written as extended: standard identifiers above 7FF (%1)."),
    QT_TRANSLATE_NOOP("TraceExport",
                      "Written as CAN FD: frames of more than 8 bytes without its "
                      "flag (%1)."),
    QT_TRANSLATE_NOOP("TraceExport",
                      "Written as classic CAN: remote frames with the flag of CAN "
                      "FD (%1)."),
    QT_TRANSLATE_NOOP("TraceExport", "Not written: the payload of remote frames (%1)."),
    QT_TRANSLATE_NOOP("TraceExport",
                      "Written with another length: messages whose length no frame "
                      "has (%1)."),
    QT_TRANSLATE_NOOP("TraceExport", "Not written: flags that the format does not have (%1)."),
    QT_TRANSLATE_NOOP("TraceExport",
                      "Written with times from the start of the trace: messages with "
                      "a date (%1)."),
    QT_TRANSLATE_NOOP("TraceExport",
                      "Written with another time: messages before the start, out of "
                      "order, or too late for the format (%1)."),
    QT_TRANSLATE_NOOP("TraceExport",
                      "Written without the last digits: times more exact than the "
                      "format (%1)."),
};
static_assert(std::size(lossTexts) == TraceExport::lossCount);

constexpr const char *lossNames[] = {
    "fd-frame",   "identifier",          "direction",  "note",       "note-cut",       "line",
    "error-type", "standard-identifier", "long-frame", "remote-fd",  "remote-payload", "length",
    "flags",      "start-time",          "time",       "time-digits"};
static_assert(std::size(lossNames) == TraceExport::lossCount);

} // namespace

QStringList TraceExport::formatNames()
{
    QStringList list;
    for (const char *name : names)
        list.append(QLatin1String(name));
    return list;
}

std::optional<TraceExport::Format> TraceExport::formatNamed(const QString &name)
{
    const int index = formatNames().indexOf(name.toLower());
    if (index >= 0)
        return Format(index);
    for (const OtherName &other : otherNames) {
        if (name.compare(QLatin1String(other.name), Qt::CaseInsensitive) == 0)
            return other.format;
    }
    return std::nullopt;
}

std::optional<TraceExport::Format> TraceExport::formatOfFile(const QString &fileName)
{
    const int dot = fileName.lastIndexOf(QLatin1Char('.'));
    return dot < 0 ? std::nullopt : formatNamed(fileName.mid(dot + 1));
}

bool TraceExport::isText(Format format)
{
    return format != Pcapng;
}

TraceExport::TraceExport(Format format, Times times) : writer(writerFor(format, times)) { }

TraceExport::~TraceExport() = default;

bool TraceExport::append(const CAN::CanRxMessage &message, const QString &note, QByteArray &block)
{
    const bool isWritten = writer->append(message, note, block);
    ++(isWritten ? writtenCount : leftOutCount);
    return isWritten;
}

void TraceExport::finish(QByteArray &block)
{
    writer->finish(block);
}

QVector<TraceExport::LossCount> TraceExport::losses() const
{
    QVector<LossCount> list;
    for (int loss = 0; loss < lossCount; ++loss) {
        if (const quint64 messages = writer->lost(Loss(loss)))
            list.append({Loss(loss), messages});
    }
    return list;
}

QString TraceExport::lossName(Loss loss)
{
    return QLatin1String(lossNames[loss]);
}

QString TraceExport::lossText(Loss loss, quint64 messages)
{
    return QCoreApplication::translate("TraceExport", lossTexts[loss]).arg(messages);
}
