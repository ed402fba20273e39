#include "filesource.h"

#include "archivelimits.h"
#include "chunkdirectory.h"
#include "chunkremark.h"
#include "fileerrors.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <map>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(TraceTimeline)
};

QString problemOf(const QString &name, const IndexedChunk &chunk)
{
    if (!chunk.damage.isEmpty())
        return chunk.damage;
    switch (chunk.result) {
    case Outcome::Done:
        // An empty file is a chunk of nothing.
        if (chunk.front.size == 0)
            return {};
        return Damage::ofChunk(name, chunk.front, chunk.end, chunk.index.count);
    case Outcome::NewerVersion:
        return Texts::tr(
                   "The chunk %1 was created with a newer version of this tool; nothing of it is "
                   "shown.")
            .arg(name);
    case Outcome::TooLarge:
        return FileErrors::outOfMemory(name);
    default:
        return Texts::tr("The chunk %1 is no longer there.").arg(name);
    }
}

// Of the first record. Where there is none the chunk comes first and has nothing to show.
qint64 firstTimeOf(const ChunkBytes &bytes)
{
    qint64 time = std::numeric_limits<qint64>::min();
    const auto goesOn = [] { return true; };
    const auto read = [&](QIODevice &device) {
        ChunkReading::Front front;
        const ChunkReading::Bounds bounds{ArchiveLimits::memoryLimit(), goesOn};
        if (ChunkReading::readFront(device, ChunkFormat::BookmarkMap::Read, bounds, front)
            != Outcome::Done)
            return;
        CAN::CanRxMessage message;
        if (ChunkFormat::RecordReader(device, front.preamble.version).next(message))
            time = MessageView(message).time();
    };
    withinMemory([&] { bytes.readWith(read, goesOn); });
    return time;
}

// Chunks are known by names that do not end in two slashes.
QStringList cleaned(QStringList paths)
{
    for (QString &path : paths)
        path = QDir::cleanPath(path);
    return paths;
}

} // namespace

FileSource::FileSource(const QStringList &paths)
    : paths(cleaned(paths)), snapshot(std::make_shared<TraceSnapshot>()),
      readers([this] { readMissing(); })
{
    refresh();
}

FileSource::~FileSource()
{
    stopping = true;
}

bool FileSource::isComplete() const
{
    const MutexLock locker(mutex);
    return complete;
}

QStringList FileSource::problems() const
{
    const MutexLock locker(mutex);
    return told;
}

SharedSnapshot FileSource::refresh()
{
    {
        const MutexLock workLocker(workMutex);
        if (!isUnchanged()) {
            look();
            sortIntoRuns();
            publish();
        }
    }
    if (!isComplete() && !readers.wake())
        readMissing();
    const MutexLock locker(mutex);
    return snapshot;
}

// A file that comes or goes changes its folder; of the others only the last of a run may grow.
bool FileSource::isUnchanged()
{
    const auto isSame = [](const QString &path, const FileIdentity &before) {
        const auto now = FileIdentity::ofAny(path);
        return now && *now == before;
    };
    if (looked.isEmpty() || changesSeen != ChunkMarks::changeCount())
        return false;
    for (auto entry = looked.cbegin(); entry != looked.cend(); ++entry) {
        if (!isSame(entry.key(), *entry))
            return false;
    }
    for (const Run &run : runs) {
        const Chunk &last = known[run.chunks.back()];
        if (!last.isGone && !last.path.isEmpty() && !isSame(last.path, last.identity))
            return false;
    }
    return true;
}

void FileSource::look()
{
    looked.clear();
    changesSeen = ChunkMarks::changeCount();
    for (Chunk &chunk : known)
        chunk.isGone = true;
    QSet<QString> foldersOfFiles; // with the slash behind
    for (const QString &path : paths) {
        const QFileInfo info(path);
        if (info.isDir()) {
            lookAtFolder(path);
        } else if (ChunkListing::isArchive(path)) {
            lookAtArchive(path);
        } else {
            lookAtFile(path);
            const QString folder = path.left(path.lastIndexOf(QLatin1Char('/')) + 1);
            if (!known[path].isRead)
                foldersOfFiles.insert(folder);
            // Somebody may put another file in the place of any of them.
            const QString entered = folder.isEmpty() ? QStringLiteral(".") : folder;
            remember(entered, FileIdentity::ofAny(entered));
        }
    }
    for (const QString &folder : qAsConst(foldersOfFiles))
        readDirectory(folder);
}

