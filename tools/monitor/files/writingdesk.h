#pragma once

#include "backgroundjob.h"
#include "converting.h"

#include <QObject>

class JobQueue;
class QWidget;
class ShownTrace;
class TraceView;
struct ArchiveResult;

/// Writes traces in the background: exports, conversions, archives. Asks the user what, and where.
class WritingDesk : public QObject
{
    Q_OBJECT
public:
    /// Dialogs belong to \a window; \a queue must live as long.
    WritingDesk(QWidget *window, JobQueue *queue, QObject *parent = nullptr);
    ~WritingDesk() override;

    /// What is being written, or waits for it; a few words each.
    QStringList unfinished() const;

    // They ask first.
    void askForExport(ShownTrace &trace, const TraceView &view);
    void askForConversion(bool merged);
    void askForPacking(ShownTrace &trace);
    void askForUnpacking(const QString &archive);

    // They return the job, which has been put into the queue and goes by itself.
    BackgroundJob *exportTrace(const TraceTimeline &timeline, const TraceSelection &selection,
                               const ExportOrder &order);
    void convert(const ConvertOrder &order);
    BackgroundJob *pack(const TraceTimeline &timeline, const QStringList &paths,
                        const QString &archive);
    void unpack(const QString &archive, const QString &folder);

signals:
    void notice(const Notice &notice);
    /// The user wants to see what was written.
    void openWanted(const QStringList &paths);

private:
    BackgroundJob *run(const QString &title, BackgroundJob::Work work);
    static void keepMarks(BackgroundJob *job, ShownTrace *trace);
    Notice withOpen(Notice notice, const QString &path) const;
    Notice converted(const ConvertOrder &order, const ConvertResult &result) const;
    void showList(const QString &title, const QStringList &lines);
    void askForFolder(const QString &archive);

    QWidget *const window;
    JobQueue *const queue;
};
