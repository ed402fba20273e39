#include "archives.h"

#include "messages.h"
#include "storefixture.h"
#include "ziparchive.h"

#include <quazip.h>
#include <quazipfile.h>
#include <quazipnewinfo.h>

#include <QTemporaryDir>
#include <QtEndian>

#include <utility>

namespace {

// An entry of the archive's directory begins with the first of these, and what ends the archive
// with the second. Their fields lie at fixed distances.
const QByteArray directoryMark("PK\x01\x02");
const QByteArray endMark("PK\x05\x06");
constexpr int claimedSizeOffset = 24;
constexpr int attributesOffset = 38;
constexpr int entryCountOffsets[] = {8, 10};
constexpr int directorySizeOffset = 12;

QByteArray withField(QByteArray archive, int offset, quint32 value)
{
    qToLittleEndian(value, archive.data() + archive.indexOf(directoryMark) + offset);
    return archive;
}

} // namespace

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

QByteArray archiveOf(const QVector<TestEntry> &entries)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.zip"));
    writeArchive(path, entries);
    return readFile(path);
}

QByteArray withClaimedSize(QByteArray archive, quint32 size)
{
    return withField(std::move(archive), claimedSizeOffset, size);
}

QByteArray withLink(QByteArray archive)
{
    constexpr quint32 mode = 0120777;
    return withField(std::move(archive), attributesOffset, mode << 16);
}

QByteArray withClaimedEntries(QByteArray archive, quint16 count)
{
    for (const int offset : entryCountOffsets)
        qToLittleEndian(count, archive.data() + archive.lastIndexOf(endMark) + offset);
    return archive;
}

QByteArray withManyClaimedEntries(QByteArray archive, quint64 count)
{
    constexpr quint64 sizeOfRest = 44;
    const int end = archive.lastIndexOf(endMark);
    const int start = archive.indexOf(directoryMark);
    QByteArray records;
    QDataStream stream(&records, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.writeRawData("PK\x06\x06", 4);
    stream << sizeOfRest << quint32(0) << quint32(0) << quint32(0) << count << count
           << quint64(end - start) << quint64(start);
    stream.writeRawData("PK\x06\x07", 4);
    stream << quint32(0) << quint64(end) << quint32(1);
    return archive.insert(end, records);
}

// The one entry of an archive as often as told.
QByteArray withRepeatedEntry(const QByteArray &archive, int count)
{
    const int start = archive.indexOf(directoryMark);
    const QByteArray entry = archive.mid(start, archive.lastIndexOf(endMark) - start);
    QByteArray end = archive.mid(start + entry.size());
    qToLittleEndian(quint32(entry.size() * count), end.data() + directorySizeOffset);
    return withClaimedEntries(archive.left(start) + entry.repeated(count) + end, quint16(count));
}

QVector<TestEntry> archiveEntries(const QString &fileName)
{
    QVector<TestEntry> entries;
    const Zip::Reader archive(fileName);
    for (const Zip::Entry &entry : archive.entries()) {
        WorkProgress work;
        const auto device = archive.open(entry, work);
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
