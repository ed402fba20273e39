#pragma once

#include "modelfile.h"

#include <QStringList>

#include <vector>

/// What a store has to hold, to write and to tell, computed on one thread with plain vectors. Each
/// operation is the one of the store with the same purpose.
class StoreModel
{
public:
    /// Goes on with the serial numbers after the ones that another store has used.
    StoreModel(quint32 maxMessageCount, bool hasBookmarks, quint32 serials, quint32 imports);

    void append(quint32 count);
    void page(const ModelFile &chunk);
    void merge(const QVector<ModelFile> &entriesInArchiveOrder, const QString &archive);
    void goLive();
    void clear();
    void setContinuousMode(bool on);
    void startImport();
    void finishImport(quint32 count, const QString &file);
    void exportMessages(const QString &file, bool withNotes, const QList<unsigned int> &selected);
    void exportRange(const QString &file, int first, int last);
    /// The pool and the saver have nothing left to do.
    void settle();

    /// The views that the store may show: while the pool is busy there are two.
    QVector<QVector<MessageRun>> views() const;
    quint32 nextSerial() const { return serial; }

    /// What the application's thread has to be told, since it was asked last.
    QStringList takeDue() { return std::exchange(due, {}); }

    MessageRun live;
    QVector<MessageRun> paged;
    MessageRun rotated;
    bool isLive = true;
    bool showsRotated = false; ///< until the pool gets to showing the live list
    bool continuousMode = false;
    bool linesOfOthers = false; ///< those of messages appended while browsing count as shown
    quint32 maxMessageCount;
    quint32 budget = 1000;
    quint32 otherKibibytes = 0; ///< of the exported chunk in the chunk folder
    quint32 chunkCount = 0;
    quint32 imports; ///< serial number of the next imported message

    QString noteForNext;
    ChunkFormat::Notes notes;
    ChunkFormat::Bookmarks bookmarks;

    std::vector<ModelFile> chunks;   ///< rotated and not cleared since, in order
    std::vector<ModelFile> partials; ///< of the import that ran last
    std::vector<ModelFile> exports;  ///< ordered and not looked at yet
    quint32 removals = 0;            ///< by the budget since the last clearing
    quint32 switchesAtLeast = 0;     ///< handovers of the pool since the last settling
    quint32 switchesAtMost = 0;

    quint64 lostWithoutBudget = 0;
    quint64 lostInContinuousMode = 0;

private:
    bool isFull(quint32 size) const;
    void rotate();
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
    ChunkFormat::Notes exportNotes;
    ChunkFormat::Bookmarks exportBookmarks;
    quint32 kibibytes = 0;
    std::size_t oldest = 0; // of the chunks in the folder
    QStringList due;
};
