#include "recordoptions.h"

#include "commands.h"
#include "diskspace.h"
#include "options.h"
#include "quantities.h"
#include "rotation.h"
#include "selection.h"
#include "terminal.h"

#include <limits>

namespace {

constexpr quint64 mostMessages = 100000000;
constexpr quint64 mostMebibytes = std::numeric_limits<quint32>::max();
constexpr quint64 mostBitrate = 100000000;
constexpr qint64 microsecondsPerMillisecond = 1000;
constexpr qint64 second = 1000000; // in microseconds
constexpr qint64 day = 24LL * 60 * 60 * second;
constexpr qint64 gibibyte = 1024 * bytesPerMebibyte;

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
    qint64 retry = 0;
    if (!bitrate("bitrate", bus.bitrate) || !bitrate("data-bitrate", bus.dataBitrate)
        || !timeOption(parser, QStringLiteral("retry"), microsecondsPerMillisecond, day, 0, retry))
        return false;
    bus.retry = int(retry / microsecondsPerMillisecond);
    const bool isConfigured = bus.fd || bus.bitrate != 0 || bus.dataBitrate != 0 || bus.retry != 0;
    if (bus.plugin.isEmpty() && !bus.interface.isEmpty())
        usageError(Cli::tr("--interface needs --plugin"));
    else if (!bus.plugin.isEmpty() && bus.interface.isEmpty())
        usageError(Cli::tr("--plugin needs --interface"));
    else if (bus.plugin.isEmpty() && isConfigured)
        usageError(Cli::tr("--fd, --bitrate, --data-bitrate and --retry need --plugin"));
    else
        return true;
    return false;
}

// The messages of one chunk file where the user does not say. Several chunks must fit into a small
// budget, even with the longest messages; a size or a time is reached before their number is, as
// far as memory should be taken for that.
quint64 defaultMessagesPerChunk(const RecordOptions &options)
{
    constexpr quint64 few = 100000;
    constexpr quint64 many = 1000000;
    constexpr qint64 mostRecordBytes = 89;
    constexpr qint64 leastRecordBytes = 25;
    constexpr qint64 chunksInBudget = 4;
    quint64 messages = options.every != 0 ? many : few;
    if (options.limits.chunkBytes != 0)
        messages = quint64(options.limits.chunkBytes / leastRecordBytes);
    if (options.limits.budget != 0)
        messages =
            qMin(messages, quint64(options.limits.budget / mostRecordBytes / chunksInBudget));
    return qBound<quint64>(1, messages, mostMessages - rotationMargin);
}

bool readLimits(const QCommandLineParser &parser, RecordOptions &options)
{
    constexpr qint64 leastChunk = 4096;
    constexpr qint64 mostChunk = 2 * gibibyte;
    quint64 budget = 0;
    quint64 reserve = 0;
    quint64 limit = 0;
    qint64 every = 0;
    ChunkLimits &limits = options.limits;
    if (!numberOption(parser, QStringLiteral("budget"), 1, mostMebibytes, 0, budget)
        || !numberOption(parser, QStringLiteral("reserve"), 0, mostMebibytes, 0, reserve)
        || !sizeOption(parser, QStringLiteral("size"), leastChunk, mostChunk, 0, limits.chunkBytes)
        || !timeOption(parser, QStringLiteral("every"), second, 7 * day, 0, every))
        return false;
    options.every = every / microsecondsPerMillisecond;
    limits.budget = qint64(budget) * bytesPerMebibyte;
    if (parser.isSet(QStringLiteral("reserve")))
        options.reserve = qint64(reserve) * bytesPerMebibyte;
    const bool good =
        numberOption(parser, QStringLiteral("limit"), rotationMargin + 1, mostMessages,
                     rotationMargin + defaultMessagesPerChunk(options), limit);
    limits.storeMessages = quint32(limit);
    return good;
}

