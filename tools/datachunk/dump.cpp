#include "commands.h"
#include "messageprinter.h"
#include "options.h"
#include "stopsignals.h"
#include "terminal.h"
#include "traceinput.h"

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

    // The same as an expression; nothing where everything is taken, or where it cannot be said.
    std::optional<TraceExpression> expression() const
    {
        QStringList tests;
        if (line != anyLine)
            tests.append(QStringLiteral("line==%1").arg(line));
        if (id != anyId)
            tests.append(QStringLiteral("id==%1").arg(id, 0, 16));
        return tests.isEmpty() ? std::nullopt
                               : TraceExpression::parse(tests.join(QLatin1String(" and ")));
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

// Prints those of the messages that are selected.
class Printer
{
public:
    Printer(const Selection &selection, MessagePrinter::Form form)
        : selection(selection), printer(form)
    {
    }

    // Returns false when nothing more is to be printed.
    bool print(const CAN::CanRxMessage &message, const QString &note)
    {
        if (isFull())
            return false;
        if (!selection.takes(message))
            return true;
        return printer.print(message, note) && ++printed < selection.count;
    }

    bool isFull() const { return printed >= selection.count; }
    void flush() { printer.flush(); }

private:
    const Selection selection;
    MessagePrinter printer;
    quint64 printed = 0;
};

// Chunks without the identifier or the line need not be read.
TraceReading::Result printFound(const TraceInput &input, const TraceExpression &expression,
                                quint64 from, Printer &printer)
{
    const TraceTimeline &timeline = *input.timeline();
    quint64 gone = 0;
    const auto visit = [&](const QVector<quint64> &positions) {
        for (const quint64 position : positions) {
            const TraceRow row = timeline.row(position);
            gone += row.state == TraceRow::Known ? 0 : 1;
            if (row.state == TraceRow::Known && !printer.print(row.message, row.note))
                return false;
        }
        QCoreApplication::processEvents();
        return !StopSignals::received();
    };
    gone += timeline.forEachFound(expression, from, timeline.count(), visit);
    return interrupted(input.subject()) ? TraceReading::Failed : tellGone(input.subject(), gone);
}

TraceReading::Result dump(TraceInput &input, const Selection &selection, quint64 &position,
                          Printer &printer)
{
    const TraceReading::Result opened = input.open();
    if (opened == TraceReading::Failed)
        return opened;
    const quint64 begin = position;
    const quint64 from = selection.from > begin ? selection.from - begin : 0;
    const auto expression = selection.expression();
    if (input.timeline() && expression) {
        position += input.timeline()->count();
        return worse(opened, printFound(input, *expression, from, printer));
    }
    const auto visit = [&](quint64 at, const CAN::CanRxMessage &message, const QString &note) {
        position = begin + at + 1;
        return printer.print(message, note);
    };
    return worse(opened, input.forEachMessage(from, visit));
}

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
    TraceInputs inputs;
    Selection selection;
    if (!inputs.readOptions(parser) || !readSelection(parser, selection))
        return WrongUsage;
    if (!inputs.open(files, TraceInputs::AsStream))
        return Failed;
    const bool asJson = parser.isSet(QStringLiteral("json"));
    Printer printer(selection, asJson ? MessagePrinter::Json : MessagePrinter::Text);
    TraceReading::Result result = TraceReading::Complete;
    quint64 position = 0;
    for (const auto &input : inputs.all()) {
        if (result != TraceReading::Failed
            && (&input == &inputs.all().front() || !printer.isFull()))
            result = worse(result, dump(*input, selection, position, printer));
    }
    printer.flush();
    return finishOutput() && result == TraceReading::Complete ? Succeeded : Failed;
}
