#pragma once

#include "archivedesk.h"
#include "archiving.h"
#include "browsing.h"
#include "chunksaver.h"
#include "datachunkhandler.h"
#include "exportdesk.h"
#include "partialchunks.h"
#include "pooltasks.h"
#include "recordedtrace.h"
#include "recordingoutput.h"
#include "savereports.h"
#include "teller.h"
#include "trace.h"
#include "tracereader.h"

#include <atomic>

/// The parts of a store, and what a rotation and a clearing of its trace lead to.
class DatachunkHandlerPrivate : private TraceWatcher
{
public:
    DatachunkHandlerPrivate(DatachunkHandler *store, unsigned int maxMessageCount);

    /// No part begins anything any more.
    void stop();

    /// What a rotation leads to beyond the lock of the trace.
    void finishRotation();
    /// Shows the new live list in place of the one rotated.
    void showNewLiveList();

    /// A job with the notes and bookmarks that are kept for exports.
    SharedSaveJob newJob(DatachunkHelper::SavedMessageType type, const QString &fileName) const;

    /// Shows a file in place of the live messages, and has what is shown saved if \a save.
    bool loadFile(const TraceRequest &request, bool save);
    /// Reads a trace as an import of its own, without showing it.
    bool readAlone(const TraceRequest &request);

    // Qt makes what guarded pointers to an object share with the first of them, and does not order
    // that for other threads. So it is made before there are any.
    const Teller teller;
    Trace trace;
    Browsing browsing;
    RecordingOutput continuousOutput;
    SaveReports saveReports;
    TraceNotes::Marks exportMarks; // what the next export carries; application's thread
    QString fileToLoad;            // application's thread
    std::atomic<bool> missingFolderTold{false};
    PoolTasks poolTasks;

    // Last, so that their threads end before anything that they report to is gone.
    ChunkSaver chunkSaver;
    ExportDesk exports;
    ArchiveDesk archives;
    const std::shared_ptr<RecordedTrace> recorded; // timelines may outlive the store
    PartialChunks partialChunks;
    Archiving archiving;

private:
    void liveListGoes() override;
    void rotated(const MessageList &messages, const TraceNotes::Marks &marks) override;
    void cleared() override;
};
