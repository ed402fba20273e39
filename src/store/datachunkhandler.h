#pragma once

#include "bookmarkhandler.h"
#include "canrxmessage.h"
#include "datachunkglobal.h"
#include "datachunkhelper.h"
#include "importreport.h"

#include <QDir>
#include <QList>
#include <QMap>
#include <QObject>
#include <QPointer>
#include <QSet>

#include <memory>

class DatachunkHandlerPrivate;
class TraceTimeline;

/// The trace of a CAN bus monitor: keeps a bounded number of messages in memory, moves full
/// buffers into chunk files and pages them back, with notes and bookmarks.
///
/// The store shows one list at a time: the live one, or, while browsing, the messages of a
/// loaded file. Indexes are positions in the list shown, 0 being the oldest message.
///
/// Threads: appendCanMessage may be called from any number of threads, and so may everything
/// that reads or counts. What changes the mode, loads, imports, exports or clears belongs to the
/// thread the store lives on, "the application's thread" below.
///
/// Locks: the operations take the store's read/write lock, which is not recursive. A slot that
/// is connected directly to informAboutClearStart, informAboutCleared or newLine may be called
/// under the lock and must not call back into the store; queued connections are free to.
///
/// Destroying the store is safe at any moment, even from an event that an import lets through
/// and from a slot that is not called under the lock. Exports are written to their end first.
class DATACHUNK_EXPORT DatachunkHandler : public QObject
{
    Q_OBJECT
public:
    /// Keeps up to \a maxMessageCount - 5000 messages in memory before they are moved to a chunk
    /// file; a limit below 5000 never moves any. Creates the chunk folder, which the destructor
    /// removes.
    DatachunkHandler(unsigned int maxMessageCount, QObject *parent = nullptr);
    ~DatachunkHandler() override;

    /// The store never owns the handler. Without one there are no bookmarks.
    void setBookmarkhandler(QPointer<BookmarkHandler> bookmarkHandler);

    /// Sets the budget of the chunk folder in MiB, 1000 at first. A chunk saved above it removes
    /// the oldest one; with 0, rotation saves no chunks and the messages are gone.
    void setMaximumHDDSpace(unsigned int space);

    /// Bounds what waits for a slow disk: beyond \a count messages, 10,000,000 at first, the oldest
    /// rotated buffer that is not being written yet is given up. That is told by newErrorMessage,
    /// once until the trace is cleared, and its messages are counted. Any thread.
    void setMaximumWaitingMessages(unsigned int count);
    /// Number of messages given up so since the store was created. Any thread.
    quint64 givenUpMessageCount() const;
    /// Number of messages whose chunk could not be written, or not to its end, since the store was
    /// created; newErrorMessage has told why. Any thread.
    quint64 unwrittenMessageCount() const;

    /// The limit in messages that the constructor was given, 10000 once continuous mode was set.
    /// Takes no lock.
    unsigned int getMaxMessageCount();

    /// Number of messages shown. Takes the read lock.
    unsigned int getMessageCount();

    /// Continuous mode keeps the newest 10000 messages and never writes a chunk. Either value of
    /// \a on sets the message limit to 10000, the disk budget to 0 and the dropped messages to 0.
    void setContinuesMode(bool on);
    /// Takes no lock; any thread.
    bool getContinuesMode();
    /// Whether the live messages are shown. Takes no lock; any thread.
    bool getIsLive();

    /// The append of continuous mode; numbers \a message. Any thread; takes the write lock.
    void appendCanMessageContinuesMode(CAN::CanRxMessage &message);

    /// Moves the live messages to a chunk file before their number reaches the limit, in all else
    /// as a full buffer is moved: with a disk budget of 0 there is no file either, and they are
    /// gone with the next rotation. False, and nothing happens, when there are none or the mode is
    /// continuous. Any thread; takes the write lock, and emits under it as informAboutClearStart
    /// tells.
    bool rotate();

    /// Tells by newErrorMessage that a file is of a newer version. Application's thread, as the
    /// next.
    void showDataChunkVersionMismatch();
    /// The same of one with too many messages; \a minimum is the message count that would do.
    void showTooMuchMessagesError(unsigned int minimum);
    /// The same of the last import: why it failed.
    void informAboutLastError();

    /// Appends a default record, as appendCanMessage does.
    void addnewtestmessage();

