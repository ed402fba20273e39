#include "datachunkhandler_p.h"

#include "savedchunk.h"

DatachunkHandlerPrivate::DatachunkHandlerPrivate(DatachunkHandler *store,
                                                 unsigned int maxMessageCount)
    : teller(store), trace(maxMessageCount, *this), browsing(teller, trace),
      continuousOutput(teller),
      saveReports(teller, trace, [this] { archives.later([this] { archiving.pack(); }); }),
      chunkSaver([this](const SaveReport &report) { saveReports.post(report, chunkSaver); },
                 addSavedChunk),
      exports(chunkSaver.folder(),
              [this](const SaveReport &report) { saveReports.post(report, chunkSaver); }),
      archives(chunkSaver, exports), recorded(std::make_shared<RecordedTrace>(trace, chunkSaver)),
      partialChunks(trace, chunkSaver), archiving(browsing, archives)
{
}

void DatachunkHandlerPrivate::stop()
{
    recorded->detach();
    archives.stop();
    poolTasks.stop();
}

void DatachunkHandlerPrivate::liveListGoes()
{
    teller.tellLast(&DatachunkHandler::informAboutClearStart);
}

void DatachunkHandlerPrivate::rotated(const MessageList &messages, const TraceNotes::Marks &marks)
{
    if (!chunkSaver.saves()) {
        recorded->rotated(messages, nullptr);
        return;
    }
    const auto job = std::make_shared<SaveJob>();
    job->type = DatachunkHelper::FullBuffer;
    job->isPrivate = true;
    job->fileName = chunkSaver.folder().chunkTemplate();
    job->messages = messages;
    job->endPosition = quint32(messages.size());
    job->notes = marks.notes;
    job->bookmarks = marks.bookmarks;
    chunkSaver.add(job);
    recorded->rotated(messages, job);
}

void DatachunkHandlerPrivate::cleared()
{
    chunkSaver.clear();
    recorded->cleared();
}

void DatachunkHandlerPrivate::finishRotation()
{
    const Teller caller = teller;
    chunkSaver.start();
    poolTasks.run([this] { showNewLiveList(); });
    if (caller.storeExists() && chunkSaver.budget() != 0 && !chunkSaver.folder().exists()
        && !missingFolderTold.exchange(true)) {
        caller.tellLast(
            &DatachunkHandler::newErrorMessage,
            DatachunkHandler::tr("The folder for chunk files could not be created. Messages beyond "
                                 "the limit are lost."));
    }
}

void DatachunkHandlerPrivate::showNewLiveList()
{
    if (!trace.isLive() || !teller.tell(&DatachunkHandler::informAboutClearStart)
        || !trace.showNewLiveList())
        return;
    trace.whileReading(
        [this] { teller.tellLast(&DatachunkHandler::informAboutCleared, trace.isLive()); });
}

SharedSaveJob DatachunkHandlerPrivate::newJob(DatachunkHelper::SavedMessageType type,
                                              const QString &fileName) const
{
    auto job = std::make_shared<SaveJob>();
    job->type = type;
    job->fileName = fileName;
    job->isPrivate = chunkSaver.folder().holds(fileName);
    job->notes = exportMarks.notes;
    job->bookmarks = exportMarks.bookmarks;
    return job;
}
