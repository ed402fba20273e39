#pragma once

#include <QtGlobal>

#include <vector>

/// Finds entries by the value of their frame: a member of each, called frame. They stay in the
/// order in which they were added.
template <typename Entry> class FrameTable
{
public:
    FrameTable() { clear(); }

    /// Null when there is none; otherwise until one is added.
    Entry *find(quint64 frame)
    {
        Entry &atHome = all[table[slotOf(frame)]];
        if (atHome.frame == frame)
            return &atHome;
        const quint32 number = table[probe(frame)];
        return number == 0 ? nullptr : &all[number];
    }

    /// One whose frame is not there yet.
    Entry &add(const Entry &entry)
    {
        // An entry that is not found at once is a jump that no processor foresees, so most slots
        // are free.
        constexpr std::size_t slotsPerEntry = 8;
        if (slotsPerEntry * (size() + 1) > table.size())
            grow();
        table[probe(entry.frame)] = quint32(all.size());
        all.push_back(entry);
        return all.back();
    }

    std::size_t size() const { return all.size() - 1; }
    const Entry *begin() const { return all.data() + 1; }
    const Entry *end() const { return all.data() + all.size(); }

    void clear()
    {
        Entry none{};
        none.frame = ~Q_UINT64_C(0);
        all.assign(1, none);
        shift = 64 - firstBits;
        table.assign(std::size_t(1) << firstBits, 0);
    }

private:
    static constexpr int firstBits = 8; // of the number of slots

    std::size_t slotOf(quint64 frame) const
    {
        return std::size_t((frame * Q_UINT64_C(0x9E3779B97F4A7C15)) >> shift);
    }
    // The slot of the entry, or the free one where it belongs.
    std::size_t probe(quint64 frame) const
    {
        std::size_t at = slotOf(frame);
        while (table[at] != 0 && all[table[at]].frame != frame)
            at = (at + 1) % table.size();
        return at;
    }
    void grow()
    {
        table.assign(2 * table.size(), 0);
        --shift;
        for (quint32 i = 1; i < all.size(); ++i)
            table[probe(all[i].frame)] = i;
    }

    std::vector<Entry> all; // the first one is no entry; what free slots stand for
    std::vector<quint32> table;
    int shift = 0; // of the product, to a slot
};
