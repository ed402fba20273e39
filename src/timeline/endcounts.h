#pragma once

#include <QtGlobal>

#include <optional>
#include <vector>

/// How many messages are found in each step of a segment of which the sum is known. Steps become
/// known from both ends of it on, as far as it is needed.
class EndCounts
{
public:
    struct Steps
    {
        quint32 begin = 0;
        quint32 end = 0;
    };
    struct Place
    {
        quint32 step = 0;
        quint64 before = 0; ///< what is found in front of it
    };

    EndCounts() = default;
    /// Nothing is found outside of \a within.
    EndCounts(quint32 steps, Steps within, quint64 total)
        : counts(steps), front(within.begin), back(within.end), total(total)
    {
    }

    bool isEmpty() const { return counts.empty(); }

    /// Where the found message \a n is; nothing where that is not known.
    std::optional<Place> find(quint64 n) const;
    /// What is found in front of \a step; nothing where that is not known.
    std::optional<quint64> before(quint32 step) const;

    /// What to count next for find(n) or before(step); empty when all is known.
    Steps nextFor(quint64 n) const;
    Steps nextForStep(quint32 step) const;
    /// Takes in what is found in steps that next...() has named.
    void set(Steps steps, const std::vector<quint16> &found);

private:
    // Reading some at once takes little longer than reading one.
    static constexpr quint32 atOnce = 4;

    Steps fromFront() const { return {front, qMin(front + atOnce, back)}; }
    Steps fromBack() const { return {back - qMin(atOnce, back - front), back}; }
    Place placeFrom(quint32 step, quint64 before, quint64 n) const;

    std::vector<quint16> counts;
    quint32 front = 0;   // the steps in front of it are known,
    quint32 back = 0;    // and those from here on
    quint64 inFront = 0; // found in these
    quint64 behind = 0;
    quint64 total = 0;
};
