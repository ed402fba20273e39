#include "keytable.h"

#include <algorithm>

static_assert(KeyTable::mostKeys <= 65536, "a slot has 16 bits for the number of a key");

KeyTable::KeyTable() : table(std::size_t(1) << firstBits, freeSlot) { }

// The slot of the key, or the free one where it belongs.
quint64 &KeyTable::probe(quint64 value)
{
    std::size_t at = slotOf(value);
    while (table[at] != freeSlot && table[at] >> numberBits != value)
        at = (at + 1) % table.size();
    return table[at];
}

// A free one when there are too many different keys.
quint64 KeyTable::findSlot(quint64 value, quint32 position)
{
    // A key that is not found at once is a jump that no processor foresees, so most slots are free.
    constexpr std::size_t slotsPerKey = 8;
    if (!isWhole)
        return freeSlot;
    const quint64 slot = probe(value);
    if (slot != freeSlot)
        return slot;
    if (keys.size() == mostKeys) {
        drop();
        return freeSlot;
    }
    if (slotsPerKey * (keys.size() + 1) > table.size())
        grow();
    keys.push_back({value, 0, position, position});
    return probe(value) = value << numberBits | (keys.size() - 1);
}

void KeyTable::drop()
{
    isWhole = false;
    keys = {};
    table.assign(2, freeSlot);
    shift = 63;
}

void KeyTable::grow()
{
    table.assign(2 * table.size(), freeSlot);
    --shift;
    for (std::size_t i = 0; i < keys.size(); ++i)
        probe(keys[i].frame) = keys[i].frame << numberBits | i;
}

ChunkKeys KeyTable::take()
{
    std::sort(keys.begin(), keys.end(),
              [](const Key &a, const Key &b) { return a.frame < b.frame; });
    ChunkKeys sorted;
    sorted.resize(keys.size());
    Frames frames;
    frames.reserve(keys.size());
    for (std::size_t i = 0; i < keys.size(); ++i) {
        frames.emplace_back(keys[i].frame);
        sorted.counts[i] = keys[i].count;
        sorted.firsts[i] = keys[i].first;
        sorted.lasts[i] = keys[i].last;
    }
    sorted.frames = std::make_shared<const Frames>(std::move(frames));
    return sorted;
}
