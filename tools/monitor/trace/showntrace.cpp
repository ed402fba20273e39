#include "showntrace.h"

ShownTrace::ShownTrace(const TraceTimeline &timeline, const QString &title, QObject *parent)
    : QObject(parent), ownTimeline(timeline), ownTitle(title), writer(timeline)
{
    connect(&writer, &NoteWriter::ended, this, &ShownTrace::tellEnd);
}

void ShownTrace::setTitle(const QString &title)
{
    if (ownTitle == title)
        return;
    ownTitle = title;
    emit titleChanged();
}

void ShownTrace::setNote(quint64 position, const QString &text)
{
    ++set;
    writer.write({NoteWriter::Change::Note, position, text});
}

void ShownTrace::setBookmark(quint64 position, const QString &text)
{
    ++set;
    writer.write({NoteWriter::Change::Bookmark, position, text});
}

void ShownTrace::tellEnd(const NoteWriter::Change &change, const QString &error)
{
    if (!error.isEmpty()) {
        const bool isNote = change.kind == NoteWriter::Change::Note;
        const QString what = isNote ? tr("The note on message %1 of %2 was not changed.")
                                    : tr("The bookmark on message %1 of %2 was not changed.");
        emit notice({Notice::Failure, what.arg(change.position).arg(title()), error});
    }
    emit marksChanged();
}
