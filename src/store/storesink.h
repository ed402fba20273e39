#pragma once

#include "importrun.h"
#include "tracereader.h"

/// Brings what a reader finds into the store's browsing list. Where it tells the reader to
/// stop, the store may be gone.
class StoreSink : public TraceSink
{
public:
    StoreSink(const ImportRun &run, Browsing &browsing, PartialChunks &chunks);

    /// Turns the event loop where a full buffer has to wait for the one before it to be saved.
    bool message(const CAN::CanRxMessage &message) override;
    void note(quint32 number, const QString &text) override;
    void appendNote(quint32 number, const QString &text) override;
    void fdFrames(bool seen) override;
    void begin(const UnpackedFile &file) override { source = &file; }
    void report(const ImportReport &report) override;
    bool turnEventLoop() override;

protected:
    const ImportRun &run;
    Trace &trace;

private:
    Browsing &browsing;
    const UnpackedFile *source = nullptr; // while a file is read
    quint64 messages = 0;
    PartialChunks &chunks;
};

/// The same for a format of which a trace with an error brings no message. The messages are held
/// back until the trace has ended well. Where they fill a buffer before that, the trace is read to
/// its end without keeping anything, and once it is known to be good they need not be held back.
class WholeTraceSink : public StoreSink
{
public:
    WholeTraceSink(const ImportRun &run, Browsing &browsing, PartialChunks &chunks,
                   const TraceRequest &request);

    bool message(const CAN::CanRxMessage &message) override;

    /// What the trace comes to, whose reading has had \a result. Brings what is held back to the
    /// store if it is good.
    Outcome finish(const Outcome &result);

private:
    bool deliver();

    const TraceRequest &request;
    MessageList heldBack;
    bool checked = false;
    Outcome checkResult;
};

/// Reads a trace into the browsing list. False when it cannot be read or was stopped; the last
/// error then says why, and the store may be gone.
bool readTrace(const ImportRun &run, Browsing &browsing, PartialChunks &chunks,
               const TraceRequest &request);
