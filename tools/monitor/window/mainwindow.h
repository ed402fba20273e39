#pragma once

#include <QMainWindow>

class BusDesk;
class FileDesk;
class MessageBar;
class NotesDock;
class QTabWidget;
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
    void addTab(ShownTrace *trace);
    void closeTab(int index);
    void showCurrent();
    TraceTab *currentTab() const;

    MessageBar *const messages;
    QTabWidget *const tabs;
    FileDesk *const files;
    BusDesk *const buses;
    NotesDock *const notes;
    StatisticsDock *const statistics;
};
