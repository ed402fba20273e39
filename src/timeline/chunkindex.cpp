#include "chunkindex.h"

#include <array>
#include <numeric>
#include <tuple>

bool operator==(const ChunkIndex &a, const ChunkIndex &b)
{
    const auto plain = [](const ChunkIndex &i) {
        return std::tie(i.version, i.recordsStart, i.recordsEnd, i.count, i.hasCutRecord,
                        i.firstNumber, i.numbersRise, i.timesRise, i.firstTime, i.lastTime,
                        i.minTime, i.maxTime, i.notes, i.bookmarks, i.hasAllKeys, i.lines,
                        i.countsBefore, i.keys);
    };
    const auto isSameStep = [](const ChunkIndex::Step &s, const ChunkIndex::Step &t) {
        return std::tie(s.offset, s.time, s.maxTime) == std::tie(t.offset, t.time, t.maxTime);
    };
    return plain(a) == plain(b)
        && std::equal(a.steps.begin(), a.steps.end(), b.steps.begin(), b.steps.end(), isSameStep);
}

namespace {

bool keysAreSound(const ChunkIndex &index)
{
    const ChunkKeys &keys = index.keys;
    std::array<bool, 256> occurs{};
    for (const quint8 line : index.lines)
        occurs[line] = true;
    quint64 counted = 0;
    bool isSound = keys.frames->size() == keys.size();
    for (std::size_t i = 0; i < keys.size() && isSound; ++i) {
        const quint32 count = keys.counts[i];
        isSound = count > 0 && keys.firsts[i] <= keys.lasts[i] && keys.lasts[i] < index.count
            && keys.lasts[i] - keys.firsts[i] >= count - 1 && occurs[keys.frame(i).line()]
            && (i == 0 || keys.frame(i - 1).value() < keys.frame(i).value());
        counted += count;
    }
    return isSound && counted == (index.hasAllKeys ? index.count : 0);
}

bool stepsAreSound(const ChunkIndex &index)
{
    const bool hasLine = index.hasLine();
    qint64 before = std::numeric_limits<qint64>::min();
    for (quint32 i = 0; i < index.stepCount(); ++i) {
        const ChunkIndex::Step &step = index.steps[i];
        const qint64 end = index.endOfStep(i);
        // Offsets outside may be too far apart for a number.
        if (step.offset < index.recordsStart || end < step.offset || end > index.recordsEnd)
            return false;
        const qint64 bytes = end - step.offset;
        const qint64 whole = qint64(index.sizeOfStep(i))
            - (index.hasCutRecord && i + 1 == index.stepCount() ? 1 : 0);
        if (bytes < whole * RecordView::size(0, hasLine)
            || bytes > whole * RecordView::size(CAN::maxDataBytes, hasLine)
            || step.maxTime < std::max(before, step.time) || step.time < index.minTime)
            return false;
        before = step.maxTime;
    }
    return index.steps.empty()
        || (index.steps.front().offset == index.recordsStart && before == index.maxTime);
}

// Of each line and the error frames not more between two steps than there are messages, and of all
// lines together exactly as many.
bool countsAreSound(const ChunkIndex &index)
{
    const auto perStep = std::size_t(index.countsPerStep());
    if (index.countsBefore.size() != index.steps.size() * perStep)
        return false;
    for (std::size_t step = 0; step < index.steps.size(); ++step) {
        const quint32 *counts = index.countsBefore.data() + step * perStep;
        const auto before = step * ChunkIndex::recordsPerStep;
        if (std::accumulate(counts, counts + index.lines.size(), quint64(0)) != before
            || counts[index.lines.size()] > before)
            return false;
        for (std::size_t i = 0; step > 0 && i < perStep; ++i) {
            if (counts[i] < counts[i - perStep])
                return false;
        }
    }
    return true;
}

} // namespace

void ChunkIndex::moveBy(qint64 bytes)
{
    recordsStart += bytes;
    recordsEnd += bytes;
    for (Step &step : steps)
        step.offset += bytes;
}

bool ChunkIndex::isSound(qint64 fileSize) const
{
    const quint64 stepsWanted = (quint64(count) + recordsPerStep - 1) / recordsPerStep;
    const bool risesStrictly =
        std::adjacent_find(lines.begin(), lines.end(), std::greater_equal<>()) == lines.end();
    const bool timesFit = count == 0
        || (minTime <= firstTime && minTime <= lastTime && maxTime >= firstTime
            && maxTime >= lastTime && steps.size() == stepsWanted && steps.front().time == firstTime
            && (!timesRise || (minTime == firstTime && maxTime == lastTime)));
    return count <= mostRecords && recordsStart >= 0 && recordsStart <= recordsEnd
        && recordsEnd <= fileSize && steps.size() == stepsWanted && (!hasCutRecord || count > 0)
        && risesStrictly && timesFit && keysAreSound(*this) && stepsAreSound(*this)
        && countsAreSound(*this);
}

ChunkIndexer::ChunkIndexer(quint32 version, qint64 recordsStart)
    : hasLine(version >= ChunkFormat::lineFieldSince)
{
    index.version = version;
    index.recordsStart = index.recordsEnd = recordsStart;
}

void ChunkIndexer::beginStep(qint64 time, quint32 number)
{
    if (index.count == 0) {
        index.firstNumber = number;
        index.firstTime = index.lastTime = index.minTime = index.maxTime = time;
    } else {
        index.steps.back().maxTime = index.maxTime;
    }
    index.steps.push_back({index.recordsEnd, time, 0});
    countsBefore.push_back(keys.countsSoFar());
}

// A time below the highest one.
void ChunkIndexer::addEarlier(qint64 time)
{
    index.timesRise = index.timesRise && time >= index.lastTime;
    index.lastTime = time;
    index.minTime = std::min(index.minTime, time);
}

ChunkIndex ChunkIndexer::finish()
{
    const KeyTable::Counts &counts = keys.countsSoFar();
    for (std::size_t line = 0; line < KeyTable::errors; ++line) {
        if (counts[line] != 0)
            index.lines.push_back(quint8(line));
    }
    for (const KeyTable::Counts &before : countsBefore) {
        for (const quint8 line : index.lines)
            index.countsBefore.push_back(before[line]);
        index.countsBefore.push_back(before[KeyTable::errors]);
    }
    if (index.count > 0)
        index.steps.back().maxTime = index.maxTime;
    index.hasAllKeys = keys.hasAll();
    index.keys = keys.take();
    return std::move(index);
}
