#pragma once

#include <QVector>

#include <algorithm>
#include <utility>

/// Amounts over time, in a bounded number of intervals of equal length: where they do not suffice,
/// two become one. Times are in microseconds.
class TimeCurve
{
public:
    /// \a intervals is even. What comes before \a start counts as of that time.
    explicit TimeCurve(int intervals, qint64 start = 0) : mostIntervals(intervals), begin(start) { }

    void add(qint64 time, quint64 amount)
    {
        // Most messages come in the interval of the one before.
        if (latest < 0 || time < latestStart || time - latestStart >= length)
            findInterval(time);
        amountInLatest += amount;
    }

    qint64 start() const { return begin; }
    /// Of an interval.
    qint64 width() const { return length; }
    /// Number of intervals up to the last one with something in it.
    int size() const { return amounts.size(); }
    quint64 at(int interval) const
    {
        return amounts.at(interval) + (interval == latest ? amountInLatest : 0);
    }

private:
    void findInterval(qint64 time)
    {
        if (latest >= 0)
            amounts[latest] += std::exchange(amountInLatest, 0);
        qint64 interval = std::max<qint64>(0, time - begin) / length;
        for (; interval >= mostIntervals; interval /= 2)
            halve();
        if (interval >= amounts.size())
            amounts.resize(int(interval) + 1);
        latest = int(interval);
        latestStart = begin + interval * length;
    }
    void halve()
    {
        for (int i = 0; i < amounts.size(); ++i) {
            const quint64 amount = amounts[i];
            amounts[i] = 0;
            amounts[i / 2] += amount;
        }
        amounts.resize((amounts.size() + 1) / 2);
        length *= 2;
    }

    int mostIntervals;
    qint64 begin;
    qint64 length = 15625; // a second has a whole number of them, and later the reverse
    QVector<quint64> amounts;
    int latest = -1; // the interval of the last one, and where it begins
    qint64 latestStart = 0;
    quint64 amountInLatest = 0; // not yet with the others, which are far away in memory
};
