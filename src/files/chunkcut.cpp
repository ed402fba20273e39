#include "chunkcut.h"

#include "archivelimits.h"
#include "chunkreading.h"

#include <QFile>
#include <QFileInfo>

qint64 cutToWholeRecords(const QString &fileName)
{
    QFile file(fileName);
    if (!QFileInfo(fileName).isFile() || !file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly))
        return -1;
    ChunkReading::Front front;
    const ChunkReading::Bounds bounds{ArchiveLimits::memoryLimit(), [] { return true; }};
    if (ChunkReading::readFront(file, ChunkFormat::BookmarkMap::Read, bounds, front)
        != Outcome::Done)
        return -1;
    if (front.headerIsDamaged || front.mapsAreDamaged)
        return 0;
    qint64 count = 0;
    CAN::CanRxMessage message;
    ChunkFormat::RecordReader records(file, front.preamble.version);
    while (records.next(message) && records.end().cause != ChunkFormat::RecordsEnd::Cut)
        ++count;
    const bool cut = count == 0 || file.resize(front.size + records.end().offset);
    return cut && file.error() == QFileDevice::NoError ? count : -1;
}
