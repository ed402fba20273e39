#include "recorder.h"

#include "diskspace.h"
#include "terminal.h"

#include <utility>

namespace {

constexpr quint64 messagesBetweenChecks = 1024;

// The most that may arrive between two checks, and before the source stops: one block of text.
constexpr qint64 bytesUntilEnd = 512LL * 1024;

} // namespace

Recorder::Recorder(RecordingFolder &folder, FrameSource &source, const ChunkLimits &limits,
                   qint64 reserve, const CaptureRules &rules)
    : path(folder.path()), reserve(reserve), source(source), output(folder, limits),
      capture(rules, [this](const CAN::CanRxMessage &message, const QString &note) {
          keep(message, note);
      })
{
    connect(&source, &FrameSource::received, this, &Recorder::take);
    connect(&source, &FrameSource::gap, this, &Recorder::noteGap);
    connect(&source, &FrameSource::ended, this, &Recorder::sourceEnded);
    connect(&output, &RecordingStore::failed, this, &Recorder::stopFailed);
    connect(&output, &RecordingStore::chunkWritten, this, &Recorder::goOn);
    connect(&output, &RecordingStore::stillWaiting, this, &Recorder::stillWaiting);
}

bool Recorder::start()
{
    if (!output.check() || !checkReserve())
        return false;
    // The first frames may come, with a gap in front of them, while the source starts.
    if (source.start())
        return true;
    printError(source.name(), source.errorText());
    return false;
}

void Recorder::take(const CAN::CanRxMessage &message)
{
    if (total.taken++ % messagesBetweenChecks == 0)
        checkReserve();
    if (failed)
        return;
    capture.add(message);
    if (!ringTold && capture.fallenOutCount() > 0)
        tellDrop(ringTold,
                 Cli::tr("Messages are dropped: the ring is too small for all that comes in the "
                         "time before a trigger. --ring sets another size."));
    // What a trigger wants of the ring goes on together, however much it is: it was in memory
    // before.
    if (!paused && output.isBehind())
        holdBack();
}

void Recorder::keep(const CAN::CanRxMessage &message, const QString &note)
{
    keptNote = joinedNotes(keptNote, note);
    if (discarding) {
        if (droppedInGap++ == 0)
            ++total.gaps;
        tellDrop(diskTold,
                 Cli::tr("Messages are dropped: they come faster than the disk takes them."));
        return;
    }
    if (droppedInGap > 0) {
        const QString text = Cli::tr("Gap: %1 messages came faster than the disk took them.")
                                 .arg(std::exchange(droppedInGap, 0));
        keptNote = joinedNotes(text, keptNote);
    }
    output.append(message, std::exchange(keptNote, {}));
}

void Recorder::noteGap(const QString &text)
{
    constexpr quint64 mostTold = 10;
    if (++total.gaps <= mostTold)
        printError(source.name(), text);
    if (total.gaps == mostTold)
        printError(source.name(), Cli::tr("Further gaps are noted in the recording only."));
    incomplete = true;
    capture.noteNext(Cli::tr("Gap: %1").arg(text));
}

// False, and the recording ends, when no more than the reserve is left beside what is still in
// memory.
bool Recorder::checkReserve()
{
    if (ending || reserve == 0)
        return true;
    const std::optional<DiskSpace> space = diskSpaceOf(path);
    if (!space || space->available - output.unwrittenBytes() - bytesUntilEnd > reserve)
        return true;
    printError(path,
               Cli::tr("No more than the reserve of %1 is left on the disk, so the recording "
                       "ends. --reserve sets another one, and --budget has old chunk files "
                       "deleted.")
                   .arg(mebibyteText(reserve)));
    incomplete = true;
    end();
    return false;
}

void Recorder::rotate()
{
    if (!failed)
        output.rotate();
}

void Recorder::holdBack()
{
    paused = true;
    discarding = !source.setPaused(true);
}

void Recorder::goOn()
{
    if (!paused || ending || output.isBehind())
        return;
    paused = false;
    discarding = false;
    source.setPaused(false);
}

void Recorder::tellDrop(bool &told, const QString &text)
{
    incomplete = true;
    if (!std::exchange(told, true))
        printError(path, text);
}

// A recording must not go on with a gap in it that nobody can note.
void Recorder::stopFailed()
{
    failed = true;
    end();
}

void Recorder::end()
{
    if (ending)
        return;
    ending = true;
    source.setPaused(true);
    QMetaObject::invokeMethod(this, &Recorder::ended, Qt::QueuedConnection);
}

void Recorder::sourceEnded()
{
    if (source.errorText().isEmpty()) {
        emit ended();
        return;
    }
    printError(source.name(), source.errorText());
    stopFailed();
}

void Recorder::finish()
{
    source.disconnect(this);
    source.setPaused(true);
    capture.finish();
    total.stored = output.finish();
    failed = failed || output.hasFailed();
    total.filtered = capture.leftOutCount();
    total.captures = capture.captureCount();
    total.dropped = total.taken - total.stored - total.filtered;
}
