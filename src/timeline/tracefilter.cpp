#include "tracefilter.h"

#include "filterrun.h"

#include <QThread>

TraceFilter::TraceFilter(std::shared_ptr<FilterRun> run) : run(std::move(run)) { }
TraceFilter::~TraceFilter() = default;
TraceFilter::TraceFilter(const TraceFilter &) = default;
TraceFilter &TraceFilter::operator=(const TraceFilter &) = default;

quint64 TraceFilter::count() const
{
    return run->count();
}

quint64 TraceFilter::messagesDone() const
{
    return run->messagesDone();
}

bool TraceFilter::isComplete() const
{
    return run->isComplete();
}

quint64 TraceFilter::messagesGone() const
{
    return run->messagesGone();
}

std::optional<quint64> TraceFilter::at(quint64 n) const
{
    return run->at(n);
}

quint64 TraceFilter::countBefore(quint64 position) const
{
    return run->countBefore(position);
}

bool TraceFilter::wait(const std::function<bool()> &keepGoing) const
{
    constexpr unsigned long millisecondsBetweenQuestions = 2;
    while (!isComplete()) {
        if (keepGoing && !keepGoing())
            return false;
        QThread::msleep(millisecondsBetweenQuestions);
    }
    return true;
}

void TraceFilter::cancel()
{
    run->cancel();
}
