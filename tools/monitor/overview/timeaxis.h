#pragma once

#include <QString>
#include <QVector>

/// Where an axis of time has its labels.
struct TimeAxis
{
    struct Label
    {
        qint64 time; ///< in microseconds
        QString text;
    };

    /// Round times between \a first and \a last, as many as \a most at best. They count from
    /// \a start, or are those of the day where \a isClock.
    static QVector<Label> labels(qint64 first, qint64 last, qint64 start, int most, bool isClock);

    /// A single time, to so many microseconds.
    static QString text(qint64 time, qint64 start, qint64 step, bool isClock);
};
