#pragma once

#include "chunkkeys.h"

#include <array>

/// Counts the messages of a chunk by their keys, one after the other.
class KeyTable
{
public:
    static constexpr std::size_t errors = 256; ///< behind the lines
    /// Messages of each line, and error frames.
    using Counts = std::array<quint32, errors + 1>;

    /// More different keys than this are not kept: a chunk of nothing but different identifiers
    /// must not fill the memory.
    static constexpr std::size_t mostKeys = 65536;

    KeyTable();

    /// A message at \a position, which rises from call to call.
    void add(FrameKey frame, quint32 position)
    {
        ++counts[frame.line()];
        if (frame.isError())
            ++counts[errors];
        quint64 slot = table[slotOf(frame.value())];
        if (slot >> numberBits != frame.value()) {
            slot = findSlot(frame.value(), position);
            if (slot == freeSlot)
                return;
        }
        Key &key = keys[slot & numberMask];
        ++key.count;
        key.last = position;
    }

    /// What has been added.
    const Counts &countsSoFar() const { return counts; }
    /// False when there are too many keys.
    bool hasAll() const { return isWhole; }
    /// All of them by value; none when there are too many. Nothing may be added any more.
    ChunkKeys take();

private:
    struct Key
    {
        quint64 frame = 0; // its value
        quint32 count = 0;
        quint32 first = 0;
        quint32 last = 0;
    };

    // A slot is the value of a frame and the number of its key, or free.
    static constexpr int numberBits = 16;
    static constexpr quint64 freeSlot = ~Q_UINT64_C(0);
    static constexpr quint64 numberMask = (quint64(1) << numberBits) - 1;
    static constexpr int firstBits = 8; // of the number of slots

    std::size_t slotOf(quint64 value) const
    {
        return std::size_t((value * Q_UINT64_C(0x9E3779B97F4A7C15)) >> shift);
    }
    quint64 &probe(quint64 value);
    quint64 findSlot(quint64 value, quint32 position);
    void grow();
    void drop();

    std::vector<Key> keys; // in the order in which they came
    std::vector<quint64> table;
    int shift = 64 - firstBits; // of the product, to a slot
    bool isWhole = true;
    Counts counts{};
};
