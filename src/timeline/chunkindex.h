#pragma once

#include "chunkformat.h"
#include "keytable.h"
#include "recordview.h"

#include <algorithm>
#include <array>
#include <limits>
#include <vector>

/// What a chunk holds, so that counts and jumps need not read it. A plain value.
struct ChunkIndex
{
    /// Every so many records there is a step.
    static constexpr quint32 recordsPerStep = 4096;

    /// A chunk of more records has no index: positions in it are numbers of 32 bits.
    static constexpr quint32 mostRecords = 1U << 31;

    /// More different keys than this are not kept.
    static constexpr std::size_t mostKeys = KeyTable::mostKeys;

    struct Step
    {
        qint64 offset = 0;  ///< of its first record in the file
        qint64 time = 0;    ///< of its first record, in microseconds
        qint64 maxTime = 0; ///< the highest from the start of the chunk to the end of this step
    };

    quint32 version = 0;     ///< of the chunk
    qint64 recordsStart = 0; ///< offset of the first record
    qint64 recordsEnd = 0;   ///< offset behind the last whole one
    quint32 count = 0;
    bool hasCutRecord = false; ///< whether the last one counted is cut short by the file's end
    quint32 firstNumber = 0;
    bool numbersRise = true; ///< by one from message to message
    bool timesRise = true;   ///< or stay, from message to message
    qint64 firstTime = 0;    ///< in microseconds, like all times here; those of whole records
    qint64 lastTime = 0;
    qint64 minTime = std::numeric_limits<qint64>::max();
    qint64 maxTime = std::numeric_limits<qint64>::min();
    quint32 notes = 0;
    quint32 bookmarks = 0;
    bool hasAllKeys = true;    ///< false where there are more than mostKeys
    ChunkKeys keys;            ///< none where there are too many
    std::vector<quint8> lines; ///< that occur, rising
    std::vector<Step> steps;
    /// For each step the messages in front of it: of each of the lines, then error frames.
    std::vector<quint32> countsBefore;

    bool hasLine() const { return version >= ChunkFormat::lineFieldSince; }
    int countsPerStep() const { return int(lines.size()) + 1; }
    quint32 wholeRecords() const { return count - (hasCutRecord ? 1 : 0); }
    quint32 stepCount() const { return quint32(steps.size()); }
    /// Messages of step \a step.
    quint32 sizeOfStep(quint32 step) const
    {
        return qMin(recordsPerStep, count - step * recordsPerStep);
    }
    /// Where step \a step ends in the file.
    qint64 endOfStep(quint32 step) const
    {
        return step + 1 < stepCount() ? steps[step + 1].offset : recordsEnd;
    }

    /// Has all records lie \a bytes further behind.
    void moveBy(qint64 bytes);

    /// Whether its parts fit together, and into a file of \a fileSize bytes. An index from outside
    /// is of no use otherwise.
    bool isSound(qint64 fileSize) const;
};

bool operator==(const ChunkIndex &a, const ChunkIndex &b);

/// Makes the index of a chunk from its messages, one after the other. Takes some 5 ns for each.
class ChunkIndexer
{
public:
    /// The records begin at \a recordsStart of a chunk of \a version.
    ChunkIndexer(quint32 version, qint64 recordsStart);

    template <typename View> void add(const View &view)
    {
        addMessage(view, view.time());
        index.recordsEnd += RecordView::size(view.length(), hasLine);
    }

    /// The same for a last record that the end of the file cuts short. Its time may be lost: it
    /// counts as that of the message in front, if there is one.
    template <typename View> void addCut(const View &view)
    {
        addMessage(view, index.count > 0 ? index.lastTime : view.time());
        index.hasCutRecord = true;
    }

    quint32 count() const { return index.count; }

    /// The index of what has been added. Nothing may be added any more.
    ChunkIndex finish();
    /// The same for one that goes on.
    ChunkIndex soFar() const { return ChunkIndexer(*this).finish(); }

private:
    template <typename View> void addMessage(const View &view, qint64 time)
    {
        if (index.count % ChunkIndex::recordsPerStep == 0)
            beginStep(time, view.number());
        if (view.number() != index.firstNumber + index.count)
            index.numbersRise = false;
        if (time < index.maxTime)
            addEarlier(time);
        else
            index.lastTime = index.maxTime = time;
        // A chunk does not keep the direction.
        keys.add({view.id(), view.line(), quint8(view.kind() & ~FrameKey::Transmitted)},
                 index.count);
        ++index.count;
    }
    void beginStep(qint64 time, quint32 number);
    void addEarlier(qint64 time);

    const bool hasLine;
    ChunkIndex index;
    KeyTable keys;
    std::vector<KeyTable::Counts> countsBefore; // for each step
};
