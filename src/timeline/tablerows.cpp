#include "tablerows.h"

TableRows::TableRows(SharedSnapshot snapshot)
    : ownSnapshot(std::move(snapshot)), generation(ownSnapshot->epoch())
{
    addGroup(0, ownSnapshot->count());
}

TableRows::TableRows(std::shared_ptr<FilterRun> run, FilterRun::Found found)
    : run(std::move(run)), ownSnapshot(std::move(found.snapshot)), generation(found.generation)
{
    for (std::size_t i = 0; i < found.counts.size(); ++i)
        addGroup(ownSnapshot->segments()[i].begin, found.counts[i]);
    if (ends.empty())
        addGroup(0, 0);
}

void TableRows::addGroup(quint64 begin, quint64 count)
{
    ends.push_back((ends.empty() ? 0 : ends.back()) + count);
    begins.push_back(begin);
}

std::size_t TableRows::groupOf(quint64 row) const
{
    return std::size_t(std::upper_bound(ends.begin(), ends.end(), row) - ends.begin());
}

std::optional<quint64> TableRows::positionOf(quint64 row) const
{
    if (row >= total())
        return {};
    if (!run)
        return row;
    const std::size_t group = groupOf(row);
    return run->positionOf(begins[group], row - firstRow(group));
}

quint64 TableRows::rowOf(quint64 position) const
{
    if (!run)
        return std::min(position, total());
    const auto behind = std::upper_bound(begins.begin(), begins.end(), position);
    if (behind == begins.begin())
        return 0;
    const auto group = std::size_t(behind - begins.begin()) - 1;
    const TraceSnapshot::Place place = ownSnapshot->at(position);
    if (!place.placed || place.placed->begin != begins[group])
        return ends[group];
    // The filter may have found more there since.
    return firstRow(group) + std::min(run->countIn(begins[group], position), countOf(group));
}

std::vector<quint64> TableRows::segmentsOf(quint64 begin, quint64 end) const
{
    std::vector<quint64> ids;
    const auto &segments = ownSnapshot->segments();
    std::size_t i = run ? groupOf(begin) : ownSnapshot->indexOf(begin);
    for (; begin < end && i < segments.size(); ++i) {
        if ((run ? firstRow(i) : segments[i].begin) >= end)
            break;
        if (!run || countOf(i) > 0)
            ids.push_back(segments[i].segment->id());
    }
    return ids;
}

std::optional<std::vector<TableRows::Growth>> TableRows::goBackTo(const TableRows &before)
{
    if (run != before.run || generation != before.generation)
        return {};
    std::vector<quint64> counts(begins.size());
    std::size_t group = 0;
    for (std::size_t old = 0; old < before.begins.size(); ++old) {
        const quint64 count = before.countOf(old);
        while (group < begins.size() && begins[group] < before.begins[old])
            ++group;
        const bool isHere = group < begins.size() && begins[group] == before.begins[old];
        if (count > 0 && (!isHere || countOf(group) < count))
            return {};
        if (isHere)
            counts[group] = count;
    }
    std::vector<Growth> growths;
    quint64 end = 0;
    for (std::size_t i = 0; i < counts.size(); ++i) {
        end += counts[i];
        if (countOf(i) > counts[i])
            growths.push_back({i, countOf(i) - counts[i]});
        counts[i] = end;
    }
    ends = std::move(counts);
    return growths;
}

void TableRows::add(const Growth &growth)
{
    for (std::size_t i = growth.group; i < ends.size(); ++i)
        ends[i] += growth.count;
}
