#include "canbussource.h"
#include "candumpsource.h"
#include "commands.h"
#include "options.h"
#include "recorder.h"
#include "stopsignals.h"
#include "terminal.h"

#include <limits>

namespace {

constexpr quint64 leastLimit = 5001;
constexpr quint64 mostMessages = 100000000;
constexpr quint64 defaultLimit = 105000;
constexpr quint64 defaultBudget = 1000;

struct Options
{
    QString into;
    QString plugin;
    QString interface;
    quint64 limit = 0;
    quint64 budget = 0;
};

bool readOptions(const QCommandLineParser &parser, Options &options)
{
    options.into = parser.value(QStringLiteral("into"));
    options.plugin = parser.value(QStringLiteral("plugin"));
    options.interface = parser.value(QStringLiteral("interface"));
    if (options.into.isEmpty()) {
        usageError(Cli::tr("--into is missing"));
        return false;
    }
    if (options.plugin.isEmpty() != options.interface.isEmpty()) {
        usageError(Cli::tr("--plugin and --interface go together"));
        return false;
    }
    return numberOption(parser, QStringLiteral("limit"), leastLimit, mostMessages, defaultLimit,
                        options.limit)
        && numberOption(parser, QStringLiteral("budget"), 1, std::numeric_limits<quint32>::max(),
                        defaultBudget, options.budget);
}

std::unique_ptr<FrameSource> makeSource(const Options &options)
{
    if (options.plugin.isEmpty())
        return std::make_unique<CandumpSource>();
    return std::make_unique<CanBusSource>(options.plugin, options.interface);
}

void printTotals(const Recorder::Totals &totals)
{
    writeOutput(Cli::tr("messages taken:   %1\n"
                        "messages stored:  %2\n"
                        "messages dropped: %3\n")
                    .arg(totals.taken)
                    .arg(totals.stored)
                    .arg(totals.dropped));
}

bool checkInput(const FrameSource &source, const Recorder::Totals &totals)
{
    if (source.unreadableCount() > 0)
        printError(source.name(), Cli::tr("%1 lines held no frame.").arg(source.unreadableCount()));
    return totals.taken > 0 || source.unreadableCount() == 0;
}

// True when all that came is in the folder, or dropped as it should be.
bool record(const Options &options, RecordingFolder &folder)
{
    StopSignals stopSignals;
    const std::unique_ptr<FrameSource> source = makeSource(options);
    Recorder recorder(folder, *source, quint32(options.limit), quint32(options.budget));
    QObject::connect(&stopSignals, &StopSignals::stop, qApp, &QCoreApplication::quit);
    QObject::connect(&recorder, &Recorder::ended, qApp, &QCoreApplication::quit);
    if (!recorder.start())
        return false;
    {
        Progress progress(options.into);
        QObject::connect(source.get(), &FrameSource::received, source.get(),
                         [&] { progress.setCount(recorder.totals().taken); });
        QCoreApplication::exec();
        source->disconnect(source.get());
    }
    recorder.finish();
    printTotals(recorder.totals());
    return checkInput(*source, recorder.totals()) && !recorder.hasFailed();
}

} // namespace

QList<QCommandLineOption> recordOptions()
{
    return {{QStringLiteral("into"),
             Cli::tr("Record into this folder, which is created if need be."),
             QStringLiteral("FOLDER")},
            {QStringLiteral("plugin"),
             Cli::tr("Take the frames from this CAN bus plug-in, such as socketcan."),
             QStringLiteral("NAME")},
            {QStringLiteral("interface"),
             Cli::tr("Take the frames from this interface of the plug-in, such as can0."),
             QStringLiteral("NAME")},
            {QStringLiteral("budget"),
             Cli::tr("Keep the chunk files below so many MiB, 1000 by default: the oldest ones "
                     "are deleted."),
             QStringLiteral("MiB")},
            {QStringLiteral("limit"),
             Cli::tr("Message limit of the store, 105000 by default. A chunk file holds 5000 "
                     "messages less."),
             QStringLiteral("N")}};
}

int runRecord(const QCommandLineParser &parser, const QStringList &)
{
    Options options;
    if (!readOptions(parser, options))
        return WrongUsage;
    RecordingFolder folder(options.into);
    const bool recorded = folder.open() && record(options, folder);
    return finishOutput() && recorded ? Succeeded : Failed;
}
