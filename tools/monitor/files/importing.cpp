#include "importing.h"

#include "bookmarkhandler.h"
#include "datachunkhandler.h"

namespace {

constexpr int waitStep = 50; // milliseconds between looks at whether the import is still wanted

class StoreFeed
{
public:
    StoreFeed(const ImportTarget &target, const JobControl &control)
        : target(target), control(control)
    {
    }

    bool take(const TraceItem &item)
    {
        if (inMemory == importedInMemory && !rotate())
            return false;
        target.store.appendCanMessage(item.message);
        // A store that is given nothing else counts from 0, and rotates only where it is told to:
        // the message is still in memory.
        if (!item.note.isEmpty())
            target.store.setMessageNote(quint32(count), item.note);
        if (item.bookmark.isValid())
            target.bookmarks.addBookmark(quint32(count), item.bookmark.text());
        if (count == 0)
            target.begun();
        ++count;
        ++inMemory;
        return goesOn();
    }

    bool goesOn() const { return !control.isCancelled && !target.isFull; }
    quint64 messages() const { return count; }

private:
    // One chunk is written while the next one is read.
    bool rotate()
    {
        while (!target.store.waitForSaves(waitStep)) {
            if (!goesOn())
                return false;
        }
        target.store.rotate();
        inMemory = 0;
        return goesOn();
    }

    const ImportTarget &target;
    const JobControl &control;
    quint64 count = 0;
    quint32 inMemory = 0;
};

} // namespace

ImportOutcome importTrace(const ImportSource &source, const ImportTarget &target,
                          JobControl &control)
{
    TraceStream stream(source.path, source.type, source.formatDescription);
    stream.setMode(source.mode);
    StoreFeed feed(target, control);
    const auto goesOn = [&] {
        const ImportProgress progress = stream.progress();
        control.total = progress.bytes;
        control.done = progress.bytesRead;
        control.messages = feed.messages();
        return feed.goesOn();
    };
    ImportOutcome outcome;
    outcome.result =
        stream.read([&feed](const TraceItem &item) { return feed.take(item); }, goesOn);
    outcome.report = stream.report();
    outcome.errors = stream.errorTexts();
    outcome.messages = feed.messages();
    return outcome;
}
