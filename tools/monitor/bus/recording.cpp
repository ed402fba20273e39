#include "recording.h"

#include <QPointer>

#include <algorithm>

namespace {

// What a crash may take.
constexpr int millisecondsBetweenWrites = 60000;

// Beyond this the memory for what waits for a slow disk is not given.
constexpr unsigned int mostWaiting = 3000000;

} // namespace

Recording::Recording(QObject *parent) : Recording(RecordingSettings::saved(), parent) { }

Recording::Recording(const RecordingSettings &settings, QObject *parent)
    : Recording(std::make_unique<DatachunkHandler>(unsigned(settings.memory)), settings, parent)
{
}

Recording::Recording(std::unique_ptr<DatachunkHandler> store, const RecordingSettings &settings,
                     QObject *parent)
    : ShownTrace(store->timeline(), tr("Recording"), parent), ownStore(std::move(store))
{
    ownStore->setBookmarkhandler(&bookmarks);
    ownStore->setMaximumWaitingMessages(mostWaiting);
    setBudget(settings.budget);
    connect(ownStore.get(), &DatachunkHandler::newErrorMessage, this, &Recording::storeFailed,
            Qt::QueuedConnection);
    connect(ownStore.get(), &DatachunkHandler::dataFileRemoved, this, &Recording::chunkRemoved,
            Qt::QueuedConnection);
    connect(&writeTimer, &QTimer::timeout, this, &Recording::writeToDisk);
}

Recording::~Recording() = default;

void Recording::append(const std::vector<CAN::CanRxMessage> &messages)
{
    for (const CAN::CanRxMessage &message : messages)
        ownStore->appendCanMessage(message);
    taken += messages.size();
}

RecordingCounts Recording::counts() const
{
    RecordingCounts counts;
    counts.dropped = ownStore->givenUpMessageCount() + ownStore->unwrittenMessageCount();
    // The store may have given up some that are not counted yet.
    counts.taken = std::max<quint64>(taken, counts.dropped);
    counts.stored = counts.taken - counts.dropped;
    counts.chunksRemoved = chunksRemoved;
    return counts;
}

void Recording::setBudget(int mebibytes)
{
    budgetSize = mebibytes;
    ownStore->setMaximumHDDSpace(unsigned(mebibytes));
}

void Recording::setGrowing(bool on)
{
    growing = on;
    if (on)
        writeTimer.start(millisecondsBetweenWrites);
    else
        writeTimer.stop();
    if (!on)
        writeToDisk();
}

// Of slow traffic a crash would take hours if it were written only when the memory is full.
void Recording::writeToDisk()
{
    if (taken == written)
        return;
    written = taken;
    ownStore->rotate();
}

void Recording::chunkRemoved()
{
    if (chunksRemoved++ != 0)
        return;
    // The notice may outlive the recording.
    const auto wantSettings = [self = QPointer<Recording>(this)] {
        if (self)
            emit self->settingsWanted();
    };
    emit notice({Notice::Warning,
                 tr("The recording has used up its budget of %n MiB: from now on its oldest "
                    "messages are deleted.",
                    nullptr, budgetSize),
                 tr("Save the recording, or give it more room."), tr("Settings…"), wantSettings});
}
