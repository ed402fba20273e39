#pragma once

#include "chunkbytes.h"
#include "framefilter.h"
#include "messagelist.h"
#include "tracenotes.h"

#include <functional>
#include <memory>
#include <vector>

class ChangeTracker;

/// A run of messages of a timeline that lie in one place. Constant once made; any thread.
class TraceSegment
{
public:
    using Messages = std::vector<CAN::CanRxMessage>;

    /// What to look for, and where: whole steps but for the ends.
    struct Scan
    {
        const FrameFilter &filter;
        const Notes &notes;
        ChangeTracker *changes; ///< null where the filter does not ask; used in order
        quint32 begin;          ///< position of the first record
        quint32 end;            ///< behind the last one
    };
    /// Called for each step with the positions in it, counted from its start, of what was found.
    /// False to stop.
    using TakeStep = std::function<bool(quint32 step, const quint16 *positions, int count)>;

    explicit TraceSegment(ChunkIndex index);
    virtual ~TraceSegment() = default;

    TraceSegment(const TraceSegment &) = delete;
    TraceSegment &operator=(const TraceSegment &) = delete;

    /// Never that of another segment.
    quint64 id() const { return ownId; }
    const ChunkIndex &index() const { return ownIndex; }
    quint32 count() const { return ownIndex.count; }
    /// All messages of each line of the index, then error frames.
    const std::vector<quint32> &totals() const { return ownTotals; }

    /// What the user calls the chunk that the messages lie in; empty of those in memory.
    virtual QString name() const { return {}; }
    /// Whether messages lie in a chunk, which does not keep all of them.
    virtual bool isChunk() const = 0;
    /// The message at \a offset where it is in memory, as long as the segment; else null.
    virtual const CAN::CanRxMessage *held(quint32 /*offset*/) const { return nullptr; }
    /// False when they are no longer there.
    virtual bool decode(quint32 step, Messages &messages) const = 0;
    /// False when they are no longer there; what was found before has been taken.
    virtual bool scan(const Scan &scan, const TakeStep &take) const = 0;
    virtual TraceNotes::Marks marks() const = 0;

private:
    const quint64 ownId;
    const ChunkIndex ownIndex;
    const std::vector<quint32> ownTotals;
};

using SharedSegment = std::shared_ptr<const TraceSegment>;

/// Messages in a chunk.
class ChunkSegment : public TraceSegment
{
public:
    ChunkSegment(std::shared_ptr<const ChunkBytes> bytes, ChunkIndex index);

    QString name() const override { return bytes->name(); }
    bool isChunk() const override { return true; }
    bool decode(quint32 step, Messages &messages) const override;
    bool scan(const Scan &scan, const TakeStep &take) const override;
    TraceNotes::Marks marks() const override;
    /// Changes what is written on message \a offset, in the chunk.
    ChunkMarks::Changed change(const MarkChange &change, quint32 offset) const
    {
        return bytes->change(change, index(), offset);
    }

private:
    bool readSteps(const ChunkHandle &handle, quint32 first, quint32 end, QByteArray &buffer) const;
    template <typename Visit>
    bool walkStep(quint32 step, const char *begin, const Visit &visit) const;
    bool decodeCut(const ChunkHandle &handle, Messages &messages) const;

    const std::shared_ptr<const ChunkBytes> bytes;
};

/// Messages in memory.
class ListSegment : public TraceSegment
{
public:
    ListSegment(MessageList messages, ChunkIndex index, TraceNotes::Marks marks);

    bool isChunk() const override { return false; }
    const CAN::CanRxMessage *held(quint32 offset) const override { return &list.at(int(offset)); }
    bool decode(quint32 step, Messages &messages) const override;
    bool scan(const Scan &scan, const TakeStep &take) const override;
    TraceNotes::Marks marks() const override { return ownMarks; }

private:
    const MessageList list;
    const TraceNotes::Marks ownMarks;
};
