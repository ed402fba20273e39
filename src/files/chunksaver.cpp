#include "chunksaver.h"

#include "chunknames.h"
#include "diskbudget.h"
#include "fileerrors.h"
#include "locks.h"
#include "storetexts.h"

#include <QFileInfo>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <deque>
#include <utility>

#include <malloc.h>

namespace {

constexpr quint32 defaultMostWaiting = 10000000;

bool isRotation(const SaveJob &job)
{
    return job.type == DatachunkHelper::FullBuffer;
}

} // namespace

class ChunkSaver::State
{
public:
    State(TellSaved tell, ChunkWritten written)
        : diskBudget(folder.path()), written(std::move(written)), tell(std::move(tell))
    {
    }

    void add(const SharedSaveJob &job, bool numbered) EXCLUDES(mutex);
    void clear() EXCLUDES(mutex);
    void giveUpAll() EXCLUDES(mutex);
    void work() EXCLUDES(mutex);
    SharedSaveJob pending(quint32 index) EXCLUDES(mutex);
    SharedSaveJob runningJob() EXCLUDES(mutex);
    std::deque<SharedSaveJob> unfinished() EXCLUDES(mutex);
    void silence() EXCLUDES(tellMutex);

    ChunkFolder folder;
    std::atomic<quint32> budget{1000};
    std::atomic<quint32> mostWaiting{defaultMostWaiting};
    std::atomic<quint64> givenUp{0};
    std::atomic<quint64> unwritten{0};
    std::atomic<quint64> generation{0};
    std::atomic<quint32> chunkCount{0};
    std::atomic<int> pauses{0};

private:
    bool beginWork() EXCLUDES(mutex);
    SharedSaveJob nextJob() EXCLUDES(mutex);
    bool giveUpOldestLocked(const SharedSaveJob &newest) REQUIRES(mutex);
    void giveUpAllLocked() REQUIRES(mutex);
    void run(const SharedSaveJob &job, bool &isTried);
    void countUnwritten(const SaveJob &job);
    Outcome saveIntoFolder(const SaveJob &job);
    bool keepBudget(const SaveJob &job, bool isInFolder);
    void report(const SaveReport &report) EXCLUDES(tellMutex);

    DiskBudget diskBudget;              // used by whoever works
    const ChunkWritten written;         // may be null
    std::atomic<bool> wasBehind{false}; // whether much has waited since nothing did

    Mutex mutex;
    std::deque<SharedSaveJob> waiting GUARDED_BY(mutex);
    quint64 waitingMessages GUARDED_BY(mutex) = 0; // those of rotations
    SharedSaveJob running GUARDED_BY(mutex);
    bool isWorking GUARDED_BY(mutex) = false;

    Mutex tellMutex;                      // taken last
    TellSaved tell GUARDED_BY(tellMutex); // null once there is nobody to tell
};

void ChunkSaver::State::add(const SharedSaveJob &job, bool numbered)
{
    const MutexLock locker(mutex);
    job->generation = generation;
    job->maximumUsedSpace = budget;
    job->chunkIndex = chunkCount - (numbered ? 0 : 1);
    if (numbered)
        job->fileName = fillChunkNumber(job->fileName, job->chunkIndex);
    waiting.push_back(job);
    if (numbered)
        ++chunkCount;
    if (!isRotation(*job))
        return;
    waitingMessages += quint64(job->messages.size());
    while (waitingMessages > mostWaiting && giveUpOldestLocked(job)) { }
}

// False when nothing is older than the newest. Jobs of other kinds are waited for by somebody, who
// makes no more of them meanwhile.
bool ChunkSaver::State::giveUpOldestLocked(const SharedSaveJob &newest)
{
    const auto oldest =
        std::find_if(waiting.begin(), waiting.end(),
                     [](const SharedSaveJob &waitingJob) { return isRotation(*waitingJob); });
    if (*oldest == newest)
        return false;
    const SharedSaveJob job = *oldest;
    waiting.erase(oldest);
    waitingMessages -= quint64(job->messages.size());
    givenUp += quint64(job->messages.size());
    job->markFinished();
    report({*job, {Outcome::TooManyWaiting, {}, 0}});
    return true;
}

