#pragma once

#include <QDockWidget>

class ShownTrace;

/// Counts, periods and bus load of identifiers and lines, as a table and as curves.
class StatisticsDock : public QDockWidget
{
    Q_OBJECT
public:
    explicit StatisticsDock(QWidget *parent = nullptr);

public slots:
    /// Null for none. Works for it only while the dock is in sight.
    void setTrace(ShownTrace *trace);
};
