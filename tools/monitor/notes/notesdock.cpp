#include "notesdock.h"

NotesDock::NotesDock(QWidget *parent) : QDockWidget(tr("Notes and bookmarks"), parent)
{
    setObjectName(QStringLiteral("notes"));
}

void NotesDock::setTrace(ShownTrace *trace)
{
    Q_UNUSED(trace)
}

void NotesDock::setCurrentPosition(quint64 position)
{
    Q_UNUSED(position)
}
