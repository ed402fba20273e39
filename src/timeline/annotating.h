#pragma once

#include "tracesource.h"

/// Changes what is written on the message at \a position, as it was in \a epoch of a timeline.
/// Waits for the disk. False, and \a error tells why, where that is not null, when nothing has
/// changed.
bool annotate(TraceSource &source, quint32 epoch, quint64 position, MarkChange change,
              QString *error);
