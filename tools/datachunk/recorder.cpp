#include "recorder.h"

#include "terminal.h"

#include <QCoreApplication>
#include <QFile>

namespace {

// The store rotates this much below its limit.
constexpr quint32 rotationMargin = 5000;

// Rotated chunks that may wait for the disk; what they hold stays in memory so long.
constexpr quint64 mostChunksBehind = 4;

} // namespace

Recorder::Recorder(RecordingFolder &folder, FrameSource &source, quint32 limit, quint32 budget)
    : folder(folder), source(source), messagesPerChunk(limit - rotationMargin),
      store(std::make_unique<DatachunkHandler>(limit))
{
    store->setMaximumHDDSpace(budget);
    folder.setChunkFolder(store->chunkFolderPath());
    connect(store.get(), &DatachunkHandler::newDataFile, this, &Recorder::chunkWritten);
    connect(store.get(), &DatachunkHandler::dataFileRemoved, this,
            [this] { this->folder.dropRemovedChunks(); });
    connect(store.get(), &DatachunkHandler::newErrorMessage, this,
            [this](const QString &text) { fail(this->folder.path(), text); });
    connect(&source, &FrameSource::received, this, &Recorder::take);
    connect(&source, &FrameSource::ended, this, &Recorder::sourceEnded);
}

Recorder::~Recorder() = default;

bool Recorder::start()
{
    if (store->chunkFolderPath().isEmpty())
        fail(folder.path(), Cli::tr("The folder for chunk files could not be created."));
    else if (!source.start())
        fail(source.name(), source.errorText());
    return !failed;
}

void Recorder::take(const CAN::CanRxMessage &message)
{
    ++total.taken;
    if (discarding) {
        ++overflowed;
        return;
    }
    store->appendCanMessage(message);
    ++appended;
    if (!paused && isBehind())
        holdBack();
}

// A message that finds the list full starts a new one.
quint64 Recorder::rotations() const
{
    return appended == 0 ? 0 : (appended - 1) / messagesPerChunk;
}

bool Recorder::isBehind() const
{
    return rotations() > announced + mostChunksBehind;
}

void Recorder::holdBack()
{
    paused = true;
    discarding = !source.setPaused(true);
}

void Recorder::chunkWritten(quint32 index)
{
    ++announced;
    if (!folder.addChunk(index))
        stopFailed();
    if (!paused || failed || isBehind())
        return;
    paused = false;
    discarding = false;
    source.setPaused(false);
}

void Recorder::fail(const QString &subject, const QString &text)
{
    printError(subject, text);
    stopFailed();
}

// A recording with a gap is not worth going on with.
void Recorder::stopFailed()
{
    if (!failed)
        QMetaObject::invokeMethod(this, &Recorder::ended, Qt::QueuedConnection);
    failed = true;
}

void Recorder::sourceEnded()
{
    if (source.errorText().isEmpty())
        emit ended();
    else
        fail(source.name(), source.errorText());
}

void Recorder::finish()
{
    source.disconnect(this);
    source.setPaused(true);
    waitForChunks();
    failed = !folder.moveRemaining() || failed;
    const quint64 last = saveLastMessages();
    total.stored = messagesInChunks() + last;
    total.dropped = quint64(folder.droppedCount()) * messagesPerChunk + overflowed;
}

void Recorder::waitForChunks()
{
    if (rotations() > 0) {
        // Chunks are written in order: the one rotated last is there when all of them are. It is
        // of no interest by itself, whatever the store says of it.
        const QSignalBlocker blocker(store.get());
        store->loadDataFromFile(int(rotations() - 1));
    }
    QCoreApplication::sendPostedEvents(store.get());
}

quint64 Recorder::messagesInChunks() const
{
    if (!failed)
        return quint64(folder.chunkCount()) * messagesPerChunk;
    quint64 count = 0;
    for (const QString &chunk : folder.chunkPaths())
        count += countMessages(chunk);
    return count;
}

quint64 Recorder::saveLastMessages()
{
    const quint64 expected = appended - rotations() * messagesPerChunk;
    if (expected > 0) {
        store->saveMessagesToFile(folder.lastChunkPath(), DatachunkHelper::CurrentMessages, {}, 0,
                                  0);
    }
    store.reset();
    const quint64 saved = expected > 0 ? countMessages(folder.lastChunkPath()) : 0;
    // The store is gone before it could tell of a failure.
    if (saved != expected)
        fail(folder.lastChunkPath(), Cli::tr("The last messages could not be written completely."));
    return saved;
}

quint64 Recorder::countMessages(const QString &chunkFile) const
{
    DatachunkHandler reader(0);
    const bool loaded = reader.loadFile(chunkFile, false, DatachunkHelper::ChunkFile,
                                        DatachunkHelper::CurrentMessages, QString());
    return loaded ? reader.getMessageCount() : 0;
}
