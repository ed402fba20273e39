#include "filedesk.h"

#include "chunksdialog.h"
#include "importedtrace.h"
#include "jobqueue.h"
#include "jobrows.h"
#include "recentfiles.h"
#include "reopendialog.h"
#include "reportdialog.h"
#include "sourcedialog.h"
#include "traceopener.h"
#include "traceview.h"
#include "writingdesk.h"

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QSettings>
#include <QWidget>

#include <utility>

namespace {

const QString lastFolder = QStringLiteral("files/folder");

} // namespace

FileDesk::FileDesk(QWidget *window)
    : QObject(window), window(window), queue(new JobQueue(this)), rows(new JobRows(queue, window)),
      opener(new TraceOpener(queue, this)), writing(new WritingDesk(window, queue, this)),
      recent(new RecentFiles(window))
{
    connectParts();
    buildOpening();
    addSeparator();
    buildTraceActions();
    addSeparator();
    buildWriting();
    updateActions();
}

FileDesk::~FileDesk() = default;

void FileDesk::connectParts()
{
    connect(opener, &TraceOpener::opened, this, &FileDesk::opened);
    connect(opener, &TraceOpener::notice, this, &FileDesk::notice);
    connect(opener, &TraceOpener::wasOpened, recent, &RecentFiles::add);
    connect(opener, &TraceOpener::wasRefused, this,
            [this](const QString &path) { recent->remove({path}); });
    connect(opener, &TraceOpener::reportWanted, this, &FileDesk::showReport);
    connect(opener, &TraceOpener::reopenWanted, this, &FileDesk::askHowToRead);
    connect(opener, &TraceOpener::choiceWanted, this, &FileDesk::askForFiles);
    connect(writing, &WritingDesk::notice, this, &FileDesk::notice);
    connect(writing, &WritingDesk::openWanted, opener, &TraceOpener::open);
    connect(recent, &RecentFiles::chosen, opener, &TraceOpener::open);
}

QAction *FileDesk::add(const QString &text, const QString &name, const std::function<void()> &act)
{
    auto *action = new QAction(text, this);
    action->setObjectName(name);
    connect(action, &QAction::triggered, this, act);
    all.append(action);
    return action;
}

void FileDesk::buildOpening()
{
    add(tr("&Open…"), QStringLiteral("open"), [this] {
        askForFiles();
    })->setShortcut(QKeySequence::Open);
    add(tr("Open &folder…"), QStringLiteral("openFolder"), [this] {
        askForFolder();
    })->setShortcut(QKeySequence(QStringLiteral("Ctrl+Shift+O")));
    QAction *last = add(tr("Open &recent"), QStringLiteral("openRecent"), [] {});
    last->setMenu(recent->menu());
}

void FileDesk::buildTraceActions()
{
    ofTrace += add(tr("&Chunks…"), QStringLiteral("showChunks"), [this] { showChunks(); });
    ofImported +=
        add(tr("&Import report"), QStringLiteral("showReport"), [this] { showReport(imported()); });
    ofImported += add(tr("Read in &another way…"), QStringLiteral("readAs"), [this] {
        if (const ImportedTrace *trace = imported())
            askHowToRead(trace->source());
    });
}

void FileDesk::buildWriting()
{
    QAction *exportIt = add(tr("&Export…"), QStringLiteral("exportTrace"), [this] {
        if (current && view)
            writing->askForExport(*current, *view);
    });
    // Ctrl+E alone goes to the end of the text where the filter has the keys.
    exportIt->setShortcut(QKeySequence(QStringLiteral("Ctrl+Shift+E")));
    QAction *pack = add(tr("&Pack into an archive…"), QStringLiteral("pack"), [this] {
        if (current)
            writing->askForPacking(*current);
    });
    ofTrace << exportIt << pack;
    add(tr("&Unpack an archive…"), QStringLiteral("unpack"), [this] {
        const QStringList paths = current ? current->paths() : QStringList();
        writing->askForUnpacking(paths.size() == 1 ? paths.first() : QString());
    });
    add(tr("Con&vert files…"), QStringLiteral("convertFiles"),
        [this] { writing->askForConversion(false); });
    add(tr("&Merge files…"), QStringLiteral("mergeFiles"),
        [this] { writing->askForConversion(true); });
}

QList<QAction *> FileDesk::actions() const
{
    return all;
}

QWidget *FileDesk::progress() const
{
    return rows;
}

QStringList FileDesk::unfinished() const
{
    return writing->unfinished();
}

void FileDesk::open(const QStringList &paths)
{
    opener->open(paths);
}

void FileDesk::setCurrent(ShownTrace *trace, TraceView *traceView)
{
    current = trace;
    view = traceView;
    // There is a report only when the import has ended.
    if (ImportedTrace *import = imported())
        connect(import->job(), &BackgroundJob::finished, this, &FileDesk::updateActions,
                Qt::UniqueConnection);
    updateActions();
}

ImportedTrace *FileDesk::imported() const
{
    return qobject_cast<ImportedTrace *>(current.data());
}

void FileDesk::updateActions()
{
    const ImportedTrace *import = imported();
    const bool hasReport = import && !import->isGrowing() && import->outcome().report.lines > 0;
    for (QAction *action : std::as_const(ofTrace))
        action->setEnabled(current && view);
    for (QAction *action : std::as_const(ofImported))
        action->setEnabled(import);
    ofImported.first()->setEnabled(hasReport);
}

QFileDialog *FileDesk::openDialog(const QString &title, const QString &folder)
{
    const QString from =
        folder.isEmpty() ? QSettings().value(lastFolder, QDir::homePath()).toString() : folder;
    auto *dialog = new QFileDialog(window, title, from);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QFileDialog::filesSelected, this, [this](const QStringList &paths) {
        QSettings().setValue(lastFolder, QFileInfo(paths.value(0)).path());
        open(paths);
    });
    return dialog;
}

void FileDesk::askForFiles(const QString &folder)
{
    QFileDialog *dialog = openDialog(tr("Open traces"), folder);
    dialog->setFileMode(QFileDialog::ExistingFiles);
    dialog->open();
}

void FileDesk::askForFolder()
{
    QFileDialog *dialog = openDialog(tr("Open a folder of chunks"), {});
    dialog->setFileMode(QFileDialog::Directory);
    dialog->open();
}

void FileDesk::showReport(ImportedTrace *trace)
{
    if (!trace || trace->isGrowing())
        return;
    const ImportSource source = trace->source();
    auto *dialog = new ReportDialog(source, trace->outcome().report,
                                    SourceDialog::canShow(source.path), window);
    connect(dialog, &ReportDialog::reopenWanted, this, [this, source] { askHowToRead(source); });
    dialog->show();
}

void FileDesk::askHowToRead(const ImportSource &source)
{
    auto *dialog = new ReopenDialog(source, window);
    connect(dialog, &ReopenDialog::chosen, opener, &TraceOpener::import);
    dialog->open();
}

void FileDesk::showChunks()
{
    if (!current || !view)
        return;
    auto *dialog = new ChunksDialog(*current, view->currentPosition().value_or(0), window);
    connect(dialog, &ChunksDialog::positionChosen, view, &TraceView::showPosition);
    dialog->show();
}
