#pragma once

#include "bookmarkhandler.h"
#include "canrxmessage.h"
#include "datachunkglobal.h"
#include "datachunkhelper.h"

#include <QDataStream>
#include <QFile>
#include <QList>
#include <QMap>
#include <QObject>

#include <memory>

class ContinuousOutput;
struct SaveJob;

/// Writes messages to one file: a chunk file when the name ends in "dck" (case-sensitive), a
/// text export otherwise. A worker saves once, on the thread that calls saveToFile(). A second use
/// is the continuous output file, a chunk file that takes messages one by one.
class DATACHUNK_EXPORT SaveFileWorker : public QObject
{
    Q_OBJECT
public:
    /// An empty worker, for the continuous output.
    explicit SaveFileWorker(QObject *parent = nullptr);

    /// A worker for the list positions from \a startPosition up to, not including,
    /// \a endPosition, or for exactly the positions \a selected when there are any. Positions
    /// outside the list are passed over. \a maximumUsedSpace is the budget of the target's
    /// folder in MiB. The notes and bookmarks are copied; \a messages is read when the saving
    /// starts, so it must live that long and not change meanwhile. It may be null.
    SaveFileWorker(QString fileName, QList<CAN::CanRxMessage> *messages,
                   DatachunkHelper::SavedMessageType type, unsigned int maximumUsedSpace,
                   unsigned int endPosition, QMap<unsigned int, QString> notes,
                   QMap<unsigned int, CanMessageBookmark> bookmarks, int startPosition,
                   QList<unsigned int> selected, QObject *parent = nullptr);
    ~SaveFileWorker() override;

    /// Version of the chunk that was read or written last in this process, 0 before the first
    /// one. Only msgToStream and msgFromStream go by it.
    static quint16 dataChunkVersion;

    /// Writes all that stands in front of the records, with the time stamps of the messages at
    /// \a first and \a last (both included), and returns the header text.
    QString writeFileHeader(QDataStream &stream, unsigned int first, unsigned int last);

    /// Writes one record in the form of dataChunkVersion.
    void msgToStream(QDataStream &stream, CAN::CanRxMessage message);

    /// Reads one record in the form of dataChunkVersion over \a message. A length outside 0..64
    /// sets the stream's status to ReadCorruptData and leaves \a message as it was.
    void msgFromStream(QDataStream &stream, CAN::CanRxMessage &message);

    /// Deletes the oldest file of the folder that holds \a fileName when its files take more
    /// than the budget and the oldest one is a chunk; dataFileRemoved() follows.
    void checkUsedSpace(QString fileName);

    /// Writes the text export. Nothing is written and nothing reported when the file cannot be
    /// opened; errorText() tells the reason.
    void exportMessagesToTxt();

    /// One line of the text export, with the note of the message.
    QString getOldStyleTxtOutput(CAN::CanRxMessage message);

    /// Starts a continuous output file, replacing an existing one. False, and nothing is
    /// opened, when the name does not end in "dck" or the file cannot be created.
    bool createContinuousOutputFile(QString fileName);

    /// Adds one message; does nothing without an open continuous output file.
    void appendToContinuousOutputFile(CAN::CanRxMessage message);

    /// Writes what is left and closes the file; does nothing without an open one.
    void finishContinousOutput();

    /// Hands what was appended so far to the operating system.
    void flushContinuousOutput();

    /// Why the last save or the last continuous output is missing or incomplete; empty when all
    /// is written.
    QString errorText() const;

public slots:
    /// Saves, reports through the signals and ends with ready().
    void saveToFile();

signals:
    /// \name On the thread that saves; a time is the text of the chunk's header
    /// \{

    /// Saving has ended, whatever came of it.
    void ready();
    /// The budget has taken the oldest chunk of the folder.
    void dataFileRemoved();
    /// A chunk of type FullBuffer was written.
    void newDataFile(QString time);
    /// A chunk of type PartialBuffer was written.
    void newPartialDataFile(QString fileName, QString time);
    /// A chunk of type CurrentMessages was written (true), or one of any type could not be created.
    void savingFinished(bool success);
    /// \}

private:
    void readMessages();
    void saveChunk();

    const QList<CAN::CanRxMessage> *const messages; // the caller's
    const std::unique_ptr<SaveJob> job;
    const std::unique_ptr<ContinuousOutput> continuousOutput;
    QString lastError; // of the last save
};
