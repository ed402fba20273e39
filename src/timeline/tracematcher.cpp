#include "tracematcher.h"

#include "changetracker.h"
#include "framefilter.h"

struct TraceMatcher::Data
{
    explicit Data(const TraceExpression &expression)
        : expression(expression), filter(filterOf(this->expression))
    {
    }

    const TraceExpression expression;
    const FrameFilter &filter;
    ChangeTracker changes;
};

TraceMatcher::TraceMatcher(const TraceExpression &expression)
    : d(std::make_unique<Data>(expression))
{
}

TraceMatcher::~TraceMatcher() = default;

bool TraceMatcher::takes(const CAN::CanRxMessage &message, const QString &note)
{
    const MessageView view(message);
    const bool isChanged = d->filter.needsChanged() && d->changes.isChanged(view);
    return d->filter.matches(view, {nullptr, note, isChanged});
}