    /// All live messages since the trace was cleared, those in chunks included, whatever is shown.
    /// It may be used when the store is gone, and then shows what was known last, as far as that is
    /// in memory. Any thread; a refresh takes the read lock for a moment.
    TraceTimeline timeline() const;

    /// The folder of this store's chunk files, "tmpData0.dck" and so on. An empty path when it
    /// could not be created; the store then writes no chunks.
    QString chunkFolderPath() const;

    /// \name Access to the messages shown
    /// Takes the read lock where nothing else is said. \{

    /// A default record when there is no message \a index.
    CAN::CanRxMessage messageAt(int index) const;
    /// The same without taking the lock, for callers that hold off all changes.
    CAN::CanRxMessage messageAtPassMutex(int index) const;
    /// False when \a index is not below the number of messages. A negative index gives true and
    /// a default record.
    bool getMessageAtIndex(CAN::CanRxMessage &out, int index);
    /// Index of the first message with \a number, or 0xFFFFFFFF. Takes the write lock.
    unsigned int getPositionOfMessageNumber(unsigned int number);
    /// A default record when nothing is shown.
    CAN::CanRxMessage getLastMessage();

    /// The bus lines seen. Takes no lock.
    QSet<unsigned char> getLines();
    /// Takes no lock.
    void clearLines();
    /// Collects the lines anew and emits newLine for each of them, under the read lock.
    void updateLines();
    /// Starts every line's nextMessageForLine from the first message again.
    void resetLinePositions();
    /// Number of messages shown that are of \a line.
    unsigned int messageCountForLine(unsigned char line);
    /// The last message shown when none is of \a line.
    CAN::CanRxMessage firstMessageOfLine(unsigned char line) const;
    /// The first message shown when none is of \a line.
    CAN::CanRxMessage lastMessageOfLine(unsigned char line) const;
    /// Finds the first message of \a line at or behind \a position, which counts the messages
    /// dropped in continuous mode, and sets \a position to its index, which does not. False at
    /// the end; \a out is then the last message looked at.
    bool getMessageOfLine(CAN::CanRxMessage &out, unsigned char line, unsigned int &position);
    /// Steps through the messages of \a line, one a call; false at the end. One thread only.
    bool nextMessageForLine(CAN::CanRxMessage &out, unsigned char line);
    /// All messages of \a line from \a fromPosition on, which counts the messages dropped.
    QList<CAN::CanRxMessage> getMessagesOfLine(unsigned char line, unsigned int fromPosition);
    /// \}

    /// \name Notes and bookmarks
    /// Those of the messages in view, by message number. Any thread; they take the lock of the
    /// notes only. Those made on a list that is paged in or imported are not saved: they vanish
    /// when it is left. \{

    /// Empty when the message has none.
    QString getMessageNote(unsigned int number) const;
    /// Replaces the note; an empty text is a note as well.
    void setMessageNote(unsigned int number, QString text);
    /// Adds \a text behind " ; " unless the note contains it already.
    void appendMessageNote(unsigned int number, QString text);
    /// The next message appended gets the note "request time - arrival time - text".
    void addMessageNoteToNextMessage(QString text);
    /// Adds the time of day and \a text to the note of the last message shown.
    void addMessageNoteToLastMessage(QString text);
    /// A bookmark that is not valid when the message has none.
    CanMessageBookmark bookmarkAt(int number) const;
    /// \}

    /// \name Saving chunk files
    /// Application's thread. \{

    /// Saves messages in the background: the live ones for CurrentMessages (a "dck" name makes
    /// a chunk, any other a text), the rotated buffer still shown for the other types, with the
    /// chunk's number in place of "%1". \a selected picks positions; otherwise \a startPosition
    /// to \a lastPosition are saved, both included, and 0 for the latter means all.
    void saveMessagesToFile(QString fileName, DatachunkHelper::SavedMessageType type,
                            QList<unsigned int> selected, int startPosition, int lastPosition);
    /// Saves a copy of \a messages in the background. \a endPosition is not included.
    void saveMessages(QString fileName, QList<CAN::CanRxMessage> *messages,
                      unsigned int endPosition, DatachunkHelper::SavedMessageType type,
                      int startPosition, QList<unsigned int> selected);
    /// Waits until the chunks and exports ordered so far are written, but no longer than
    /// \a milliseconds; for ever when that is negative. False when the time was too short. The
    /// reports are then on their way to the store's thread. Any thread.
    bool waitForSaves(int milliseconds = -1);
    /// \}

