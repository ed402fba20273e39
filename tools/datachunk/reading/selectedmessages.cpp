#include "selectedmessages.h"

#include "stopsignals.h"
#include "tracematcher.h"

#include <QCoreApplication>

using Result = TraceReading::Result;

Result SelectedMessages::forEachIn(TraceInput &input, const TraceInput::Visit &visit)
{
    const Result opened = input.open();
    if (opened == Result::Failed)
        return opened;
    const TraceTimeline *const timeline = input.timeline();
    if (timeline && selection.hasExpression()) {
        const Result result = goThroughFound(input, visit);
        begin += timeline->count();
        return worse(opened, result);
    }
    return worse(opened, goThrough(input, visit));
}

Result SelectedMessages::goThrough(TraceInput &input, const TraceInput::Visit &visit)
{
    const bool hasExpression = selection.hasExpression();
    // What is changed shows against messages in front of the first position, too.
    const quint64 from = hasExpression ? 0 : selection.positions().firstIn(begin);
    TraceMatcher matcher(selection.expression());
    quint64 end = 0;
    const Result result = input.forEachMessage(from, [&](quint64 at, const TraceItem &item) {
        end = at + 1;
        if (hasExpression && !matcher.takes(item.message, item.note))
            return begin + at < selection.positions().last();
        return take(at, item, visit);
    });
    begin += input.timeline() ? input.timeline()->count() : end;
    return result;
}

Result SelectedMessages::goThroughFound(const TraceInput &input, const TraceInput::Visit &visit)
{
    const TraceTimeline &timeline = *input.timeline();
    quint64 gone = 0;
    const auto visitFound = [&](const QVector<quint64> &positions) {
        for (const quint64 position : positions) {
            const TraceRow row = timeline.row(position);
            gone += row.state == TraceRow::Known ? 0 : 1;
            if (row.state == TraceRow::Known
                && !take(position, {row.message, row.note, row.bookmark, 0}, visit))
                return false;
        }
        QCoreApplication::processEvents();
        return !StopSignals::received();
    };
    const quint64 first = selection.positions().firstIn(begin);
    const quint64 end = selection.positions().endIn(begin, timeline.count());
    gone += timeline.forEachFound(selection.expression(), first, end - std::min(first, end),
                                  visitFound);
    return interrupted(input.subject()) ? Result::Failed : tellGone(input.subject(), gone);
}

// False when nothing more is wanted.
bool SelectedMessages::take(quint64 at, const TraceItem &item, const TraceInput::Visit &visit)
{
    const quint64 position = begin + at;
    if (taken < selection.most() && selection.positions().contains(position)) {
        ++taken;
        isEnded = !visit(position, item) || taken == selection.most();
    }
    isEnded = isEnded || taken >= selection.most();
    return !isEnded && position < selection.positions().last();
}
