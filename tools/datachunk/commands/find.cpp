#include "commands.h"
#include "finding.h"
#include "options.h"
#include "terminal.h"

namespace {

using Result = TraceReading::Result;

bool readRequest(const QCommandLineParser &parser, const QString &text, FindRequest &request)
{
    constexpr quint64 mostContext = 100000; // that of a text waits in memory
    const auto number = [&parser](const char *name, quint64 most, quint64 &value) {
        return numberOption(parser, QLatin1String(name), 0, most, value, value);
    };
    if (!request.selection.read(parser, QStringLiteral("first"))
        || !number("before", mostContext, request.before)
        || !number("after", mostContext, request.after))
        return false;
    request.counts = parser.isSet(QStringLiteral("count"));
    request.asJson = parser.isSet(QStringLiteral("json"));
    TraceExpression expression;
    if (!readExpression(text, expression))
        return false;
    request.selection.narrow(expression);
    return true;
}

} // namespace

QList<QCommandLineOption> findOptions()
{
    return traceOptions()
        + QList<QCommandLineOption>{{QStringLiteral("count"),
                                     Cli::tr("Print only how many messages are found.")},
                                    {QStringLiteral("first"), Cli::tr("Find at most N messages."),
                                     QStringLiteral("N")},
                                    {QStringLiteral("before"),
                                     Cli::tr("Print N messages in front of each as well. Lines "
                                             "then begin with the "
                                             "position and \":\" for what is found, \"-\" for what "
                                             "stands around it."),
                                     QStringLiteral("N")},
                                    {QStringLiteral("after"),
                                     Cli::tr("Print N messages behind each as well."),
                                     QStringLiteral("N")},
                                    {QStringLiteral("json"),
                                     Cli::tr(
                                         "Print each message as a JSON object with its position.")}}
    + Selection::options(
               {QStringLiteral("count"), QStringLiteral("range"), QStringLiteral("select")});
}

int runFind(const QCommandLineParser &parser, const QStringList &arguments)
{
    TraceInputs inputs;
    FindRequest request;
    if (!inputs.readOptions(parser) || !readRequest(parser, arguments.first(), request))
        return WrongUsage;
    if (!inputs.open(arguments.mid(1), TraceInputs::AsTimeline))
        return Failed;
    FindOutput output(request);
    Result result = Result::Complete;
    quint64 position = 0;
    for (const auto &input : inputs.all()) {
        if (result != Result::Failed && !output.isDone(position))
            result = worse(result, findIn(*input, request, position, output));
    }
    if (request.counts && result != Result::Failed)
        writeLine(QString::number(output.count()));
    output.flush();
    return finishOutput() && result == Result::Complete && output.count() > 0 ? Succeeded : Failed;
}
