#pragma once

#include <QObject>
#include <QTimer>

/// Tells when the clock on the wall reaches a multiple of a period: every 10 minutes at 10:00,
/// 10:10 and so on, in local time.
class ClockTimer : public QObject
{
    Q_OBJECT
public:
    /// \a period in milliseconds, above 0.
    explicit ClockTimer(qint64 period, QObject *parent = nullptr);

signals:
    /// Also when the clock is set into another period.
    void due();

private:
    void look();

    const qint64 period;
    qint64 number = 0; // of the period that the clock is in
    QTimer timer;
};
