#pragma once

#include "lineindex.h"
#include "turningthread.h"

#include <QElapsedTimer>
#include <QObject>
#include <QStringList>

#include <atomic>
#include <memory>

/// Reads lines of a text file of any size on a thread of its own: finds where they are, and brings
/// those that are to be shown.
class SourceReader : public QObject
{
    Q_OBJECT
public:
    /// \a pageLines is how many lines are brought at a time.
    SourceReader(QString fileName, int pageLines, QObject *parent = nullptr);
    ~SourceReader() override;

    /// Has the lines from \a first on read, counted from 1; what was wanted before and has not come
    /// is no longer wanted. page() follows once they are known. Nothing is read or told before this
    /// is called.
    void want(quint64 first);

signals:
    /// How many lines there are so far, and of how many bytes of the file.
    void progress(quint64 lines, qint64 done, qint64 total);
    /// All lines are known.
    void complete(quint64 lines);
    /// The lines from \a first on.
    void page(quint64 first, const QStringList &lines);
    void failed(const QString &text);

private:
    class Reading;

    bool hasFile();
    void work(const TurningThread::KeepGoing &keepGoing);
    void readOn();

    const QString fileName;
    const int pageLines;
    std::atomic<quint64> wanted{0}; // none where it is 0

    // Of the thread.
    std::unique_ptr<Reading> reading;
    bool hasFailed = false;
    QElapsedTimer sinceProgress;

    TurningThread thread; // ends first
};
