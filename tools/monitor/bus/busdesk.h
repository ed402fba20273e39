#pragma once

#include "notices.h"

#include <QList>
#include <QObject>

class QAction;
class QDockWidget;
class QMainWindow;
class QWidget;
class Recording;
class ShownTrace;

/// Everything about buses and the recording: its dialogs, its dock of lines, its place in the
/// status bar.
class BusDesk : public QObject
{
    Q_OBJECT
public:
    /// Dialogs belong to \a window.
    explicit BusDesk(QWidget *window);
    ~BusDesk() override;

    /// The recording that runs, or waits for its first line; never null.
    Recording *recording() const;

    /// Connect, disconnect, new recording, save it.
    QList<QAction *> actions() const;
    /// The lines with what comes from them. Owned by whoever puts it into a window.
    QDockWidget *dock() const;
    /// Folder, budget, messages taken, stored and dropped. Likewise.
    QWidget *status() const;

    /// Asks the user what becomes of a recording that is not saved. False when he wants it to go
    /// on.
    bool mayClose();

signals:
    /// There is another recording; the one before lives until this returns.
    void recordingChanged(Recording *recording);
    /// A recording was saved; the paths to open it from.
    void saved(const QStringList &paths);
    void notice(const Notice &notice);

private:
    QWidget *const window;
    QDockWidget *const ownDock;
    QWidget *const ownStatus;
    Recording *ownRecording;
};
