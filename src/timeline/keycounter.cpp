#include "keycounter.h"

namespace {

ChunkFacts factsOf(const ChunkIndex &index, bool isChunk)
{
    ChunkFacts facts = ChunkFacts::of(index);
    facts.isChunk = isChunk;
    return facts;
}

} // namespace

FrameFilter::Count KeyCounter::count(const ChunkIndex &index, bool isChunk)
{
    const ChunkFacts facts = factsOf(index, isChunk);
    const Verdict ofAll = filter.judge(facts);
    if (ofAll != Verdict::Depends)
        return {ofAll == Verdict::Takes ? index.count : 0, true};
    const Judged &keys = judged(index, facts);
    const quint32 *const counts = index.keys.counts.data() + keys.begin;
    // All together are no more than the messages of a chunk.
    quint32 sum = 0;
    for (std::size_t i = 0; i < keys.taken.size(); ++i)
        sum += counts[i] & keys.taken[i];
    return {sum, index.hasAllKeys && !keys.isAnyOpen};
}

KeyCounter::Span KeyCounter::span(const ChunkIndex &index, bool isChunk)
{
    const ChunkFacts facts = factsOf(index, isChunk);
    const Verdict ofAll = filter.judge(facts);
    if (ofAll == Verdict::Refuses)
        return {};
    if (ofAll == Verdict::Takes || !index.hasAllKeys)
        return {0, index.count};
    const Judged &keys = judged(index, facts);
    Span span{index.count, 0};
    for (std::size_t i = 0; i < keys.taken.size(); ++i) {
        if (keys.taken[i] == 0 && !keys.open[i])
            continue;
        span.begin = std::min(span.begin, index.keys.firsts[keys.begin + i]);
        span.end = std::max(span.end, index.keys.lasts[keys.begin + i] + 1);
    }
    return {std::min(span.begin, span.end), span.end};
}

const KeyCounter::Judged &KeyCounter::judged(const ChunkIndex &index, const ChunkFacts &facts)
{
    constexpr int most = 64;
    std::vector<Verdict> ofFacts = filter.judgeFacts(facts);
    const Frames *const frames = index.keys.frames.get();
    const auto before = known.constFind(frames);
    if (before != known.constEnd() && before->facts == ofFacts)
        return *before;
    if (known.size() >= most)
        known.clear();
    return *known.insert(frames, judge(index, facts, std::move(ofFacts)));
}

KeyCounter::Judged KeyCounter::judge(const ChunkIndex &index, const ChunkFacts &facts,
                                     std::vector<Verdict> ofFacts) const
{
    const Frames &frames = *index.keys.frames;
    // Keys are in the order of their identifiers.
    const auto begin =
        std::partition_point(frames.begin(), frames.end(), [this](const FrameKey frame) {
            return frame.id() < filter.identifiers().low;
        });
    const auto end = std::partition_point(begin, frames.end(), [this](const FrameKey frame) {
        return frame.id() <= filter.identifiers().high;
    });
    Judged keys{
        index.keys.frames, std::move(ofFacts), std::size_t(begin - frames.begin()), {}, {}, false};
    for (auto frame = begin; frame != end; ++frame) {
        const Verdict verdict = filter.judge(*frame, facts);
        keys.taken.push_back(verdict == Verdict::Takes ? ~quint32(0) : 0);
        keys.open.push_back(verdict == Verdict::Depends);
        keys.isAnyOpen |= verdict == Verdict::Depends;
    }
    return keys;
}
