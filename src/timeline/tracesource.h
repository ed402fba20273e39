#pragma once

#include "tracesnapshot.h"

#include <QStringList>

/// Where the messages of a timeline come from. Any thread.
class TraceSource
{
public:
    virtual ~TraceSource() = default;

    /// What is known by now; what is not is looked for in the background.
    virtual SharedSnapshot refresh() = 0;
    /// Whether all that was there at the beginning of the last refresh is known.
    virtual bool isComplete() const = 0;
    /// Whether a refresh may ever find anything else.
    virtual bool mayChange() const { return true; }
    /// What cannot be read, a sentence each.
    virtual QStringList problems() const = 0;
    /// Changes what is written on a message in memory. False when it is no longer there, and by
    /// now perhaps in a chunk; that may be waited for. True when it is changed, or never will be:
    /// \a error is a sentence then.
    virtual bool changeInMemory(quint32 /*epoch*/, quint64 /*position*/,
                                const MarkChange & /*change*/, QString & /*error*/)
    {
        return false;
    }
};