    /// \name Loading and splitting chunk files
    /// Reading turns the event loop every 100000 messages, as an import does, with what is said
    /// there. A file that is damaged, or ends early, is read as far as it goes and told of by one
    /// newErrorMessage. What would take more than half of the memory is refused as too many
    /// messages. Application's thread. \{

    /// Adds the messages of a chunk file to the browsing list and takes over its notes and
    /// bookmarks. False, and nothing changes, when it cannot be opened or the reading is cancelled;
    /// a newer version and too many messages are reported and lead back to live mode.
    bool loadDckFile(QString fileName);
    /// The same, but never reads the bookmarks, so that those of a version 104 file are taken
    /// for the beginning of its first record. What that leads to may be told as damage.
    bool appendDckFile(QString fileName);
    /// Shows rotated chunk \a number, from memory where its file is not complete yet. Notes and
    /// bookmarks made on its messages are gone when another list is shown. Always returns true.
    bool loadDataFromFile(int number);
    /// Cuts a chunk file into parts of \a messagesPerFile messages, numbered from 0 across the
    /// parts, in a folder "..._splitted" beside it. The last part takes the place of the
    /// continuous output, which is finished before the first one, and stays open as that. False
    /// when the file cannot be read, is of a newer version or a part cannot be created, when the
    /// splitting is cancelled, and for parts of 0 messages.
    bool splitFile(QString fileName, unsigned int messagesPerFile);
    /// \}

    /// \name The continuous output
    /// A chunk file that the application fills message by message. What could not be written is
    /// told by newErrorMessage, once for each file. One thread at a time. \{

    /// Begins a file, in place of an existing one, and finishes the one before. False, and nothing
    /// is open, when the name does not end in "dck" or the file cannot be created.
    bool createContinuousOutputFile(QString fileName);
    /// Adds one message; does nothing without an open file.
    void appendToContinuousOutputFile(CAN::CanRxMessage message);
    /// Ends the file; does nothing without an open one.
    void finishContinousOutput();
    /// \}

    /// \name ZIP archives of chunk files
    /// They are worked on one after the other, in the background or on the thread that calls; the
    /// signals come on the store's thread in any case. Any thread.
    ///
    /// Entries that are damaged or left out are told of by newErrorMessage, one by one up to 20 and
    /// then by their number, and so are archives of more than 100000 entries, which are not read.
    /// \{

    /// Where saveDatachunksToZip writes: the path of the archive.
    void setZipFileName(QString fileName);
    /// Has the chunks packed once the save under way, or the export ordered next, has ended well.
    /// Application's thread.
    void setZipAfterSaving(bool on);
    /// Packs all files of the chunk folder, after the saves under way have ended. Returns when
    /// the archive is in its place. On failure, or when the messages are cleared meanwhile, an
    /// earlier archive stays as it is; nothing is reported when it could not even be begun.
    void saveDatachunksToZip();
    /// Adds the chunks of an archive, in whatever folder, by their start in seconds; of equal ones
    /// the last that is not damaged. Chunks without a readable header are left out. Tells nothing.
    void sortZipFile(QString zipName, QMap<double, QString> &order);
    /// Shows the messages of all chunks of an archive as one list, ordered by the chunks' starts,
    /// and leaves live mode. Of equal starts only one chunk is taken, as above. False, and back in
    /// live mode, when nothing could be read. Called on the store's thread, it returns when the
    /// list is shown; from another thread, when it is read. What the user does meanwhile (goLive,
    /// clearing, loading) wins.
    bool loadZipMerged(QString zipName);
    /// The same in the background.
    void importZipAndMerge(QString zipName);
    /// Unpacks the chunks of an archive, but for those in folders, into a folder of their own below
    /// the chunk folder, with newZippedFile for each and zipFileLoaded at the end. Returns whether
    /// there were any.
    bool loadZipFile(QString zipName);
    /// \}

    /// \name Import
    /// Application's thread; an import turns the event loop, so that anything may be called
    /// meanwhile. A second import or load is then refused with messagesImported(QString()); goLive
    /// and clearAllMessages cancel the running one. \{

    /// Shows the messages of a file in place of the ones shown and leaves live mode. False, and
    /// back in live mode, when nothing was imported; a file that cannot be opened changes
    /// nothing. \a clearFileName has no effect.
    bool loadFile(QString fileName, bool clearFileName, DatachunkHelper::ImportFileType type,
                  DatachunkHelper::SavedMessageType savedType, QString formatDescription);

