#include "chunkkeys.h"

#include <tuple>

namespace {

// A sum, so that no step waits for the one before.
quint64 hashOf(const Frames &frames)
{
    constexpr quint64 odd = Q_UINT64_C(0x9E3779B97F4A7C15);
    quint64 hash = frames.size();
    quint64 place = odd;
    for (const FrameKey frame : frames) {
        hash += (frame.value() ^ place) * (frame.value() + (place >> 32));
        place += odd;
    }
    return hash;
}

} // namespace

void ChunkKeys::resize(std::size_t size)
{
    counts.resize(size);
    firsts.resize(size);
    lasts.resize(size);
}

const SharedFrames &ChunkKeys::none()
{
    static const auto empty = std::make_shared<const Frames>();
    return empty;
}

bool operator==(const ChunkKeys &a, const ChunkKeys &b)
{
    return *a.frames == *b.frames
        && std::tie(a.counts, a.firsts, a.lasts) == std::tie(b.counts, b.firsts, b.lasts);
}

const SharedFrames *FramePool::find(quint64 hash, const Frames &frames) const
{
    const auto found = known.constFind(hash);
    return found != known.constEnd() && **found == frames ? &*found : nullptr;
}

SharedFrames FramePool::share(const Frames &frames)
{
    const quint64 hash = hashOf(frames);
    if (const SharedFrames *same = find(hash, frames))
        return *same;
    auto shared = std::make_shared<const Frames>(frames);
    if (!known.contains(hash))
        known.insert(hash, shared);
    return shared;
}

void FramePool::share(ChunkKeys &keys)
{
    const quint64 hash = hashOf(*keys.frames);
    if (const SharedFrames *same = find(hash, *keys.frames))
        keys.frames = *same;
    else if (!known.contains(hash))
        known.insert(hash, keys.frames);
}
