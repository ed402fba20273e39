#pragma once

#include "leftchunkfolder.h"
#include "notices.h"
#include "taskthread.h"

#include <QObject>
#include <QStringList>

class QWidget;

/// Offers what monitors have left that were killed: to be recovered, deleted or left for later.
class LeftRecordings : public QObject
{
    Q_OBJECT
public:
    /// Dialogs belong to \a window.
    explicit LeftRecordings(QWidget *window);

    /// Looks in the background, once, and tells what there is.
    void look();

signals:
    /// Recordings were recovered; the paths to open them from.
    void recovered(const QStringList &paths);
    void notice(const Notice &notice);

private:
    void tell(const std::vector<LeftChunkFolder> &found);
    void ask();
    void recover();
    void remove();
    void tellRecovered(const QStringList &paths, qint64 messages, const QStringList &problems);

    QWidget *const window;
    std::vector<LeftChunkFolder> folders; // kept from others meanwhile
    TaskThread worker;                    // last: what it does uses the others
};
