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

int entriesOf(const QString &folder)
{
    return int(QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size());
}

} // namespace

void countObjects()
{
    constexpr int addObjectHook = 3;
    void (*const added)(QObject *) = [](QObject *) { ++objects; };
    void (*const removed)(QObject *) = [](QObject *) { --objects; };
    qtHookData[addObjectHook] = reinterpret_cast<quintptr>(added);
    qtHookData[addObjectHook + 1] = reinterpret_cast<quintptr>(removed);
}

ProcessState processState()
{
    QThreadPool::globalInstance()->waitForDone();
    const QDir location(QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation));
    const auto heap = mallinfo2();
    return {{"threads", entriesOf("/proc/self/task")},
            {"files", entriesOf("/proc/self/fd")},
            {"objects", objects},
            {"folders", entriesOf(location.filePath("datachunks"))},
            {"bytes", qint64(heap.uordblks + heap.hblkhd)}};
}

QString leftBehind(const ProcessState &before)
{
    constexpr qint64 tolerance = 2 * 1024 * 1024;
    // A thread that was waited for may be listed for another moment.
    if (!QTest::qWaitFor([&] { return processState()["threads"] <= before["threads"]; }, 10000))
        qWarning("threads are left");
    const ProcessState now = processState();
    QString more;
    for (const QString &what : now.keys()) {
        if (now[what] > before[what] + (what == "bytes" ? tolerance : 0))
            more +=
                QStringLiteral("%1 %2 instead of %3; ").arg(now[what]).arg(what).arg(before[what]);
    }
    return more;
}
