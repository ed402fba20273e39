#include "mainwindow.h"

#include "busdesk.h"
#include "filedesk.h"
#include "lossquestion.h"
#include "messagebar.h"
#include "notesdock.h"
#include "recording.h"
#include "startpage.h"
#include "statisticsdock.h"
#include "tracetab.h"
#include "traceview.h"

#include <QAction>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QMessageBox>
#include <QMimeData>
#include <QPointer>
#include <QScreen>
#include <QSettings>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>
#include <QUrl>
#include <QVBoxLayout>

namespace {

constexpr int recordingTab = 0;
constexpr QSize firstSize(1280, 800);
const QString geometryKey = QStringLiteral("window/geometry");
const QString stateKey = QStringLiteral("window/state");

QString markLoss(const ShownTrace &trace)
{
    return MainWindow::tr("Notes and bookmarks on %1 are nowhere else: export it as a chunk file, "
                          "or pack it, to keep them.")
        .arg(trace.title());
}

} // namespace

MainWindow::MainWindow()
    : messages(new MessageBar), tabs(new QTabWidget), files(new FileDesk(this)),
      buses(new BusDesk(this)), notes(new NotesDock(this)), statistics(new StatisticsDock(this)),
      byIdentifier(new QAction(tr("By &identifier"), this)), question(new LossQuestion(this))
{
    setWindowTitle(tr("datachunk monitor"));
    setAcceptDrops(true);
    tabs->setObjectName(QStringLiteral("traces"));
    tabs->setDocumentMode(true);
    tabs->setTabsClosable(true);
    auto *middle = new QWidget;
    auto *layout = new QVBoxLayout(middle);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(messages);
    layout->addWidget(files->progress());
    layout->addWidget(tabs, 1);
    setCentralWidget(middle);
    addDockWidget(Qt::LeftDockWidgetArea, buses->dock());
    addDockWidget(Qt::LeftDockWidgetArea, notes);
    addDockWidget(Qt::RightDockWidgetArea, statistics);
    statusBar()->addWidget(buses->status(), 1);
    connectDesks();
    buildMenus();
    addTab(buses->recording());
    restore();
}

MainWindow::~MainWindow()
{
    // The views go before what they show.
    tabs->disconnect(this);
    notes->setTrace(nullptr);
    statistics->setTrace(nullptr);
    while (tabs->count() > 0)
        delete tabs->widget(0);
}

void MainWindow::connectDesks()
{
    connect(files, &FileDesk::opened, this, [this](ShownTrace *trace) {
        const int tab = addTab(trace);
        trace->setParent(tabAt(tab));
        tabs->setCurrentIndex(tab);
        // What had the keys until then may have been the button that starts a line.
        tabAt(tab)->view()->setFocus();
    });
    connect(files, &FileDesk::notice, messages, &MessageBar::add);
    connect(buses, &BusDesk::notice, messages, &MessageBar::add);
    connect(buses, &BusDesk::saved, files, &FileDesk::open);
    connect(buses, &BusDesk::recordingChanged, this, &MainWindow::showRecording);
    connect(notes, &NotesDock::positionChosen, this, [this](quint64 position) {
        byIdentifier->setChecked(false);
        currentTab()->view()->showPosition(position);
    });
    connect(tabs, &QTabWidget::currentChanged, this, &MainWindow::showCurrent);
    connect(tabs, &QTabWidget::tabCloseRequested, this, &MainWindow::closeTab);
}

void MainWindow::restore()
{
    const QSettings settings;
    if (!restoreGeometry(settings.value(geometryKey).toByteArray()))
        resize(firstSize.boundedTo(screen()->availableSize()));
    if (!restoreState(settings.value(stateKey).toByteArray()))
        statistics->hide();
}

// Beside the trace it would take the room of the data from a narrow window.
void MainWindow::makeRoomForTrace()
{
    constexpr int leastCharacters = 120; // up to the data of eight bytes
    const int left = buses->dock()->isVisibleTo(this) ? buses->dock()->width() : 0;
    const int rest = width() - left - statistics->sizeHint().width();
    const bool isBeside =
        dockWidgetArea(statistics) == Qt::RightDockWidgetArea && !statistics->isFloating();
    if (isBeside && rest < leastCharacters * fontMetrics().averageCharWidth()) {
        tabifyDockWidget(notes, statistics);
        if (left > 0)
            resizeDocks({statistics}, {left}, Qt::Horizontal);
    }
}

void MainWindow::open(const QStringList &paths)
{
    if (!paths.isEmpty())
        files->open(paths);
}

