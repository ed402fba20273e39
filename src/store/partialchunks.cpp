#include "partialchunks.h"

#include "filenames.h"

#include <QFile>

QString PartialChunks::partName() const
{
    constexpr int rest = 2 + 10 + 4; // "\\" twice, a number, ".dck"
    const int folderBytes = QFile::encodeName(saver.folder().dir().dirName()).size();
    return FileNames::cutToBytes(nameOfImport, FileNames::longest - folderBytes - rest);
}

SharedSaveJob PartialChunks::save(const Notes &notes)
{
    ChunkFolder &folder = saver.folder();
    if (!folder.exists())
        return {};
    const auto job = std::make_shared<SaveJob>();
    job->type = DatachunkHelper::PartialBuffer;
    job->isPrivate = true;
    job->messages = trace.paged();
    job->endPosition = quint32(job->messages.size());
    job->notes = notes;
    job->importName = nameOfImport;
    job->importDiscarded = discarded;
    job->fileName = folder.partialChunkTemplate(partName());
    saver.add(job);
    folder.addFileBeside(job->fileName);
    ofImport.append({job->fileName, job});
    saver.start();
    return job;
}

void PartialChunks::saveFullBuffer()
{
    lastSave.reset();
    if (saver.budget() != 0)
        lastSave = save(trace.notes().of(trace.paged()));
    trace.setPaged({});
}

void PartialChunks::beginImport()
{
    ofImport.clear();
    discarded = std::make_shared<std::atomic<bool>>(false);
}

void PartialChunks::discardImport()
{
    *discarded = true;
    constexpr int moment = 50;
    const QDeadlineTimer end(moment);
    for (const Part &part : qAsConst(ofImport)) {
        if (const SharedSaveJob job = part.job.lock())
            job->cancelled = true;
    }
    for (const Part &part : qAsConst(ofImport)) {
        if (const SharedSaveJob job = part.job.lock())
            job->waitForFinished(end);
        QFile::remove(part.fileName);
    }
    ofImport.clear();
}
