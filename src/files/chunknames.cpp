#include "chunknames.h"

namespace ChunkNames {

QString rotatedTemplate()
{
    return QLatin1String(rotatedMark) + QLatin1String("%1") + QLatin1String(suffix);
}

QString rotated(qint64 number)
{
    return rotatedTemplate().arg(number);
}

qint64 rotatedNumber(const QString &name)
{
    const QLatin1String prefix(rotatedMark);
    const QLatin1String ending(suffix);
    if (!name.startsWith(prefix) || !name.endsWith(ending))
        return -1;
    const int digits = name.size() - prefix.size() - ending.size();
    bool ok = false;
    const uint number = QStringView(name).mid(prefix.size(), digits).toUInt(&ok);
    return ok ? qint64(number) : -1;
}

QString part(const QString &base, quint32 number)
{
    return base + QLatin1Char('_') + QString::number(number) + QLatin1String(suffix);
}

QString last()
{
    return QLatin1String("zlastChunk") + QLatin1String(suffix);
}

} // namespace ChunkNames

bool isChunkName(const QString &fileName)
{
    return fileName.endsWith(QLatin1String("dck"));
}
