#include "storesink.h"

#include "datachunkhandler_p.h"

#include <QCoreApplication>
#include <QMutexLocker>

StoreSink::StoreSink(DatachunkHandlerPrivate &store, const ImportRun &run) : store(store), run(run)
{
}

bool StoreSink::message(const CAN::CanRxMessage &message)
{
    return store.addImported(message);
}

void StoreSink::note(quint32 number, const QString &text)
{
    const QMutexLocker locker(&store.notesLock);
    store.notes.insert(number, text);
}

void StoreSink::appendNote(quint32 number, const QString &text)
{
    const QMutexLocker locker(&store.notesLock);
    joinNote(store.notes, number, text);
}

void StoreSink::fdFrames(bool seen)
{
    emit store.q->chunkContainsFdMessage(seen);
}

bool StoreSink::turnEventLoop()
{
    QCoreApplication::processEvents();
    return run.goesOn();
}