    using ImportMode = DatachunkHelper::ImportMode;               ///< Strict or Tolerant, see there
    static constexpr ImportMode Strict = DatachunkHelper::Strict; ///< by the letter
    static constexpr ImportMode Tolerant = DatachunkHelper::Tolerant; ///< by the shape of lines

    /// How imports and the readers of single formats read texts; strictly at first.
    void setImportMode(ImportMode mode);
    /// What setImportMode() has set.
    ImportMode importMode() const;

    /// Whether importMessages() and loadFile() read a compressed text as what is inside it, in
    /// strict mode as well. In tolerant mode they always do; false at first. See docs/import.md.
    void setReadsCompressed(bool always);

    /// How far the import, load or splitting has come that runs now, or else the archive that is
    /// merged, unpacked or packed now; zeros when nothing is. Of an archive the bytes count
    /// unpacked, 0 in all while it is looked through, and the messages only where it is merged. Any
    /// thread.
    ImportProgress importProgress() const;

    /// Gives up the import or load that runs now, from an event that it lets through: it ends as
    /// one that failed, and the live messages are shown again. Chunks of the import, also those
    /// that newPartialDataFile has told of, are removed; where it is left by goLive they stay. The
    /// application's thread.
    /// When none runs, it gives up the archive that is worked on now, not those that wait: one that
    /// is merged counts as not read and leads back to the live messages, an unpacking removes its
    /// files, also those that newZippedFile has told of, and a packing leaves an earlier archive as
    /// it was. Of archives any thread. Otherwise it does nothing.
    void cancelImport();

    /// What became of the lines of the text that was read last, up to where its reading ended; of
    /// one that was cancelled nothing is known. Chunk files and archives have no report.
    ImportReport importReport() const;
    /// \}

    /// \name The readers of single formats
    /// They add messages to the browsing list without showing it and return false when the file
    /// cannot be opened or read; informAboutLastError tells why. Of an Ixxat, CoCTT or described
    /// trace that fails no message arrives. \{

    /// A candump log, in any of its forms.
    bool loadSocketCanDump(QString fileName);
    /// A packet list exported as comma-separated values.
    bool loadWiresharkCSV(QString fileName);
    /// Fails for any type but PeakTrc11 to PeakTrc21, too.
    bool loadPeakTraceFile(QString fileName, DatachunkHelper::ImportFileType type);
    /// A trace exported by Ixxat's tools.
    bool loadIxxatFile(QString fileName);
    /// A CoCTT test log.
    bool loadCoCTTFile(QString fileName);
    /// \a formatDescription lists what stands in the fields of a line, see GenericFileImporter.
    bool loadGenericFile(QString fileName, QString formatDescription);
    /// A Vector ASC log of which only the lines with "BitCount" are frames.
    bool loadVectorAscLog(QString fileName);
    /// A Vector ASC log of which the lines of the trigger block are frames.
    bool loadVectorAscLogWithoutBitcount(QString fileName);
    /// A log of Kvaser's CanKing.
    bool loadKvaserCanKingLog(QString fileName);
    /// A Kvaser text log, with a header that tells the number formats.
    bool loadKvaserTxtLog(QString fileName);
    /// A Kolvar text log.
    bool loadKolvarTxtFile(QString fileName);
    /// Reads lines of the text export, of a PCAN-Explorer text or of fields parted by ";" or
    /// tabs. importMessages and loadFile count it as failed even where it succeeds.
    bool importMessagesFromTxt(QString fileName);
    /// \}

public slots:
    /// Numbers the message and adds it to the live list. Any thread; takes the write lock once.
    void appendCanMessage(CAN::CanRxMessage message);
    /// Shows a file that the user chose, whatever its type, as loadFile does. \a smt
    /// CurrentMessages has what is shown of a foreign trace saved into the chunk folder.
    /// Application's thread.
    void loadDataFromFile(QString fileName, DatachunkHelper::SavedMessageType smt);
    /// Tells by newErrorMessage that the file which was to be loaded last does not exist.
    void showFileLoadingError();
    /// Shows the live messages again, with their notes and bookmarks, and cancels an import. Does
    /// nothing while they are shown.
    void goLive();
    /// Imports a file as the type says and shows it. Ends with messagesImported; an archive is
    /// unpacked in the background instead, as loadZipFile does. What is longer than the memory for
    /// messages goes into chunks of the import, told by newPartialDataFile, and only the rest is
    /// shown. \a genericFormatDescription is for GenericFormat only, see GenericFileImporter.
    /// Application's thread; turns the event loop.
    void importMessages(QString openFileName, DatachunkHelper::ImportFileType importFileType,
                        QString genericFormatDescription = QString());

