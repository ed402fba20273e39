#pragma once

#include "bookmarkhandler.h"
#include "datachunkhandler.h"
#include "recordingsettings.h"
#include "showntrace.h"

#include <QTimer>

#include <atomic>
#include <vector>

/// What has become of the messages: taken is stored and dropped together.
struct RecordingCounts
{
    quint64 taken = 0;
    quint64 stored = 0;
    quint64 dropped = 0;       ///< the disk was too slow, or did not take them
    quint64 chunksRemoved = 0; ///< by the budget, of those stored
};

/// What is received from the bus lines: the store that records it, and the trace that is shown.
class Recording : public ShownTrace
{
    Q_OBJECT
public:
    explicit Recording(QObject *parent = nullptr);
    explicit Recording(const RecordingSettings &settings, QObject *parent = nullptr);
    ~Recording() override;

    DatachunkHandler &store() { return *ownStore; }

    bool isGrowing() const override { return growing; }
    /// Whether it has messages; a recording that was saved goes.
    bool isUnsaved() const override { return taken != 0; }

    /// Any thread.
    void append(const std::vector<CAN::CanRxMessage> &messages);
    RecordingCounts counts() const;

    /// MiB on the disk.
    int budget() const { return budgetSize; }
    void setBudget(int mebibytes);

    /// Whether lines bring messages; as long as they do, none is in memory alone for long.
    void setGrowing(bool growing);

signals:
    /// The user wants more room than the budget.
    void settingsWanted();
    /// The store has told that something was not written.
    void storeFailed(const QString &text);

private:
    Recording(std::unique_ptr<DatachunkHandler> store, const RecordingSettings &settings,
              QObject *parent);
    void writeToDisk();
    void chunkRemoved();

    BookmarkHandler bookmarks; // outlives the store
    const std::unique_ptr<DatachunkHandler> ownStore;
    std::atomic<quint64> taken{0};
    quint64 written = 0; // as many were there when they were last written
    quint64 chunksRemoved = 0;
    int budgetSize = 0;
    bool growing = false;
    QTimer writeTimer;
};
