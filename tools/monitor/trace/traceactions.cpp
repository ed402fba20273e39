#include "traceactions.h"

#include "lookmenus.h"
#include "messagemodel.h"
#include "messagetext.h"
#include "tracecolumns.h"
#include "tracetable.h"

#include <QAction>
#include <QMenu>

#include <utility>

TraceActions::TraceActions(MessageModel *model, TraceTable *table, TraceColumns *columns)
    : QObject(table), model(model), table(table), columns(columns),
      ownLook(new LookMenus(model, table)), ownFollow(new QAction(tr("&Follow the end"), this))
{
    addEditActions();
    addViewActions();
    table->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(table, &QWidget::customContextMenuRequested, this, &TraceActions::showMenu);
    connect(table, &TraceTable::currentPositionChanged, this, &TraceActions::updateEnabled);
    connect(model, &QAbstractItemModel::modelReset, this, &TraceActions::updateEnabled);
    updateEnabled();
}

QAction *TraceActions::addEdit(const QString &text, const QKeySequence &keys, Reach reach)
{
    auto *action = new QAction(text, this);
    action->setShortcut(keys);
    action->setShortcutContext(reach == InTable ? Qt::WidgetWithChildrenShortcut
                                                : Qt::WindowShortcut);
    table->addAction(action);
    editActions.append(action);
    if (reach == InTable)
        ofMessages.append(action);
    return action;
}

void TraceActions::addSeparator()
{
    auto *separator = new QAction(this);
    separator->setSeparator(true);
    editActions.append(separator);
}

void TraceActions::addEditActions()
{
    connect(addEdit(tr("&Copy"), QKeySequence::Copy, InTable), &QAction::triggered, this,
            &TraceActions::copyWanted);
    connect(addEdit(tr("Cop&y as candump log"), QKeySequence(tr("Ctrl+Shift+C")), InTable),
            &QAction::triggered, this, &TraceActions::candumpWanted);
    connect(addEdit(tr("&Select all"), QKeySequence::SelectAll, InTable), &QAction::triggered,
            table, &QAbstractItemView::selectAll);
    addSeparator();
    connect(addEdit(tr("&Note\u2026"), QKeySequence(Qt::Key_F2), InTable), &QAction::triggered,
            this, &TraceActions::noteWanted);
    connect(addEdit(tr("&Bookmark"), QKeySequence(tr("Ctrl+B")), InTable), &QAction::triggered,
            this, &TraceActions::bookmarkWanted);
    ownMark = addEdit(tr("Count &times from here"), QKeySequence(tr("Ctrl+Shift+T")), InTable);
    connect(ownMark, &QAction::triggered, this, &TraceActions::markTime);
    addSeparator();
    connect(addEdit(tr("&Go to number\u2026"), QKeySequence(tr("Ctrl+G")), InWindow),
            &QAction::triggered, this, &TraceActions::numberWanted);
    connect(addEdit(tr("Go to ti&me\u2026"), QKeySequence(tr("Ctrl+T")), InWindow),
            &QAction::triggered, this, &TraceActions::timeWanted);
}

void TraceActions::addViewActions()
{
    ownFollow->setCheckable(true);
    ownFollow->setShortcut(QKeySequence(tr("Ctrl+L")));
    ownFollow->setChecked(model->isFollowing());
    table->addAction(ownFollow);
    connect(ownLook, &LookMenus::chosen, columns, &TraceColumns::fit);
    connect(ownFollow, &QAction::triggered, model, &TraceTableModel::setFollowing);
    connect(model, &TraceTableModel::followingChanged, ownFollow, &QAction::setChecked);
    viewActions = {ownFollow, ownLook->times()->menuAction(), ownLook->numbers()->menuAction(),
                   columns->menu()->menuAction()};
}

void TraceActions::updateEnabled()
{
    const bool isCurrent = table->currentIndex().isValid();
    for (QAction *action : std::as_const(ofMessages))
        action->setEnabled(isCurrent);
}

void TraceActions::markTime()
{
    const QModelIndex index = table->currentIndex();
    const auto position = model->positionOf(index.row());
    const QVariant time = index.data(TraceTableModel::TimeRole);
    if (!position || !time.isValid())
        return;
    model->setMark(*position, time.toLongLong());
    ownLook->update();
    columns->fit(TraceTableModel::TimeColumn);
}

void TraceActions::showMenu(const QPoint &point)
{
    auto *menu = new QMenu(table);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setObjectName(QStringLiteral("messageMenu"));
    addFilters(menu);
    menu->addSeparator();
    for (QAction *action : std::as_const(editActions))
        menu->addAction(action);
    menu->popup(table->viewport()->mapToGlobal(point));
}

void TraceActions::addFilters(QMenu *menu)
{
    const QVariant value = table->currentIndex().data(TraceTableModel::MessageRole);
    if (!value.isValid())
        return;
    const auto message = value.value<CAN::CanRxMessage>();
    const QString filter = model->filter() ? model->filter()->text() : QString();
    const QString identifier = MessageText::filterOfIdentifier(message);
    const bool isError = message.id == CAN::errorFrameId;
    const auto add = [&](const QString &text, const QString &expression) {
        connect(menu->addAction(text), &QAction::triggered, this,
                [this, expression] { emit filterWanted(expression); });
    };
    add(isError ? tr("Only &error frames") : tr("&Only this identifier"), identifier);
    add(isError ? tr("No &error frames") : tr("&Without this identifier"),
        MessageText::filterWithout(filter, identifier));
    add(tr("Only this &line"), MessageText::filterOfLine(message));
    if (!isError)
        add(tr("Only the same &data"), MessageText::filterOfData(message));
    if (model->filter())
        add(tr("&All messages"), {});
}
