#include "tracetable.h"

#include "messagemodel.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace {

// Counts what is under way.
class Quiet
{
public:
    explicit Quiet(int &depth) : depth(depth) { ++depth; }
    ~Quiet() { --depth; }

private:
    Q_DISABLE_COPY(Quiet)

    int &depth;
};

} // namespace

TraceTable::TraceTable(MessageModel *model, QWidget *parent)
    : QTableView(parent), rows(model), kept(*model), soon(new QTimer(this))
{
    soon->setSingleShot(true);
    connect(soon, &QTimer::timeout, this, &TraceTable::settle);
    setModel(model);
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setVerticalScrollMode(ScrollPerItem);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWordWrap(false);
    setShowGrid(false);
    setTabKeyNavigation(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    connect(model, &QAbstractItemModel::modelAboutToBeReset, this, [this] { ++restoring; });
    connect(model, &QAbstractItemModel::modelReset, this, &TraceTable::restore);
    connect(model, &QAbstractItemModel::rowsInserted, this, [this] {
        restoreTop();
        soon->start();
    });
    connect(model, &TraceTableModel::followingChanged, this, [this](bool on) {
        if (on)
            restoreTop();
    });
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &TraceTable::scrolledInside);
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this, &TraceTable::takeCurrent);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &TraceTable::takeSelection);
}

quint64 TraceTable::topRow() const
{
    return rows->origin() + quint64(verticalScrollBar()->value());
}

int TraceTable::rowsInSight() const
{
    return std::max(1, viewport()->height() / verticalHeader()->defaultSectionSize());
}

quint64 TraceTable::lastTopRow() const
{
    return rows->total() - std::min(rows->total(), quint64(rowsInSight()));
}

bool TraceTable::isInSight(quint64 position) const
{
    const int first = verticalScrollBar()->value();
    const int row = rows->rowOf(position);
    return row >= first && row < first + rowsInSight();
}

QVector<quint64> TraceTable::selectedPositions(int most) const
{
    QVector<int> selected;
    for (const QItemSelectionRange &range : selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            selected.append(row);
    }
    std::sort(selected.begin(), selected.end());
    selected.erase(std::unique(selected.begin(), selected.end()), selected.end());
    selected.resize(std::min<int>(int(selected.size()), most));
    QVector<quint64> positions;
    for (const int row : std::as_const(selected)) {
        if (const auto position = rows->positionOf(row))
            positions.append(*position);
    }
    return positions;
}

void TraceTable::scrollTop(quint64 row)
{
    const quint64 wanted = std::min(row, lastTopRow());
    const bool isEnd = wanted == lastTopRow();
    if (isEnd && rows->isFollowing())
        return;
    {
        const Quiet quiet(restoring);
        const Quiet own(going);
        const QModelIndex index = rows->showRow(wanted);
        executeDelayedItemsLayout();
        verticalScrollBar()->setValue(index.row());
        takeTop();
    }
    emit moved(isEnd);
    emit sightChanged();
}

// Within its window the table scrolls by itself; the window comes along.
void TraceTable::scrolledInside()
{
    if (restoring == 0)
        scrollTop(topRow());
}

bool TraceTable::go(const std::function<QModelIndex()> &where)
{
    const Quiet own(going);
    const QModelIndex index = where();
    if (index.isValid())
        choose(index);
    return index.isValid();
}

void TraceTable::choose(const QModelIndex &index)
{
    const auto position = rows->positionOf(index.row());
    const bool isHere = position && isInSight(*position);
    const QModelIndex cell = index.siblingAtColumn(currentColumn());
    kept.anchor = position;
    {
        const Quiet quiet(restoring);
        executeDelayedItemsLayout();
        selectionModel()->select(cell,
                                 QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        selectionModel()->setCurrentIndex(cell, QItemSelectionModel::NoUpdate);
        if (!isHere)
            scrollTo(cell, PositionAtCenter);
    }
    takeTop();
    takeSelection();
    takeCurrent();
    emit sightChanged();
}

void TraceTable::editNote()
{
    const int row = kept.current ? rows->rowOf(*kept.current) : -1;
    if (row < 0)
        return;
    setColumnHidden(MessageModel::NoteColumn, false);
    rows->setFollowing(false);
    const QModelIndex note = rows->index(row, MessageModel::NoteColumn);
    scrollTo(note);
    // What is written stays under the hand of who writes, whatever comes meanwhile.
    rows->setRefreshInterval(0);
    edit(note);
}

void TraceTable::closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint)
{
    Q_UNUSED(hint)
    QTableView::closeEditor(editor, QAbstractItemDelegate::NoHint);
    rows->setRefreshInterval(isVisible() ? refreshInterval : 0);
}

std::optional<quint64> TraceTable::rowOfKey(const QKeyEvent &event) const
{
    if (rows->total() == 0)
        return {};
    const quint64 last = rows->total() - 1;
    if (event.key() == Qt::Key_Home)
        return 0;
    if (event.key() == Qt::Key_End)
        return last;
    if (event.modifiers() & Qt::ControlModifier)
        return {};
    const QModelIndex index = currentIndex();
    if (!index.isValid() || !selectionModel()->hasSelection())
        return index.isValid() ? rows->origin() + quint64(index.row()) : topRow();
    const quint64 row = rows->origin() + quint64(index.row());
    const quint64 page = quint64(std::max(1, rowsInSight() - 1));
    switch (event.key()) {
    case Qt::Key_Up:
        return row - std::min<quint64>(row, 1);
    case Qt::Key_Down:
        return std::min(row + 1, last);
    case Qt::Key_PageUp:
        return row - std::min(row, page);
    case Qt::Key_PageDown:
        return std::min(row + page, last);
    default:
        return {};
    }
}

