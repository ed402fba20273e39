#include "archives.h"

#include "messages.h"
#include "ziparchive.h"

#include <quazip.h>
#include <quazipfile.h>
#include <quazipnewinfo.h>

bool writeArchive(const QString &fileName, const QVector<TestEntry> &entries)
{
    QuaZip zip(fileName);
    bool good = zip.open(QuaZip::mdCreate);
    for (const TestEntry &entry : entries) {
        QuaZipFile file(&zip);
        const int method = entry.stored ? 0 : Z_DEFLATED;
        good &= file.open(QIODevice::WriteOnly, QuaZipNewInfo(entry.name), nullptr, 0, method)
            && file.write(entry.content) == entry.content.size();
        file.close();
    }
    zip.close();
    return good && zip.getZipError() == 0;
}

QVector<TestEntry> archiveEntries(const QString &fileName)
{
    QVector<TestEntry> entries;
    const Zip::Reader archive(fileName);
    for (const Zip::Entry &entry : archive.entries()) {
        const auto device = archive.open(entry, [] { return true; });
        const QByteArray content = device ? device->readAll() : QByteArray();
        const bool isWhole = content.size() == entry.size && !device->isDamaged();
        entries.append({entry.name, isWhole ? content : QByteArray()});
    }
    return entries;
}

QByteArray chunkBytes(const QString &start, quint32 first, int count,
                      const ChunkFormat::Notes &notes, const ChunkFormat::Bookmarks &bookmarks)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    ChunkFormat::writeHeader(stream, start + QStringLiteral(" - 99.000000"), notes, bookmarks);
    for (quint32 number = first; number < first + quint32(count); ++number)
        ChunkFormat::writeRecord(stream, makeMessage(number, 8), ChunkFormat::currentVersion);
    return bytes;
}

QByteArray newerChunkBytes()
{
    QByteArray bytes = chunkBytes(QStringLiteral("1.0"), 0, 3);
    bytes[bytes.indexOf(QByteArray::fromHex("003100300034")) + 5] = '5';
    return bytes;
}
