#pragma once

#include "mergedtrace.h"
#include "tracewriter.h"

struct Conversion;

/// A trace on its way into a chunk file or a text of ours. What stands in front of the messages
/// depends on all of them, so it is gone through before it is written.
class OwnTrace
{
public:
    /// \a trace and \a conversion must live as long. With \a renumbers, messages get higher numbers
    /// where theirs do not rise: notes and bookmarks belong to numbers.
    OwnTrace(MergedTrace &trace, const Conversion &conversion, bool renumbers);

    /// Failed, which is told, also for a trace without any message.
    TraceReading::Result survey();
    /// False, with a text printed, when the file is not written completely.
    bool write(const QString &fileName);

    quint64 count() const { return frame.count; }

private:
    class Numbers;

    void add(const MessageBlock &block);
    TraceReading::Result forEachBlock(const std::function<bool(const MessageBlock &)> &take);

    MergedTrace &trace;
    const Conversion &conversion;
    const bool renumbers;
    const bool asChunk;
    TraceFrame frame;
};
