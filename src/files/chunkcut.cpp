#include "chunkcut.h"

#include "chunkformat.h"

#include <QFile>
#include <QFileInfo>

qint64 cutToWholeRecords(const QString &fileName)
{
    QFile file(fileName);
    if (!QFileInfo(fileName).isFile() || !file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly))
        return -1;
    QDataStream stream(&file);
    const quint32 version = ChunkFormat::readPreamble(stream).version;
    if (version > ChunkFormat::currentVersion)
        return -1;
    ChunkFormat::readMaps(stream, version);
    const qint64 start = file.pos();
    if (stream.status() != QDataStream::Ok)
        return 0;
    qint64 count = 0;
    CAN::CanRxMessage message;
    ChunkFormat::RecordReader records(file, version);
    while (records.next(message) && !records.lastIsCut())
        ++count;
    const bool cut = count == 0 || file.resize(start + records.wholeRecords());
    return cut && file.error() == QFileDevice::NoError ? count : -1;
}
