#include "workfiles.h"

#include <QFile>
#include <QTemporaryDir>

#include <ctime>

int benchFrames()
{
    static const int frames = qEnvironmentVariableIsSet("DATACHUNK_BENCH_FRAMES")
        ? qEnvironmentVariableIntValue("DATACHUNK_BENCH_FRAMES")
        : 1000000;
    return frames;
}

const QVector<CAN::CanRxMessage> &benchTraffic()
{
    static const QVector<CAN::CanRxMessage> traffic = generateTraffic(benchFrames());
    return traffic;
}

QString workPath(const QString &name)
{
    static const QTemporaryDir folder;
    return folder.filePath(name);
}

QString traceFile(const GeneratedFormat &format)
{
    const QString name = workPath(QLatin1String(format.name) + QLatin1String(format.suffix));
    if (QFile::exists(name))
        return name;
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly) || file.write(generateTrace(format, benchTraffic())) < 0)
        qFatal("cannot write %s", qPrintable(name));
    return name;
}

namespace {

qint64 statusBytes(const char *name)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith(name))
            return line.mid(int(qstrlen(name)) + 1).trimmed().split(' ').first().toLongLong()
                * 1024;
    }
    return 0;
}

} // namespace

qint64 peakMemory()
{
    return statusBytes("VmHWM");
}

qint64 residentMemory()
{
    return statusBytes("VmRSS");
}

void resetPeakMemory()
{
    QFile references(QStringLiteral("/proc/self/clear_refs"));
    if (references.open(QIODevice::WriteOnly))
        references.write("5");
}

double cpuSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return double(time.tv_sec) + double(time.tv_nsec) / 1e9;
}
