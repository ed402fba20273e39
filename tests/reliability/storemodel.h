#pragma once

#include "canrxmessage.h"
#include "chunkformat.h"

#include <QStringList>
#include <QVector>

#include <vector>

/// Messages in a row whose contents follow from their serial numbers. A serial number is never used
/// twice, unlike a message number.
struct MessageRun
{
    enum Kind { Received, Imported };

    quint32 serial = 0; ///< of the first message
    quint32 number = 0; ///< message number of the first message
    quint32 count = 0;
    Kind kind = Received;

    /// A default record outside the run.
    CAN::CanRxMessage at(qint64 position) const;
};

/// One message of a kind, without its number.
CAN::CanRxMessage messageOf(quint32 serial, MessageRun::Kind kind);

/// Whether a record is whole: a default one, or the one that its time stamp belongs to.
bool isWhole(const CAN::CanRxMessage &message);

/// A file that a store has been told to write, or has to read. The form of records and lines is the
/// library's, which tests of its own compare with bytes and texts.
struct ModelFile
{
    QString name;
    MessageRun messages;
    qint64 start = 0;
    qint64 end = 0;
    QList<unsigned int> selected;
    ChunkFormat::Notes notes;
    ChunkFormat::Bookmarks bookmarks;
    bool removed = false; ///< by the disk budget

    QVector<CAN::CanRxMessage> records(qint64 from) const;
    QString timeText() const;
    bool hasFdFrame() const;
    QByteArray chunkBytes() const;
    QString text() const;
};

/// What a store has to hold, to write and to tell, computed on one thread with plain vectors. Each
/// operation is the one of the store with the same purpose.
class StoreModel
{
public:
    /// Goes on with the serial numbers after the ones that another store has used.
    StoreModel(quint32 maxMessageCount, bool hasBookmarks, quint32 serials, quint32 imports);

    void append(quint32 count);
    void rotate();
    void annotate(quint32 number, const QString &text);
    void annotateChunk(std::size_t chunk, quint32 number, const QString &text);
    void page(const ModelFile &chunk);
    void merge(const QVector<ModelFile> &entriesInArchiveOrder, const QString &archive);
    void goLive();
    void clear();
    void setContinuousMode(bool on);
    void startImport();
    void finishImport(quint32 count, const QString &file);
    void exportMessages(const QString &file, bool withNotes, const QList<unsigned int> &selected);
    void exportRange(const QString &file, int first, int last);
    /// Nothing is left to do in the background.
    void settle();

    /// The views that the store may show: until a handover there are two.
    QVector<QVector<MessageRun>> views() const;
    quint32 nextSerial() const { return serial; }

    /// What the application's thread has to be told, since it was asked last.
    QStringList takeDue() { return std::exchange(due, {}); }

    MessageRun live;
    QVector<MessageRun> paged;
    MessageRun rotated;
    bool isLive = true;
    bool showsRotated = false; ///< until the handover, which shows the live list
    bool continuousMode = false;
    bool linesOfOthers = false; ///< those of messages appended while browsing count as shown
    quint32 maxMessageCount;
    quint32 budget = 1000;
    quint32 otherKibibytes = 0; ///< of the exported chunk in the chunk folder
    quint32 chunkCount = 0;
    quint32 imports; ///< serial number of the next imported message

    ChunkFormat::Notes notes;
    ChunkFormat::Bookmarks bookmarks;

    std::vector<ModelFile> chunks;   ///< rotated and not cleared since, in order
    std::vector<ModelFile> partials; ///< of the import that ran last
    std::vector<ModelFile> exports;  ///< ordered and not looked at yet
    quint32 removals = 0;            ///< by the budget since the last clearing
    quint32 switchesDue = 0;         ///< handovers in the background since the last settling
    quint32 rotations = 0;           ///< each may be followed by one

    quint64 lostWithoutBudget = 0;
    quint64 lostInContinuousMode = 0;

private:
    bool isFull(quint32 size) const;
    void enforceBudget();
    bool isExportable(bool any, const QString &file);
    void savePartial(const MessageRun &messages, const ChunkFormat::Notes &notes);
    void leaveLive();
    void show(const QVector<MessageRun> &messages);

    const bool hasBookmarks;
    quint32 serial;
    quint32 number = 0;
    ChunkFormat::Notes liveNotes;
    ChunkFormat::Bookmarks liveBookmarks;
    const ChunkFormat::Notes &notesOfLive() const { return isLive ? notes : liveNotes; }

    ChunkFormat::Notes exportNotes;
    ChunkFormat::Bookmarks exportBookmarks;
    quint32 kibibytes = 0;
    std::size_t oldest = 0; // of the chunks in the folder
    QStringList due;
};
