#include "linesdock.h"

#include "buslines.h"
#include "linemodel.h"

#include <QAction>
#include <QActionGroup>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QStackedWidget>
#include <QTreeView>
#include <QVBoxLayout>

namespace {

constexpr int millisecondsBetweenUpdates = 500;

} // namespace

LinesDock::LinesDock(BusLines *lines, QAction *connectAction, QAction *tryAction, QWidget *parent)
    : QDockWidget(tr("Bus lines"), parent), lines(lines), model(new LineModel(lines, this)),
      view(new QTreeView), pages(new QStackedWidget)
{
    setObjectName(QStringLiteral("lines"));
    view->setObjectName(QStringLiteral("lineTable"));
    view->setModel(model);
    view->setRootIsDecorated(false);
    view->setUniformRowHeights(true);
    view->setAlternatingRowColors(true);
    view->setAllColumnsShowFocus(true);
    view->setContextMenuPolicy(Qt::ActionsContextMenu);
    constexpr int characters = 46; // all columns of an ordinary line
    pages->setMinimumWidth(fontMetrics().averageCharWidth() * characters);
    view->header()->setStretchLastSection(false);
    view->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    view->header()->setSectionResizeMode(LineModel::Name, QHeaderView::Stretch);
    pages->addWidget(makeStart(connectAction, tryAction));
    pages->addWidget(view);
    setWidget(pages);
    makeActions(connectAction);
    connect(lines, &BusLines::added, this, &LinesDock::updatePage);
    connect(lines, &BusLines::removed, this, &LinesDock::updatePage);
    connect(lines, &BusLines::stateChanged, this, &LinesDock::updateActions);
    connect(lines, &BusLines::activeChanged, this, &LinesDock::updateTimer);
    connect(view->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &LinesDock::updateActions);
    connect(&timer, &QTimer::timeout, this, &LinesDock::updateCounts);
    updatePage();
}

QWidget *LinesDock::makeStart(QAction *connectAction, QAction *tryAction)
{
    auto *start = new QWidget;
    auto *label = new QLabel(tr("Nothing is connected yet."));
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    // The page of an empty recording has the same two, and their keys.
    const auto plain = [](const QAction *action) {
        return action->text().remove(QLatin1Char('&'));
    };
    auto *connectButton = new QPushButton(plain(connectAction));
    connectButton->setObjectName(QStringLiteral("connectButton"));
    auto *tryButton = new QPushButton(plain(tryAction));
    tryButton->setObjectName(QStringLiteral("tryButton"));
    tryButton->setToolTip(tryAction->toolTip());
    connect(connectButton, &QPushButton::clicked, connectAction, &QAction::trigger);
    connect(tryButton, &QPushButton::clicked, tryAction, &QAction::trigger);
    auto *layout = new QVBoxLayout(start);
    layout->addStretch();
    layout->addWidget(label);
    layout->addWidget(connectButton, 0, Qt::AlignCenter);
    layout->addWidget(tryButton, 0, Qt::AlignCenter);
    layout->addStretch();
    return start;
}

QAction *LinesDock::addLineAction(const QString &text, const QKeySequence &key,
                                  void (LinesDock::*act)())
{
    auto *action = new QAction(text, view);
    action->setShortcut(key);
    action->setShortcutContext(Qt::WidgetShortcut);
    connect(action, &QAction::triggered, this, act);
    view->addAction(action);
    return action;
}

void LinesDock::makeActions(QAction *connectAction)
{
    toggleAction = addLineAction(tr("S&top"), Qt::Key_Space, &LinesDock::toggle);
    pauseAction = addLineAction(tr("&Pause"), Qt::Key_P, &LinesDock::pause);
    addSpeeds();
    removeAction = addLineAction(tr("&Remove"), QKeySequence::Delete, &LinesDock::remove);
    auto *separator = new QAction(view);
    separator->setSeparator(true);
    view->addAction(separator);
    view->addAction(connectAction);
    connect(view, &QTreeView::activated, this, &LinesDock::toggle);
}

void LinesDock::addSpeeds()
{
    auto *menu = new QMenu(tr("&Speed"), view);
    auto *group = new QActionGroup(menu);
    for (const double speed : {0.1, 0.5, 1.0, 2.0, 10.0, 100.0, 0.0}) {
        QAction *action =
            menu->addAction(speed > 0 ? tr("%1 times").arg(speed) : tr("as fast as possible"));
        action->setCheckable(true);
        action->setData(speed);
        group->addAction(action);
        connect(action, &QAction::triggered, this, [this, speed] {
            if (BusLine *line = currentLine())
                line->setSpeed(speed);
        });
    }
    connect(menu, &QMenu::aboutToShow, this, [this, group] {
        const BusLine *line = currentLine();
        const auto actions = group->actions();
        for (QAction *action : actions)
            action->setChecked(line
                               && qFuzzyCompare(1 + action->data().toDouble(), 1 + line->speed()));
    });
    speedAction = menu->menuAction();
    view->addAction(speedAction);
}

BusLine *LinesDock::currentLine() const
{
    const QModelIndex index = view->currentIndex();
    return index.isValid() ? lines->at(index.row()) : nullptr;
}

void LinesDock::updatePage()
{
    pages->setCurrentIndex(lines->count() == 0 ? 0 : 1);
    if (!view->currentIndex().isValid() && lines->count() > 0)
        view->setCurrentIndex(model->index(0, 0));
    updateActions();
}

void LinesDock::updateActions()
{
    const BusLine *line = currentLine();
    const bool isActive = line && line->isActive();
    const bool isPaused = line && line->state() == BusLine::Paused;
    toggleAction->setEnabled(line);
    toggleAction->setText(isActive ? tr("S&top") : tr("&Start"));
    pauseAction->setEnabled(isActive && line->isPaced());
    pauseAction->setText(isPaused ? tr("&Go on") : tr("&Pause"));
    speedAction->setEnabled(line && line->isPaced());
    removeAction->setEnabled(line);
}

// The counts are brought up to date once more when nothing comes any longer.
void LinesDock::updateTimer()
{
    const bool goesOn = isVisible() && lines->isAnyActive();
    if (!goesOn)
        timer.stop();
    updateCounts();
    if (goesOn)
        timer.start(millisecondsBetweenUpdates);
}

void LinesDock::updateCounts()
{
    const qint64 passed = sinceUpdate.isValid() ? sinceUpdate.elapsed() : 0;
    constexpr int least = 100;
    // Over too short a time a rate says nothing.
    if (passed < least && timer.isActive() && sinceUpdate.isValid())
        return;
    sinceUpdate.start();
    model->updateCounts(passed > 0 ? int(passed) : millisecondsBetweenUpdates);
}

void LinesDock::toggle()
{
    BusLine *line = currentLine();
    if (!line)
        return;
    if (line->isActive())
        line->stop();
    else
        line->start();
}

void LinesDock::pause()
{
    BusLine *line = currentLine();
    if (line && line->isPaced())
        line->setPaused(line->state() != BusLine::Paused);
}

void LinesDock::remove()
{
    const QModelIndex index = view->currentIndex();
    if (index.isValid())
        lines->remove(index.row());
}

void LinesDock::showEvent(QShowEvent *event)
{
    QDockWidget::showEvent(event);
    updateTimer();
}

void LinesDock::hideEvent(QHideEvent *event)
{
    QDockWidget::hideEvent(event);
    updateTimer();
}
