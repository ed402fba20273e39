#pragma once

#include <QDockWidget>
#include <QPointer>

class IdentifiersPage;
class LinesPage;
class QLabel;
class ShownTrace;
class TraceDigest;

/// Counts, periods and bus load of identifiers and lines, as a table and as curves.
class StatisticsDock : public QDockWidget
{
    Q_OBJECT
public:
    explicit StatisticsDock(QWidget *parent = nullptr);

public slots:
    /// Null for none. Works for it only while the dock is in sight.
    void setTrace(ShownTrace *trace);

private:
    void watch(bool on);
    void showProgress();

    LinesPage *const lines;
    IdentifiersPage *const identifiers;
    QLabel *const progress;
    QPointer<ShownTrace> trace;
    QPointer<TraceDigest> digest;
    bool isInSight = false; // not so where it is behind another dock
};
