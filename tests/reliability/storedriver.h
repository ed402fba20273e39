#pragma once

#include "bookmarkhandler.h"
#include "datachunkhandler.h"
#include "storemodel.h"
#include "tracefilter.h"
#include "tracetimeline.h"

#include <QDebug>
#include <QTemporaryDir>

#include <atomic>
#include <functional>
#include <memory>
#include <random>
#include <thread>

/// Gives a store and its model the same random commands and compares what they hold, write and
/// tell. Stops at the first difference.
class StoreDriver : public QObject
{
    Q_OBJECT
public:
    enum Weights {
        Everything,
        EndingAtOnce, ///< the same, but with whatever is under way at the end
        Recording ///< long bursts with some paging, exports and clearings; nothing loses messages
    };

    /// With \a readers, threads look at the messages shown all the while.
    StoreDriver(quint32 seed, Weights weights, int readers);
    ~StoreDriver() override;

    /// Runs until so many commands were given or messages appended, then ends the store. Returns
    /// the first difference with the last commands; empty when there is none.
    QString run(int commands, quint64 messages);

private:
    struct Command
    {
        const char *name;
        int weight;
        int weightWhileRecording;
        std::function<void(StoreDriver &)> run;
    };
    static const Command commands[];
    const Command &anyCommand();
    void note(const QString &details) { commandLog.last() += QLatin1Char(' ') + details; }

    void append();
    void rotate();
    void appendBurst(int count);
    void writeNote();
    void writeNoteAnywhere();
    void writeBookmark();
    void noteNextMessage();
    void noteLastMessage();
    void takeTimedNote(quint32 number, const QString &before, int times, const QString &words);
    void pageChunk();
    void goLive();
    void exportSome();
    void exportLastChunk(bool packed);
    void clear();
    void changeBudget();
    void changeMode();
    void writeContinuousOutput();
    void import();
    void pack();
    void merge();
    void settle();

    void beginStore();
    void endStore();
    void connectStore();
    void read(quint32 seed);

    // The checker.
    void require(bool good, const QString &otherwise);
    template <typename Value>
    void compare(const char *what, const Value &actual, const Value &expected)
    {
        if (!(actual == expected) && firstFailure.isEmpty())
            QDebug(&firstFailure) << what << actual << "instead of" << expected;
    }
    void check();
    void checkView();
    bool showsLiveList() const;
    void checkLines(const QVector<MessageRun> &view);
    void checkNotes();
    void checkTimeline();
    void checkRow(const MessageRun &run, quint32 offset, const ModelFile *chunk);
    void checkFilter();
    void checkChunk(const ModelFile &expected, const QString &path);
    void checkExports();
    void checkPartials(const QString &importName);
    void checkFolder();
    void chunkAnnounced(quint32 index, const QString &time);
    void keepLastChunkYoung();
    /// Counts what a clearing or the end of the store takes along.
    void forgetTrace();

    /// Whether a condition comes true, however busy the machine is.
    static bool comesTrue(const std::function<bool()> &condition);

    int below(int limit) { return int(random() % quint32(qMax(limit, 1))); }
    QString text() { return QStringLiteral("text %1").arg(++texts); }
    QString newFile(const QString &suffix);
    QString newExport();
    DatachunkHelper::ExportOptions options(bool withNotes) const;
    QString inChunkFolder(const QString &name) const;

    std::mt19937 random;
    const Weights weights;
    const int readerCount;
    QTemporaryDir folder;
    std::unique_ptr<BookmarkHandler> bookmarks;
    std::unique_ptr<DatachunkHandler> store;
    std::unique_ptr<StoreModel> model;
    std::optional<TraceTimeline> timeline;
    std::optional<TraceFilter> filter;
    QStringList commandLog;
    QString firstFailure;
    int texts = 0;
    int files = 0;

    // What the store told.
    QStringList told;
    QStringList toldPartials;
    int toldChunks = 0;
    quint32 toldRemovals = 0;
    QSet<unsigned char> toldLines;
    std::atomic<quint32> switchStarts{0};
    std::atomic<quint32> switches{0};
    quint32 switchesSettled = 0;

    QVector<ModelFile> archive; // in the order of its entries
    QString archiveName;
    std::unique_ptr<ModelFile> lastChunk; // the exported chunk in the chunk folder
    quint32 serials = 0;                  // used so far
    quint32 imported = 0;

    // Every message appended is in one of the last three.
    quint64 appended = 0;
    quint64 verified = 0;
    quint64 lostByBudgetUnseen = 0;
    quint64 lostWithReason = 0;
    std::vector<std::thread> readers;
    std::atomic<bool> stopReading{false};
    std::atomic<bool> sawTorn{false};
};
