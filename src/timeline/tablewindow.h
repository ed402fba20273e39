#pragma once

#include <QtGlobal>

#include <algorithm>

/// Which of very many rows a table has. A plain value.
struct TableWindow
{
    static constexpr int most = 100000;
    static constexpr int margin = most / 10;

    quint64 origin = 0;
    int count = 0;

    quint64 end() const { return origin + quint64(count); }
    bool has(quint64 row) const { return row >= origin && row < end(); }
    int room() const { return most - count; }

    /// Whether \a row and those that are soon scrolled to are in it.
    bool isWellInside(quint64 row, quint64 total) const
    {
        return has(row) && (origin == 0 || row - origin >= margin)
            && (end() == total || end() - row > margin);
    }

    /// As large as can be, from \a origin on or from further in front.
    static TableWindow from(quint64 origin, quint64 total)
    {
        const quint64 last = total - std::min<quint64>(total, most);
        const quint64 begin = std::min(origin, last);
        return {begin, int(std::min<quint64>(total - begin, most))};
    }
    static TableWindow around(quint64 row, quint64 total)
    {
        return from(row - std::min<quint64>(row, most / 2), total);
    }
};
