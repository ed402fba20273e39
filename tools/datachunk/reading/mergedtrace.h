#pragma once

#include "inputthread.h"

#include <functional>
#include <memory>

/// Several inputs as one trace in order of time, message by message. Within each input the order
/// stays, and of equal times the input that is named first comes first. Takes the memory of a few
/// blocks for each input.
class MergedTrace
{
public:
    static constexpr std::size_t mostInputs = 200;

    /// The inputs, which are open, and \a selection must live as long. Positions count in the
    /// merged trace; what an expression says of changes is about each input alone where no
    /// positions are asked for, and about the merged trace otherwise.
    MergedTrace(std::vector<TraceInput *> inputs, const Selection &selection);

    /// Hands on blocks of the selected messages until \a take returns false, which is no failure.
    /// May be called again where the inputs can be read again.
    TraceReading::Result forEachBlock(const std::function<bool(MessageBlock &)> &take);

    QString subject() const;
    /// The part of all inputs that is read, from 0 to 1; less than 0 where nobody knows.
    double part() const;

private:
    const std::vector<TraceInput *> inputs;
    const Selection &selection;
    bool toldTimeBases = false;
};
