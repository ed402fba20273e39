#include "overviewstrip.h"

OverviewStrip::OverviewStrip(ShownTrace *trace, QWidget *parent) : QWidget(parent)
{
    Q_UNUSED(trace)
}

void OverviewStrip::setShownTimes(qint64 first, qint64 last)
{
    Q_UNUSED(first)
    Q_UNUSED(last)
}
