#pragma once

#include "notices.h"

#include <QList>
#include <QObject>
#include <QStringList>

#include <functional>

class QAction;
class QWidget;
class ShownTrace;
class TraceView;

/// Everything about files: opening and importing, reports, exports, archives.
class FileDesk : public QObject
{
    Q_OBJECT
public:
    /// Dialogs belong to \a window.
    explicit FileDesk(QWidget *window);
    ~FileDesk() override;

    /// Opens traces of any kind, each with opened() as soon as there is something to show.
    void open(const QStringList &paths);

    /// What the actions are about; null for none.
    void setCurrent(ShownTrace *trace, TraceView *view);

    /// For the menu "File", in their order; a null pointer stands for a separator.
    QList<QAction *> actions() const;

signals:
    /// The receiver owns it.
    void opened(ShownTrace *trace);
    void notice(const Notice &notice);

private:
    QWidget *const window;
};
