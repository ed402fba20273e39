#include "candumpsource.h"
#include "clocktimer.h"
#include "commands.h"
#include "diskspace.h"
#include "recorder.h"
#include "recordoptions.h"
#include "servicemanager.h"
#include "stopsignals.h"
#include "terminal.h"

#include <QDateTime>

namespace {

// Leaves enough for the rest of the system, but at most a tenth of a small disk.
qint64 defaultReserve(const QString &folder)
{
    constexpr qint64 most = 1024 * bytesPerMebibyte;
    constexpr qint64 part = 10;
    const std::optional<DiskSpace> space = diskSpaceOf(folder);
    return space ? qMin(most, space->size / part) : 0;
}

std::unique_ptr<FrameSource> makeSource(const RecordOptions &options)
{
    if (options.bus.plugin.isEmpty())
        return std::make_unique<CandumpSource>();
    return std::make_unique<CanBusSource>(options.bus);
}

void printTotals(const Recorder::Totals &totals, const CaptureRules &rules)
{
    writeLine(Cli::tr("messages taken:   %1").arg(totals.taken));
    writeLine(Cli::tr("messages stored:  %1").arg(totals.stored));
    writeLine(Cli::tr("messages dropped: %1").arg(totals.dropped));
    if (rules.trigger || !rules.filter.text().isEmpty())
        writeLine(Cli::tr("not asked for:    %1").arg(totals.filtered));
    if (rules.trigger)
        writeLine(Cli::tr("captures:         %1").arg(totals.captures));
    if (totals.gaps > 0)
        writeLine(Cli::tr("gaps:             %1").arg(totals.gaps));
}

bool checkInput(const FrameSource &source, const Recorder::Totals &totals)
{
    if (source.unreadableCount() > 0)
        printError(source.name(), Cli::tr("%1 lines held no frame.").arg(source.unreadableCount()));
    return totals.taken > 0 || source.unreadableCount() == 0;
}

QString stateText(const Recorder &recorder, const QString &folder)
{
    return Cli::tr("%1 messages taken, %2 gaps, into %3")
        .arg(recorder.totals().taken)
        .arg(recorder.totals().gaps)
        .arg(folder);
}

// What ends chunk files besides what they hold.
void rotateByClockAndSignal(Recorder &recorder, ServiceManager &manager, qint64 every)
{
    if (every != 0)
        QObject::connect(new ClockTimer(every, &recorder), &ClockTimer::due, &recorder,
                         &Recorder::rotate);
    StopSignals::whenHungUp(&recorder, [&] {
        manager.tellReloading();
        recorder.rotate();
        manager.tellReady();
    });
}

// True when every message that came is in the folder, was not asked for or was deleted for the
// budget.
bool record(const RecordOptions &options, qint64 reserve, RecordingFolder &folder)
{
    const std::unique_ptr<FrameSource> source = makeSource(options);
    Recorder recorder(folder, *source, options.limits, reserve, options.rules);
    ServiceManager manager([&] { return stateText(recorder, folder.path()); });
    QObject::connect(&recorder, &Recorder::stillWaiting, &manager, &ServiceManager::tellAlive);
    QObject::connect(&recorder, &Recorder::ended, qApp, &QCoreApplication::quit);
    StopSignals::whenStopped(qApp, [] { QCoreApplication::quit(); });
    rotateByClockAndSignal(recorder, manager, options.every);
    if (!recorder.start())
        return false;
    manager.tellReady();
    {
        Progress progress(folder.path());
        QObject::connect(source.get(), &FrameSource::received, source.get(),
                         [&] { progress.setCount(recorder.totals().taken); });
        QCoreApplication::exec();
        source->disconnect(source.get());
    }
    manager.tellStopping();
    recorder.finish();
    printTotals(recorder.totals(), options.rules);
    return checkInput(*source, recorder.totals()) && !recorder.hasFailed();
}

// Empty, with a text printed, when there can be none.
QString createFolderIn(const QString &parent)
{
    constexpr int attempts = 1000;
    const QDir folder(parent);
    if (!makeFolder(folder))
        return {};
    const QString name =
        QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-ddTHH-mm-ss"));
    for (int i = 1; i <= attempts; ++i) {
        const QString path =
            folder.filePath(i == 1 ? name : name + QLatin1Char('-') + QString::number(i));
        if (folder.mkdir(QFileInfo(path).fileName()))
            return path;
        if (!QFileInfo::exists(path))
            break;
    }
    printError(folder.filePath(name), Cli::tr("The folder could not be created."));
    return {};
}

bool recordInto(const QString &path, const RecordOptions &options)
{
    RecordingFolder folder(path);
    return folder.open() && record(options, options.reserve.value_or(defaultReserve(path)), folder);
}

} // namespace

int runRecord(const QCommandLineParser &parser, const QStringList &)
{
    const std::optional<RecordOptions> options = readRecordOptions(parser);
    if (!options)
        return WrongUsage;
    const QString path = options->newFolder ? createFolderIn(options->into) : options->into;
    const bool recorded = !path.isEmpty() && recordInto(path, *options);
    // A start that fails again and again must not leave folders behind. Others are not empty.
    if (options->newFolder && !path.isEmpty())
        QDir().rmdir(path);
    return finishOutput() && recorded ? Succeeded : Failed;
}
