#include "chunkarchive.h"

#include "archivelimits.h"

#include <QDataStream>

#include <algorithm>
#include <cmath>

namespace ChunkArchive {

namespace {

// The header text of a chunk. Anything longer than the block is none.
QString peekTimeText(QIODevice &chunk)
{
    constexpr qint64 headerBlock = 4096;
    const QByteArray head = chunk.read(headerBlock);
    QDataStream stream(head);
    QString text;
    stream >> text;
    return text;
}

double startTime(const QString &timeText)
{
    const double start = timeText.section(QLatin1Char('-'), 0, 0).toDouble();
    // "nan" is a number to the conversion, and cannot be put in order.
    return std::isfinite(start) ? start : 0;
}

} // namespace

std::vector<Chunk> chunksByStart(const Zip::Reader &archive, const Zip::KeepGoing &keepGoing)
{
    std::vector<Chunk> chunks;
    for (const Zip::Entry &entry : archive.entries()) {
        if (!entry.name.endsWith(QLatin1String("dck")) || !ArchiveLimits::isSafeName(entry.name))
            continue;
        const auto content = keepGoing() ? archive.open(entry, keepGoing) : nullptr;
        if (!content)
            continue;
        const QString timeText = peekTimeText(*content);
        chunks.push_back({entry, timeText, startTime(timeText)});
    }
    std::stable_sort(chunks.begin(), chunks.end(),
                     [](const Chunk &a, const Chunk &b) { return a.start < b.start; });
    return chunks;
}

qint64 totalSize(const std::vector<Chunk> &chunks)
{
    qint64 total = 0;
    for (const Chunk &chunk : chunks)
        total += chunk.entry.size;
    return total;
}

bool isBomb(const Zip::Reader &archive, const std::vector<Chunk> &chunks)
{
    const auto inflatesTooMuch = [](const Chunk &chunk) {
        return ArchiveLimits::isBomb(chunk.entry.packedSize, chunk.entry.size);
    };
    // All together as well: entries may share their packed bytes.
    return std::any_of(chunks.begin(), chunks.end(), inflatesTooMuch)
        || ArchiveLimits::isBomb(archive.size(), totalSize(chunks));
}

Outcome tooLarge(const std::vector<Chunk> &chunks)
{
    return {Outcome::TooLarge, ArchiveLimits::messagesIn(totalSize(chunks)), {}};
}

} // namespace ChunkArchive
