#pragma once

#include "chunkformat.h"
#include "chunkmerge.h"
#include "chunkreading.h"
#include "chunksaver.h"
#include "continuousoutput.h"
#include "datachunkhandler.h"
#include "exportdesk.h"
#include "importrun.h"
#include "lineset.h"
#include "messagelist.h"
#include "pooltasks.h"
#include "regularfile.h"
#include "taskqueue.h"

#include <QMutex>
#include <QPointer>
#include <QReadWriteLock>

#include <array>
#include <atomic>
#include <functional>

/// State and inner operations of a DatachunkHandler. Functions ending in "Locked" expect the
/// write lock.
class DatachunkHandlerPrivate
{
public:
    /// Which list the readers see.
    enum class View {
        Live,
        RotatedBuffer, ///< live, until the pool gets to showing the new live list
        Paged,
        Nothing ///< browsing, while or because nothing has been loaded
    };

    DatachunkHandlerPrivate(DatachunkHandler *store, unsigned int maxMessageCount);

    int liveMessageCount() const;

    /// The list shown. Expects either lock.
    const MessageList &shown() const;

    // Rotation. rotateLocked leaves to finishRotation what must not be done under the lock.
    bool bufferIsFull(const MessageList &messages) const;
    void rotateLocked();
    void finishRotation();
    void numberAndAppendLocked(CAN::CanRxMessage &message);
    /// True when the message's line was not seen before.
    bool insertLine(const CAN::CanRxMessage &message);
    /// Empties the trace and gives up the chunks on their way; a pause of the saving has to last
    /// until their files are removed. Returns the messages, to be freed without the lock.
    MessageList clearLocked();

    // A slot may delete the store, so whoever has emitted a signal, or called something that
    // does, asks a guarded pointer or an ImportRun before the next use of anything here.

    /// Sets the live notes and bookmarks aside and empties the browsing list. Takes the lock.
    void leaveLiveMode();
    void leaveLiveModeLocked();
    /// Back to the live messages, unless they are shown already. Takes the lock.
    void showLive();
    /// Stops keeping the rotated buffer once it is not shown any more. Takes the lock.
    void forgetRotatedBuffer();

    // Notes and bookmarks.
    void takeLiveNotesLocked(SaveJob &job);
    void giveBackLiveNotesLocked(SaveJob &job);
    void attachPendingNoteLocked(quint32 number);
    void setBookmarks(const ChunkFormat::Bookmarks &bookmarks);
    ChunkFormat::Bookmarks bookmarks() const;
    ChunkFormat::Notes notesInView() const;
    /// The notes on the messages of a list in view.
    ChunkFormat::Notes notesOf(const MessageList &messages) const;

    /// The notes and bookmarks on the live messages, whatever is shown.
    ChunkFormat::Notes liveNotes() const;
    ChunkFormat::Bookmarks liveBookmarks() const;

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
    LineSet lines;
    PoolTasks poolTasks;
    // Rotations must find a free thread in the global pool, however long archives take.
    TaskQueue archives;
    QMutex archiveMutex; // held by whoever works on an archive, not while telling; taken first
    std::atomic<bool> stopping{false};
    // Rises with everything that decides what is shown, so that a merge that has been overtaken
    // does not show its own.
    std::atomic<quint32> viewRequests{0};
    std::atomic<bool> isLive{true}; // changes under the write lock
    std::atomic<bool> continuesMode{false};
    std::atomic<quint32> maxMessageCount;
    std::atomic<bool> missingFolderReported{false};
    bool slowDiskReported = false; // application thread only
    std::atomic<bool> importRunning{false};
    std::atomic<bool> importCancelled{false};
    // Where nextMessageForLine goes on. They belong to the list shown, so what replaces both does
    // it under the lock.
    std::array<std::atomic<quint32>, 256> linePositions{};

    // Guarded by lock.
    mutable QReadWriteLock lock;
    std::atomic<View> view{View::Live}; // may be read without it
    MessageList liveMessages;
    MessageList rotatedBuffer;
    MessageList pagedMessages; // without the lock while it is not shown, application thread only
    quint32 nextMessageNumber = 0;
    quint32 droppedMessageCount = 0;
    QPointer<BookmarkHandler> bookmarkHandler; // set by the application thread only
    QString zipFileName;

    // Guarded by notesLock, which is taken last of all and never held during a call outside.
    mutable QMutex notesLock;
    ChunkFormat::Notes notes;
    ChunkFormat::Notes liveNotesBackup;
    ChunkFormat::Bookmarks liveBookmarksBackup;
    std::atomic<bool> noteForNextMessagePending{false};
    QString noteForNextMessage;

    // Application thread only.
    QString fileToLoad;
    QString loadedFileName;
    QString lastError;
    ChunkFormat::Notes savingNotes; // what the next export carries
    ChunkFormat::Bookmarks savingBookmarks;
    bool zipAfterSaving = false;
    quint32 packRequests = 0; // rises with every setZipAfterSaving
    SharedSaveJob lastPartialSave;
    std::unique_ptr<ContinuousOutput> continuousOutput = std::make_unique<ContinuousOutput>();
    bool continuousOutputReported = false;

    // Last, so that their threads end before anything that they report to is gone.
    ChunkSaver chunkSaver;
    ChunkFolder &chunkFolder = chunkSaver.folder();
    ExportDesk exports;
};
