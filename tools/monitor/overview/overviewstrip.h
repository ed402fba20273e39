#pragma once

#include <QWidget>

class ShownTrace;

/// The whole trace at a glance: rate of each line, error frames, notes and bookmarks.
class OverviewStrip : public QWidget
{
    Q_OBJECT
public:
    explicit OverviewStrip(ShownTrace *trace, QWidget *parent = nullptr);

public slots:
    /// What the table shows, in microseconds, to be marked.
    void setShownTimes(qint64 first, qint64 last);

signals:
    /// The user wants to be there, in microseconds.
    void timeChosen(qint64 time);
};
