#include "busdesk.h"
#include "choicemenus.h"
#include "filedesk.h"
#include "filterbar.h"
#include "mainwindow.h"
#include "notesdock.h"
#include "statisticsdock.h"
#include "tracetab.h"
#include "traceview.h"

#include <QApplication>
#include <QDockWidget>
#include <QMenuBar>
#include <QTabWidget>
#include <QToolBar>

#include <algorithm>
#include <utility>

namespace {

// A null pointer stands for a separator.
void addAll(QMenu *menu, const QList<QAction *> &actions)
{
    for (QAction *action : actions) {
        if (action)
            menu->addAction(action);
        else
            menu->addSeparator();
    }
}

QAction *named(const QList<QAction *> &actions, const char *name)
{
    const auto found = std::find_if(actions.begin(), actions.end(), [name](const QAction *action) {
        return action && action->objectName() == QLatin1String(name);
    });
    Q_ASSERT(found != actions.end());
    return *found;
}

} // namespace

void MainWindow::buildMenus()
{
    QMenu *file = menuBar()->addMenu(tr("&File"));
    QList<QAction *> ofFiles = files->actions();
    // Where others look for what Ctrl+S does.
    ofFiles.insert(ofFiles.indexOf(nullptr), named(buses->actions(), "saveRecording"));
    addAll(file, ofFiles);
    file->addSeparator();
    QAction *close =
        file->addAction(tr("Close &tab"), this, [this] { closeTab(tabs->currentIndex()); });
    close->setShortcut(QKeySequence::Close);
    QAction *quit = file->addAction(tr("&Quit"), this, &QWidget::close);
    quit->setShortcut(QKeySequence::Quit);
    addAll(menuBar()->addMenu(tr("&Bus")), buses->actions());
    buildDockActions();
    buildTraceMenus();
    buildToolBar();
    QMenu *help = menuBar()->addMenu(tr("&Help"));
    help->addAction(tr("&About the monitor"), this, &MainWindow::about);
}

// What they have belongs to the tab in front.
void MainWindow::buildTraceMenus()
{
    QMenu *edit = menuBar()->addMenu(tr("&Edit"));
    connect(edit, &QMenu::aboutToShow, this, [this, edit] {
        edit->clear();
        if (const TraceTab *tab = currentTab()) {
            addAll(edit, tab->view()->editActions());
            edit->addSeparator();
            addAll(edit, tab->filterBar()->actions());
        }
    });
    byIdentifier->setCheckable(true);
    byIdentifier->setShortcut(QKeySequence(QStringLiteral("Ctrl+I")));
    addAction(byIdentifier);
    connect(byIdentifier, &QAction::toggled, this, [this](bool on) {
        if (TraceTab *tab = currentTab())
            tab->setByIdentifier(on);
    });
    QMenu *view = menuBar()->addMenu(tr("&View"));
    auto *themes = new QMenu(tr("C&olours"), view);
    ChoiceMenus::addThemes(themes);
    auto *languages = new QMenu(tr("&Language"), view);
    ChoiceMenus::addLanguages(languages);
    connect(view, &QMenu::aboutToShow, this, [this, view, themes, languages] {
        view->clear();
        buildViewMenu(view);
        view->addSeparator();
        view->addMenu(themes);
        view->addMenu(languages);
    });
}

void MainWindow::buildViewMenu(QMenu *menu)
{
    menu->addAction(byIdentifier);
    if (const TraceTab *tab = currentTab())
        addAll(menu, tab->view()->viewActions());
    menu->addSeparator();
    addAll(menu, dockActions);
}

void MainWindow::buildDockActions()
{
    const std::pair<QDockWidget *, QString> docks[] = {{buses->dock(), tr("&Bus lines")},
                                                       {notes, tr("Notes &and bookmarks")},
                                                       {statistics, tr("&Statistics")}};
    for (const auto &[dock, text] : docks) {
        auto *action = new QAction(text, this);
        action->setCheckable(true);
        connect(action, &QAction::triggered, this, [this, dock = dock, action](bool isWanted) {
            // Behind another one it is there without being seen.
            const bool isBehind = !dock->isHidden() && dock->visibleRegion().isEmpty();
            showDock(dock, isWanted || isBehind);
            action->setChecked(!dock->isHidden());
        });
        connect(dock->toggleViewAction(), &QAction::toggled, action, &QAction::setChecked);
        action->setChecked(dock->toggleViewAction()->isChecked());
        dockActions.append(action);
    }
}

// Behind another one it would not be seen.
void MainWindow::showDock(QDockWidget *dock, bool isWanted)
{
    if (isWanted && dock == statistics)
        makeRoomForTrace();
    dock->setVisible(isWanted);
    if (isWanted)
        dock->raise();
}

QList<QAction *> MainWindow::startActions() const
{
    return {named(buses->actions(), "connect"), named(buses->actions(), "try"),
            named(files->actions(), "open")};
}

void MainWindow::buildToolBar()
{
    QToolBar *bar = addToolBar(tr("Tools"));
    bar->setObjectName(QStringLiteral("tools"));
    bar->addAction(named(files->actions(), "open"));
    bar->addSeparator();
    for (const char *name : {"connect", "stopAll", "saveRecording"})
        bar->addAction(named(buses->actions(), name));
    bar->addSeparator();
    bar->addAction(byIdentifier);
    bar->addAction(dockActions.last());
}
