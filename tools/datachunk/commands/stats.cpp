#include "commands.h"
#include "options.h"
#include "selectedmessages.h"
#include "statsreport.h"
#include "terminal.h"

#include <cmath>

namespace {

constexpr quint64 mostBitrate = 1000000000;

bool readPause(const QCommandLineParser &parser, qint64 &pause)
{
    constexpr double mostSeconds = 1e9;
    constexpr double microsecondsPerSecond = 1e6;
    if (!parser.isSet(QStringLiteral("gap")))
        return true;
    bool isNumber = false;
    const double seconds = parser.value(QStringLiteral("gap")).toDouble(&isNumber);
    if (isNumber && seconds >= 0 && seconds <= mostSeconds) {
        pause = std::llround(seconds * microsecondsPerSecond);
        return true;
    }
    usageError(Cli::tr("--gap takes seconds from 0 to %1, not \"%2\"")
                   .arg(mostSeconds, 0, 'f', 0)
                   .arg(parser.value(QStringLiteral("gap"))));
    return false;
}

bool readRequest(const QCommandLineParser &parser, StatsRequest &request)
{
    const auto bitrate = [&parser](const char *name, quint64 byDefault, quint64 &value) {
        return numberOption(parser, QLatin1String(name), 1, mostBitrate, byDefault, value);
    };
    if (!bitrate("bitrate", 0, request.bitrate)
        || !bitrate("data-bitrate", request.bitrate, request.dataBitrate))
        return false;
    if (request.bitrate == 0 && request.dataBitrate > 0) {
        usageError(Cli::tr("--data-bitrate needs --bitrate"));
        return false;
    }
    return readPause(parser, request.longestPause);
}

TraceReading::Result add(TraceStatistics &statistics, SelectedMessages &selected, TraceInput &input)
{
    Progress progress(input.subject(), [&input] { return input.part(); });
    return selected.forEachIn(input, [&](quint64 position, const TraceItem &item) {
        statistics.add(item.message, position);
        progress.countOne();
        return true;
    });
}

} // namespace

QList<QCommandLineOption> statsOptions()
{
    return traceOptions()
        + QList<QCommandLineOption>{{QStringLiteral("bitrate"),
                                     Cli::tr("Tell the load of each line at N bit/s. Every frame "
                                             "counts with exactly the "
                                             "stuff bits that it has on the bus."),
                                     QStringLiteral("N")},
                                    {QStringLiteral("data-bitrate"),
                                     Cli::tr("The data of CAN FD frames come at N bit/s; otherwise "
                                             "at that of --bitrate."),
                                     QStringLiteral("N")},
                                    {QStringLiteral("gap"),
                                     Cli::tr("Count pauses of more than S seconds; otherwise of "
                                             "more than 1."),
                                     QStringLiteral("S")},
                                    {QStringLiteral("json"),
                                     Cli::tr("Print a JSON object, with times in microseconds.")}}
    + Selection::options();
}

int runStats(const QCommandLineParser &parser, const QStringList &files)
{
    TraceInputs inputs;
    StatsRequest request;
    Selection selection;
    if (!inputs.readOptions(parser) || !readRequest(parser, request) || !selection.read(parser))
        return WrongUsage;
    if (!inputs.open(files, TraceInputs::AsTimeline))
        return Failed;
    const bool countsBits = request.bitrate > 0;
    TraceStatistics statistics(request.longestPause,
                               countsBits ? TraceStatistics::Everything : TraceStatistics::NoBits);
    SelectedMessages selected(selection);
    TraceReading::Result result = TraceReading::Complete;
    for (const auto &input : inputs.all()) {
        if (!selected.isDone())
            result = worse(result, add(statistics, selected, *input));
        if (result == TraceReading::Failed)
            return Failed;
    }
    if (parser.isSet(QStringLiteral("json")))
        writeOutput(statsJson(statistics, request));
    else
        printStats(statistics, request);
    return finishOutput() && result == TraceReading::Complete ? Succeeded : Failed;
}
