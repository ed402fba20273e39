#include "canbussource.h"
#include "candumpsource.h"
#include "commands.h"
#include "diskspace.h"
#include "options.h"
#include "recorder.h"
#include "rotation.h"
#include "stopsignals.h"
#include "terminal.h"

#include <limits>

namespace {

constexpr quint64 mostMessages = 100000000;
constexpr quint64 defaultMessagesPerChunk = 100000;
constexpr quint64 mostMebibytes = std::numeric_limits<quint32>::max();
constexpr quint64 mostBitrate = 100000000;

struct Options
{
    QString into;
    CanBusOptions bus;
    RecordingLimits limits;
    bool hasReserve = false;
};

bool readBusOptions(const QCommandLineParser &parser, CanBusOptions &bus)
{
    bus.plugin = parser.value(QStringLiteral("plugin"));
    bus.interface = parser.value(QStringLiteral("interface"));
    bus.fd = parser.isSet(QStringLiteral("fd"));
    const auto bitrate = [&parser](const char *name, quint32 &value) {
        quint64 number = 0;
        const bool good = numberOption(parser, QLatin1String(name), 1, mostBitrate, 0, number);
        value = quint32(number);
        return good;
    };
    if (!bitrate("bitrate", bus.bitrate) || !bitrate("data-bitrate", bus.dataBitrate))
        return false;
    const bool isConfigured = bus.fd || bus.bitrate != 0 || bus.dataBitrate != 0;
    if (bus.plugin.isEmpty() && !bus.interface.isEmpty())
        usageError(Cli::tr("--interface needs --plugin"));
    else if (!bus.plugin.isEmpty() && bus.interface.isEmpty())
        usageError(Cli::tr("--plugin needs --interface"));
    else if (bus.plugin.isEmpty() && isConfigured)
        usageError(Cli::tr("--fd, --bitrate and --data-bitrate need --plugin"));
    else
        return true;
    return false;
}

// Several chunks must fit into a small budget, even with the longest messages.
quint64 defaultLimit(qint64 budget)
{
    constexpr qint64 mostRecordBytes = 89;
    constexpr qint64 chunksInBudget = 4;
    const quint64 fitting = quint64(budget / mostRecordBytes / chunksInBudget);
    return rotationMargin
        + (budget == 0 ? defaultMessagesPerChunk : qMin(fitting, defaultMessagesPerChunk));
}

bool readLimits(const QCommandLineParser &parser, Options &options)
{
    quint64 budget = 0;
    quint64 reserve = 0;
    quint64 limit = 0;
    options.hasReserve = parser.isSet(QStringLiteral("reserve"));
    if (!numberOption(parser, QStringLiteral("budget"), 1, mostMebibytes, 0, budget)
        || !numberOption(parser, QStringLiteral("reserve"), 0, mostMebibytes, 0, reserve))
        return false;
    options.limits.budget = qint64(budget) * bytesPerMebibyte;
    options.limits.reserve = qint64(reserve) * bytesPerMebibyte;
    if (!numberOption(parser, QStringLiteral("limit"), rotationMargin + 1, mostMessages,
                      defaultLimit(options.limits.budget), limit))
        return false;
    options.limits.storeMessages = quint32(limit);
    return true;
}

bool readOptions(const QCommandLineParser &parser, Options &options)
{
    options.into = parser.value(QStringLiteral("into"));
    if (options.into.isEmpty()) {
        usageError(Cli::tr("--into is missing"));
        return false;
    }
    return readBusOptions(parser, options.bus) && readLimits(parser, options);
}

// Leaves enough for the rest of the system, but at most a tenth of a small disk.
qint64 defaultReserve(const QString &folder)
{
    constexpr qint64 most = 1024 * bytesPerMebibyte;
    constexpr qint64 part = 10;
    const std::optional<DiskSpace> space = diskSpaceOf(folder);
    return space ? qMin(most, space->size / part) : 0;
}

std::unique_ptr<FrameSource> makeSource(const Options &options)
{
    if (options.bus.plugin.isEmpty())
        return std::make_unique<CandumpSource>();
    return std::make_unique<CanBusSource>(options.bus);
}

void printTotals(const Recorder::Totals &totals)
{
    writeLine(Cli::tr("messages taken:   %1").arg(totals.taken));
    writeLine(Cli::tr("messages stored:  %1").arg(totals.stored));
    writeLine(Cli::tr("messages dropped: %1").arg(totals.dropped));
}

bool checkInput(const FrameSource &source, const Recorder::Totals &totals)
{
    if (source.unreadableCount() > 0)
        printError(source.name(), Cli::tr("%1 lines held no frame.").arg(source.unreadableCount()));
    return totals.taken > 0 || source.unreadableCount() == 0;
}

// True when every message that came is in the folder or was deleted for the budget.
bool record(const Options &options, RecordingFolder &folder)
{
    const std::unique_ptr<FrameSource> source = makeSource(options);
    Recorder recorder(folder, *source, options.limits);
    QObject::connect(&recorder, &Recorder::ended, qApp, &QCoreApplication::quit);
    StopSignals::whenStopped(qApp, [] { QCoreApplication::quit(); });
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
    return {
        {QStringLiteral("into"), Cli::tr("Record into this folder, which is created if need be."),
         QStringLiteral("FOLDER")},
        {QStringLiteral("plugin"),
         Cli::tr("Take the frames from this CAN bus plug-in, such as socketcan."),
         QStringLiteral("NAME")},
        {QStringLiteral("interface"),
         Cli::tr("Take the frames from this interface of the plug-in, such as can0."),
         QStringLiteral("NAME")},
        {QStringLiteral("fd"),
         Cli::tr("Take CAN FD frames, too, as is always done with socketcan.")},
        {QStringLiteral("bitrate"), Cli::tr("Set the bitrate of the interface, in bit/s."),
         QStringLiteral("N")},
        {QStringLiteral("data-bitrate"),
         Cli::tr("Set the bitrate for the data of CAN FD frames, in bit/s."), QStringLiteral("N")},
        {QStringLiteral("reserve"),
         Cli::tr("End the recording when only N MiB of the disk are free; by default 1024, or "
                 "a tenth of the disk where that is less."),
         QStringLiteral("N")},
        {QStringLiteral("budget"),
         Cli::tr("Keep all files of the recording within N MiB together: the oldest chunk "
                 "files are deleted. Nothing is deleted by default."),
         QStringLiteral("N")},
        {QStringLiteral("limit"),
         Cli::tr("Message limit of the store, 105000 by default or less for a small budget. A "
                 "chunk file holds %1 messages less.")
             .arg(rotationMargin),
         QStringLiteral("N")}};
}

int runRecord(const QCommandLineParser &parser, const QStringList &)
{
    Options options;
    if (!readOptions(parser, options))
        return WrongUsage;
    RecordingFolder folder(options.into);
    if (!folder.open())
        return Failed;
    if (!options.hasReserve)
        options.limits.reserve = defaultReserve(options.into);
    const bool recorded = record(options, folder);
    return finishOutput() && recorded ? Succeeded : Failed;
}