int MainWindow::addTab(ShownTrace *trace)
{
    auto *tab = new TraceTab(trace);
    connect(trace, &ShownTrace::notice, messages, &MessageBar::add);
    connect(trace, &ShownTrace::titleChanged, tab,
            [this, tab] { tabs->setTabText(tabs->indexOf(tab), tab->trace()->title()); });
    connect(tab->view(), &TraceView::currentPositionChanged, notes, [this, tab](quint64 position) {
        if (tab == currentTab())
            notes->setCurrentPosition(position);
    });
    connect(tab, &TraceTab::byIdentifierChanged, this, [this, tab](bool on) {
        if (tab == currentTab())
            byIdentifier->setChecked(on);
    });
    const int index = tabs->addTab(tab, trace->title());
    tabs->setTabToolTip(index, trace->paths().join(QLatin1Char('\n')));
    if (trace == buses->recording()) {
        tab->setStartPage(new StartPage(startActions()));
        // The recording has its own way to end.
        for (const auto side : {QTabBar::LeftSide, QTabBar::RightSide})
            tabs->tabBar()->setTabButton(index, side, nullptr);
    }
    return index;
}

void MainWindow::showRecording(Recording *recording)
{
    const bool wasCurrent = tabs->currentIndex() == recordingTab;
    TraceTab *before = tabAt(recordingTab);
    const int added = addTab(recording);
    tabs->tabBar()->moveTab(added, recordingTab);
    if (wasCurrent)
        tabs->setCurrentIndex(recordingTab);
    // The trace that it shows goes with the signal.
    delete before;
    showCurrent();
}

void MainWindow::closeTab(int index)
{
    if (index == recordingTab)
        return;
    const QPointer<TraceTab> tab(tabAt(index));
    const ShownTrace *trace = tab->trace();
    if (trace->isUnsaved())
        question->ask(tr("Close %1 all the same?").arg(trace->title()), {markLoss(*trace)},
                      [tab] { delete tab; });
    else
        delete tab;
}

QStringList MainWindow::losses() const
{
    QStringList losses;
    const QStringList jobs = files->unfinished();
    for (const QString &job : jobs)
        losses += tr("%1 has not ended, and nothing of it would be there.").arg(job);
    for (int i = recordingTab + 1; i < tabs->count(); ++i) {
        if (const ShownTrace *trace = tabAt(i)->trace(); trace->isUnsaved())
            losses += markLoss(*trace);
    }
    return losses;
}

// The recording has its own question.
bool MainWindow::mayBeLost()
{
    const QStringList all = losses();
    if (all.isEmpty() || all == agreedLosses)
        return true;
    question->ask(tr("Close the monitor all the same?"), all, [this, all] {
        agreedLosses = all;
        close();
        agreedLosses.clear();
    });
    return false;
}

TraceTab *MainWindow::tabAt(int index) const
{
    return static_cast<TraceTab *>(tabs->widget(index));
}

TraceTab *MainWindow::currentTab() const
{
    return static_cast<TraceTab *>(tabs->currentWidget());
}

void MainWindow::showCurrent()
{
    TraceTab *tab = currentTab();
    ShownTrace *trace = tab ? tab->trace() : nullptr;
    // Keys go to the messages, and not into the filter, which is the first to have them.
    if (tab && !tab->isByIdentifier() && tab->isAncestorOf(focusWidget()))
        tab->view()->setFocus();
    notes->setTrace(trace);
    statistics->setTrace(trace);
    files->setCurrent(trace, tab ? tab->view() : nullptr);
    byIdentifier->setChecked(tab && tab->isByIdentifier());
}

void MainWindow::about()
{
    QMessageBox::about(
        this, tr("About the monitor"),
        tr("datachunk monitor %1\n\nRecords from CAN buses, and shows traces of many CAN tools.")
            .arg(QCoreApplication::applicationVersion()));
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    event->setAccepted(buses->mayClose() && mayBeLost());
    if (!event->isAccepted())
        return;
    QSettings settings;
    settings.setValue(geometryKey, saveGeometry());
    settings.setValue(stateKey, saveState());
}

void MainWindow::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->mimeData()->hasUrls())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent *event)
{
    QStringList paths;
    const QList<QUrl> urls = event->mimeData()->urls();
    for (const QUrl &url : urls) {
        if (url.isLocalFile())
            paths << url.toLocalFile();
    }
    if (paths.isEmpty())
        messages->add({Notice::Failure, tr("What was dropped is no file on this machine."),
                       tr("Save it to a disk first, and drop it from there.")});
    event->acceptProposedAction();
    open(paths);
}