void ChunkSaver::State::giveUpAllLocked()
{
    for (const SharedSaveJob &job : std::exchange(waiting, {})) {
        job->cancelled = true;
        job->markFinished();
    }
    waitingMessages = 0;
    if (running)
        running->cancelled = true;
}

void ChunkSaver::State::giveUpAll()
{
    const MutexLock locker(mutex);
    giveUpAllLocked();
}

void ChunkSaver::State::clear()
{
    const MutexLock locker(mutex);
    giveUpAllLocked();
    ++generation;
    chunkCount = 0;
}

// One at a time does the jobs: the thread, or a caller in place of it.
bool ChunkSaver::State::beginWork()
{
    const MutexLock locker(mutex);
    return !std::exchange(isWorking, true);
}

// Null, and the work has ended, when there is nothing to do.
SharedSaveJob ChunkSaver::State::nextJob()
{
    constexpr quint64 much = 1000000;
    SharedSaveJob done; // goes without the lock
    const MutexLock locker(mutex);
    done.swap(running);
    wasBehind = wasBehind || waitingMessages > much;
    isWorking = !waiting.empty() && pauses == 0;
    if (!isWorking)
        return {};
    running = waiting.front();
    waiting.pop_front();
    if (isRotation(*running))
        waitingMessages -= quint64(running->messages.size());
    return running;
}

void ChunkSaver::State::work()
{
    if (!beginWork())
        return;
    while (const SharedSaveJob job = nextJob()) {
        const auto reportLack = [&] {
            report({*job, Outcome::notOpened(qt_error_string(ENOMEM))});
        };
        // Whoever waits for the job must not wait for ever, whether or not the report finds room.
        bool isTried = false;
        if (!withinMemory([&] { run(job, isTried); })) {
            if (!isTried)
                countUnwritten(*job);
            withinMemory(reportLack);
        }
        job->markFinished();
    }
    // The C library would keep what was freed for a store that may never again need as much.
    if (wasBehind.exchange(false))
        malloc_trim(0);
}

// What comes behind the writing may lack memory as well.
void ChunkSaver::State::run(const SharedSaveJob &job, bool &isTried)
{
    const bool isInFolder = folder.holds(job->fileName);
    SaveReport ended(*job, isInFolder ? saveIntoFolder(*job) : save(*job));
    const Outcome::Kind kind = ended.outcome.kind;
    const bool wasTried = kind == Outcome::Done || kind == Outcome::NotOpened;
    if (wasTried && !(kind == Outcome::Done && ended.outcome.text.isEmpty()))
        countUnwritten(*job);
    isTried = true;
    if (isRotation(*job) && isChunkName(job->fileName) && wasTried)
        ended.chunkRemoved = keepBudget(*job, isInFolder);
    report(ended);
}

void ChunkSaver::State::countUnwritten(const SaveJob &job)
{
    if (isRotation(job))
        unwritten += quint64(job.messages.size());
}

Outcome ChunkSaver::State::saveIntoFolder(const SaveJob &job)
{
    if (!folder.isInPlace()) {
        return Outcome::notOpened(StoreTexts::tr("The folder for chunk files is gone."));
    }
    diskBudget.beginChange();
    const Outcome outcome =
        save(job, [&] { diskBudget.endChange(QFileInfo(job.fileName).fileName()); });
    const bool isWhole = outcome.kind == Outcome::Done && outcome.text.isEmpty();
    // A lack of memory for more than the chunk does not undo it.
    if (written && isWhole && isChunkName(job.fileName))
        withinMemory([&] { written(job); });
    return outcome;
}