// One that may change again within the tick is looked at again: no file is as the one without rest.
void FileSource::remember(const QString &path, const std::optional<FileIdentity> &identity)
{
    constexpr qint64 nanosecondsOfTick = 20000000;
    if (identity)
        looked.insert(path, identity->hasRested(nanosecondsOfTick) ? *identity : FileIdentity());
}

void FileSource::lookAtFolder(const QString &path)
{
    remember(path, FileIdentity::ofAny(path));
    const QStringList files = ChunkListing::filesIn(path);
    bool isAnyMissing = false;
    for (const QString &file : files) {
        lookAtFile(file);
        Chunk &chunk = known[file];
        chunk.isOfFolder = true;
        isAnyMissing = isAnyMissing || !chunk.isRead;
    }
    if (isAnyMissing)
        readDirectory(path + QLatin1Char('/'));
}

// Of a folder whose name ends in a slash, or has none for the current one.
void FileSource::readDirectory(const QString &folder)
{
    for (DirectoryEntry &entry :
         ChunkDirectory::read(folder.isEmpty() ? QStringLiteral(".") : folder)) {
        const auto chunk = known.find(folder + entry.name);
        if (chunk == known.end() || chunk->isRead || !describes(entry, chunk->identity))
            continue;
        chunk->isRead = true;
        pool.share(entry.index.keys);
        chunk->segment = std::make_shared<ChunkSegment>(chunk->bytes, std::move(entry.index));
    }
}

void FileSource::lookAtFile(const QString &path)
{
    const auto identity = FileIdentity::of(path);
    if (!identity) {
        Chunk missing;
        missing.place.run = path;
        missing.isRead = true;
        missing.problem = Texts::tr("There is no chunk file %1.").arg(path);
        if (!known.contains(path))
            add(path, missing);
        return;
    }
    Chunk chunk;
    chunk.place = ChunkListing::placeOf(path);
    chunk.path = path;
    chunk.identity = *identity;
    chunk.bytes = std::make_shared<ChunkFileBytes>(path, *identity);
    add(path, chunk);
}

void FileSource::lookAtArchive(const QString &path)
{
    const auto identity = FileIdentity::of(path);
    if (identity)
        looked.insert(path, *identity);
    const QString ofArchive = path + QLatin1Char('/');
    const auto before = known.find(ofArchive);
    const bool isSame = before != known.end() && identity && before->identity == *identity;
    const auto archive = isSame ? before->archive : std::make_shared<ArchiveChunks>(path);
    // What is to be told of the archive stands with a chunk that has nothing to show.
    Chunk whole;
    whole.place.run = path;
    whole.archive = archive;
    whole.isRead = true;
    whole.problem = archive->problem();
    if (identity)
        whole.identity = *identity;
    add(ofArchive, whole);
    for (std::size_t i = 0; i < archive->chunks().size(); ++i) {
        Chunk chunk;
        chunk.place = {ofArchive, i};
        chunk.identity = whole.identity;
        chunk.bytes = std::make_shared<ArchiveChunkBytes>(archive, i);
        add(ofArchive + QString::number(i), chunk);
    }
}

// One that is known in this state stays as it is.
void FileSource::add(const QString &name, Chunk chunk)
{
    const auto before = known.find(name);
    if (before != known.end() && before->identity == chunk.identity) {
        before->isGone = false;
        return;
    }
    chunk.lineage = ++lastLineage;
    // What a file held before it grew is shown until it is read again.
    if (before != known.end() && takeOverMarked(*before, chunk))
        chunk.lineage = before->lineage;
    else if (before != known.end() && isGoneAgain(chunk))
        return;
    else if (before != known.end() && before->identity.inode == chunk.identity.inode
             && before->identity.size < chunk.identity.size) {
        chunk.segment = before->segment;
        chunk.lineage = before->lineage;
    }
    known.insert(name, chunk);
}

// One that has gone since it was found keeps its place.
bool FileSource::isGoneAgain(const Chunk &chunk)
{
    return !chunk.path.isEmpty() && !FileIdentity::of(chunk.path);
}

// A chunk of which only notes and bookmarks have changed need not be read again.
bool FileSource::takeOverMarked(const Chunk &before, Chunk &chunk)
{
    if (!before.isRead || !before.segment || chunk.path.isEmpty())
        return false;
    chunk.segment = remarkedSegment(chunk.path, *before.segment, before.identity, chunk.identity);
    chunk.isRead = chunk.segment != nullptr;
    chunk.problem = before.problem;
    return chunk.isRead;
}

