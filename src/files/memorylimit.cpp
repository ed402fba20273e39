#include "memorylimit.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <limits>

#include <unistd.h>

namespace MemoryLimit {

namespace {

constexpr qint64 unlimited = std::numeric_limits<qint64>::max();

QByteArray contentOf(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Reads the limit in a file. "max" and a missing file mean that there is none.
qint64 limitIn(const QString &fileName)
{
    bool ok = false;
    const qint64 limit = contentOf(fileName).trimmed().toLongLong(&ok);
    return ok && limit > 0 ? limit : unlimited;
}

// Every group above has a limit of its own, and the smallest one counts. Inside a container the
// path may be one that exists only outside; the groups seen there begin with that of the container.
qint64 leastLimit(const QString &mount, QString group, const QString &fileName)
{
    qint64 least = limitIn(mount + QLatin1Char('/') + fileName);
    while (group.size() > 1) {
        least = std::min(least, limitIn(mount + group + QLatin1Char('/') + fileName));
        group.truncate(group.lastIndexOf(QLatin1Char('/')));
    }
    return least;
}

} // namespace

qint64 ofMachine()
{
    return qint64(sysconf(_SC_PHYS_PAGES)) * sysconf(_SC_PAGESIZE);
}

qint64 ofControlGroups(const QString &root)
{
    const QString mount = QDir(root).filePath(QStringLiteral("sys/fs/cgroup"));
    const QByteArray groups = contentOf(QDir(root).filePath(QStringLiteral("proc/self/cgroup")));
    qint64 least = unlimited;
    // Lines are "number:controllers:path". The line of version 2 names no controllers.
    for (const QByteArray &line : groups.split('\n')) {
        const QString controllers = QString::fromLocal8Bit(line).section(QLatin1Char(':'), 1, 1);
        const QString group = QString::fromLocal8Bit(line).section(QLatin1Char(':'), 2);
        if (line.startsWith("0::"))
            least = std::min(least, leastLimit(mount, group, QStringLiteral("memory.max")));
        else if (controllers.split(QLatin1Char(',')).contains(QLatin1String("memory")))
            least = std::min(least,
                             leastLimit(mount + QLatin1String("/memory"), group,
                                        QStringLiteral("memory.limit_in_bytes")));
    }
    return least;
}

} // namespace MemoryLimit
