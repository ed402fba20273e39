#pragma once

#include "selection.h"
#include "traceinput.h"

/// Goes through the messages of inputs, one after the other, that a selection takes.
class SelectedMessages
{
public:
    /// \a selection must live as long.
    explicit SelectedMessages(const Selection &selection) : selection(selection) { }

    /// Opens an input and hands on what is selected of it until \a visit returns false, which is
    /// no failure. Positions are those in all inputs so far. Chunks of a timeline without any
    /// message that the expression takes are not read.
    TraceReading::Result forEachIn(TraceInput &input, const TraceInput::Visit &visit);

    /// Whether no input behind can bring anything.
    bool isDone() const { return isEnded || begin > selection.positions().last(); }
    /// Where the next input begins.
    quint64 position() const { return begin; }

private:
    TraceReading::Result goThrough(TraceInput &input, const TraceInput::Visit &visit);
    TraceReading::Result goThroughFound(const TraceInput &input, const TraceInput::Visit &visit);
    bool take(quint64 at, const TraceItem &item, const TraceInput::Visit &visit);

    const Selection &selection;
    quint64 begin = 0; // position of the input's first message
    quint64 taken = 0;
    bool isEnded = false;
};
