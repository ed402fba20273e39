#pragma once

#include <QCommandLineParser>

#include <algorithm>
#include <limits>
#include <vector>

/// Positions in a trace: all of them, a range or single ones. The first message is at 0.
class Positions
{
public:
    /// Takes over what "from", "until", "range" and "select" ask for; what two of them ask for is
    /// what both take. False, with the usage error printed, when they are wrong.
    bool read(const QCommandLineParser &parser);

    bool contains(quint64 position) const
    {
        return position >= begin && position <= end
            && (single.empty() || std::binary_search(single.begin(), single.end(), position));
    }
    /// Both are included; where nothing is taken, the first is behind the last.
    quint64 first() const { return begin; }
    quint64 last() const { return end; }
    /// Of an input whose first message is at \a start: where it begins to be wanted, and for one of
    /// \a count messages one behind the last position in it that may be.
    quint64 firstIn(quint64 start) const { return begin > start ? begin - start : 0; }
    quint64 endIn(quint64 start, quint64 count) const
    {
        return end < start ? 0 : end - start < count ? end - start + 1 : count;
    }
    bool isAll() const { return begin == 0 && end == most && single.empty(); }

private:
    static constexpr quint64 most = std::numeric_limits<quint64>::max();

    bool readEnds(const QCommandLineParser &parser);
    bool readRange(const QString &text);
    bool readSingle(const QString &text);

    quint64 begin = 0;
    quint64 end = most;
    std::vector<quint64> single; // sorted; when not empty, only these
};
