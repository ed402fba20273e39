#include "archives.h"
#include "chunkmerge.h"
#include "chunkunpack.h"
#include "messages.h"
#include "savejob.h"
#include "storefixture.h"
#include "targets.h"

#include <QSet>

using namespace ChunkArchive;

namespace {

constexpr qint64 memoryLimit = 16 * 1024 * 1024;

WorkProgress always; // nobody cancels it

QString archiveFile(const QByteArray &bytes)
{
    return inputFile(QStringLiteral("input.zip"), bytes);
}

void mergeInto(Merged &all, const QString &zip)
{
    merge(zip, memoryLimit, always, all);
}

// An empty folder of its own to unpack into.
QDir emptyFolder()
{
    const QString path = workPath(QStringLiteral("unpacked"));
    QDir(path).removeRecursively();
    QDir().mkpath(path);
    return path;
}

void order(const QByteArray &bytes)
{
    const Zip::Reader archive(archiveFile(bytes));
    Damage::List damage;
    const std::vector<Chunk> chunks = chunksByStart(archive, always, damage);
    require(std::is_sorted(chunks.begin(), chunks.end(),
                           [](const Chunk &a, const Chunk &b) { return a.start < b.start; }),
            "chunks are in order");
}

void mergeArchive(const QByteArray &bytes)
{
    Merged all;
    mergeInto(all, archiveFile(bytes));
    require(qint64(sizeof(CAN::CanRxMessage)) * all.messages.size() <= memoryLimit,
            "memory is bounded");
}

void unpackArchive(const QByteArray &bytes)
{
    const QDir parent = emptyFolder();
    QSet<QString> names;
    const auto unpacked = [&](const QString &name, const QDir &folder, const QString &) {
        require(!names.contains(name) && folder.exists(name)
                    && QFileInfo(folder.path()).path() == parent.path(),
                "a chunk becomes a file of its own in the folder");
        names.insert(name);
    };
    QStringList damage;
    unpack(archiveFile(bytes), parent, always, unpacked, damage);
    const QStringList left =
        QDir(parent.filePath(QStringLiteral("input"))).entryList(QDir::Files | QDir::Hidden);
    require(left.size() == names.size(), "nothing else is left behind");
    require(
        QDir(parent.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size()
            <= 1,
        "nothing appears beside the folder");
}

QByteArray writtenChunk(const QString &name, const QVector<CAN::CanRxMessage> &messages,
                        const ReadChunk &maps)
{
    SaveJob job;
    job.fileName = workPath(name);
    for (const CAN::CanRxMessage &message : messages)
        job.messages.append(message);
    job.endPosition = quint32(messages.size());
    job.notes = maps.notes;
    job.bookmarks = maps.bookmarks;
    require(writeChunkFile(job).text.isEmpty(), "a chunk is written");
    return readFile(job.fileName);
}

// Whether \a merged has, of every number in a chunk's map, the value that comes last there.
template <typename Map> bool holdsLastOf(const Map &chunk, const Map &merged)
{
    const auto numbers = chunk.keys();
    return merged.size() <= chunk.size()
        && std::all_of(numbers.begin(), numbers.end(), [&](unsigned int number) {
               return merged.value(number) == chunk.value(number);
           });
}

// Whatever can be read as a chunk comes back out of an archive, behind another chunk.
void roundTrip(const QByteArray &bytes)
{
    ReadChunk chunk = streamedChunk(bytes);
    for (CAN::CanRxMessage &message : chunk.messages)
        message.seconds = qMax(message.seconds, 1);
    const QVector<CAN::CanRxMessage> first{makeMessage(500, 8)};
    const QString names[] = {QStringLiteral("later.dck"), QStringLiteral("first.dck")};
    const QByteArray contents[] = {writtenChunk(names[0], chunk.messages, chunk),
                                   writtenChunk(names[1], first, {})};
    const QString zip = workPath(QStringLiteral("packed.zip"));
    require(
        Zip::packFiles(zip, {QFileInfo(workPath(names[0])), QFileInfo(workPath(names[1]))}, always)
            .isDone(),
        "chunks are packed");
    if (!chunk.messages.isEmpty() && chunk.messages.first().microseconds >= 0) {
        Merged all;
        mergeInto(all, zip);
        require(holdsLastOf(chunk.notes, all.notes) && holdsLastOf(chunk.bookmarks, all.bookmarks),
                "maps come back");
        require(all.messages.size() == chunk.messages.size() + 1
                    && sameInChunk(all.messages.at(0), first.first()),
                "chunks are merged by their start");
        for (int i = 0; i < chunk.messages.size(); ++i)
            require(sameInChunk(all.messages.at(i + 1), chunk.messages.at(i)), "records come back");
    }
    int unpackedCount = 0;
    const auto unpacked = [&](const QString &name, const QDir &folder, const QString &) {
        const QByteArray content = readFile(folder.filePath(name));
        require(content == contents[name == names[0] ? 0 : 1], "chunks come back byte for byte");
        ++unpackedCount;
    };
    QStringList damage;
    unpack(zip, emptyFolder(), always, unpacked, damage);
    require(unpackedCount == 2, "all chunks come back");
}

} // namespace

std::vector<FuzzTarget> archiveTargets()
{
    return {{QStringLiteral("archiveorder"), order},
            {QStringLiteral("archivemerge"), mergeArchive},
            {QStringLiteral("archiveunpack"), unpackArchive},
            {QStringLiteral("archiveroundtrip"), roundTrip}};
}
