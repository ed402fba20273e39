#pragma once

#include "importrun.h"
#include "tracesink.h"

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

private:
    DatachunkHandlerPrivate &store;
    const ImportRun &run;
};
