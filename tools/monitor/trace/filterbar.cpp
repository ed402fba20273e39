#include "filterbar.h"

FilterBar::FilterBar(TraceTableModel *model, QWidget *parent) : QWidget(parent)
{
    Q_UNUSED(model)
}

QList<QAction *> FilterBar::actions() const
{
    return {};
}

void FilterBar::setText(const QString &text)
{
    emit filterChanged(TraceExpression::parse(text));
}
