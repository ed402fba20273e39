#include "traceview.h"

#include "allrowsbar.h"
#include "jumpline.h"
#include "lookmenus.h"
#include "messagecopy.h"
#include "messagedelegate.h"
#include "messagemodel.h"
#include "placeline.h"
#include "showntrace.h"
#include "traceactions.h"
#include "tracecolumns.h"
#include "tracetable.h"

#include <QApplication>
#include <QClipboard>
#include <QFontDatabase>
#include <QGridLayout>
#include <QHeaderView>
#include <QTimer>

namespace {

void makeDense(QTableView &table)
{
    table.setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    const int height =
        qMax(table.fontMetrics().height(), QFontMetrics(QApplication::font()).height());
    table.horizontalHeader()->setFont(QApplication::font());
    table.verticalHeader()->setMinimumSectionSize(height);
    table.verticalHeader()->setDefaultSectionSize(height + height / 6);
}

} // namespace

TraceView::TraceView(ShownTrace *trace, QWidget *parent)
    : QWidget(parent), trace(trace), ownModel(new MessageModel(trace->timeline(), this)),
      table(new TraceTable(ownModel, this)), columns((makeDense(*table), new TraceColumns(table))),
      actions(new TraceActions(ownModel, table, columns)),
      place(new PlaceLine(ownModel, table, actions->follow(), this)), jump(new JumpLine(table)),
      soon(new QTimer(this))
{
    soon->setSingleShot(true);
    table->setItemDelegate(new MessageDelegate(table));
    layOut();
    connectParts();
    ownModel->setFollowing(mayGrow());
    ownModel->setRefreshInterval(0);
    place->setLive(trace->paths().isEmpty());
}

TraceView::~TraceView() = default;

void TraceView::layOut()
{
    table->setObjectName(QStringLiteral("messages"));
    table->setAccessibleName(tr("Messages"));
    table->setFrameShape(QFrame::NoFrame);
    setFocusProxy(table);
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins({});
    grid->setSpacing(0);
    grid->addWidget(table, 0, 0);
    grid->addWidget(new AllRowsBar(ownModel, table, this), 0, 1);
    grid->addWidget(place, 1, 0, 1, 2);
}

void TraceView::connectParts()
{
    connect(table, &TraceTable::currentPositionChanged, this, &TraceView::currentPositionChanged);
    connect(table, &TraceTable::moved, this,
            [this](bool toEnd) { ownModel->setFollowing(toEnd && mayGrow()); });
    connect(table, &TraceTable::sightChanged, soon, [this] { soon->start(0); });
    connect(soon, &QTimer::timeout, this, &TraceView::tellShownTimes);
    connect(table, &QAbstractItemView::doubleClicked, this, [this](const QModelIndex &index) {
        if (index.column() == TraceTableModel::NoteColumn)
            table->editNote();
    });
    connect(ownModel, &TraceTableModel::found, this, &TraceView::showPosition);
    connect(ownModel, &MessageModel::noteWritten, trace, &ShownTrace::setNote);
    connect(actions, &TraceActions::copyWanted, this, &TraceView::copyShown);
    connect(actions, &TraceActions::candumpWanted, this, &TraceView::copyCandump);
    connect(actions, &TraceActions::numberWanted, this, &TraceView::askNumber);
    connect(actions, &TraceActions::timeWanted, this, &TraceView::askTime);
    connect(actions, &TraceActions::noteWanted, table, &TraceTable::editNote);
    connect(actions, &TraceActions::bookmarkWanted, this, &TraceView::toggleBookmark);
    connect(actions, &TraceActions::filterWanted, this, &TraceView::filterWanted);
}

TraceTableModel *TraceView::model() const
{
    return ownModel;
}

// A file that is being imported is read from its beginning, however it grows.
bool TraceView::mayGrow() const
{
    if (!trace->paths().isEmpty())
        return false;
    return trace->isGrowing() || ownModel->total() == 0;
}

std::optional<quint64> TraceView::currentPosition() const
{
    return table->currentPosition();
}

QVector<quint64> TraceView::selectedPositions() const
{
    return table->selectedPositions(TraceTableModel::mostRows);
}

QList<QAction *> TraceView::editActions() const
{
    return actions->edit();
}

