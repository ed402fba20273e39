#include "keytable.h"

#include <algorithm>

// Null when there are too many of them.
KeyTable::Key *KeyTable::addKey(FrameKey frame, quint32 position)
{
    if (isWhole && keys.size() == mostKeys) {
        isWhole = false;
        keys.clear();
    }
    return isWhole ? &keys.add({frame.value(), 0, position, position}) : nullptr;
}

ChunkKeys KeyTable::take() const
{
    std::vector<Key> sorted(keys.begin(), keys.end());
    std::sort(sorted.begin(), sorted.end(),
              [](const Key &a, const Key &b) { return a.frame < b.frame; });
    ChunkKeys taken;
    taken.resize(sorted.size());
    Frames frames;
    frames.reserve(sorted.size());
    for (std::size_t i = 0; i < sorted.size(); ++i) {
        frames.emplace_back(sorted[i].frame);
        taken.counts[i] = sorted[i].count;
        taken.firsts[i] = sorted[i].first;
        taken.lasts[i] = sorted[i].last;
    }
    taken.frames = std::make_shared<const Frames>(std::move(frames));
    return taken;
}
