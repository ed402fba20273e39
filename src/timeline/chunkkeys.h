#pragma once

#include "recordview.h"

#include <QHash>

#include <memory>
#include <vector>

/// By value, each once.
using Frames = std::vector<FrameKey>;
using SharedFrames = std::shared_ptr<const Frames>;

/// How often each identifier, line and kind occurs in a chunk, and where. The chunks of a trace
/// mostly have the same ones, so these can be shared; the lists are as long as they are.
struct ChunkKeys
{
    SharedFrames frames = none(); ///< never null
    std::vector<quint32> counts;  ///< messages of each
    std::vector<quint32> firsts;  ///< positions in the chunk
    std::vector<quint32> lasts;

    std::size_t size() const { return counts.size(); }
    FrameKey frame(std::size_t i) const { return (*frames)[i]; }
    /// Makes room for \a size of them; what they are is still to be set.
    void resize(std::size_t size);

    static const SharedFrames &none();
};

bool operator==(const ChunkKeys &a, const ChunkKeys &b);

/// Finds those that are the same, so that they are kept once.
class FramePool
{
public:
    SharedFrames share(const Frames &frames);
    void share(ChunkKeys &keys);

private:
    const SharedFrames *find(quint64 hash, const Frames &frames) const;

    QHash<quint64, SharedFrames> known; // by hash; of two with the same one only the first
};
