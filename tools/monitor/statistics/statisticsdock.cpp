#include "statisticsdock.h"

StatisticsDock::StatisticsDock(QWidget *parent) : QDockWidget(tr("Statistics"), parent)
{
    setObjectName(QStringLiteral("statistics"));
}

void StatisticsDock::setTrace(ShownTrace *trace)
{
    Q_UNUSED(trace)
}
