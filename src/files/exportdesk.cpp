#include "exportdesk.h"

#include "fileerrors.h"
#include "pipes.h"

#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace {

QString targetOf(const SaveJob &job)
{
    return QFileInfo(job.fileName).absoluteFilePath();
}

Outcome saveWithinMemory(const SaveJob &job)
{
    Outcome outcome;
    if (!withinMemory([&] { outcome = save(job); }))
        outcome = Outcome::notOpened(qt_error_string(ENOMEM));
    return outcome;
}

} // namespace

ExportDesk::ExportDesk(const ChunkFolder &folder, TellSaved tell)
    : folder(folder), tell(std::move(tell))
{
}

ExportDesk::~ExportDesk()
{
    constexpr int moment = 1000;
    for (const SharedSaveJob &job : unfinished()) {
        if (Pipes::isPipe(job->fileName) && !job->waitForFinished(QDeadlineTimer(moment)))
            job->cancelled = true;
        job->waitForFinished();
    }
    for (const auto &lane : lanes)
        lane->queue.finish();
}

// The lane that writes the file already, an idle one, a new one, or the one with least to do.
ExportDesk::Lane &ExportDesk::laneForLocked(const QString &fileName)
{
    constexpr std::size_t mostLanes = 32;
    Lane *shortest = nullptr;
    for (const auto &lane : lanes) {
        const auto &files = lane->files;
        if (std::find(files.begin(), files.end(), fileName) != files.end())
            return *lane;
        if (!shortest || files.size() < shortest->files.size())
            shortest = lane.get();
    }
    if (shortest && (shortest->files.empty() || lanes.size() >= mostLanes))
        return *shortest;
    lanes.push_back(std::make_unique<Lane>());
    return *lanes.back();
}

void ExportDesk::add(const SharedSaveJob &job)
{
    const QString fileName = targetOf(*job);
    Lane *lane = nullptr;
    {
        const MutexLock locker(mutex);
        lane = &laneForLocked(fileName);
        lane->files.push_back(fileName);
        jobs.push_back(job);
    }
    lane->queue.run([this, job, lane] { run(job, *lane); });
}

void ExportDesk::run(const SharedSaveJob &job, Lane &lane)
{
    const Outcome outcome = write(*job);
    // Whoever waits for the job must not wait for ever, whether or not the report finds room.
    withinMemory([&] { tell({*job, outcome}); });
    end(job, lane);
}

Outcome ExportDesk::write(const SaveJob &job)
{
    if (!folder.holds(job.fileName))
        return saveWithinMemory(job);
    const MutexLock locker(folderMutex);
    return saveWithinMemory(job);
}

void ExportDesk::end(const SharedSaveJob &job, Lane &lane)
{
    {
        const MutexLock locker(mutex);
        lane.files.erase(std::find(lane.files.begin(), lane.files.end(), targetOf(*job)));
        jobs.remove(job);
    }
    job->markFinished();
}

std::list<SharedSaveJob> ExportDesk::unfinished() const
{
    const MutexLock locker(mutex);
    return jobs;
}

ExportDesk::Hold::Hold(ExportDesk &desk) : desk(desk)
{
    for (const SharedSaveJob &job : desk.unfinished()) {
        if (desk.folder.holds(job->fileName))
            job->waitForFinished();
    }
    desk.folderMutex.lock();
}

ExportDesk::Hold::~Hold()
{
    desk.folderMutex.unlock();
}