void FileSource::sortIntoRuns()
{
    std::map<QString, std::map<ChunkListing::Place, QString>> byRun;
    for (auto chunk = known.begin(); chunk != known.end(); ++chunk)
        byRun[chunk->place.run].emplace(chunk->place, chunk.key());
    runs.clear();
    for (const auto &run : byRun) {
        Run sorted;
        for (const auto &chunk : run.second)
            sorted.chunks.push_back(chunk.second);
        const Chunk &first = known[sorted.chunks.front()];
        if (byRun.size() > 1 && first.bytes)
            sorted.firstTime =
                first.segment ? first.segment->index().firstTime : firstTimeOf(*first.bytes);
        runs.push_back(std::move(sorted));
    }
    std::stable_sort(runs.begin(), runs.end(),
                     [](const Run &a, const Run &b) { return a.firstTime < b.firstTime; });
    missing.clear();
    for (const Run &run : runs) {
        for (const QString &name : run.chunks) {
            const Chunk &chunk = known[name];
            if (!chunk.isRead && !chunk.isTaken)
                missing.push_back(name);
        }
    }
}

std::optional<FileSource::Task> FileSource::nextMissing()
{
    const MutexLock locker(workMutex);
    if (missing.empty() || stopping)
        return {};
    Chunk &chunk = known[missing.front()];
    chunk.isTaken = true;
    Task task{missing.front(), chunk.bytes};
    missing.pop_front();
    return task;
}

void FileSource::readMissing()
{
    while (const auto task = nextMissing()) {
        IndexedChunk indexed = task->bytes->index([this] { return !stopping.load(); });
        if (indexed.result != Outcome::GivenUp)
            take(*task, std::move(indexed));
    }
}

void FileSource::take(const Task &task, IndexedChunk indexed)
{
    constexpr int millisecondsBetweenPublications = 20;
    const MutexLock locker(workMutex);
    Chunk &chunk = known[task.chunk];
    // It may have been found in another state meanwhile.
    if (chunk.bytes != task.bytes)
        return;
    chunk.isTaken = false;
    chunk.isRead = true;
    chunk.problem = problemOf(task.bytes->name(), indexed);
    chunk.segment.reset();
    if (indexed.result == Outcome::Done) {
        pool.share(indexed.index.keys);
        chunk.segment = std::make_shared<ChunkSegment>(task.bytes, std::move(indexed.index));
        // A damaged one is read again, so that its damage is told again.
        if (chunk.isOfFolder && chunk.problem.isEmpty())
            keepInDirectory(chunk);
    }
    if (!missing.empty() && !nextPublication.hasExpired())
        return;
    publish();
    nextPublication.setRemainingTime(millisecondsBetweenPublications);
}

// A chunk that somebody writes to is not: two writes within one tick of the clock look the same.
void FileSource::keepInDirectory(const Chunk &chunk)
{
    constexpr qint64 nanosecondsOfRest = 2000000000;
    if (!chunk.identity.hasRested(nanosecondsOfRest))
        return;
    const QFileInfo file(chunk.path);
    ChunkDirectory::add(file.path(), {file.fileName(), chunk.identity, chunk.segment->index()});
}

// Everything in front of the first chunk that is not read.
void FileSource::publish()
{
    auto now = std::make_shared<TraceSnapshot>();
    QStringList problems;
    bool isWhole = true;
    std::vector<std::pair<quint64, quint64>> places;
    for (const Run &run : runs) {
        for (const QString &name : run.chunks) {
            const Chunk &chunk = known[name];
            if (!chunk.problem.isEmpty())
                problems.append(chunk.problem);
            if (isWhole && chunk.segment && chunk.segment->count() > 0) {
                places.emplace_back(chunk.lineage, now->count());
                now->append(chunk.segment);
            }
            isWhole = isWhole && chunk.isRead;
        }
    }
    // Positions stay as long as chunks only come behind the others and only the last one grows.
    const bool isLonger = places.size() >= published.size()
        && std::equal(published.begin(), published.end(), places.begin());
    epoch += isLonger ? 0 : 1;
    published = std::move(places);
    now->setEpoch(epoch);
    const MutexLock locker(mutex);
    snapshot = now;
    told = problems;
    complete = isWhole;
}
