#pragma once

#include "tracesnapshot.h"
#include "tracetimeline.h"

/// Hands out the messages from position \a from up to, not including, \a end, step by step and
/// without a cache. Returns how many of them are no longer there.
quint64 visitBlocks(const TraceSnapshot &snapshot, quint64 from, quint64 end,
                    const std::function<bool(const TraceBlock &block)> &visit);
