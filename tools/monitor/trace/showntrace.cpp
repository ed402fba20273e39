#include "showntrace.h"

ShownTrace::ShownTrace(const TraceTimeline &timeline, const QString &title, QObject *parent)
    : QObject(parent), ownTimeline(timeline), ownTitle(title)
{
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
    Q_UNUSED(position)
    Q_UNUSED(text)
}

void ShownTrace::setBookmark(quint64 position, const QString &text)
{
    Q_UNUSED(position)
    Q_UNUSED(text)
}
