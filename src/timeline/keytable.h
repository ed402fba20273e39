#pragma once

#include "chunkkeys.h"
#include "frametable.h"

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

    /// A message at \a position, which rises from call to call.
    void add(FrameKey frame, quint32 position)
    {
        ++counts[frame.line()];
        if (frame.isError())
            ++counts[errors];
        Key *key = keys.find(frame.value());
        if (!key && !(key = addKey(frame, position)))
            return;
        ++key->count;
        key->last = position;
    }

    /// What has been added.
    const Counts &countsSoFar() const { return counts; }
    /// False when there are too many keys.
    bool hasAll() const { return isWhole; }
    /// All of them by value; none when there are too many.
    ChunkKeys take() const;

private:
    struct Key
    {
        quint64 frame = 0; // its value
        quint32 count = 0;
        quint32 first = 0;
        quint32 last = 0;
    };

    Key *addKey(FrameKey frame, quint32 position);

    FrameTable<Key> keys;
    bool isWhole = true;
    Counts counts{};
};
