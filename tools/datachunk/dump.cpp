#include "canframe.h"
#include "commands.h"
#include "errorframes.h"
#include "options.h"
#include "savefileworker.h"
#include "terminal.h"
#include "tracereading.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <limits>

namespace {

constexpr quint64 anyLine = 256;
constexpr quint64 anyId = quint64(1) << 32;
constexpr quint64 unlimited = std::numeric_limits<qint64>::max();

struct Selection
{
    quint64 from = 0;
    quint64 count = unlimited;
    quint64 line = anyLine;
    quint64 id = anyId;

    bool takes(const CAN::CanRxMessage &message) const
    {
        return (line == anyLine || quint8(message.line) == line)
            && (id == anyId || message.id == id);
    }
};

bool readSelection(const QCommandLineParser &parser, Selection &selection)
{
    const auto number = [&parser](const char *name, quint64 most, quint64 &value, int base = 10) {
        return numberOption(parser, QLatin1String(name), 0, most, value, value, base);
    };
    return number("from", unlimited, selection.from) && number("count", unlimited, selection.count)
        && number("line", anyLine - 1, selection.line) && number("id", anyId - 1, selection.id, 16);
}

QByteArray jsonLine(const CAN::CanRxMessage &message, const QString &note)
{
    const char *payload = reinterpret_cast<const char *>(message.data);
    const QByteArray data = QByteArray(payload, CAN::payloadSize(message)).toHex();
    QJsonObject object{
        {QStringLiteral("number"), qint64(message.messageNumber)},
        {QStringLiteral("seconds"), message.seconds},
        {QStringLiteral("microseconds"), message.microseconds},
        {QStringLiteral("id"), qint64(message.id)},
        {QStringLiteral("line"), message.line},
        {QStringLiteral("length"), message.length},
        {QStringLiteral("data"), QString::fromLatin1(data)},
        {QStringLiteral("extended"), message.extended},
        {QStringLiteral("remote"), message.remote},
        {QStringLiteral("fd"), message.fdFrame},
        {QStringLiteral("error"), message.id == CAN::errorFrameId},
        {QStringLiteral("flagB"), message.flagB},
        {QStringLiteral("flagC"), message.flagC},
        {QStringLiteral("flagD"), message.flagD},
    };
    if (!note.isEmpty())
        object.insert(QStringLiteral("note"), note);
    const QString errorType = errorTypeName(message);
    if (!errorType.isEmpty())
        object.insert(QStringLiteral("errorType"), errorType);
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

// The text form of a message, without its line end.
QString textLine(const CAN::CanRxMessage &message, const QString &note)
{
    // A worker takes its notes when it is created, so a message with a note needs one of its own.
    static SaveFileWorker withoutNote;
    if (note.isEmpty())
        return withoutNote.getOldStyleTxtOutput(message).chopped(1);
    SaveFileWorker withNote(QString(), nullptr, DatachunkHelper::CurrentMessages, 0, 0,
                            {{message.messageNumber, note}}, {}, 0, {});
    return withNote.getOldStyleTxtOutput(message).chopped(1);
}

// Prints those of the messages that are selected.
class Printer
{
public:
    Printer(const Selection &selection, bool asJson) : selection(selection), asJson(asJson) { }

    // Returns false when nothing more is to be printed.
    bool print(const TraceItem &item)
    {
        if (printed >= selection.count)
            return false;
        if (position++ < selection.from || !selection.takes(item.message))
            return true;
        const bool written = asJson ? writeOutput(jsonLine(item.message, item.note))
                                    : writeLine(textLine(item.message, item.note));
        return written && ++printed < selection.count;
    }

private:
    const Selection selection;
    const bool asJson;
    quint64 position = 0;
    quint64 printed = 0;
};

} // namespace

QList<QCommandLineOption> dumpOptions()
{
    return traceOptions()
        + QList<QCommandLineOption>{
            {QStringLiteral("json"), Cli::tr("Print each message as a JSON object.")},
            {QStringLiteral("from"), Cli::tr("Begin at this position; the first message is at 0."),
             QStringLiteral("N")},
            {QStringLiteral("count"), Cli::tr("Print at most N messages."), QStringLiteral("N")},
            {QStringLiteral("line"), Cli::tr("Print only messages of this bus line (0 to 255)."),
             QStringLiteral("L")},
            {QStringLiteral("id"), Cli::tr("Print only messages with this identifier."),
             QStringLiteral("HEX")}};
}

int runDump(const QCommandLineParser &parser, const QStringList &files)
{
    TraceFile trace;
    trace.name = files.first();
    Selection selection;
    if (!readTraceOptions(parser, trace) || !readSelection(parser, selection))
        return WrongUsage;
    TraceReading reading(trace);
    if (!reading.open())
        return Failed;
    Printer printer(selection, parser.isSet(QStringLiteral("json")));
    const TraceReading::Result result =
        reading.forEachMessage([&](const TraceItem &item) { return printer.print(item); });
    return finishOutput() && result == TraceReading::Complete ? Succeeded : Failed;
}
