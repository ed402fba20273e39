#include "importrun.h"

#include "partialchunks.h"

#include <QCoreApplication>

ImportRun::ImportRun(Browsing &browsing, PartialChunks *chunks)
    : browsing(browsing), chunksToDiscard(chunks), teller(browsing.teller),
      outermost(browsing.beginImport())
{
    if (outermost && chunks)
        chunks->beginImport();
}

ImportRun::~ImportRun()
{
    if (!storeExists() || !outermost)
        return;
    if (chunksToDiscard && browsing.isImportDiscarded())
        chunksToDiscard->discardImport();
    browsing.endImport();
}

bool ImportRun::goesOn() const
{
    return storeExists() && !browsing.isImportCancelled();
}

bool ImportRun::turn() const
{
    QCoreApplication::processEvents();
    return goesOn();
}

bool ImportRun::waitFor(const SharedSaveJob &job) const
{
    // Short enough for the application to stay responsive, long enough to leave the core to
    // others.
    constexpr int millisecondsBetweenTurns = 5;
    while (job && !job->waitForFinished(QDeadlineTimer(millisecondsBetweenTurns))) {
        if (!turn())
            return false;
    }
    // The reports of a job are on their way before it counts as finished.
    teller.deliverWaiting();
    return goesOn();
}

bool ImportRun::cancelled() const
{
    if (storeExists())
        browsing.goLive();
    return false;
}

bool ImportRun::failed() const
{
    browsing.tellLastError();
    if (storeExists()
        && teller.tell(&DatachunkHandler::informAboutCleared, browsing.trace.isLive()))
        browsing.goLive();
    return false;
}

bool ImportRun::finish(PartialChunks *chunks) const
{
    Trace &trace = browsing.trace;
    trace.dropRotated();
    if (trace.hasPaged())
        return show(chunks);
    if (teller.tell(&DatachunkHandler::informAboutCleared, trace.isLive()))
        browsing.goLive();
    if (storeExists())
        browsing.tellNothingImported();
    return false;
}

bool ImportRun::show(PartialChunks *chunks) const
{
    Trace &trace = browsing.trace;
    if (!teller.tell(&DatachunkHandler::informAboutClearStart) || !goesOn())
        return cancelled();
    const SharedSaveJob job = chunks ? chunks->save(trace.notes().shown()) : SharedSaveJob();
    trace.showPaged();
    if (job && !waitFor(job))
        return cancelled();
    if (!teller.tell(&DatachunkHandler::updateLines)
        || !teller.tell(&DatachunkHandler::informAboutCleared, trace.isLive()))
        return false;
    return goesOn() && teller.tell(&DatachunkHandler::liveModeChanged, trace.isLive()) && goesOn();
}
