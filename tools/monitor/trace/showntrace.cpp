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
