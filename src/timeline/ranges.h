#pragma once

#include <QtGlobal>

#include <algorithm>
#include <limits>
#include <vector>

/// Whole numbers from low to high, both included.
struct Range
{
    static constexpr qint64 lowest = std::numeric_limits<qint64>::min();
    static constexpr qint64 highest = std::numeric_limits<qint64>::max();

    qint64 low = lowest;
    qint64 high = highest;
};

using Ranges = std::vector<Range>;

/// Sorts them and joins those that overlap or touch.
inline void tidy(Ranges &ranges)
{
    std::sort(ranges.begin(), ranges.end(),
              [](const Range &a, const Range &b) { return a.low < b.low; });
    std::size_t kept = 0;
    for (const Range &range : ranges) {
        if (kept > 0 && (range.low == Range::lowest || range.low - 1 <= ranges[kept - 1].high))
            ranges[kept - 1].high = std::max(ranges[kept - 1].high, range.high);
        else
            ranges[kept++] = range;
    }
    ranges.resize(kept);
}
