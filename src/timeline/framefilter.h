#pragma once

#include "chunkindex.h"
#include "filternode.h"
#include "notes.h"
#include "recordview.h"
#include "traceexpression.h"

/// What is known of some messages of a trace without looking at each.
struct ChunkFacts
{
    qint64 minTime = std::numeric_limits<qint64>::min(); ///< in microseconds
    qint64 maxTime = std::numeric_limits<qint64>::max();
    quint32 firstNumber = 0;
    quint32 count = 0;
    bool numbersRise = false; ///< by one from message to message
    bool hasNotes = true;     ///< whether any of them may have one
    bool isChunk = false;     ///< where nothing is known of the direction any more

    static ChunkFacts of(const ChunkIndex &index);
};

/// An expression made into steps, each with the next one for either answer, so that a message is
/// asked no more than it takes. Never changes; any thread.
class FrameFilter
{
public:
    /// What a message does not tell itself.
    struct Context
    {
        const Notes *notes = nullptr; ///< by number
        QStringView note;             ///< that of the message, where there are no notes by number
        bool isChanged = false;       ///< asked where needsChanged()
    };

    /// What holds for some messages: all are taken, all are refused, or each has to be asked.
    enum class Verdict : quint8 { Takes, Refuses, Depends };

    struct Count
    {
        quint64 surely = 0;  ///< that are taken without a look at them
        bool isExact = true; ///< whether no other is
    };

    /// Takes every message.
    FrameFilter() = default;
    explicit FrameFilter(const FilterNode &tree);

    /// Whether the message that \a view shows is taken. Allocates nothing.
    template <typename View> bool matches(const View &view, const Context &context) const
    {
        int at = entry;
        while (at >= 0) {
            const Step &step = steps[std::size_t(at)];
            at = holds(step, view, context) ? step.ifTrue : step.ifFalse;
        }
        return at == taken;
    }

    /// Whether it looks at notes, at what is changed, and at anything that a payload decides: its
    /// length, its bytes, or whether it is changed.
    bool needsNotes() const { return needs(FrameTest::Note); }
    bool needsChanged() const { return needs(FrameTest::Changed); }
    bool needsPayload() const
    {
        return needs(FrameTest::Length) || needs(FrameTest::Byte) || needs(FrameTest::Data)
            || needsChanged();
    }

    /// What holds for the messages of \a key among those of which \a facts are known.
    Verdict judge(FrameKey key, const ChunkFacts &facts) const { return judgeAll(&key, facts); }
    /// What holds for all of them, whatever their keys.
    Verdict judge(const ChunkFacts &facts) const { return judgeAll(nullptr, facts); }

    /// What the steps make of \a facts alone. Where it is the same of two chunks, so is what holds
    /// for a key in them.
    std::vector<Verdict> judgeFacts(const ChunkFacts &facts) const;

    /// No identifier outside is taken; a range inside which each may be.
    const Range &identifiers() const { return possibleIds; }

    /// How many messages are taken, without a look at them: of a chunk, or of a list that has such
    /// an index and knows directions, too.
    Count count(const ChunkIndex &index, bool isChunk = true) const;

private:
    // Behind the last step; the others count down to 0.
    static constexpr int taken = -1;
    static constexpr int refused = -2;

    static constexpr int noByte = 256;

    struct Step
    {
        FrameTest::Field field = FrameTest::Id;
        quint8 byte = 0;
        bool isNegated = false; // whether the expression wants the answer to be no
        bool isSpan = false;    // whether low and span stand for the ranges
        int ifTrue = taken;
        int ifFalse = refused;
        quint32 index = 0; // of its first range, its pattern or its text
        quint32 count = 0; // of its ranges
        quint64 mask = 0;
        quint64 low = 0;
        quint64 span = 0;
    };

    template <typename View>
    bool holds(const Step &step, const View &view, const Context &context) const
    {
        switch (step.field) {
        case FrameTest::Id:
            return takesNumber(step, view.id());
        case FrameTest::Kind:
            return takesNumber(step, view.kind());
        case FrameTest::Line:
            return takesNumber(step, view.line());
        case FrameTest::Length:
            return takesNumber(step, view.length());
        case FrameTest::Number:
            return takesNumber(step, view.number());
        case FrameTest::Time:
            return takesNumber(step, view.time());
        case FrameTest::Byte:
            return takesByte(step, view);
        case FrameTest::Data:
            return patterns[step.index].isIn(view.data(), view.length()) && !view.isRemote();
        case FrameTest::Note:
            return takesNote(step, view.number(), context);
        case FrameTest::Changed:
            return context.isChanged;
        }
        return false;
    }
    // A byte that is not there counts as a number that no byte has, for a jump that depends on the
    // length is one that no processor can foresee. The first byte can be read of an empty payload,
    // too. The payload of a remote frame means nothing.
    template <typename View> bool takesByte(const Step &step, const View &view) const
    {
        const int isThere = step.byte < view.length();
        const int byte = view.data()[step.byte * isThere];
        return takesNumber(step, byte | noByte * (1 - isThere)) && !view.isRemote();
    }
    bool takesNumber(const Step &step, qint64 number) const
    {
        const quint64 masked = quint64(number) & step.mask;
        return step.isSpan ? masked - step.low <= step.span : isInRanges(step, qint64(masked));
    }
    // Without a jump that depends on the number, which nobody can foresee.
    bool isInRanges(const Step &step, qint64 number) const
    {
        const Range *range = &ranges[step.index];
        for (quint32 left = step.count; left > 1;) {
            const quint32 half = left / 2;
            range += range[half].low <= number ? half : 0;
            left -= half;
        }
        return (range->low <= number) & (number <= range->high);
    }
    bool takesNote(const Step &step, quint32 number, const Context &context) const;

    int addSteps(const FilterNode &node, int ifTrue, int ifFalse, bool isNegated);
    int addStep(const FrameTest &test);
    void addRanges(Step &step, const Ranges &wanted);
    bool needs(FrameTest::Field field) const;
    Verdict judgeAll(const FrameKey *key, const ChunkFacts &facts) const;
    bool isTaken(const FrameKey *key, const ChunkFacts &facts, bool hopes, bool &isOpen) const;
    Verdict judgeStep(const Step &step, const FrameKey *key, const ChunkFacts &facts) const;
    Verdict judgeNumber(const Step &step, qint64 number) const;
    Verdict judgeRange(const Step &step, const Range &possible) const;

    std::vector<Step> steps;
    std::vector<Range> ranges;
    std::vector<BytePattern> patterns;
    std::vector<QString> texts;
    int entry = taken;
    Range possibleIds;
};

/// What the library asks messages by.
const FrameFilter &filterOf(const TraceExpression &expression);
