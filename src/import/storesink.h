#pragma once

#include "importrun.h"
#include "tracereader.h"

class DatachunkHandlerPrivate;

/// Brings what a reader finds into the store's browsing list. Where it tells the reader to
/// stop, the store may be gone.
class StoreSink : public TraceSink
{
public:
    StoreSink(DatachunkHandlerPrivate &store, const ImportRun &run);

    bool message(const CAN::CanRxMessage &message) override;
    void note(quint32 number, const QString &text) override;
    void appendNote(quint32 number, const QString &text) override;
    void fdFrames(bool seen) override;
    bool turnEventLoop() override;

protected:
    DatachunkHandlerPrivate &store;
    const ImportRun &run;
};

/// The same for a format of which a trace with an error brings no message. Nothing leaves the
/// browsing list before it is full, and a failed import empties it; so the trace is read to its
/// end, without keeping anything, before the first full list is given away.
class WholeTraceSink : public StoreSink
{
public:
    WholeTraceSink(DatachunkHandlerPrivate &store, const ImportRun &run,
                   const TraceRequest &request);

    bool message(const CAN::CanRxMessage &message) override;

    /// Not done when the trace turned out to have an error.
    const ReadResult &check() const { return checkResult; }

private:
    const TraceRequest &request;
    bool checked = false;
    ReadResult checkResult;
};
