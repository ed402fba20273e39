#include "archivelimits.h"

#include "chunknames.h"
#include "filenames.h"
#include "memorylimit.h"

#include <QFile>

#include <algorithm>
#include <limits>

namespace ArchiveLimits {

bool isSafeName(const QString &name)
{
    if (name.isEmpty() || name == QLatin1String(".") || name == QLatin1String(".."))
        return false;
    const auto isForbidden = [](QChar c) {
        return c == QLatin1Char('/') || c == QLatin1Char('\\') || c.isNull();
    };
    return std::none_of(name.begin(), name.end(), isForbidden)
        && QFile::encodeName(name).size() <= FileNames::longest;
}

QString archiveName(const QString &zipName)
{
    return zipName.section(QLatin1Char('/'), -1).remove(QLatin1String(".zip"));
}

QString folderName(const QString &archiveName)
{
    const bool usable = isSafeName(archiveName) && !isChunkName(archiveName);
    return usable ? archiveName : QStringLiteral("archive");
}

qint64 mostUnpacked(qint64 packedSize)
{
    constexpr qint64 harmlessSize = 64LL * 1024 * 1024;
    constexpr qint64 maxRatio = 1000;
    return std::max(harmlessSize, maxRatio * packedSize);
}

bool isBomb(qint64 packedSize, qint64 size)
{
    return size > mostUnpacked(packedSize);
}

qint64 memoryLimit()
{
    return std::min(MemoryLimit::ofMachine(), MemoryLimit::ofControlGroups(QStringLiteral("/")))
        / 2;
}

quint32 messagesIn(qint64 bytes)
{
    constexpr qint64 smallestRecord = 23;
    return quint32(std::min<qint64>(bytes / smallestRecord, std::numeric_limits<quint32>::max()));
}

} // namespace ArchiveLimits
