#pragma once

#include "tracesorting.h"

#include <QObject>

class ImportedTrace;
class JobQueue;
class ShownTrace;

/// Finds out what paths are and opens them: chunks at once, foreign traces by an import in the
/// background.
class TraceOpener : public QObject
{
    Q_OBJECT
public:
    /// \a queue must live as long.
    explicit TraceOpener(JobQueue *queue, QObject *parent = nullptr);
    ~TraceOpener() override;

    void open(const QStringList &paths);
    /// Reads a foreign trace as it says.
    void import(const ImportSource &source);

signals:
    /// There is something to show; the receiver owns it.
    void opened(ShownTrace *trace);
    /// Paths that were opened as one trace.
    void wasOpened(const QStringList &paths);
    void wasRefused(const QString &path);
    void notice(const Notice &notice);
    void reportWanted(ImportedTrace *trace);
    void reopenWanted(const ImportSource &source);
    /// Traces in that folder may be chosen one by one.
    void choiceWanted(const QString &folder);

private:
    void take(const SortedPaths &sorted);
    void showChunks(const SortedPaths &sorted);
    void importAll(const QVector<ImportSource> &sources);
    void tellRefused(const QVector<SortedPaths::Refused> &refused);
    void tellRefused(const SortedPaths::Refused &refused);
    void handOver(ImportedTrace *trace);
    void finishImport(ImportedTrace *trace, Notice told);

    JobQueue *const queue;
};
