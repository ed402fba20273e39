#include "savereports.h"

#include "fileerrors.h"

#include <utility>

void SaveReports::post(const SaveReport &report, const ChunkSaver &saver)
{
    teller.later([this, report, &saver] {
        // A chunk of a trace that has been cleared since is nobody's business any more.
        if (report.type == DatachunkHelper::CurrentMessages || saver.isCurrent(report))
            ended(report);
    });
}

void SaveReports::ended(const SaveReport &report)
{
    // A cancelled import takes its chunks away, perhaps while this was on its way.
    const bool isDiscarded = report.importDiscarded && *report.importDiscarded;
    if (report.outcome.kind == Outcome::GivenUp || isDiscarded)
        return;
    const Teller caller = teller;
    outcome(report);
    if (report.chunkRemoved && !caller.tell(&DatachunkHandler::dataFileWasRemoved))
        return;
    if (!report.outcome.text.isEmpty()) {
        caller.tellLast(&DatachunkHandler::newErrorMessage,
                        FileErrors::notWritten(report.fileName, report.outcome.text));
    }
}

void SaveReports::outcome(const SaveReport &report)
{
    const Outcome::Kind kind = report.outcome.kind;
    if (kind == Outcome::TooManyWaiting)
        slowDisk();
    else if (kind == Outcome::NothingToDo || !isChunkName(report.fileName))
        return;
    else if (kind == Outcome::NotOpened)
        exportEnded(report.packWish, false);
    else if (report.type == DatachunkHelper::FullBuffer)
        chunkSaved(report.chunkIndex, report.timeText);
    else if (report.type == DatachunkHelper::PartialBuffer)
        partialChunkSaved(report.fileName, report.importName, report.timeText);
    else
        exportEnded(report.packWish, true);
}

void SaveReports::slowDisk()
{
    if (std::exchange(slowDiskTold, true))
        return;
    teller.tellLast(
        &DatachunkHandler::newErrorMessage,
        DatachunkHandler::tr("The disk takes messages more slowly than they arrive. The "
                             "oldest ones that waited for it are lost."));
}

void SaveReports::chunkSaved(quint32 index, const QString &time)
{
    trace.dropRotated();
    wish.chunkSaved();
    teller.tellLast(&DatachunkHandler::newDataFile, index, time);
}

void SaveReports::partialChunkSaved(const QString &fileName, const QString &importName,
                                    const QString &time)
{
    trace.dropRotated();
    if (teller.tell(&DatachunkHandler::newPartialDataFile, fileName, importName, time))
        wish.chunkSaved();
}

void SaveReports::exportEnded(quint32 carriedWish, bool success)
{
    trace.dropRotated();
    if (wish.exportEnded(carriedWish) && success)
        pack();
}
