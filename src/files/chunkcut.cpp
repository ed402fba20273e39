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
    const ChunkReading::Bounds bounds{ArchiveLimits::memoryLimit(), [] { return true; }};
    const ChunkReading::WholeRecords whole = ChunkReading::findWholeRecords(file, bounds);
    if (whole.result != Outcome::Done)
        return -1;
    // Setting the size that it has would give the file another time of change.
    const bool cut = whole.count == 0 || whole.end == file.size() || file.resize(whole.end);
    return cut && file.error() == QFileDevice::NoError ? whole.count : -1;
}
