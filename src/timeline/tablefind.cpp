#include "tablefind.h"

TableFind::TableFind(const TraceTimeline &timeline, Take take)
    : timeline(timeline), take(std::move(take)), thread([this] { work(); })
{
}

TableFind::~TableFind()
{
    cancel();
}

void TableFind::start(const TraceExpression &expression, quint64 position, Direction direction)
{
    const Ticket ticket = ++current;
    {
        const MutexLock locker(mutex);
        waiting = Request{ticket, expression, position, direction};
    }
    if (!thread.wake())
        work();
}

std::optional<TableFind::Request> TableFind::next()
{
    const MutexLock locker(mutex);
    std::optional<Request> request;
    request.swap(waiting);
    return request;
}

void TableFind::work()
{
    while (const auto request = next()) {
        const auto goesOn = [&] { return isCurrent(request->ticket); };
        const auto found = request->direction == Forwards
            ? timeline.findNext(request->expression, request->position, goesOn)
            : timeline.findPrevious(request->expression, request->position, goesOn);
        if (goesOn())
            take(request->ticket, found);
    }
}
