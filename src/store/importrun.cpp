#include "importrun.h"

#include "datachunkhandler_p.h"

#include <QCoreApplication>
#include <QThread>

ImportRun::ImportRun(DatachunkHandler *store)
    : store(store), outermost(!store->d->importRunning.exchange(true))
{
    if (outermost)
        store->d->importCancelled = false;
}

ImportRun::~ImportRun()
{
    if (store && outermost)
        store->d->importRunning = false;
}

bool ImportRun::goesOn() const
{
    return store && !store->d->importCancelled;
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
    while (!job->waitForFinished(QDeadlineTimer(millisecondsBetweenTurns))) {
        if (!turn())
            return false;
    }
    // The reports of a job are on their way before it counts as finished.
    if (store->thread() == QThread::currentThread())
        QCoreApplication::sendPostedEvents(store.data(), QEvent::MetaCall);
    return goesOn();
}
