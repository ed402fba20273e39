#include "allrowsbar.h"

#include "messagemodel.h"
#include "tracetable.h"

#include <QCoreApplication>
#include <QSignalBlocker>
#include <QWheelEvent>

#include <algorithm>

namespace {

constexpr int rowsOfSingleStep = 1;

} // namespace

AllRowsBar::AllRowsBar(MessageModel *model, TraceTable *table, QWidget *parent)
    : QScrollBar(Qt::Vertical, parent), model(model), table(table)
{
    connect(this, &QAbstractSlider::actionTriggered, this, &AllRowsBar::take);
    connect(table, &TraceTable::sightChanged, this, &AllRowsBar::update);
    connect(model, &TraceTableModel::totalChanged, this, &AllRowsBar::update);
    update();
}

// Its last step is the row that is on top when the last one is at the bottom, so that it feels like
// any other scroll bar where the trace is short.
quint64 AllRowsBar::rowAt(int step) const
{
    const quint64 last = table->lastTopRow();
    return maximum() > 0 ? quint64(double(last) * step / maximum()) : 0;
}

int AllRowsBar::stepOf(quint64 row) const
{
    const quint64 last = table->lastTopRow();
    if (row >= last)
        return maximum();
    return int(double(row) * maximum() / double(last));
}

void AllRowsBar::update()
{
    if (isSliderDown())
        return;
    const quint64 last = table->lastTopRow();
    const quint64 page = quint64(table->rowsInSight());
    const QSignalBlocker blocker(this);
    setRange(0, int(std::min<quint64>(last, TraceTableModel::mostScrollSteps)));
    setPageStep(std::max(1, stepOf(std::min(page, last))));
    setValue(stepOf(table->topRow()));
    QScrollBar::update();
}

void AllRowsBar::take(int action)
{
    const quint64 top = table->topRow();
    const quint64 page = quint64(table->rowsInSight());
    switch (action) {
    case SliderSingleStepAdd:
        table->scrollTop(top + rowsOfSingleStep);
        break;
    case SliderSingleStepSub:
        table->scrollTop(top - std::min<quint64>(top, rowsOfSingleStep));
        break;
    case SliderPageStepAdd:
        table->scrollTop(top + page);
        break;
    case SliderPageStepSub:
        table->scrollTop(top - std::min(top, page));
        break;
    default:
        table->scrollTop(rowAt(sliderPosition()));
        return;
    }
    // A step of the bar may be many rows; that one was done already.
    setSliderPosition(stepOf(table->topRow()));
}

void AllRowsBar::wheelEvent(QWheelEvent *event)
{
    QCoreApplication::sendEvent(table->viewport(), event);
}
