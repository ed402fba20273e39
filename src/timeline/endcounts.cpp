#include "endcounts.h"

#include <algorithm>
#include <numeric>

EndCounts::Place EndCounts::placeFrom(quint32 step, quint64 before, quint64 n) const
{
    while (step + 1 < counts.size() && n >= before + counts[step])
        before += counts[step++];
    return {step, before};
}

std::optional<EndCounts::Place> EndCounts::find(quint64 n) const
{
    if (n < inFront)
        return placeFrom(0, 0, n);
    if (n < total && n >= total - behind)
        return placeFrom(back, total - behind, n);
    return {};
}

std::optional<quint64> EndCounts::before(quint32 step) const
{
    const auto end = counts.begin() + step;
    if (step <= front)
        return std::accumulate(counts.begin(), end, quint64(0));
    if (step >= back)
        return std::accumulate(counts.begin() + back, end, total - behind);
    return {};
}

EndCounts::Steps EndCounts::nextFor(quint64 n) const
{
    return n - inFront < total - behind - n ? fromFront() : fromBack();
}

EndCounts::Steps EndCounts::nextForStep(quint32 step) const
{
    return step - front < back - step ? fromFront() : fromBack();
}

// Somebody else may have counted them meanwhile.
void EndCounts::set(Steps steps, const std::vector<quint16> &found)
{
    const bool isInFront = steps.begin == front && steps.end <= back;
    if (!isInFront && (steps.end != back || steps.begin < front))
        return;
    std::copy(found.begin(), found.end(), counts.begin() + steps.begin);
    const auto sum = std::accumulate(found.begin(), found.end(), quint64(0));
    (isInFront ? inFront : behind) += sum;
    (isInFront ? front : back) = isInFront ? steps.end : steps.begin;
}
