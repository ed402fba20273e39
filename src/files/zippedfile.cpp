#include "zippedfile.h"

#include "archivelimits.h"
#include "chunkarchive.h"
#include "chunknames.h"

#include <algorithm>

ZippedFile::ZippedFile(const QString &archiveName)
    : archive(archiveName),
      found(ChunkArchive::checkDirectory(archive).isDone() ? findIn(archive.entries()) : Other)
{
}

ZippedFile::~ZippedFile() = default;

ZippedFile::Kind ZippedFile::findIn(const std::vector<Zip::Entry> &entries)
{
    const auto isChunk = [](const Zip::Entry &one) { return isChunkName(one.name); };
    const auto isFile = [](const Zip::Entry &one) { return !one.name.endsWith(QLatin1Char('/')); };
    if (std::any_of(entries.begin(), entries.end(), isChunk))
        return Other;
    const auto files = std::count_if(entries.begin(), entries.end(), isFile);
    if (files == 1)
        entry = *std::find_if(entries.begin(), entries.end(), isFile);
    return files == 0 ? Other : files == 1 ? One : Several;
}

bool ZippedFile::open()
{
    error.clear();
    content.reset(); // one entry may be open at a time
    content = archive.open(entry, always);
    return content != nullptr;
}

bool ZippedFile::isBomb() const
{
    return ArchiveLimits::isBomb(entry.packedSize, entry.size);
}

qint64 ZippedFile::read(char *data, qint64 maxSize)
{
    const qint64 got = content->read(data, maxSize);
    if (got < 0)
        error = damaged();
    return got;
}
