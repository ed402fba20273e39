#pragma once

#include "notices.h"

#include <QList>
#include <QObject>
#include <QPointer>

#include <memory>

class BusLines;
class ConnectDialog;
class LeftRecordings;
class LinesDock;
class MessageSink;
class QAction;
class QDockWidget;
class QLockFile;
class QWidget;
class Recording;
class RecordingKeeper;
class RecordingStatus;

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
    /// The lines that bring its messages.
    BusLines *lines() const { return ownLines.get(); }

    /// Connect, disconnect, new recording, save it; a null pointer stands for a separator.
    QList<QAction *> actions() const { return ownActions; }
    /// The lines with what comes from them. Goes with this object at the latest.
    QDockWidget *dock() const;
    /// Folder, budget, messages taken, stored and dropped. Likewise.
    QWidget *status() const;

    /// Asks the user what becomes of a recording that is not saved. False when he wants it to go
    /// on.
    bool mayClose();

public slots:
    void showConnect();
    /// The generator, at once.
    void tryWithoutHardware();

signals:
    /// There is another recording; the one before lives until this returns.
    void recordingChanged(Recording *recording);
    /// A recording was saved; the paths to open it from.
    void saved(const QStringList &paths);
    void notice(const Notice &notice);

private:
    QAction *addAction(const QString &text, const QKeySequence &key, const QString &name);
    void makeActions();
    void connectParts();
    void setGrowing(bool growing);
    void tellOthers();

    QWidget *const window;
    const std::shared_ptr<MessageSink> sink;
    const std::unique_ptr<RecordingKeeper> keeper;
    const std::unique_ptr<LeftRecordings> left;
    const std::unique_ptr<BusLines> ownLines; // behind the recording, so that they end first
    std::unique_ptr<QLockFile> lock;          // shows other monitors that this one runs
    QList<QAction *> ownActions;
    QAction *connectAction = nullptr;
    QAction *tryAction = nullptr;
    QAction *stopAction = nullptr;
    QPointer<LinesDock> ownDock;
    QPointer<RecordingStatus> ownStatus;
};
