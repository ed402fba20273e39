#include "commands.h"
#include "messageprinter.h"
#include "selectedmessages.h"
#include "terminal.h"

QList<QCommandLineOption> dumpOptions()
{
    return traceOptions()
        + QList<QCommandLineOption>{{QStringLiteral("json"),
                                     Cli::tr("Print each message as a JSON object.")}}
    + Selection::options();
}

int runDump(const QCommandLineParser &parser, const QStringList &files)
{
    TraceInputs inputs;
    Selection selection;
    if (!inputs.readOptions(parser) || !selection.read(parser))
        return WrongUsage;
    if (!inputs.open(files, TraceInputs::AsStream))
        return Failed;
    const bool asJson = parser.isSet(QStringLiteral("json"));
    MessagePrinter printer(asJson ? MessagePrinter::Json : MessagePrinter::Text);
    SelectedMessages selected(selection);
    TraceReading::Result result = TraceReading::Complete;
    for (const auto &input : inputs.all()) {
        if (result == TraceReading::Failed || selected.isDone())
            break;
        const auto print = [&printer](quint64, const TraceItem &item) {
            return printer.print(item.message, item.note);
        };
        result = worse(result, selected.forEachIn(*input, print));
    }
    printer.flush();
    return finishOutput() && result == TraceReading::Complete ? Succeeded : Failed;
}
