#pragma once

#include "datachunkglobal.h"

#include <QtGlobal>

#include <functional>
#include <memory>
#include <optional>

class FilterRun;

/// What an expression takes of a timeline, found in the background. What is known of it so far can
/// be asked at any time and grows, also with every refresh of the timeline; numbers that count from
/// 0 among what is found may rise meanwhile. Where the expression asks for nothing but identifiers,
/// kinds, lines, times and numbers all is known at once.
///
/// Copies are of the same filter; with the last one its work ends. Any thread.
class DATACHUNK_EXPORT TraceFilter
{
public:
    /// For TraceTimeline::filter(), which knows how to run it.
    explicit TraceFilter(std::shared_ptr<FilterRun> run);
    ~TraceFilter();

    /// Of the same filter, with the same work.
    TraceFilter(const TraceFilter &);
    /// Lets go of the filter before, whose work ends if nobody else has it.
    TraceFilter &operator=(const TraceFilter &);

    /// How many messages are found.
    quint64 count() const;
    /// How many messages have been looked at, or need not be.
    quint64 messagesDone() const;
    /// Whether that is all of the timeline at its last refresh.
    bool isComplete() const;
    /// Messages that could not be looked at because they are no longer there.
    quint64 messagesGone() const;

    /// The position of the found message \a n, counted from 0; nothing where there is none.
    std::optional<quint64> at(quint64 n) const;
    /// How many messages are found in front of \a position.
    quint64 countBefore(quint64 position) const;

    /// Waits until it is complete, as long as \a keepGoing, which is asked again and again,
    /// returns true. False when it did not.
    bool wait(const std::function<bool()> &keepGoing = {}) const;
    /// Ends the search. What is found stays.
    void cancel();

private:
    std::shared_ptr<FilterRun> run;
};
