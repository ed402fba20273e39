#pragma once

#include "traceexpression.h"

#include <memory>

/// Asks messages by an expression as they come, one after the other, and knows which of them are
/// changed. One thread at a time.
class DATACHUNK_EXPORT TraceMatcher
{
public:
    /// Has seen no message yet, so that "changed" is true of the first of each identifier.
    explicit TraceMatcher(const TraceExpression &expression);
    ~TraceMatcher();

    TraceMatcher(const TraceMatcher &) = delete;
    TraceMatcher &operator=(const TraceMatcher &) = delete;

    /// Whether \a message, which has \a note, is wanted. What is changed shows against the messages
    /// that were asked about before.
    bool takes(const CAN::CanRxMessage &message, const QString &note = {});

private:
    struct Data;

    std::unique_ptr<Data> d;
};
