#pragma once

#include "notices.h"
#include "tracesorting.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QStringList>

#include <functional>

class ImportedTrace;
class JobQueue;
class JobRows;
class QAction;
class QFileDialog;
class QWidget;
class RecentFiles;
class ShownTrace;
class TraceOpener;
class TraceView;
class WritingDesk;

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

    /// What is being written, or waits for it; a few words each.
    QStringList unfinished() const;

    /// For the menu "File", in their order; a null pointer stands for a separator.
    QList<QAction *> actions() const;

    /// What is being read and written, a row for each with a button to cancel it; hidden while
    /// there is nothing. Owned by whoever puts it into a window.
    QWidget *progress() const;

signals:
    /// The receiver owns it.
    void opened(ShownTrace *trace);
    void notice(const Notice &notice);

private:
    void connectParts();
    void buildOpening();
    void buildTraceActions();
    void buildWriting();
    QAction *add(const QString &text, const QString &name, const std::function<void()> &act);
    void addSeparator() { all.append(nullptr); }
    void updateActions();
    QFileDialog *openDialog(const QString &title, const QString &folder);
    void askForFiles(const QString &folder = {});
    void askForFolder();
    void showReport(ImportedTrace *trace);
    void askHowToRead(const ImportSource &source);
    void showChunks();
    ImportedTrace *imported() const;

    QWidget *const window;
    JobQueue *const queue;
    JobRows *const rows;
    TraceOpener *const opener;
    WritingDesk *const writing;
    RecentFiles *const recent;
    QPointer<ShownTrace> current;
    QPointer<TraceView> view;
    QList<QAction *> all;
    QList<QAction *> ofTrace;    // that need one
    QList<QAction *> ofImported; // that need an imported one
};
