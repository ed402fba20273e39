#include "recordedtrace.h"

#include "chunkdirectory.h"
#include "chunkremark.h"
#include "storetexts.h"

#include <QFileInfo>

#include <utility>

void RecordedTrace::rotated(const MessageList &messages, const SharedSaveJob &job)
{
    const MutexLock locker(mutex);
    const quint32 first = messages.value(0).messageNumber;
    all.push_back({first, job ? job->chunkIndex : 0, job != nullptr, job});
    // What is left of a job that is done need not be kept for it.
    for (; firstPending < all.size() && all[firstPending].job.expired(); ++firstPending)
        all[firstPending].job.reset();
}

void RecordedTrace::cleared()
{
    const MutexLock locker(mutex);
    all.clear();
    firstPending = 0;
    ++currentGeneration;
}

void RecordedTrace::detach()
{
    const MutexLock locker(storeMutex);
    trace = nullptr;
    saver = nullptr;
}

std::optional<RecordedTrace::State> RecordedTrace::state(quint32 generation, std::size_t known)
{
    const MutexLock storeLocker(storeMutex);
    if (!trace)
        return {};
    State now;
    now.live = trace->liveMessages([&] {
        const MutexLock locker(mutex);
        now.generation = currentGeneration;
        const std::size_t first = generation == currentGeneration ? known : 0;
        now.rotated.assign(all.begin() + std::ptrdiff_t(first), all.end());
    });
    now.liveMarks = trace->notes().live();
    return now;
}

QString RecordedTrace::chunkPath(quint32 chunkIndex)
{
    const MutexLock storeLocker(storeMutex);
    return saver ? saver->folder().chunkPath(chunkIndex) : QString();
}

Trace::Marked RecordedTrace::markLive(quint32 generation, const MarkChange &change)
{
    const MutexLock storeLocker(storeMutex);
    if (!trace)
        return Trace::Marked::NotLive;
    return trace->markLive(change, [&] {
        const MutexLock locker(mutex);
        return generation == currentGeneration;
    });
}

namespace {

ChunkIndex indexOf(const SaveJob &job)
{
    ChunkIndexer indexer(ChunkFormat::currentVersion, 0);
    for (int i = 0; i < job.messages.size(); ++i)
        indexer.add(MessageView(job.messages.at(i)));
    ChunkIndex index = indexer.finish();
    index.notes = quint32(job.notes.size());
    index.bookmarks = quint32(job.bookmarks.size());
    return index;
}

SharedSegment segmentOf(const std::shared_ptr<const ChunkBytes> &bytes)
{
    IndexedChunk chunk = bytes->index([] { return true; });
    if (chunk.result != Outcome::Done)
        return {};
    return std::make_shared<ChunkSegment>(bytes, std::move(chunk.index));
}

// The records of a chunk are what it held in memory, behind its header. Null where they are not.
SharedSegment movedInto(const std::shared_ptr<const ChunkBytes> &bytes,
                        const TraceSegment &inMemory, qint64 fileSize)
{
    ChunkIndex index = inMemory.index();
    index.moveBy(fileSize - index.recordsEnd);
    // Somebody may have changed its marks since.
    const ChunkFormat::Maps maps = bytes->maps();
    index.notes = quint32(maps.notes.size());
    index.bookmarks = quint32(maps.bookmarks.size());
    if (index.recordsStart < 0 || index.count == 0)
        return {};
    auto segment = std::make_shared<ChunkSegment>(bytes, std::move(index));
    TraceSegment::Messages messages;
    const bool isThere =
        segment->decode(0, messages) && segment->decode(segment->index().stepCount() - 1, messages);
    return isThere ? segment : nullptr;
}

QHash<QString, DirectoryEntry> directoryOf(const QString &folder)
{
    QHash<QString, DirectoryEntry> byName;
    for (DirectoryEntry &entry : ChunkDirectory::read(folder))
        byName[QString(entry.name)] = std::move(entry);
    return byName;
}

} // namespace

SharedSnapshot StoreSource::refresh()
{
    const MutexLock locker(mutex);
    const auto now = recorded->state(generation, dropped + parts.size());
    hasTrace = now.has_value();
    if (now && !isShown(*now))
        show(*now);
    return snapshot;
}

// A buffer that is still to be saved is looked at again, and whether the oldest is still there.
bool StoreSource::isShown(const RecordedTrace::State &state) const
{
    return generation == state.generation && state.rotated.empty()
        && std::all_of(parts.begin(), parts.end(), [](const Part &part) { return part.isFinal; })
        && (parts.empty() || QFile::exists(parts.front().fileName)) && areFilesUnchanged()
        && state.live.size() == liveIndexed
        && (liveIndexed == 0 || state.live.at(0).messageNumber == liveFirst)
        && state.liveMarks.notes == liveMarks.notes
        && state.liveMarks.bookmarks == liveMarks.bookmarks;
}

void StoreSource::show(const RecordedTrace::State &state)
{
    takeOver(state);
    dropGone();
    followFiles();
    auto now = std::make_shared<TraceSnapshot>();
    now->setEpoch(generation);
    const auto place = [&now](quint32 firstNumber, const SharedSegment &segment) {
        // Numbers and positions differ by whole rounds of the numbers.
        const quint32 gap = firstNumber - quint32(now->count());
        now->append(segment, gap);
    };
    Directory directory;
    for (Part &part : parts) {
        if (!part.isFinal)
            update(part, directory);
        if (part.segment)
            place(part.rotated.firstNumber, part.segment);
    }
    if (state.live.isEmpty())
        liveIndexed = 0;
    else
        place(state.live.at(0).messageNumber, liveSegment(state));
    liveMarks = state.liveMarks;
    snapshot = now;
}

