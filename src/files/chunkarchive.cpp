#include "chunkarchive.h"

#include "archivelimits.h"
#include "chunkformat.h"
#include "chunknames.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace ChunkArchive {

namespace {

// Reads the header text of a chunk. A header longer than the block counts as unreadable.
Chunk readHeader(const Zip::Entry &entry, QIODevice &content)
{
    constexpr qint64 headerBlock = 4096;
    const QByteArray head = content.read(headerBlock);
    ChunkFormat::Stream stream(head);
    Chunk chunk{entry, {}, std::numeric_limits<double>::infinity()};
    stream >> chunk.timeText;
    if (stream.status() != QDataStream::Ok)
        return chunk;
    const double start = chunk.timeText.section(QLatin1Char('-'), 0, 0).toDouble();
    // The conversion accepts "nan", which cannot be put in order.
    chunk.start = std::isfinite(start) ? start : 0;
    return chunk;
}

QString nameOf(const Zip::Reader &archive, const Chunk &chunk)
{
    return Damage::entryName(chunk.entry.name, archive.fileName());
}

/// Unpacks chunks just to see whether they are damaged.
class Checker
{
public:
    Checker(const Zip::Reader &archive, WorkProgress &work) : archive(archive), work(work) { }

    /// The text about the damage for the user; empty when there is none.
    QString damageIn(const Chunk &chunk);

private:
    const Zip::Reader &archive;
    WorkProgress &work;
    qint64 unpacked = 0;
};

QString Checker::damageIn(const Chunk &chunk)
{
    // Entries may share their packed bytes, so that reading damaged ones adds up without bound.
    unpacked += chunk.entry.size;
    if (ArchiveLimits::isBomb(archive.size(), unpacked))
        return {};
    const auto content = archive.open(chunk.entry, work);
    if (!content)
        return Damage::notOpened(nameOf(archive, chunk));
    QByteArray block(64 * 1024, Qt::Uninitialized);
    while (content->read(block.data(), block.size()) > 0) { }
    return content->isDamaged() ? damageOf(archive, chunk, *content, Damage::messagesRead(0))
                                : QString();
}

using Position = std::vector<Chunk>::const_iterator;

// Picks the last undamaged one of the chunks with equal starts. If all are damaged it picks the
// last one; whoever reads that one reports the damage.
Position lastWhole(Position begin, Position end, Checker &checker, Damage::List &damage)
{
    if (end - begin == 1)
        return begin;
    QStringList told;
    Position chosen = end;
    for (Position chunk = end; chunk != begin && chosen == end;) {
        const QString damageInChunk = checker.damageIn(*--chunk);
        if (damageInChunk.isEmpty())
            chosen = chunk;
        else
            told.append(damageInChunk);
    }
    if (chosen == end) {
        chosen = end - 1;
        told.removeFirst();
    }
    for (const QString &sentence : qAsConst(told))
        damage.add(sentence);
    return chosen;
}

} // namespace

bool Chunk::hasHeader() const
{
    return std::isfinite(start);
}

std::vector<Chunk> chunksByStart(const Zip::Reader &archive, WorkProgress &work,
                                 Damage::List &damage)
{
    std::vector<Chunk> chunks;
    if (!checkDirectory(archive).isDone())
        return chunks;
    const std::vector<Zip::Entry> entries = archive.entries();
    for (const Zip::Entry &entry : entries) {
        if (!isChunkName(entry.name))
            continue;
        if (!work.goesOn())
            return {};
        if (const auto content = archive.open(entry, work))
            chunks.push_back(readHeader(entry, *content));
        else
            damage.add(Damage::notOpened(Damage::entryName(entry.name, archive.fileName())));
    }
    if (entries.size() < archive.entryCount())
        damage.add(Damage::brokenDirectory(archive.fileName(), qint64(entries.size())));
    std::stable_sort(chunks.begin(), chunks.end(),
                     [](const Chunk &a, const Chunk &b) { return a.start < b.start; });
    return chunks;
}

std::vector<Chunk> lastOfEachStart(const Zip::Reader &archive, const std::vector<Chunk> &chunks,
                                   WorkProgress &work, Damage::List &damage)
{
    Checker checker(archive, work);
    std::vector<Chunk> kept;
    for (Position begin = chunks.begin(); begin != chunks.end();) {
        const Position end = std::find_if(begin + 1, chunks.end(), [begin](const Chunk &chunk) {
            return !chunk.hasHeader() || chunk.start != begin->start;
        });
        kept.push_back(*lastWhole(begin, end, checker, damage));
        begin = end;
    }
    if (kept.size() < chunks.size())
        damage.add(Damage::equalStarts(archive.fileName(), qint64(chunks.size() - kept.size())));
    return kept;
}

QString damageOf(const Zip::Reader &archive, const Chunk &chunk, const Zip::EntryDevice &content,
                 const QString &kept)
{
    return content.isWhole()
        ? Damage::wrongChecksum(nameOf(archive, chunk), kept)
        : Damage::notUnpackedBehind(nameOf(archive, chunk), content.unpackedSize(), kept);
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
    // The sum is checked as well, because entries may share their packed bytes.
    return std::any_of(chunks.begin(), chunks.end(), inflatesTooMuch)
        || ArchiveLimits::isBomb(archive.size(), totalSize(chunks));
}

Outcome tooLarge(const std::vector<Chunk> &chunks)
{
    return {Outcome::TooLarge, {}, ArchiveLimits::messagesIn(totalSize(chunks))};
}

Outcome checkDirectory(const Zip::Reader &archive)
{
    if (!archive.isOpen())
        return Outcome::notOpened(archive.readErrorText());
    if (archive.entryCount() > ArchiveLimits::maxEntries)
        return {Outcome::TooLarge, Damage::tooManyEntries(archive.fileName()), 0};
    return {};
}

} // namespace ChunkArchive
