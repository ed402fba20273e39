#pragma once

#include "filterrun.h"

#include <optional>
#include <vector>

/// The rows of a table at one moment: all messages of a snapshot, or those of them that a filter
/// had found. They stay as they are while timeline and filter go on. One thread.
class TableRows
{
public:
    /// Rows that came since.
    struct Growth
    {
        std::size_t group = 0;
        quint64 count = 0;
    };

    /// All messages.
    explicit TableRows(SharedSnapshot snapshot);
    TableRows(std::shared_ptr<FilterRun> run, FilterRun::Found found);

    quint64 total() const { return ends.back(); }
    const TraceSnapshot &snapshot() const { return *ownSnapshot; }

    /// Nothing where a found message is no longer there, so that nobody knows which one it was.
    std::optional<quint64> positionOf(quint64 row) const;
    /// The first row at or behind \a position; total() when there is none.
    quint64 rowOf(quint64 position) const;

    /// What the rows from \a begin to in front of \a end lie in.
    std::vector<quint64> segmentsOf(quint64 begin, quint64 end) const;

    /// Goes back to as many rows as there were \a before, in the places that they have here.
    /// Returns what has come since, from front to back, to be added one by one; nothing, and stays
    /// as it is, when a row of that moment may not be here.
    std::optional<std::vector<Growth>> goBackTo(const TableRows &before);
    /// Where the next rows of a group come.
    quint64 endOf(std::size_t group) const { return ends[group]; }
    void add(const Growth &growth);

private:
    // Of rows that stand behind one another, and where only the end can grow: those found in one
    // segment, or all.
    void addGroup(quint64 begin, quint64 count);
    std::size_t groupOf(quint64 row) const;
    quint64 firstRow(std::size_t group) const { return group == 0 ? 0 : ends[group - 1]; }
    quint64 countOf(std::size_t group) const { return ends[group] - firstRow(group); }

    std::shared_ptr<FilterRun> run; // null where all messages are rows
    SharedSnapshot ownSnapshot;
    quint32 generation = 0;
    std::vector<quint64> begins; // positions, for each group
    std::vector<quint64> ends;   // rows
};