    /// \name Exports, and reports of saves
    /// They write live messages in the background, to a chunk when the name ends in "dck", else as
    /// text. Nothing to export and an empty name are told by newErrorMessage, and so is what could
    /// not be written; success is not told. Application's thread. \{

    /// \a messagesToExport are positions in the live list, 0 being the oldest; those outside are
    /// passed over, and none means all. Notes go along as \a expOptions says, bookmarks always.
    void exportMessages(QString fileName, DatachunkHelper::ExportOptions expOptions = {},
                        QList<quint32> messagesToExport = {});
    /// Tells the application by dataFileRemoved.
    void dataFileWasRemoved();
    /// Tells the application of the chunk numbered last, by newDataFile with \a time.
    void newDataFileSaved(QString time);
    /// Exports the positions from \a firstMessage to \a lastMessage, both included; 0 for the
    /// latter means all. A text begins with the first live message whatever \a firstMessage is.
    /// Notes go along, and the bookmarks of the export before.
    void exportMessageRange(int firstMessage, int lastMessage, QString saveFileName);
    /// Exports all; of a "dck" name nothing counts but that ending: the chunk becomes
    /// "zlastChunk.dck" in the chunk folder, to be packed with the others.
    void exportAllMessages(QString fileName, DatachunkHelper::ExportOptions expOptions);
    /// \}

    /// Forgets all live messages, notes, bookmarks and chunks; numbers start at 0 again. Cancels an
    /// import. Application's thread; waits up to 0.2 s for a chunk that is being written.
    void clearAllMessages();
    /// Tells the application of a chunk of the import, by newPartialDataFile.
    void newPartialDataFileSaved(QString savedFileName, QString time);

private slots:
    /// Shows the new live list after a rotation. Any thread.
    void handleFullBuffer();
    /// An export has ended; packs the chunks where that was asked for.
    void savingFinished(bool success);
    /// Adds an imported message to the browsing list. Always true.
    bool addTxtMessage(CAN::CanRxMessage msg);

signals:
    /// \name What the store tells
    /// Emitted on the store's thread and without the lock where nothing else is said. A time range
    /// is the text of a chunk's header, "first - last" in seconds. \{

    /// A chunk of rotated messages was written: its number, from 0, and its time range.
    void newDataFile(uint, QString);
    /// A chunk was unpacked: its file's name, the archive's without ".zip", the folder that it lies
    /// in, its time range.
    void newZippedFile(QString, QString, QDir, QString);
    /// An archive was read, whatever came of it: its file name without ".zip".
    void zipFileLoaded(QString);
    /// A chunk file was imported: its name without the folder, and as it was given.
    void newImportedFile(QString, QString);
    /// A chunk of an import was written: its path, the import's name, its time range.
    void newPartialDataFile(QString, QString, QString);
    /// The budget has taken the oldest chunk.
    void dataFileRemoved();
    /// A foreign trace is about to be read (true), or reading it has ended.
    void showLoadingDialog(bool);
    /// An import ended: the name it was given; an empty one when nothing was imported, also because
    /// another import runs.
    void messagesImported(QString);
    /// A chunk was read, or a trace of a format that tells: whether it holds CAN FD frames. When an
    /// archive is merged once for each of its chunks.
    void chunkContainsFdMessage(bool);
    /// What is shown is about to be replaced.
    /// A rotation emits it on the thread that appends, or calls rotate(); it and clearAllMessages
    /// do so under the write lock.
    void informAboutClearStart();
    /// What is shown was replaced: read it anew. True when it is the live list. After a rotation it
    /// comes on a thread of the background, under the read lock.
    void informAboutCleared(bool);
    /// A sentence for the user. One comes on the thread that appends: that the chunk folder could
    /// not be created.
    void newErrorMessage(QString);
    /// A bus line is new among the messages shown. On the thread that appends, without the lock;
    /// when the lines are collected anew, under the read lock.
    void newLine(unsigned char);
    /// The live messages are shown again (true), or others in their place.
    void liveModeChanged(bool);
    /// \}

private:
    const std::unique_ptr<DatachunkHandlerPrivate> d;
};
