#include "filedesk.h"

#include "showntrace.h"

#include <QFileInfo>
#include <QWidget>

FileDesk::FileDesk(QWidget *window) : QObject(window), window(window) { }

FileDesk::~FileDesk() = default;

void FileDesk::open(const QStringList &paths)
{
    if (!paths.isEmpty())
        emit opened(new ShownTrace(TraceTimeline(paths), QFileInfo(paths.first()).fileName()));
}

void FileDesk::setCurrent(ShownTrace *trace, TraceView *view)
{
    Q_UNUSED(trace)
    Q_UNUSED(view)
}

QList<QAction *> FileDesk::actions() const
{
    return {};
}