void TraceTable::keyPressEvent(QKeyEvent *event)
{
    const bool isVertical = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down
        || event->key() == Qt::Key_PageUp || event->key() == Qt::Key_PageDown
        || event->key() == Qt::Key_Home || event->key() == Qt::Key_End;
    const auto row = isVertical ? rowOfKey(*event) : std::nullopt;
    if (row)
        moveCurrent(*row, event->modifiers() & Qt::ShiftModifier);
    else
        QTableView::keyPressEvent(event);
}

void TraceTable::mousePressEvent(QMouseEvent *event)
{
    const QModelIndex index = indexAt(event->pos());
    const bool isExtending = event->button() == Qt::LeftButton && index.isValid()
        && event->modifiers() == Qt::ShiftModifier;
    if (isExtending) {
        moveCurrent(rows->origin() + quint64(index.row()), true);
        return;
    }
    QTableView::mousePressEvent(event);
    if (index.isValid())
        kept.anchor = rows->positionOf(index.row());
    emit moved(false);
}

void TraceTable::moveCurrent(quint64 row, bool extends)
{
    const bool toEnd = row + 1 >= rows->total();
    const bool isHere = toEnd && rows->isFollowing();
    const Quiet own(going);
    const QModelIndex index = (isHere ? rows->index(rows->rowCount() - 1, 0) : rows->showRow(row))
                                  .siblingAtColumn(currentColumn());
    if (!index.isValid())
        return;
    const auto begin = extends && kept.anchor ? kept.anchor : rows->positionOf(index.row());
    kept.anchor = begin;
    {
        const Quiet quiet(restoring);
        executeDelayedItemsLayout();
        const int last = rows->rowCount() - 1;
        const int first = begin ? std::min(rows->rowAtOrBehind(*begin), last) : index.row();
        const QItemSelection range(rows->index(std::min(first, index.row()), 0),
                                   rows->index(std::max(first, index.row()), 0));
        selectionModel()->select(range,
                                 QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
        scrollTo(index);
        takeTop();
    }
    takeSelection();
    takeCurrent();
    emit moved(toEnd);
    emit sightChanged();
}

void TraceTable::focusInEvent(QFocusEvent *event)
{
    const bool hadCurrent = currentIndex().isValid();
    // Who comes by has chosen no row yet.
    const Quiet quiet(restoring);
    QTableView::focusInEvent(event);
    if (!hadCurrent)
        selectionModel()->clearCurrentIndex();
}

int TraceTable::currentColumn() const
{
    if (currentIndex().isValid() && !isColumnHidden(currentIndex().column()))
        return currentIndex().column();
    return horizontalHeader()->logicalIndexAt(0);
}

void TraceTable::resizeEvent(QResizeEvent *event)
{
    const Quiet quiet(restoring);
    QTableView::resizeEvent(event);
    restoreTop();
}

void TraceTable::restore()
{
    // The model forgets where one was when another trace has begun.
    if (focus && !rows->currentPosition()) {
        kept.clear();
        top.reset();
        focus.reset();
    }
    executeDelayedItemsLayout();
    // The current row stays current out of sight, too.
    setAutoScroll(false);
    kept.restore(*selectionModel(), currentColumn());
    setAutoScroll(true);
    restoreTop();
    settle();
    --restoring;
}

// As far as the window of the model has it.
void TraceTable::restoreTop()
{
    {
        const Quiet quiet(restoring);
        executeDelayedItemsLayout();
        if (rows->isFollowing()) {
            verticalScrollBar()->setValue(verticalScrollBar()->maximum());
            takeTop();
        } else if (top) {
            verticalScrollBar()->setValue(rows->rowAtOrBehind(*top));
        }
    }
    emit sightChanged();
}

// Rows that a filter finds may come where the window is not.
void TraceTable::settle()
{
    const bool isFound = rows->currentPosition() != focus;
    if (going > 0 || isFound || rows->isFollowing() || !top || rows->total() == 0)
        return;
    const Quiet quiet(going);
    rows->showPosition(*top);
    restoreTop();
}

void TraceTable::takeTop()
{
    if (const auto position = rows->positionOf(verticalScrollBar()->value()))
        top = position;
    takeFocus();
}

void TraceTable::takeCurrent()
{
    const QModelIndex index = currentIndex();
    const auto position = index.isValid() ? rows->positionOf(index.row()) : std::nullopt;
    if (restoring > 0 || !position || position == kept.current)
        return;
    kept.current = position;
    takeFocus();
    emit currentPositionChanged(*position);
}

// Filters and searches begin where the user looks.
void TraceTable::takeFocus()
{
    focus = kept.current && isInSight(*kept.current) ? kept.current : top;
    rows->setCurrentPosition(focus);
}

void TraceTable::takeSelection()
{
    if (restoring > 0)
        return;
    kept.take(selectionModel()->selection());
    emit selectionTaken();
}
