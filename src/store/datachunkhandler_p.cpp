#include "datachunkhandler_p.h"

#include "fileerrors.h"

#include <QMutexLocker>
#include <QReadLocker>
#include <QTime>
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
    takeLiveNotesLocked(*job);
    if (chunkSaver.saves() && !withinMemory([&] { chunkSaver.add(job); })) {
        giveBackLiveNotesLocked(*job);
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
    if (bookmarkHandler)
        bookmarkHandler->clearBookmarks();
    const QMutexLocker locker(&notesLock);
    notes.clear();
    // What was set aside belongs to messages that are gone now, and their numbers come again.
    liveNotesBackup.clear();
    liveBookmarksBackup.clear();
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
        const QMutexLocker notesLocker(&notesLock);
        notes = std::exchange(liveNotesBackup, {});
        setBookmarks(std::exchange(liveBookmarksBackup, {}));
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
    if (isLive) {
        const QMutexLocker notesLocker(&notesLock);
        liveNotesBackup = std::exchange(notes, {});
        liveBookmarksBackup = bookmarks();
    } else if (bookmarkHandler) {
        bookmarkHandler->clearBookmarks();
    }
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

void DatachunkHandlerPrivate::takeLiveNotesLocked(SaveJob &job)
{
    const QMutexLocker locker(&notesLock);
    if (isLive) {
        job.notes = std::exchange(notes, {});
        if (bookmarkHandler)
            job.bookmarks = bookmarkHandler->takeBookmarks();
    } else {
        job.notes = std::exchange(liveNotesBackup, {});
        job.bookmarks = std::exchange(liveBookmarksBackup, {});
    }
}

void DatachunkHandlerPrivate::giveBackLiveNotesLocked(SaveJob &job)
{
    const QMutexLocker locker(&notesLock);
    (isLive ? notes : liveNotesBackup) = std::exchange(job.notes, {});
    if (!isLive)
        liveBookmarksBackup = std::exchange(job.bookmarks, {});
    else
        setBookmarks(std::exchange(job.bookmarks, {}));
}

void DatachunkHandlerPrivate::attachPendingNoteLocked(quint32 number)
{
    const QMutexLocker locker(&notesLock);
    if (!noteForNextMessagePending.exchange(false))
        return;
    const QString note =
        noteForNextMessage.arg(QTime::currentTime().toString(QStringLiteral("hh:mm:ss.zzz")));
    (isLive ? notes : liveNotesBackup).insert(number, note);
}

void DatachunkHandlerPrivate::setBookmarks(const ChunkFormat::Bookmarks &bookmarks)
{
    if (bookmarkHandler)
        bookmarkHandler->setBookmarks(bookmarks);
}

ChunkFormat::Bookmarks DatachunkHandlerPrivate::bookmarks() const
{
    return bookmarkHandler ? bookmarkHandler->copyOfBookmarks() : ChunkFormat::Bookmarks();
}

ChunkFormat::Notes DatachunkHandlerPrivate::liveNotes() const
{
    const QMutexLocker locker(&notesLock);
    ChunkFormat::Notes copy = isLive ? notes : liveNotesBackup;
    copy.detach();
    return copy;
}

ChunkFormat::Bookmarks DatachunkHandlerPrivate::liveBookmarks() const
{
    const QMutexLocker locker(&notesLock);
    ChunkFormat::Bookmarks copy = isLive ? bookmarks() : liveBookmarksBackup;
    copy.detach();
    return copy;
}

ChunkFormat::Notes DatachunkHandlerPrivate::notesInView() const
{
    const QMutexLocker locker(&notesLock);
    // Qt's maps count who shares them, without ordering what they did with it before.
    ChunkFormat::Notes copy = notes;
    copy.detach();
    return copy;
}
