#include "tracetablemodel.h"

#include "scrollsteps.h"
#include "searching.h"
#include "tabletext.h"
#include "tracetablemodel_p.h"

static_assert(TraceTableModel::mostRows == TableWindow::most);
static_assert(TraceTableModel::mostScrollSteps == ScrollSteps::most);

TraceTableModel::TraceTableModel(const TraceTimeline &timeline, QObject *parent)
    : QAbstractTableModel(parent), d(std::make_unique<Private>(*this, timeline))
{
}

TraceTableModel::~TraceTableModel() = default;

int TraceTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : d->window.count;
}

int TraceTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : columns;
}

QVariant TraceTableModel::data(const QModelIndex &index, int role) const
{
    // A view may still hold an index of a window that was.
    if (!index.isValid() || index.model() != this || index.row() >= d->window.count
        || index.column() >= columns)
        return {};
    const quint64 row = d->window.origin + quint64(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return d->text(row, index.column());
    case Qt::TextAlignmentRole:
        return Private::alignment(index.column());
    case RowRole:
        return row;
    case PositionRole: {
        const auto position = d->positionOf(row);
        return position ? QVariant(*position) : QVariant();
    }
    case StateRole:
    case MessageRole:
    case TimeRole:
    case NoteRole:
    case BookmarkRole:
        return Private::value(d->shown(row), role);
    default:
        return {};
    }
}

QVariant TraceTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    // Titles stand where their column does.
    if (role == Qt::TextAlignmentRole && orientation == Qt::Horizontal)
        return Private::alignment(section);
    if (role != Qt::DisplayRole || section < 0)
        return {};
    if (orientation == Qt::Vertical)
        return section < d->window.count ? QVariant(d->window.origin + quint64(section) + 1)
                                         : QVariant();
    const QString names[] = {tr("Position"),  tr("Number"),     tr("Time"), tr("Line"),
                             tr("Direction"), tr("Identifier"), tr("Kind"), tr("Length"),
                             tr("Data"),      tr("Note")};
    return section < columns ? QVariant(names[section]) : QVariant();
}

TraceTableModel::TimeForm TraceTableModel::timeForm() const
{
    return d->timeForm;
}

void TraceTableModel::setTimeForm(TimeForm form)
{
    d->timeForm = form;
    if (d->window.count > 0)
        emit dataChanged(index(0, TimeColumn), index(d->window.count - 1, TimeColumn));
}

quint64 TraceTableModel::total() const
{
    return d->rows.total();
}

quint64 TraceTableModel::origin() const
{
    return d->window.origin;
}

int TraceTableModel::rowOf(quint64 position) const
{
    const quint64 row = d->rows.rowOf(position);
    const bool isHere = d->window.has(row) && d->rows.positionOf(row) == position;
    return isHere ? int(row - d->window.origin) : -1;
}

QModelIndex TraceTableModel::showRow(quint64 row)
{
    setFollowing(false);
    if (total() == 0)
        return {};
    const quint64 there = std::min(row, total() - 1);
    if (!d->window.isWellInside(there, total()))
        d->moveTo(TableWindow::around(there, total()));
    return index(int(there - origin()), 0);
}

QModelIndex TraceTableModel::showPosition(quint64 position)
{
    return showRow(d->rows.rowOf(position));
}

QModelIndex TraceTableModel::jumpToTime(qint64 time)
{
    const TraceSnapshot &snapshot = d->rows.snapshot();
    const quint64 position = snapshot.positionOfTime(time);
    return position < snapshot.count() ? showPosition(position) : QModelIndex();
}

QModelIndex TraceTableModel::jumpToNumber(quint32 number)
{
    const auto position = Searching::positionOfNumber(d->rows.snapshot(), number);
    return position ? showPosition(*position) : QModelIndex();
}

int TraceTableModel::scrollRange() const
{
    return ScrollSteps(total()).lastStep();
}

quint64 TraceTableModel::rowAtScroll(int step) const
{
    return ScrollSteps(total()).rowAt(step);
}

int TraceTableModel::scrollOf(quint64 row) const
{
    return ScrollSteps(total()).stepOf(row);
}

bool TraceTableModel::isFollowing() const
{
    return d->isFollowing;
}

void TraceTableModel::setFollowing(bool on)
{
    if (d->isFollowing == on)
        return;
    d->isFollowing = on;
    if (on && d->window.end() != total())
        d->moveTo(d->atEnd());
    emit followingChanged(on);
}

int TraceTableModel::refreshInterval() const
{
    return d->interval;
}

void TraceTableModel::setRefreshInterval(int milliseconds)
{
    d->interval = std::max(0, milliseconds);
    d->updateTimer();
}

std::optional<TraceExpression> TraceTableModel::filter() const
{
    return d->expression;
}

void TraceTableModel::setFilter(const std::optional<TraceExpression> &expression)
{
    d->setFilter(expression);
}

std::optional<quint64> TraceTableModel::currentPosition() const
{
    return d->current;
}

void TraceTableModel::setCurrentPosition(std::optional<quint64> position)
{
    d->current = position;
}

void TraceTableModel::findNext(const TraceExpression &expression)
{
    d->startFind(expression, TableFind::Forwards);
}

void TraceTableModel::findPrevious(const TraceExpression &expression)
{
    d->startFind(expression, TableFind::Backwards);
}

void TraceTableModel::cancelFind()
{
    d->cancelFind();
}

void TraceTableModel::refresh()
{
    d->refresh();
}
