#pragma once

#include "chunkformat.h"
#include "chunkmerge.h"
#include "chunkreading.h"
#include "chunksaver.h"
#include "continuousoutput.h"
#include "datachunkhandler.h"
#include "exportdesk.h"
#include "importrun.h"
#include "pooltasks.h"
#include "regularfile.h"
#include "taskqueue.h"
#include "trace.h"

#include <QMutex>
#include <QPointer>

#include <atomic>
#include <functional>

/// State and inner operations of a DatachunkHandler.
class DatachunkHandlerPrivate : private TraceWatcher
{
public:
    DatachunkHandlerPrivate(DatachunkHandler *store, unsigned int maxMessageCount);

    /// What a rotation leads to beyond the lock of the trace.
    void finishRotation();

    // A slot may delete the store, so whoever has emitted a signal, or called something that
    // does, asks a guarded pointer or an ImportRun before the next use of anything here.

    /// Sets the live notes and bookmarks aside and empties the browsing list.
    void leaveLiveMode();
    /// Back to the live messages, unless they are shown already.
    void showLive();

    // Saving.
    /// A job with the notes and bookmarks that are set aside for exports.
    SharedSaveJob newJob(DatachunkHelper::SavedMessageType type, const QString &fileName) const;
    /// Called on any thread; has the store's thread call saveEnded().
    void postReport(const SaveReport &report);
    void saveEnded(const SaveReport &report);
    void reportSaved(const SaveReport &report);
    void chunkSaved(quint32 index, const QString &time);
    void partialChunkSaved(const QString &fileName, const QString &importName, const QString &time);
    /// Tells the user once when the continuous output is not complete.
    void reportContinuousOutput();
    void exportFinished(quint32 packRequest, bool success);

    // Loading and importing.
    /// Tells the application so and returns true while an import runs.
    bool refuseDuringImport();
    /// Shows a chunk whose file is not complete as the file will show it.
    void showPending(const SaveJob &job);
    bool readChunk(const QString &fileName, ChunkFormat::BookmarkMap bookmarkMap);
    struct ChunkLoad;
    void loadChunk(const ImportRun &run, const QString &fileName,
                   ChunkFormat::BookmarkMap bookmarkMap, ChunkLoad &load);
    void takeChunk(ChunkLoad &load, ChunkFormat::BookmarkMap bookmarkMap);
    /// Tells why a chunk is not read and goes live.
    void refuseChunk(ChunkReading::Result result, quint32 messagesAtMost);
    bool split(const ImportRun &run, const QString &fileName, quint32 messagesPerFile);
    bool splitRecords(const ImportRun &run, RegularFile &file, const ChunkReading::Front &front,
                      const QString &partTemplate, quint32 messagesPerFile);
    /// Makes a file that has been begun elsewhere the continuous output.
    void continueOutput(std::unique_ptr<ContinuousOutput> output);
    /// Emits each text that is not empty as an error message.
    void tell(const QStringList &texts);
    /// Runs the reader of a format. False when there is none, when it failed or when it was
    /// stopped; the store may then be gone.
    bool runReader(const ImportRun &run, const QString &fileName,
                   DatachunkHelper::ImportFileType type, const QString &formatDescription);
    /// The same as an import of its own, for the operations that load a single format.
    bool runLoader(const QString &fileName, DatachunkHelper::ImportFileType type,
                   const QString &formatDescription = QString());
    bool endCancelledImport();
    bool failImport();
    bool finishImport(const ImportRun &run, bool save);
    QString partName() const;
    SharedSaveJob savePagedMessages(const ChunkFormat::Notes &notes);
    /// Adds one imported message; false when the import has to stop, and the store may then be
    /// gone. Turns the event loop where a full buffer has to wait for the one before it.
    bool addImported(const CAN::CanRxMessage &message);
    bool makeRoomForImported();
    /// The same with all messages of an import, which fit into the empty browsing list.
    void takeImported(MessageList messages);
    void reportNothingImported();

    // Archives.
    /// Calls \a function at once on the store's thread, later from any other.
    void onStoreThread(const std::function<void()> &function);
    /// Returns what the user is told of an archive that is incomplete; mostly empty.
    QString packChunks(const QString &zipName);
    QString packFolder(const QString &zipName, const Zip::KeepGoing &keepGoing);
    bool mergeArchive(const QString &zipName, quint32 viewRequest);
    /// What follows a merge. False, with nothing shown, when it failed or is not wanted any more.
    bool endMerge(const QString &name, quint32 viewRequest, ChunkArchive::Merged &merged);
    void showMerged(ChunkArchive::Merged &merged);
    void reportFailure(const ChunkArchive::Outcome &outcome);
    bool unpackArchive(const QString &zipName);

    DatachunkHandler *const q;
    // Qt makes what guarded pointers to an object share with the first of them, and does not order
    // that for other threads. Here it is made before there are any.
    const QPointer<DatachunkHandler> firstGuard{q};

    // Constant after construction, or safe to use from any thread by themselves.
    Trace trace;
    TraceNotes &notes = trace.notes();
    PoolTasks poolTasks;
    // Rotations must find a free thread in the global pool, however long archives take.
    TaskQueue archives;
    QMutex archiveMutex; // held by whoever works on an archive, not while telling; taken first
    std::atomic<bool> stopping{false};
    // Rises with everything that decides what is shown, so that a merge that has been overtaken
    // does not show its own.
    std::atomic<quint32> viewRequests{0};
    std::atomic<bool> missingFolderReported{false};
    bool slowDiskReported = false; // application thread only
    std::atomic<bool> importRunning{false};
    std::atomic<bool> importCancelled{false};
    QMutex zipNameMutex;
    QString zipFileName; // guarded by zipNameMutex

    // Application thread only.
    QString fileToLoad;
    QString loadedFileName;
    QString lastError;
    TraceNotes::Marks exportMarks; // what the next export carries
    bool zipAfterSaving = false;
    quint32 packRequests = 0; // rises with every setZipAfterSaving
    SharedSaveJob lastPartialSave;
    std::unique_ptr<ContinuousOutput> continuousOutput = std::make_unique<ContinuousOutput>();
    bool continuousOutputReported = false;

    // Last, so that their threads end before anything that they report to is gone.
    ChunkSaver chunkSaver;
    ChunkFolder &chunkFolder = chunkSaver.folder();
    ExportDesk exports;

private:
    void liveListGoes() override;
    void rotated(const MessageList &messages, const TraceNotes::Marks &marks) override;
    void cleared() override;
};
