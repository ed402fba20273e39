#pragma once

#include "tracetimeline.h"
#include "turningthread.h"

#include <QObject>

#include <deque>
#include <memory>
#include <mutex>

/// Writes notes and bookmarks into a trace, one after the other, on a thread of its own: a chunk
/// file may have to be copied for each. Its end waits until all of them are written.
class NoteWriter : public QObject
{
    Q_OBJECT
public:
    explicit NoteWriter(const TraceTimeline &timeline, QObject *parent = nullptr);
    ~NoteWriter() override;

    struct Change
    {
        enum Kind { Note, Bookmark };
        Kind kind = Note;
        quint64 position = 0;
        QString text; ///< an empty one takes it away
    };
    /// Never waits. The position is one of the trace as it is.
    void write(const Change &change);

signals:
    /// A change has been tried; \a error tells why it has failed, or is empty.
    void ended(const NoteWriter::Change &change, const QString &error);

private:
    struct Waiting
    {
        Change change;
        quint32 generation; // of its position
    };

    void writeAll();
    QString written(const Waiting &next);

    TraceTimeline timeline;
    std::mutex mutex;
    std::deque<Waiting> changes;           // under the mutex
    std::unique_ptr<TurningThread> worker; // last: it uses the others
};

Q_DECLARE_METATYPE(NoteWriter::Change)
