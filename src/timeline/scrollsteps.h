#pragma once

#include <QtGlobal>

/// A scroll bar over more rows than it has steps. A plain value.
class ScrollSteps
{
public:
    static constexpr int most = 1000000;

    explicit ScrollSteps(quint64 total)
        : lastRow(total == 0 ? 0 : total - 1), range(int(qMin<quint64>(lastRow, most)))
    {
    }

    /// The last step; the first one is 0.
    int lastStep() const { return range; }

    /// The first step is the first row, the last step the last row.
    quint64 rowAt(int step) const
    {
        if (range == 0)
            return 0;
        const quint64 steps = quint64(qBound(0, step, range));
        const quint64 divisor = quint64(range);
        // In two parts, as the product would not fit.
        return lastRow / divisor * steps + lastRow % divisor * steps / divisor;
    }

    /// The last step that is at or in front of \a row.
    int stepOf(quint64 row) const
    {
        int low = 0;
        for (int high = range; low < high;) {
            const int middle = high - (high - low) / 2;
            if (rowAt(middle) <= row)
                low = middle;
            else
                high = middle - 1;
        }
        return low;
    }

private:
    quint64 lastRow;
    int range;
};
