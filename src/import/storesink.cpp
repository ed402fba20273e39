#include "storesink.h"

#include "datachunkhandler_p.h"

#include <QCoreApplication>
#include <QMutexLocker>

namespace {

// Takes nothing, but lets the application work meanwhile.
class CheckingSink : public TraceSink
{
public:
    explicit CheckingSink(const ImportRun &run) : run(run) { }

    bool message(const CAN::CanRxMessage &) override { return true; }
    void note(quint32, const QString &) override { }
    void appendNote(quint32, const QString &) override { }
    void fdFrames(bool) override { }
    bool turnEventLoop() override
    {
        QCoreApplication::processEvents();
        return run.goesOn();
    }

private:
    const ImportRun &run;
};

} // namespace

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

WholeTraceSink::WholeTraceSink(DatachunkHandlerPrivate &store, const ImportRun &run,
                               const TraceRequest &request)
    : StoreSink(store, run), request(request)
{
}

bool WholeTraceSink::message(const CAN::CanRxMessage &message)
{
    if (!checked && store.bufferIsFull(store.pagedMessages)) {
        checked = true;
        CheckingSink sink(run);
        checkResult = readTraceFile(request, sink);
        if (!checkResult.isDone())
            return false;
    }
    return StoreSink::message(message);
}
