#pragma once

#include "bookmarkhandler.h"
#include "datachunkhandler.h"
#include "importing.h"
#include "showntrace.h"

#include <QPointer>

#include <memory>

/// A foreign trace, read in the background into a store of its own, so that it takes no more memory
/// than a recording and grows while it is looked at.
class ImportedTrace : public ShownTrace
{
    Q_OBJECT
public:
    /// \a parent also outlives the trace where it may take its time to clear up.
    explicit ImportedTrace(const ImportSource &source, QObject *parent = nullptr);
    /// Gives up the import.
    ~ImportedTrace() override;

    QStringList paths() const override { return {ownSource.path}; }
    bool isGrowing() const override { return !ownJob->isFinished(); }

    // What was read is still in its file.
    bool isUnsaved() const override { return hasUnkeptMarks(); }

    const ImportSource &source() const { return ownSource; }
    /// Reads the file; whoever made the trace has it done.
    BackgroundJob *job() const { return ownJob.get(); }

    /// How it was read; the report is there once the job has finished.
    const ImportOutcome &outcome() const { return *ownOutcome; }

signals:
    /// There is something to show.
    void begun();
    void reportWanted();

private:
    Notice import(JobControl &control);
    Notice ended(const ImportOutcome &outcome, const JobControl &control) const;
    Notice lossNotice(const ImportOutcome &outcome) const;
    void storeFailed(const QString &text);
    void withReport(Notice &notice) const;

    const ImportSource ownSource;
    const QPointer<QObject> desk; // that clears up
    std::unique_ptr<BookmarkHandler> bookmarks;
    std::unique_ptr<DatachunkHandler> store;
    const std::unique_ptr<ImportOutcome> ownOutcome; // written by the job before it finishes
    std::atomic<bool> isFull{false};
    std::unique_ptr<BackgroundJob> ownJob; // last: it uses the others

    ImportedTrace(const ImportSource &source, std::unique_ptr<DatachunkHandler> store,
                  QObject *parent);
};
