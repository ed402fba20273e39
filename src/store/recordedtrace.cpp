#include "recordedtrace.h"

#include "chunkdirectory.h"

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
        && (parts.empty() || QFile::exists(parts.front().fileName))
        && state.live.size() == liveIndexed
        && (liveIndexed == 0 || state.live.at(0).messageNumber == liveFirst)
        && state.liveMarks.notes == liveMarks.notes
        && state.liveMarks.bookmarks == liveMarks.bookmarks;
}

void StoreSource::show(const RecordedTrace::State &state)
{
    takeOver(state);
    dropGone();
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

void StoreSource::takeOver(const RecordedTrace::State &state)
{
    if (generation != state.generation) {
        parts.clear();
        dropped = 0;
        liveIndexed = 0;
    }
    generation = state.generation;
    for (const RecordedTrace::Rotated &rotated : state.rotated)
        parts.push_back({rotated, {}, {}, !rotated.isSaved});
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
