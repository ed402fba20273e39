#pragma once

#include "messageprinter.h"
#include "selection.h"
#include "traceinput.h"

/// What the user looks for, and how it is printed. Positions are those of all inputs.
struct FindRequest
{
    Selection selection;
    quint64 before = 0;
    quint64 after = 0;
    bool counts = false;
    bool asJson = false;

    bool hasContext() const { return before > 0 || after > 0; }
};

/// Prints what is found and what stands around it, each message once.
class FindOutput
{
public:
    explicit FindOutput(const FindRequest &request)
        : request(request), printer(request.asJson ? MessagePrinter::Json : MessagePrinter::Text)
    {
    }

    bool isFull() const { return found >= request.selection.most(); }
    quint64 count() const { return found; }
    void addCount(quint64 messages)
    {
        found += std::min(messages, request.selection.most() - found);
    }
    /// The first position that is not printed, and the end of what stands behind the last hit.
    quint64 next() const { return nextPosition; }
    quint64 contextEnd() const { return endOfContext; }

    bool print(const CAN::CanRxMessage &message, const QString &note, quint64 position, bool isHit)
    {
        const bool isApart = hasPrinted && position != nextPosition;
        if (isApart && request.hasContext() && !request.asJson && !printer.printPart())
            return false;
        hasPrinted = true;
        nextPosition = position + 1;
        if (isHit) {
            ++found;
            endOfContext = nextPosition + request.after;
        }
        const FoundPlace place{position, !isHit};
        const bool showsPlace = request.asJson || request.hasContext();
        return printer.print(message, note, showsPlace ? &place : nullptr);
    }
    /// Whether nothing at \a position and behind is wanted.
    bool isDone(quint64 position) const
    {
        const bool mayBeHit = !isFull() && position <= request.selection.positions().last();
        return !mayBeHit && nextPosition >= endOfContext;
    }
    void flush() { printer.flush(); }

private:
    const FindRequest &request;
    MessagePrinter printer;
    quint64 found = 0;
    quint64 nextPosition = 0;
    quint64 endOfContext = 0;
    bool hasPrinted = false;
};

/// Looks through an input whose first message has \a position, which then is that behind it.
TraceReading::Result findIn(TraceInput &input, const FindRequest &request, quint64 &position,
                            FindOutput &output);