bool readRules(const QCommandLineParser &parser, CaptureRules &rules)
{
    constexpr qint64 defaultRing = 128 * bytesPerMebibyte;
    const QString trigger = parser.value(QStringLiteral("trigger"));
    const bool isTimed = parser.isSet(QStringLiteral("before"))
        || parser.isSet(QStringLiteral("after")) || parser.isSet(QStringLiteral("ring"));
    if (isTimed && trigger.isEmpty()) {
        usageError(Cli::tr("--before, --after and --ring need --trigger"));
        return false;
    }
    if (!readExpression(parser.value(QStringLiteral("filter")), rules.filter))
        return false;
    if (!trigger.isEmpty() && !readExpression(trigger, rules.trigger.emplace()))
        return false;
    return timeOption(parser, QStringLiteral("before"), 0, day, 0, rules.before)
        && timeOption(parser, QStringLiteral("after"), 0, day, 0, rules.after)
        && sizeOption(parser, QStringLiteral("ring"), bytesPerMebibyte, 64 * gibibyte, defaultRing,
                      rules.ringBytes);
}

QList<QCommandLineOption> sourceOptions()
{
    return {{QStringLiteral("plugin"),
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
             Cli::tr("Set the bitrate for the data of CAN FD frames, in bit/s."),
             QStringLiteral("N")},
            {QStringLiteral("retry"),
             Cli::tr("Try every so often, such as 5s, to get an interface back that fails or goes "
                     "away, in place of ending the recording."),
             QStringLiteral("TIME")}};
}

QList<QCommandLineOption> choiceOptions()
{
    return {
        {QStringLiteral("filter"), Cli::tr("Record only the messages that this filter takes."),
         QStringLiteral("EXPRESSION")},
        {QStringLiteral("trigger"),
         Cli::tr("Record only around the messages that this filter takes."),
         QStringLiteral("EXPRESSION")},
        {QStringLiteral("before"),
         Cli::tr("Record what came up to this time before a trigger: 500ms, 60s, 5min, 1h; a "
                 "plain number is seconds."),
         QStringLiteral("TIME")},
        {QStringLiteral("after"), Cli::tr("The same behind a trigger."), QStringLiteral("TIME")},
        {QStringLiteral("ring"),
         Cli::tr("Memory for the messages in front of a trigger, 128MiB by default."),
         QStringLiteral("SIZE")}};
}

QList<QCommandLineOption> limitOptions()
{
    return {
        {QStringLiteral("reserve"),
         Cli::tr("End the recording when only N MiB of the disk are free; by default 1024, or "
                 "a tenth of the disk where that is less."),
         QStringLiteral("N")},
        {QStringLiteral("budget"),
         Cli::tr("Keep all files of the recording within N MiB together: the oldest chunk "
                 "files are deleted. Nothing is deleted by default."),
         QStringLiteral("N")},
        {QStringLiteral("limit"),
         Cli::tr("Message limit of the store, 105000 by default, less for a small budget and more "
                 "with --size or --every. A chunk file holds %1 messages less.")
             .arg(rotationMargin),
         QStringLiteral("N")},
        {QStringLiteral("size"),
         Cli::tr("End a chunk file before it gets larger: 64KiB, 100MiB; a plain number is MiB."),
         QStringLiteral("SIZE")},
        {QStringLiteral("every"),
         Cli::tr("End a chunk file when the clock reaches a multiple of this time: 30s, 10min, "
                 "1h; a plain number is seconds."),
         QStringLiteral("TIME")}};
}

} // namespace

std::optional<RecordOptions> readRecordOptions(const QCommandLineParser &parser)
{
    RecordOptions options;
    options.into = parser.value(QStringLiteral("into"));
    options.newFolder = parser.isSet(QStringLiteral("new-folder"));
    if (options.into.isEmpty()) {
        usageError(Cli::tr("--into is missing"));
        return {};
    }
    const bool good = readBusOptions(parser, options.bus) && readLimits(parser, options)
        && readRules(parser, options.rules);
    return good ? std::optional(options) : std::nullopt;
}

QList<QCommandLineOption> recordOptions()
{
    const QList<QCommandLineOption> places = {
        {QStringLiteral("into"), Cli::tr("Record into this folder, which is created if need be."),
         QStringLiteral("FOLDER")},
        {QStringLiteral("new-folder"),
         Cli::tr("Record into a new folder inside, named after the date and time.")}};
    return places + sourceOptions() + choiceOptions() + limitOptions();
}
