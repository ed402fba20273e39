#include "storesink.h"

#include "datachunkhandler_p.h"

#include <utility>

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
    bool turnEventLoop() override { return run.turn(); }

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
    store.notes.set(number, text);
}

void StoreSink::appendNote(quint32 number, const QString &text)
{
    store.notes.join(number, text);
}

void StoreSink::fdFrames(bool seen)
{
    emit store.q->chunkContainsFdMessage(seen);
}

bool StoreSink::turnEventLoop()
{
    return run.turn();
}

WholeTraceSink::WholeTraceSink(DatachunkHandlerPrivate &store, const ImportRun &run,
                               const TraceRequest &request)
    : StoreSink(store, run), request(request)
{
}

bool WholeTraceSink::message(const CAN::CanRxMessage &message)
{
    if (checked)
        return StoreSink::message(message);
    if (store.trace.isFull(heldBack)) {
        checked = true;
        CheckingSink sink(run);
        checkResult = readTraceFile(request, sink);
        return checkResult.isDone() && deliver() && StoreSink::message(message);
    }
    heldBack.append(message);
    return true;
}

ReadResult WholeTraceSink::finish(const ReadResult &result)
{
    if (!checkResult.isDone())
        return checkResult;
    if (result.isDone() && !deliver())
        return ReadResult::stopped();
    return result;
}

bool WholeTraceSink::deliver()
{
    if (!store.trace.hasPaged()) {
        store.takeImported(std::move(heldBack));
        return true;
    }
    for (; !heldBack.isEmpty(); heldBack.removeFirst()) {
        if (!StoreSink::message(heldBack.at(0)))
            return false;
    }
    return true;
}
