#include "annotating.h"

#include <QCoreApplication>
#include <QThread>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(TraceTimeline)
};

/// One change, until it has found its message.
class Annotating
{
public:
    Annotating(TraceSource &source, quint32 epoch, quint64 position, const MarkChange &change)
        : source(source), epoch(epoch), position(position), change(change)
    {
    }

    /// A sentence; empty when it is done.
    QString run();

private:
    bool attempt();
    bool fail(const QString &why)
    {
        error = why;
        return true;
    }
    bool changeInChunk(const ChunkSegment &chunk, quint32 offset);

    TraceSource &source;
    const quint32 epoch;
    const quint64 position;
    const MarkChange change;
    QString error;
};

QString Annotating::run()
{
    // It may go from memory into a chunk, and somebody else may change that: but not for ever.
    constexpr unsigned long attempts = 16;
    for (unsigned long i = 0; i < attempts; ++i) {
        if (attempt())
            return error;
        QThread::msleep(2 * i);
    }
    return Texts::tr("The message is no longer there.");
}

// False when the message is somewhere else by now.
bool Annotating::attempt()
{
    const SharedSnapshot snapshot = source.refresh();
    const TraceSnapshot::Place place = snapshot->at(position);
    if (snapshot->epoch() != epoch)
        return fail(
            Texts::tr("The trace is another one by now, and the message not in its place."));
    if (!place.placed)
        return fail(Texts::tr("The message is no longer there."));
    const TraceSegment &segment = *place.placed->segment;
    if (segment.isChunk())
        return changeInChunk(static_cast<const ChunkSegment &>(segment), place.offset);
    return source.changeInMemory(epoch, position, change, error);
}

bool Annotating::changeInChunk(const ChunkSegment &chunk, quint32 offset)
{
    const ChunkMarks::Changed changed = chunk.change(change, offset);
    error = changed.error;
    return changed.state != ChunkMarks::Changed::Gone;
}

} // namespace

bool annotate(TraceSource &source, quint32 epoch, quint64 position, MarkChange change,
              QString *error)
{
    const QString why = Annotating(source, epoch, position, change).run();
    if (error)
        *error = why;
    return why.isEmpty();
}
