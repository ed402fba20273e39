#include "processstate.h"

#include <QDir>
#include <QStandardPaths>
#include <QThreadPool>
#include <QtTest>

#include <atomic>

#include <malloc.h>

// What Qt offers to debuggers: functions that are called with every object that comes or goes.
QT_BEGIN_NAMESPACE
extern quintptr Q_CORE_EXPORT qtHookData[];
QT_END_NAMESPACE

namespace {

std::atomic<int> objects{0};

void objectAdded(QObject *)
{
    ++objects;
}

void objectRemoved(QObject *)
{
    --objects;
}

int entriesOf(const QString &folder)
{
    return int(QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size());
}

qint64 heapBytes()
{
    const auto info = mallinfo2();
    return qint64(info.uordblks + info.hblkhd);
}

} // namespace

void countObjects()
{
    constexpr int addObjectHook = 3;
    qtHookData[addObjectHook] = reinterpret_cast<quintptr>(&objectAdded);
    qtHookData[addObjectHook + 1] = reinterpret_cast<quintptr>(&objectRemoved);
}

ProcessState processState()
{
    QThreadPool::globalInstance()->waitForDone();
    const QDir location(QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation));
    return {entriesOf(QStringLiteral("/proc/self/task")),
            entriesOf(QStringLiteral("/proc/self/fd")), objects,
            entriesOf(location.filePath(QStringLiteral("datachunks"))), heapBytes()};
}

QString leftBehind(const ProcessState &before)
{
    constexpr qint64 tolerance = 2 * 1024 * 1024;
    ProcessState now = processState();
    // A thread that was waited for may be listed for another moment.
    if (!QTest::qWaitFor([&] { return (now = processState()).threads <= before.threads; }, 10000))
        qWarning("threads are left");
    const auto more = [](const char *what, qint64 count, qint64 allowed) {
        return count <= allowed
            ? QString()
            : QStringLiteral("%1 %2 instead of %3; ").arg(count).arg(what).arg(allowed);
    };
    return more("threads", now.threads, before.threads) + more("files", now.files, before.files)
        + more("objects", now.objects, before.objects)
        + more("folders", now.folders, before.folders)
        + more("bytes", now.heapBytes, before.heapBytes + tolerance);
}
