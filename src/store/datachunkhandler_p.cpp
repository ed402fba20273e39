#include "datachunkhandler_p.h"

#include "fileerrors.h"

#include <QReadLocker>
#include <QWriteLocker>

#include <utility>

namespace {
// A rotation happens this much below the limit, which leaves room for what arrives meanwhile.
constexpr quint32 rotationMargin = 5000;
} // namespace

DatachunkHandlerPrivate::DatachunkHandlerPrivate(DatachunkHandler *store,
                                                 unsigned int maxMessageCount)
    : q(store), maxMessageCount(maxMessageCount),
      chunkSaver([this](const SaveReport &report) { postReport(report); }),
      exports(chunkSaver.folder(), [this](const SaveReport &report) { postReport(report); })
{
}

const MessageList &DatachunkHandlerPrivate::shown() const
{
    static const MessageList nothing;
    switch (view) {
    case View::Live:
        return liveMessages;
    case View::RotatedBuffer:
        return rotatedBuffer;
    case View::Paged:
        return pagedMessages;
    case View::Nothing:
        break;
    }
    return nothing;
}

int DatachunkHandlerPrivate::liveMessageCount() const
{
    const QReadLocker locker(&lock);
    return liveMessages.size();
}

bool DatachunkHandlerPrivate::bufferIsFull(const MessageList &messages) const
{
    // Unsigned on purpose: a limit below the margin wraps round and is never reached.
    return !messages.isEmpty() && quint32(messages.size()) >= maxMessageCount - rotationMargin;
}

void DatachunkHandlerPrivate::rotateLocked()
{
    const auto job = std::make_shared<SaveJob>();
    job->type = DatachunkHelper::FullBuffer;
    job->isPrivate = true;
    job->fileName = chunkFolder.chunkTemplate();
    job->messages = liveMessages;
    job->endPosition = quint32(liveMessages.size());
    TraceNotes::Marks marks = notes.takeLive();
    job->notes = marks.notes;
    job->bookmarks = marks.bookmarks;
    if (chunkSaver.saves() && !withinMemory([&] { chunkSaver.add(job); })) {
        notes.giveBackLive(marks);
        throw std::bad_alloc();
    }
    rotatedBuffer = std::exchange(liveMessages, {});
    if (isLive) {
        view = View::RotatedBuffer;
        emit q->informAboutClearStart();
    }
}

void DatachunkHandlerPrivate::finishRotation()
{
    const QPointer<DatachunkHandler> store(q);
    chunkSaver.start();
    poolTasks.run([this] { q->handleFullBuffer(); });
    if (store && chunkSaver.budget() != 0 && !chunkFolder.exists()
        && !missingFolderReported.exchange(true)) {
        emit q->newErrorMessage(
            DatachunkHandler::tr("The folder for chunk files could not be created. Messages beyond "
                                 "the limit are lost."));
    }
}

void DatachunkHandlerPrivate::numberAndAppendLocked(CAN::CanRxMessage &message)
{
    message.messageNumber = nextMessageNumber++;
    liveMessages.append(message);
}

bool DatachunkHandlerPrivate::insertLine(const CAN::CanRxMessage &message)
{
    return lines.insert(static_cast<unsigned char>(message.line));
}

MessageList DatachunkHandlerPrivate::clearLocked()
{
    chunkSaver.clear();
    nextMessageNumber = 0;
    lines.clear();
    rotatedBuffer.clear();
    if (view == View::RotatedBuffer)
        view = View::Live;
    notes.clear();
    return std::exchange(liveMessages, {});
}

void DatachunkHandlerPrivate::showLive()
{
    if (isLive)
        return;
    const QPointer<DatachunkHandler> store(q);
    emit q->informAboutClearStart();
    if (!store)
        return;
    MessageList unused;
    {
        const QWriteLocker locker(&lock);
        // A slot may have been faster, and what was set aside is to be brought back once.
        if (isLive)
            return;
        notes.bringBack();
        lines.clear();
        view = View::Live;
        unused = std::exchange(pagedMessages, {});
        rotatedBuffer.clear();
        isLive = true;
    }
    emit q->informAboutCleared(isLive);
    if (store)
        emit q->liveModeChanged(isLive);
}

void DatachunkHandlerPrivate::leaveLiveMode()
{
    ++viewRequests;
    const QPointer<DatachunkHandler> store(q);
    emit q->informAboutClearStart();
    if (!store)
        return;
    const QWriteLocker locker(&lock);
    leaveLiveModeLocked();
}

void DatachunkHandlerPrivate::leaveLiveModeLocked()
{
    pagedMessages.clear();
    lastError = DatachunkHandler::tr("Unknown import error");
    notes.setAside();
    if (view == View::Paged)
        view = View::Nothing;
    isLive = false;
    lines.clear();
}

void DatachunkHandlerPrivate::forgetRotatedBuffer()
{
    MessageList unused;
    const QWriteLocker locker(&lock);
    if (view != View::RotatedBuffer)
        unused = std::exchange(rotatedBuffer, {});
}
