#include "recordedtrace.h"

#include "chunkdirectory.h"

#include <QFileInfo>

#include <utility>

void RecordedTrace::rotated(const MessageList &messages, const SharedSaveJob &job)
{
    const MutexLock locker(mutex);
    all.push_back({messages.value(0).messageNumber, quint32(messages.size()),
                   job ? job->fileName : QString(), job});
}

void RecordedTrace::cleared()
{
    const MutexLock locker(mutex);
    all.clear();
    ++generation;
}

void RecordedTrace::detach()
{
    const MutexLock locker(traceMutex);
    trace = nullptr;
}

std::optional<RecordedTrace::State> RecordedTrace::state()
{
    const MutexLock traceLocker(traceMutex);
    if (!trace)
        return {};
    State now;
    now.live = trace->liveMessages([&] {
        const MutexLock locker(mutex);
        now.rotated = all;
        now.generation = generation;
    });
    now.liveNotes = trace->notes().live().notes;
    return now;
}

namespace {

ChunkIndex indexOf(const MessageList &messages)
{
    ChunkIndexer indexer(ChunkFormat::currentVersion, 0);
    for (int i = 0; i < messages.size(); ++i)
        indexer.add(MessageView(messages.at(i)));
    return indexer.finish();
}

SharedSegment segmentOf(const std::shared_ptr<const ChunkBytes> &bytes)
{
    IndexedChunk chunk = bytes->index([] { return true; });
    if (chunk.result != Outcome::Done)
        return {};
    return std::make_shared<ChunkSegment>(bytes, std::move(chunk.index));
}

} // namespace

SharedSnapshot StoreSource::refresh()
{
    const MutexLock locker(mutex);
    const auto now = recorded->state();
    hasTrace = now.has_value();
    if (now && !isShown(*now))
        show(*now);
    return snapshot;
}

// A buffer that is still to be saved is looked at again.
bool StoreSource::isShown(const RecordedTrace::State &state) const
{
    return generation == state.generation && parts.size() == state.rotated.size()
        && std::all_of(parts.begin(), parts.end(), [](const Part &part) { return part.isFinal; })
        && state.live.size() == liveIndexed
        && (liveIndexed == 0 || state.live.at(0).messageNumber == liveFirst)
        && state.liveNotes == liveNotes;
}

void StoreSource::show(const RecordedTrace::State &state)
{
    if (generation != state.generation) {
        parts.clear();
        liveIndexed = 0;
    }
    generation = state.generation;
    parts.resize(state.rotated.size());
    auto now = std::make_shared<TraceSnapshot>();
    now->setEpoch(generation);
    const auto place = [&now](quint32 firstNumber, const SharedSegment &segment) {
        // Numbers and positions differ by whole rounds of the numbers.
        const quint32 gap = firstNumber - quint32(now->count());
        now->append(segment, gap);
    };
    Directory directory;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        update(parts[i], state.rotated[i], directory);
        if (parts[i].segment)
            place(state.rotated[i].firstNumber, parts[i].segment);
    }
    if (state.live.isEmpty())
        liveIndexed = 0;
    else
        place(state.live.at(0).messageNumber, liveSegment(state));
    liveNotes = state.liveNotes;
    snapshot = now;
}

void StoreSource::update(Part &part, const RecordedTrace::Rotated &rotated, Directory &directory)
{
    if (part.isFinal)
        return;
    const SharedSaveJob job = rotated.job.lock();
    if (job && !job->waitForFinished(QDeadlineTimer(0))) {
        if (!part.segment)
            part.segment =
                std::make_shared<ListSegment>(job->messages, indexOf(job->messages),
                                              TraceNotes::Marks{job->notes, job->bookmarks});
        return;
    }
    part.isFinal = true;
    const auto identity = FileIdentity::of(rotated.fileName);
    if (!identity)
        return;
    const auto bytes = std::make_shared<ChunkFileBytes>(rotated.fileName, *identity);
    if (!directory)
        directory = ChunkDirectory::read(QFileInfo(rotated.fileName).path());
    const QString name = QFileInfo(rotated.fileName).fileName();
    const auto entry =
        std::find_if(directory->begin(), directory->end(), [&](const DirectoryEntry &candidate) {
            return candidate.name == name && describes(candidate, *identity);
        });
    if (entry != directory->end())
        part.segment = std::make_shared<ChunkSegment>(bytes, entry->index);
    else
        part.segment = segmentOf(bytes);
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
    index.notes = quint32(state.liveNotes.size());
    return std::make_shared<ListSegment>(state.live, std::move(index),
                                         TraceNotes::Marks{state.liveNotes, {}});
}
