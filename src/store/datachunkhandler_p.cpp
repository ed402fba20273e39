#include "datachunkhandler_p.h"

#include <utility>

DatachunkHandlerPrivate::DatachunkHandlerPrivate(DatachunkHandler *store,
                                                 unsigned int maxMessageCount)
    : q(store), trace(maxMessageCount, *this),
      chunkSaver([this](const SaveReport &report) { postReport(report); }),
      exports(chunkSaver.folder(), [this](const SaveReport &report) { postReport(report); })
{
}

void DatachunkHandlerPrivate::liveListGoes()
{
    emit q->informAboutClearStart();
}

void DatachunkHandlerPrivate::rotated(const MessageList &messages, const TraceNotes::Marks &marks)
{
    if (!chunkSaver.saves())
        return;
    const auto job = std::make_shared<SaveJob>();
    job->type = DatachunkHelper::FullBuffer;
    job->isPrivate = true;
    job->fileName = chunkFolder.chunkTemplate();
    job->messages = messages;
    job->endPosition = quint32(messages.size());
    job->notes = marks.notes;
    job->bookmarks = marks.bookmarks;
    chunkSaver.add(job);
}

void DatachunkHandlerPrivate::cleared()
{
    chunkSaver.clear();
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

void DatachunkHandlerPrivate::showLive()
{
    if (trace.isLive())
        return;
    const QPointer<DatachunkHandler> store(q);
    emit q->informAboutClearStart();
    // A slot may have been faster.
    if (!store || !trace.showLive())
        return;
    emit q->informAboutCleared(trace.isLive());
    if (store)
        emit q->liveModeChanged(trace.isLive());
}

void DatachunkHandlerPrivate::leaveLiveMode()
{
    ++viewRequests;
    const QPointer<DatachunkHandler> store(q);
    emit q->informAboutClearStart();
    if (!store)
        return;
    trace.leaveLive();
    lastError = DatachunkHandler::tr("Unknown import error");
}
