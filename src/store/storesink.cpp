#include "storesink.h"

#include "fileerrors.h"
#include "loadertable.h"
#include "partialchunks.h"
#include "unpackedfile.h"

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

StoreSink::StoreSink(const ImportRun &run, Browsing &browsing, PartialChunks &chunks)
    : run(run), trace(browsing.trace), browsing(browsing), chunks(chunks)
{
}

bool StoreSink::message(const CAN::CanRxMessage &message)
{
    if (trace.pagedIsFull()) {
        // One buffer in the making and one being written is all that an import holds.
        if (!run.waitFor(chunks.lastFullBuffer()))
            return false;
        chunks.saveFullBuffer();
    }
    trace.addPaged(message);
    ++messages;
    return true;
}

void StoreSink::note(quint32 number, const QString &text)
{
    trace.notes().set(number, text);
}

void StoreSink::appendNote(quint32 number, const QString &text)
{
    trace.notes().join(number, text);
}

void StoreSink::fdFrames(bool seen)
{
    browsing.teller.tellLast(&DatachunkHandler::chunkContainsFdMessage, seen);
}

void StoreSink::report(const ImportReport &report)
{
    // What was told last may have been a slot's reason to delete the store.
    if (run.storeExists())
        browsing.setImportReport(report);
}

bool StoreSink::turnEventLoop()
{
    if (run.storeExists())
        browsing.setProgress({source->bytesRead(), source->bytes(), messages});
    return run.turn();
}

WholeTraceSink::WholeTraceSink(const ImportRun &run, Browsing &browsing, PartialChunks &chunks,
                               const TraceRequest &request)
    : StoreSink(run, browsing, chunks), request(request)
{
}

bool WholeTraceSink::message(const CAN::CanRxMessage &message)
{
    if (checked)
        return StoreSink::message(message);
    if (trace.isFull(heldBack)) {
        checked = true;
        CheckingSink sink(run);
        checkResult = readTraceFile(request, sink);
        return checkResult.isDone() && deliver() && StoreSink::message(message);
    }
    heldBack.append(message);
    return true;
}

Outcome WholeTraceSink::finish(const Outcome &result)
{
    if (!checkResult.isDone())
        return checkResult;
    if (result.isDone() && !deliver())
        return Outcome::givenUp();
    return result;
}

bool WholeTraceSink::deliver()
{
    if (!trace.hasPaged()) {
        LineSet lines;
        for (int i = 0; i < heldBack.size(); ++i)
            lines.insert(static_cast<unsigned char>(heldBack.at(i).line));
        trace.addLines(lines);
        trace.setPaged(std::move(heldBack));
        return true;
    }
    for (; !heldBack.isEmpty(); heldBack.removeFirst()) {
        if (!StoreSink::message(heldBack.at(0)))
            return false;
    }
    return true;
}

namespace {

Outcome readInto(const ImportRun &run, Browsing &browsing, PartialChunks &chunks,
                 const TraceRequest &request)
{
    if (traceReaderFor(request).delivery == TraceReader::AsRead) {
        StoreSink sink(run, browsing, chunks);
        return readTraceFile(request, sink);
    }
    WholeTraceSink sink(run, browsing, chunks, request);
    return sink.finish(readTraceFile(request, sink));
}

} // namespace

bool readTrace(const ImportRun &run, Browsing &browsing, PartialChunks &chunks,
               const TraceRequest &request)
{
    Outcome result;
    if (!withinMemory([&] { result = readInto(run, browsing, chunks, request); }))
        result = Outcome::notOpened(FileErrors::outOfMemory(request.fileName));
    if (!run.storeExists())
        return false;
    if (result.isDone())
        return browsing.teller.tellErrors({result.text});
    // Whoever calls this tells the last error.
    const QString error = result.text.isEmpty() ? errorText(result, request) : result.text;
    if (!error.isEmpty())
        browsing.setLastError(error);
    return false;
}
