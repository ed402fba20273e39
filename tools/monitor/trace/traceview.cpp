#include "traceview.h"

#include "showntrace.h"
#include "tracetablemodel.h"

#include <QTableView>
#include <QVBoxLayout>

TraceView::TraceView(ShownTrace *trace, QWidget *parent)
    : QWidget(parent), ownModel(new TraceTableModel(trace->timeline(), this))
{
    auto *table = new QTableView(this);
    table->setModel(ownModel);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(table);
}

TraceView::~TraceView() = default;

std::optional<quint64> TraceView::currentPosition() const
{
    return ownModel->currentPosition();
}

QVector<quint64> TraceView::selectedPositions() const
{
    return {};
}

QList<QAction *> TraceView::editActions() const
{
    return {};
}

QList<QAction *> TraceView::viewActions() const
{
    return {};
}

void TraceView::showPosition(quint64 position)
{
    ownModel->showPosition(position);
}

void TraceView::showTime(qint64 time)
{
    ownModel->jumpToTime(time);
}

void TraceView::setFilter(const std::optional<TraceExpression> &expression)
{
    ownModel->setFilter(expression);
}
