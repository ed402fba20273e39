#include "owntrace.h"

#include "conversion.h"
#include "conversionreport.h"
#include "terminal.h"

#include <algorithm>

using Result = TraceReading::Result;

class OwnTrace::Numbers
{
public:
    void apply(MessageBlock &block)
    {
        for (CAN::CanRxMessage &message : block.messages) {
            if (hasAny && message.messageNumber + shift <= highest)
                shift = highest + 1 - message.messageNumber;
            message.messageNumber += shift;
            highest = message.messageNumber;
            hasAny = true;
        }
        for (auto &[at, bookmark] : block.bookmarks)
            bookmark = CanMessageBookmark(block.messages[at].messageNumber, bookmark.text());
    }

private:
    quint32 shift = 0;
    quint32 highest = 0;
    bool hasAny = false;
};

OwnTrace::OwnTrace(MergedTrace &trace, const Conversion &conversion, bool renumbers)
    : trace(trace), conversion(conversion), renumbers(renumbers),
      asChunk(conversion.format.kind == TargetFormat::OwnChunk)
{
}

Result OwnTrace::forEachBlock(const std::function<bool(const MessageBlock &)> &take)
{
    Numbers numbers;
    Progress progress(trace.subject(), [this] { return trace.part(); });
    quint64 count = 0;
    return trace.forEachBlock([&](MessageBlock &block) {
        count += block.messages.size();
        progress.setCount(count);
        if (renumbers)
            numbers.apply(block);
        return take(block);
    });
}

void OwnTrace::add(const MessageBlock &block)
{
    if (frame.count == 0)
        frame.first = block.messages.front();
    frame.last = block.messages.back();
    frame.count += block.messages.size();
    if (asChunk || conversion.withNotes) {
        for (const auto &[at, note] : block.notes)
            frame.notes.insert(block.messages[at].messageNumber, note);
    }
    if (asChunk) {
        for (const auto &[at, bookmark] : block.bookmarks)
            frame.bookmarks.insert(block.messages[at].messageNumber, bookmark);
    }
}

Result OwnTrace::survey()
{
    const Result result = forEachBlock([this](const MessageBlock &block) {
        add(block);
        return true;
    });
    if (result == Result::Failed || frame.count > 0)
        return result;
    printError(trace.subject(), Cli::tr("Nothing to export."));
    return Result::Failed;
}

bool OwnTrace::write(const QString &fileName)
{
    TraceWriter writer(fileName, frame, conversion.goesToOutput());
    quint64 count = 0;
    bool written = writer.open();
    const auto write = [&](const MessageBlock &block) {
        // A file that grows meanwhile brings no more than the header tells.
        const auto size = qint64(std::min<quint64>(block.messages.size(), frame.count - count));
        written = std::all_of(
            block.messages.begin(), block.messages.begin() + size,
            [&](const CAN::CanRxMessage &message) { return ++count, writer.write(message); });
        return written && count < frame.count;
    };
    if (written && forEachBlock(write) == Result::Failed)
        return false;
    const bool closed = writer.close();
    if (written && closed && count == frame.count)
        return true;
    tellNotWritten(conversion.target);
    return false;
}
