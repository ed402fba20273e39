#include "framefilter.h"

namespace {

// The narrowest range around all identifiers that the node may take.
Range identifiersOf(const FilterNode &node)
{
    if (node.isNegated)
        return {};
    if (node.kind == FilterNode::Test) {
        const bool isPlain = node.test.field == FrameTest::Id && node.test.mask == FrameTest::all;
        return isPlain ? Range{node.test.ranges.front().low, node.test.ranges.back().high}
                       : Range{};
    }
    Range range = identifiersOf(node.children.front());
    for (const FilterNode &child : node.children) {
        const Range next = identifiersOf(child);
        if (node.kind == FilterNode::All)
            range = {std::max(range.low, next.low), std::min(range.high, next.high)};
        else
            range = {std::min(range.low, next.low), std::max(range.high, next.high)};
    }
    return range;
}

// What of the ranges is below the number that stands for no byte; never empty.
Ranges rangesOfBytes(Ranges ranges)
{
    constexpr qint64 highest = 255;
    ranges.erase(std::remove_if(ranges.begin(), ranges.end(),
                                [](const Range &range) { return range.low > highest; }),
                 ranges.end());
    if (ranges.empty())
        return {{-1, -1}};
    ranges.back().high = std::min(ranges.back().high, highest);
    return ranges;
}

} // namespace

FrameFilter::FrameFilter(const FilterNode &tree)
    : entry(addSteps(tree, taken, refused, false)), possibleIds(identifiersOf(tree))
{
}

// Adds the steps of the node from the last one to the first, so that those to go on with are known.
// Returns the first one.
int FrameFilter::addSteps(const FilterNode &node, int ifTrue, int ifFalse, bool isNegated)
{
    if (node.isNegated) {
        std::swap(ifTrue, ifFalse);
        isNegated = !isNegated;
    }
    if (node.kind == FilterNode::Test) {
        const int step = addStep(node.test);
        steps.back().ifTrue = ifTrue;
        steps.back().ifFalse = ifFalse;
        steps.back().isNegated = isNegated;
        return step;
    }
    const bool isAll = node.kind == FilterNode::All;
    int next = isAll ? ifTrue : ifFalse;
    for (auto child = node.children.rbegin(); child != node.children.rend(); ++child)
        next = isAll ? addSteps(*child, next, ifFalse, isNegated)
                     : addSteps(*child, ifTrue, next, isNegated);
    return next;
}

int FrameFilter::addStep(const FrameTest &test)
{
    Step step;
    step.field = test.field;
    step.byte = test.byte;
    step.mask = test.mask;
    if (test.field == FrameTest::Data) {
        step.index = quint32(patterns.size());
        patterns.push_back(test.pattern);
    } else if (test.field == FrameTest::Note) {
        step.index = quint32(texts.size());
        texts.push_back(test.text);
    } else if (test.field == FrameTest::Byte) {
        step.mask |= noByte;
        addRanges(step, rangesOfBytes(test.ranges));
    } else if (test.field != FrameTest::Changed) {
        addRanges(step, test.ranges);
    }
    steps.push_back(step);
    return int(steps.size()) - 1;
}

void FrameFilter::addRanges(Step &step, const Ranges &wanted)
{
    step.index = quint32(ranges.size());
    step.count = quint32(wanted.size());
    ranges.insert(ranges.end(), wanted.begin(), wanted.end());
    const Range &first = wanted.front();
    const Range &last = wanted.back();
    // All but a gap is one range as well, for numbers go on with the lowest behind the highest.
    const bool isAllButGap =
        step.count == 2 && first.low == Range::lowest && last.high == Range::highest;
    step.isSpan = step.count == 1 || isAllButGap;
    step.low = quint64(last.low);
    step.span = quint64(first.high) - quint64(last.low);
}

bool FrameFilter::takesNote(const Step &step, quint32 number, const Context &context) const
{
    QStringView note = context.note;
    if (context.notes) {
        const auto found = context.notes->constFind(number);
        note = found == context.notes->constEnd() ? QStringView() : QStringView(*found);
    }
    return !note.isEmpty() && note.contains(texts[step.index], Qt::CaseInsensitive);
}

bool FrameFilter::needs(FrameTest::Field field) const
{
    return std::any_of(steps.begin(), steps.end(),
                       [field](const Step &step) { return step.field == field; });
}
