// What a filter knows of messages that it does not look at.

#include "keycounter.h"

ChunkFacts ChunkFacts::of(const ChunkIndex &index)
{
    ChunkFacts facts;
    // A record that is cut short may be shown with any time.
    if (!index.hasCutRecord) {
        facts.minTime = index.minTime;
        facts.maxTime = index.maxTime;
    }
    facts.firstNumber = index.firstNumber;
    facts.count = index.count;
    facts.numbersRise = index.numbersRise;
    facts.hasNotes = index.notes > 0;
    facts.isChunk = true;
    return facts;
}

FrameFilter::Verdict FrameFilter::judgeAll(const FrameKey *key, const ChunkFacts &facts) const
{
    bool isOpen = false;
    if (isTaken(key, facts, false, isOpen))
        return Verdict::Takes;
    return isOpen && isTaken(key, facts, true, isOpen) ? Verdict::Depends : Verdict::Refuses;
}

// Whether messages are taken when every open answer is for it, or every one against it. Those of
// all messages in question lie between the two.
bool FrameFilter::isTaken(const FrameKey *key, const ChunkFacts &facts, bool hopes,
                          bool &isOpen) const
{
    int at = entry;
    while (at >= 0) {
        const Step &step = steps[std::size_t(at)];
        const Verdict verdict = judgeStep(step, key, facts);
        isOpen |= verdict == Verdict::Depends;
        const bool holds =
            verdict == Verdict::Depends ? hopes != step.isNegated : verdict == Verdict::Takes;
        at = holds ? step.ifTrue : step.ifFalse;
    }
    return at == taken;
}

FrameFilter::Verdict FrameFilter::judgeStep(const Step &step, const FrameKey *key,
                                            const ChunkFacts &facts) const
{
    switch (step.field) {
    case FrameTest::Id:
        return key ? judgeNumber(step, key->id()) : Verdict::Depends;
    case FrameTest::Kind:
        // The direction is no part of the key.
        if (step.mask == FrameKey::Transmitted)
            return facts.isChunk ? Verdict::Refuses : Verdict::Depends;
        return key ? judgeNumber(step, key->kind()) : Verdict::Depends;
    case FrameTest::Line:
        return key ? judgeNumber(step, key->line()) : Verdict::Depends;
    case FrameTest::Time:
        return judgeRange(step, {facts.minTime, facts.maxTime});
    case FrameTest::Number: {
        const qint64 last = qint64(facts.firstNumber) + facts.count - 1;
        // Behind the highest number they begin again with 0.
        const bool isRange = facts.numbersRise && last <= std::numeric_limits<quint32>::max();
        return isRange ? judgeRange(step, {facts.firstNumber, last}) : Verdict::Depends;
    }
    case FrameTest::Byte:
    case FrameTest::Data:
        return key && (key->kind() & FrameKey::Remote) ? Verdict::Refuses : Verdict::Depends;
    case FrameTest::Note:
        return facts.hasNotes ? Verdict::Depends : Verdict::Refuses;
    case FrameTest::Length:
    case FrameTest::Changed:
        break;
    }
    return Verdict::Depends;
}

FrameFilter::Verdict FrameFilter::judgeNumber(const Step &step, qint64 number) const
{
    return takesNumber(step, number) ? Verdict::Takes : Verdict::Refuses;
}

FrameFilter::Verdict FrameFilter::judgeRange(const Step &step, const Range &possible) const
{
    if (possible.low > possible.high)
        return Verdict::Depends;
    for (quint32 i = 0; i < step.count; ++i) {
        const Range &range = ranges[step.index + i];
        if (range.low <= possible.low && possible.high <= range.high)
            return Verdict::Takes;
        if (range.low <= possible.high && possible.low <= range.high)
            return Verdict::Depends;
    }
    return Verdict::Refuses;
}

std::vector<FrameFilter::Verdict> FrameFilter::judgeFacts(const ChunkFacts &facts) const
{
    std::vector<Verdict> verdicts;
    verdicts.reserve(steps.size());
    for (const Step &step : steps)
        verdicts.push_back(judgeStep(step, nullptr, facts));
    return verdicts;
}

FrameFilter::Count FrameFilter::count(const ChunkIndex &index, bool isChunk) const
{
    return KeyCounter(*this).count(index, isChunk);
}
