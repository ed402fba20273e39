#include "mainwindow.h"

#include "busdesk.h"
#include "filedesk.h"
#include "messagebar.h"
#include "notesdock.h"
#include "recording.h"
#include "statisticsdock.h"
#include "tracetab.h"
#include "traceview.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QMenuBar>
#include <QMimeData>
#include <QStatusBar>
#include <QTabWidget>
#include <QUrl>
#include <QVBoxLayout>

MainWindow::MainWindow()
    : messages(new MessageBar), tabs(new QTabWidget), files(new FileDesk(this)),
      buses(new BusDesk(this)), notes(new NotesDock(this)), statistics(new StatisticsDock(this))
{
    setAcceptDrops(true);
    auto *middle = new QWidget;
    auto *layout = new QVBoxLayout(middle);
    layout->addWidget(messages);
    layout->addWidget(tabs, 1);
    setCentralWidget(middle);
    addDockWidget(Qt::LeftDockWidgetArea, buses->dock());
    addDockWidget(Qt::RightDockWidgetArea, notes);
    addDockWidget(Qt::RightDockWidgetArea, statistics);
    statusBar()->addPermanentWidget(buses->status());
    connect(files, &FileDesk::opened, this, &MainWindow::addTab);
    connect(files, &FileDesk::notice, messages, &MessageBar::add);
    connect(buses, &BusDesk::notice, messages, &MessageBar::add);
    connect(buses, &BusDesk::saved, files, &FileDesk::open);
    connect(tabs, &QTabWidget::currentChanged, this, &MainWindow::showCurrent);
    addTab(buses->recording());
    buildMenus();
}

MainWindow::~MainWindow() = default;

void MainWindow::buildMenus() { }

void MainWindow::open(const QStringList &paths)
{
    files->open(paths);
}

void MainWindow::addTab(ShownTrace *trace)
{
    connect(trace, &ShownTrace::notice, messages, &MessageBar::add);
    tabs->setCurrentIndex(tabs->addTab(new TraceTab(trace), trace->title()));
}

void MainWindow::closeTab(int index)
{
    Q_UNUSED(index)
}

TraceTab *MainWindow::currentTab() const
{
    return static_cast<TraceTab *>(tabs->currentWidget());
}

void MainWindow::showCurrent()
{
    TraceTab *tab = currentTab();
    notes->setTrace(tab ? tab->trace() : nullptr);
    statistics->setTrace(tab ? tab->trace() : nullptr);
    files->setCurrent(tab ? tab->trace() : nullptr, tab ? tab->view() : nullptr);
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    event->setAccepted(buses->mayClose());
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
    for (const QUrl &url : urls)
        paths << url.toLocalFile();
    open(paths);
}