QList<QAction *> TraceView::viewActions() const
{
    return actions->view();
}

void TraceView::showPosition(quint64 position)
{
    table->go([=] { return ownModel->showPosition(position); });
}

void TraceView::showTime(qint64 time)
{
    table->go([=] { return ownModel->jumpToTime(time); });
}

void TraceView::setFilter(const std::optional<TraceExpression> &expression)
{
    ownModel->setFilter(expression);
}

void TraceView::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    columns->load();
    actions->look()->load();
    ownModel->setRefreshInterval(TraceTable::refreshInterval);
    ownModel->refresh();
}

void TraceView::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    ownModel->setRefreshInterval(0);
}

QVector<quint64> TraceView::positionsToCopy() const
{
    return table->selectedPositions(MessageCopy::most);
}

void TraceView::copyShown()
{
    const QVector<quint64> positions = positionsToCopy();
    const QString text = MessageCopy::asShown(*ownModel, *table->horizontalHeader(), positions);
    copied(text, quint64(positions.size()), 0);
}

void TraceView::copyCandump()
{
    const QVector<quint64> positions = positionsToCopy();
    quint64 leftOut = 0;
    const QString text = MessageCopy::asCandump(*ownModel, positions, &leftOut);
    copied(text, quint64(positions.size()) - leftOut, leftOut);
}

void TraceView::copied(const QString &text, quint64 count, quint64 leftOut)
{
    QApplication::clipboard()->setText(text);
    QString told = tr("%n message(s) copied.", nullptr, int(count));
    if (leftOut > 0)
        told += QLatin1Char(' ') + tr("%n could not be written this way.", nullptr, int(leftOut));
    place->tell(told);
    if (table->selectionModel()->selectedRows().size() <= MessageCopy::most)
        return;
    emit trace->notice(
        {Notice::Information,
         tr("Only the first %n selected messages were copied.", nullptr, MessageCopy::most),
         tr("Export the selection to a file to have all of them.")});
}

void TraceView::askNumber()
{
    jump->ask(tr("Go to number:"), tr("The number of a message, as in its column"),
              [this](const QString &text) {
                  QString error;
                  const auto number = JumpTarget::number(text, &error);
                  if (!number)
                      return error;
                  const auto where = [&] { return ownModel->jumpToNumber(*number); };
                  return table->go(where) ? QString() : tr("There is no message with this number.");
              });
}

JumpTarget::Times TraceView::times() const
{
    JumpTarget::Times times;
    times.shown = ownModel->look().time;
    times.start = trace->timeline().firstTime();
    times.marked = ownModel->markedTime();
    const QVariant current = table->currentIndex().data(TraceTableModel::TimeRole);
    times.current = current.isValid() ? current.toLongLong() : times.start;
    return times;
}

void TraceView::askTime()
{
    const JumpTarget::Times times = this->times();
    jump->ask(tr("Go to time:"), JumpTarget::timeHint(times), [this, times](const QString &text) {
        QString error;
        const auto time = JumpTarget::time(text, times, &error);
        if (!time)
            return error;
        const auto where = [&] { return ownModel->jumpToTime(*time); };
        return table->go(where) ? QString() : tr("The trace ends before this time.");
    });
}

void TraceView::toggleBookmark()
{
    const QModelIndex index = table->currentIndex();
    const auto position = ownModel->positionOf(index.row());
    if (!position || index.data(TraceTableModel::StateRole).toInt() != TraceRow::Known)
        return;
    const bool isMarked = index.data(TraceTableModel::BookmarkRole).isValid();
    const auto message = index.data(TraceTableModel::MessageRole).value<CAN::CanRxMessage>();
    trace->setBookmark(*position,
                       isMarked ? QString() : tr("Message %1").arg(message.messageNumber));
}

void TraceView::tellShownTimes()
{
    const int first = table->rowAt(0);
    const int last = qMin(first + table->rowsInSight(), ownModel->rowCount()) - 1;
    const QVariant begin = ownModel->index(first, 0).data(TraceTableModel::TimeRole);
    const QVariant end = ownModel->index(last, 0).data(TraceTableModel::TimeRole);
    if (begin.isValid() && end.isValid())
        emit shownTimesChanged(begin.toLongLong(), end.toLongLong());
}