bool ChunkSaver::State::keepBudget(const SaveJob &job, bool isInFolder)
{
    if (isInFolder)
        return diskBudget.removeOldestAbove(job.maximumUsedSpace);
    DiskBudget other(QFileInfo(job.fileName).absolutePath(), DiskBudget::Folder::Foreign);
    return other.removeOldestAbove(job.maximumUsedSpace);
}

void ChunkSaver::State::report(const SaveReport &report)
{
    const MutexLock locker(tellMutex);
    if (tell)
        tell(report);
}

void ChunkSaver::State::silence()
{
    const MutexLock locker(tellMutex);
    tell = nullptr;
}

SharedSaveJob ChunkSaver::State::pending(quint32 index)
{
    const quint64 current = generation;
    for (const SharedSaveJob &job : unfinished()) {
        if (job->chunkIndex == index && job->generation == current
            && job->fileName == folder.chunkPath(index))
            return job;
    }
    return {};
}

SharedSaveJob ChunkSaver::State::runningJob()
{
    const MutexLock locker(mutex);
    return running;
}

std::deque<SharedSaveJob> ChunkSaver::State::unfinished()
{
    const MutexLock locker(mutex);
    std::deque<SharedSaveJob> jobs = waiting;
    if (running)
        jobs.push_front(running);
    return jobs;
}

ChunkSaver::ChunkSaver(TellSaved tell, ChunkWritten written)
    : state(std::make_shared<State>(std::move(tell), std::move(written))),
      thread([state = state] { state->work(); })
{
}

ChunkSaver::~ChunkSaver()
{
    constexpr std::chrono::seconds moment(1);
    state->giveUpAll();
    thread.stop(moment);
    state->silence();
}

ChunkFolder &ChunkSaver::folder() const
{
    return state->folder;
}

void ChunkSaver::setBudget(quint32 mebibytes)
{
    state->budget = mebibytes;
}

quint32 ChunkSaver::budget() const
{
    return state->budget;
}

bool ChunkSaver::saves() const
{
    return state->budget != 0 && state->folder.exists();
}

void ChunkSaver::setMostWaiting(quint32 messages)
{
    state->mostWaiting = messages;
}

quint64 ChunkSaver::givenUpCount() const
{
    return state->givenUp;
}

quint64 ChunkSaver::unwrittenCount() const
{
    return state->unwritten;
}

void ChunkSaver::add(const SharedSaveJob &job)
{
    state->add(job, true);
}

void ChunkSaver::addUnnumbered(const SharedSaveJob &job)
{
    state->add(job, false);
}

bool ChunkSaver::start()
{
    if (thread.wake())
        return true;
    state->work();
    return false;
}

quint32 ChunkSaver::chunkCount() const
{
    return state->chunkCount;
}

bool ChunkSaver::isCurrent(const SaveReport &report) const
{
    return report.generation == state->generation;
}

quint64 ChunkSaver::generation() const
{
    return state->generation;
}

SharedSaveJob ChunkSaver::pending(quint32 index) const
{
    return state->pending(index);
}

std::deque<SharedSaveJob> ChunkSaver::unfinished() const
{
    return state->unfinished();
}

bool ChunkSaver::waitForAll(const std::function<bool()> &keepGoing)
{
    constexpr int millisecondsBetweenQuestions = 20;
    for (const SharedSaveJob &job : state->unfinished()) {
        while (!job->waitForFinished(QDeadlineTimer(millisecondsBetweenQuestions))) {
            if (!keepGoing())
                return false;
        }
    }
    return true;
}

ChunkSaver::Pause::Pause(ChunkSaver &saver) : saver(saver)
{
    ++saver.state->pauses;
}

ChunkSaver::Pause::~Pause()
{
    --saver.state->pauses;
    saver.start();
}

void ChunkSaver::clear()
{
    state->clear();
}

void ChunkSaver::removeChunks()
{
    constexpr int moment = 200;
    if (const SharedSaveJob running = state->runningJob())
        running->waitForFinished(QDeadlineTimer(moment));
    state->folder.removeChunks();
}
