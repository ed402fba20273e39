#include "tracetablemodel_p.h"

#include <QScopedValueRollback>

#include <utility>

namespace {

constexpr int mostOnScreen = 1024;
// More of them at once cost a view more than a new beginning.
constexpr std::size_t mostInsertions = 64;

} // namespace

TraceTableModel::Private::Private(TraceTableModel &model, const TraceTimeline &timeline)
    : model(model), timeline(timeline), rows(dataOf(timeline)->snapshot()),
      window(TableWindow::from(0, rows.total())), timer(new QTimer(&model)),
      start(rows.snapshot().firstTime()), screen(mostOnScreen),
      find(timeline, [this](TableFind::Ticket ticket, std::optional<quint64> position) {
          QMetaObject::invokeMethod(
              &this->model, [this, ticket, position] { take(ticket, position); },
              Qt::QueuedConnection);
      })
{
    QObject::connect(timer, &QTimer::timeout, &model, &TraceTableModel::refresh);
    updateTimer();
}

TableRows TraceTableModel::Private::rowsNow()
{
    progress = {};
    if (!run)
        return TableRows(dataOf(timeline)->snapshot());
    FilterRun::Found found = run->found();
    progress = {found.messagesDone, found.messages, found.isComplete && timeline.isComplete()};
    return TableRows(run, std::move(found));
}

void TraceTableModel::Private::refresh()
{
    // A slot that is called in the middle of it may ask for another one.
    if (isRefreshing)
        return;
    const QScopedValueRollback<bool> guard(isRefreshing, true);
    timeline.refresh();
    const quint64 before = rows.total();
    adopt(rowsNow());
    tell(before);
    updateTimer();
}

void TraceTableModel::Private::adopt(TableRows next)
{
    const auto growths = next.goBackTo(rows);
    if (growths && growths->empty() && &next.snapshot() == &rows.snapshot())
        return;
    if (!growths || growths->size() > mostInsertions || (isFollowing && !growths->empty())) {
        for (const auto &growth : growths.value_or(std::vector<TableRows::Growth>()))
            next.add(growth);
        reset(std::move(next));
        return;
    }
    const auto segments = rows.segmentsOf(window.origin, window.end());
    const qint64 startBefore = start;
    rows = std::move(next);
    start = rows.snapshot().firstTime();
    screen.clear();
    if (startBefore != start || segments != rows.segmentsOf(window.origin, window.end()))
        tellAllChanged();
    const quint32 ours = ++version;
    for (std::size_t i = 0; i < growths->size() && ours == version; ++i) {
        if (grow((*growths)[i]))
            continue;
        TableRows all = rows;
        for (; i < growths->size(); ++i)
            all.add((*growths)[i]);
        reset(std::move(all));
    }
}

// False when the rows belong into the window and do not fit.
bool TraceTableModel::Private::grow(const TableRows::Growth &growth)
{
    const auto add = [&] {
        rows.add(growth);
        screen.clear();
    };
    const quint64 at = rows.endOf(growth.group);
    if (window.origin > 0 && at <= window.origin) {
        add();
        window.origin += growth.count;
        if (window.count > 0)
            emit model.headerDataChanged(Qt::Vertical, 0, window.count - 1);
        return true;
    }
    const bool isInside = at < window.end();
    if (isInside && growth.count > quint64(window.room()))
        return false;
    const int count = at > window.end() ? 0 : int(std::min<quint64>(growth.count, window.room()));
    if (count == 0) {
        add();
        return true;
    }
    const int first = int(at - window.origin);
    model.beginInsertRows(QModelIndex(), first, first + count - 1);
    add();
    window.count += count;
    model.endInsertRows();
    return true;
}

void TraceTableModel::Private::reset(TableRows next)
{
    const bool isSameTrace = next.snapshot().epoch() == rows.snapshot().epoch();
    if (!isSameTrace)
        current.reset();
    const bool keepsCurrent = current && window.has(rows.rowOf(*current));
    const quint64 first = isSameTrace ? rows.positionOf(window.origin).value_or(0) : 0;
    model.beginResetModel();
    ++version;
    rows = std::move(next);
    start = rows.snapshot().firstTime();
    screen.clear();
    if (isFollowing)
        window = atEnd();
    else if (keepsCurrent)
        window = TableWindow::around(rows.rowOf(*current), rows.total());
    else
        window = TableWindow::from(window.origin == 0 ? 0 : rows.rowOf(first), rows.total());
    model.endResetModel();
}

void TraceTableModel::Private::moveTo(const TableWindow &to)
{
    model.beginResetModel();
    window = to;
    model.endResetModel();
}

void TraceTableModel::Private::setFilter(const std::optional<TraceExpression> &wanted)
{
    const quint64 before = rows.total();
    const quint64 focus = current.value_or(rows.positionOf(window.origin).value_or(0));
    expression = wanted;
    run = wanted ? std::make_shared<FilterRun>(dataOf(timeline), *wanted, focus) : nullptr;
    TableRows next = rowsNow();
    model.beginResetModel();
    ++version;
    rows = std::move(next);
    start = rows.snapshot().firstTime();
    screen.clear();
    window = isFollowing ? atEnd() : TableWindow::around(rows.rowOf(focus), rows.total());
    model.endResetModel();
    told = {0, 0, false};
    tell(before);
    updateTimer();
}

void TraceTableModel::Private::tell(quint64 totalBefore)
{
    const Progress now = progress;
    const bool isOfFilter = bool(run);
    if (rows.total() != totalBefore)
        emit model.totalChanged(rows.total());
    const Progress last = std::exchange(told, now);
    if (!isOfFilter)
        return;
    if (last.done != now.done || last.of != now.of)
        emit model.filterProgress(now.done, now.of);
    if (now.isComplete && !last.isComplete)
        emit model.filterComplete();
}

void TraceTableModel::Private::tellAllChanged()
{
    if (window.count > 0)
        emit model.dataChanged(model.index(0, 0), model.index(window.count - 1, columns - 1));
}

void TraceTableModel::Private::updateTimer()
{
    const bool mayChange =
        timeline.mayChange() || !timeline.isComplete() || (run && !progress.isComplete);
    if (interval == 0 || !mayChange)
        timer->stop();
    else if (!timer->isActive() || timer->interval() != interval)
        timer->start(interval);
}

void TraceTableModel::Private::startFind(const TraceExpression &wanted,
                                         TableFind::Direction direction)
{
    const bool isForwards = direction == TableFind::Forwards;
    const quint64 otherwise = isForwards ? 0 : timeline.count();
    find.start(expression ? TraceExpression::both(*expression, wanted) : wanted,
               current ? *current + (isForwards ? 1 : 0) : otherwise, direction);
}

void TraceTableModel::Private::take(TableFind::Ticket ticket, std::optional<quint64> position)
{
    // Another search may have begun since.
    if (!find.isCurrent(ticket))
        return;
    if (!position) {
        emit model.notFound();
        return;
    }
    refresh();
    current = position;
    model.showPosition(*position);
    emit model.found(*position);
}
