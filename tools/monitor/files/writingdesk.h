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

    // They ask first.
    void askForExport(const ShownTrace &trace, const TraceView &view);
    void askForConversion(bool merged);
    void askForPacking(const ShownTrace &trace);
    void askForUnpacking(const QString &archive);

    void exportTrace(const TraceTimeline &timeline, const TraceSelection &selection,
                     const ExportOrder &order);
    void convert(const ConvertOrder &order);
    void pack(const TraceTimeline &timeline, const QStringList &paths, const QString &archive);
    void unpack(const QString &archive, const QString &folder);

signals:
    void notice(const Notice &notice);
    /// The user wants to see what was written.
    void openWanted(const QStringList &paths);

private:
    void run(const QString &title, BackgroundJob::Work work);
    Notice withOpen(Notice notice, const QString &path) const;
    Notice converted(const ConvertOrder &order, const ConvertResult &result) const;
    void showList(const QString &title, const QStringList &lines);
    void askForFolder(const QString &archive);

    QWidget *const window;
    JobQueue *const queue;
};