namespace {

QString folderOf(const QString &chunk)
{
    return chunk.left(chunk.lastIndexOf(QLatin1Char('/')));
}

} // namespace

bool StoreSource::areFilesUnchanged() const
{
    return parts.empty()
        || (changesSeen == ChunkMarks::changeCount()
            && FileIdentity::ofAny(folderOf(parts.front().fileName)) == folderSeen);
}

// Where the marks of a chunk have changed, another file is in its place.
void StoreSource::followFiles()
{
    if (parts.empty() || areFilesUnchanged())
        return;
    changesSeen = ChunkMarks::changeCount();
    folderSeen = FileIdentity::ofAny(folderOf(parts.front().fileName)).value_or(FileIdentity());
    for (Part &part : parts) {
        if (!part.isFinal || !part.segment)
            continue;
        auto now = FileIdentity::of(part.fileName);
        if (!now || *now == part.identity)
            continue;
        if (const auto marked =
                remarkedSegment(part.fileName, *part.segment, part.identity, *now)) {
            part.segment = marked;
            part.identity = *now;
        }
    }
}

// The job of a buffer that waits for the disk; null where there is none.
SharedSaveJob StoreSource::jobAt(quint64 position)
{
    const MutexLock locker(mutex);
    const TraceSnapshot::Place place = snapshot->at(position);
    for (const Part &part : parts) {
        if (place.placed && part.segment == place.placed->segment)
            return part.rotated.job.lock();
    }
    return {};
}

bool StoreSource::changeInMemory(quint32 epoch, quint64 position, const MarkChange &change,
                                 QString &error)
{
    constexpr int patience = 60000;
    if (!hasTrace) {
        error = StoreTexts::tr("The recording has ended, and what was not saved of it is gone.");
        return true;
    }
    MarkChange ofMessage = change;
    ofMessage.number = quint32(position);
    switch (recorded->markLive(epoch, ofMessage)) {
    case Trace::Marked::Done:
        return true;
    case Trace::Marked::NoBookmarks:
        error = StoreTexts::tr("This recording keeps no bookmarks on messages in memory. Write a "
                               "note instead.");
        return true;
    case Trace::Marked::NotLive:
        break;
    }
    const SharedSaveJob job = jobAt(position);
    if (!job || job->waitForFinished(QDeadlineTimer(patience)))
        return false;
    error = StoreTexts::tr("The disk takes its time with the message. Try it again later.");
    return true;
}

void StoreSource::takeOver(const RecordedTrace::State &state)
{
    if (generation != state.generation) {
        parts.clear();
        dropped = 0;
        liveIndexed = 0;
    }
    generation = state.generation;
    for (const RecordedTrace::Rotated &rotated : state.rotated)
        parts.push_back({rotated, {}, {}, {}, !rotated.isSaved});
}

// A budget takes the oldest chunks, and a recording without an end must not keep their indexes.
void StoreSource::dropGone()
{
    while (!parts.empty() && parts.front().isFinal && !QFile::exists(parts.front().fileName)) {
        parts.pop_front();
        ++dropped;
    }
}

void StoreSource::update(Part &part, Directory &directory)
{
    const SharedSaveJob job = part.rotated.job.lock();
    if (job && !job->waitForFinished(QDeadlineTimer(0))) {
        if (!part.segment)
            part.segment = std::make_shared<ListSegment>(
                job->messages, indexOf(*job), TraceNotes::Marks{job->notes, job->bookmarks});
        return;
    }
    part.isFinal = true;
    const SharedSegment inMemory = std::move(part.segment);
    part.segment.reset();
    part.fileName = recorded->chunkPath(part.rotated.chunkIndex);
    const auto identity = FileIdentity::of(part.fileName);
    if (!identity)
        return;
    part.identity = *identity;
    const auto bytes = std::make_shared<ChunkFileBytes>(part.fileName, *identity);
    if (inMemory && (part.segment = movedInto(bytes, *inMemory, identity->size)))
        return;
    const QFileInfo file(part.fileName);
    if (!directory)
        directory = directoryOf(file.path());
    const auto entry = directory->constFind(file.fileName());
    part.segment = entry != directory->cend() && describes(*entry, *identity)
        ? std::make_shared<ChunkSegment>(bytes, entry->index)
        : segmentOf(bytes);
}

// The live list grows at its end; where it begins anew, so does its index.
SharedSegment StoreSource::liveSegment(const RecordedTrace::State &state)
{
    const quint32 first = state.live.at(0).messageNumber;
    if (liveIndexed == 0 || first != liveFirst || state.live.size() < liveIndexed) {
        liveIndexer = std::make_unique<ChunkIndexer>(ChunkFormat::currentVersion, 0);
        liveFirst = first;
        liveIndexed = 0;
    }
    for (; liveIndexed < state.live.size(); ++liveIndexed)
        liveIndexer->add(MessageView(state.live.at(liveIndexed)));
    ChunkIndex index = liveIndexer->soFar();
    index.notes = quint32(state.liveMarks.notes.size());
    index.bookmarks = quint32(state.liveMarks.bookmarks.size());
    return std::make_shared<ListSegment>(state.live, std::move(index), state.liveMarks);
}
