#pragma once

#include <QMainWindow>
#include <QStringList>

class BusDesk;
class FileDesk;
class LossQuestion;
class MessageBar;
class NotesDock;
class QTabWidget;
class Recording;
class ShownTrace;
class StatisticsDock;
class TraceTab;

/// The window of the monitor: the recording and what was opened, a tab for each, with the docks
/// that tell about the one in front.
class MainWindow : public QMainWindow
{
    Q_OBJECT
public:
    MainWindow();
    ~MainWindow() override;

public slots:
    /// Traces of any kind, and folders of them.
    void open(const QStringList &paths);

protected:
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void buildMenus();
    void buildTraceMenus();
    void buildViewMenu(QMenu *menu);
    void buildToolBar();
    QList<QAction *> startActions() const;
    void connectDesks();
    void restore();
    void makeRoomForTrace();
    void buildDockActions();
    void showDock(QDockWidget *dock, bool isWanted);
    int addTab(ShownTrace *trace);
    void showRecording(Recording *recording);
    void closeTab(int index);
    bool mayBeLost();
    QStringList losses() const;
    void showCurrent();
    void about();
    TraceTab *tabAt(int index) const;
    TraceTab *currentTab() const;

    MessageBar *const messages;
    QTabWidget *const tabs;
    FileDesk *const files;
    BusDesk *const buses;
    NotesDock *const notes;
    StatisticsDock *const statistics;
    QAction *const byIdentifier;
    QList<QAction *> dockActions; // the last one is that of the statistics
    LossQuestion *const question;
    QStringList agreedLosses; // to be lost with the window
};
