#pragma once

#include "notices.h"
#include "taskthread.h"

#include <QObject>
#include <QStringList>

#include <memory>
#include <vector>

class Recording;

/// Where a recording is to be saved.
struct SaveTarget
{
    QString path; ///< of the new folder, or of the archive
    bool isArchive = false;
};

/// Saves recordings to which nothing is added any more, in the background. One that is not saved,
/// for whatever reason, is kept.
class RecordingSaver : public QObject
{
    Q_OBJECT
public:
    explicit RecordingSaver(QObject *parent = nullptr);
    ~RecordingSaver() override;

    bool isBusy() const { return busy; }
    /// That of the recording which could not be saved last; null for none.
    Recording *kept() const { return busy ? nullptr : recording.get(); }

    /// Not while it is busy, nor while a recording is kept.
    void save(std::unique_ptr<Recording> recording, const SaveTarget &target);
    /// Tries again with the one that is kept.
    void saveKept(const SaveTarget &target);
    /// The recording is then kept, and what was saved of it goes.
    void cancel();
    /// Deletes a recording and its chunks.
    void discard(std::unique_ptr<Recording> recording);
    void discardKept();

signals:
    /// From 0 to 100.
    void progress(int percent);
    /// Saved; the paths to open it from.
    void saved(const QStringList &paths);
    /// Not saved; an empty text when the user wanted it so.
    void failed(const QString &text, const QString &advice);
    void busyChanged();

private:
    void writeLast();
    void bringToTarget();
    void end(const QString &failure);
    void setBusy(bool busy);
    bool goesOn(const TaskThread::GoesOn &goesOn) const { return goesOn() && !isCancelled; }
    QString saveFolder(const QString &chunkFolder, const TaskThread::GoesOn &goesOn);
    QString saveArchive(const TaskThread::GoesOn &goesOn);
    void whenWritten(void (RecordingSaver::*next)());

    std::unique_ptr<Recording> recording;
    std::vector<std::unique_ptr<Recording>> discarded; // as long as their chunks are deleted
    SaveTarget target;
    QString error; // what the store has told meanwhile
    bool busy = false;
    std::atomic<bool> isCancelled{false};
    TaskThread worker; // last: what it does uses the others
};
