#pragma once

#include "pythonheaders.h"

#include "tracetimeline.h"

/// \file
/// Messages of a timeline as columns. All of it raises when Python interrupts.

/// The columns of \a count messages from \a start on, and how many of them are no longer there.
py::tuple readRange(const TraceTimeline &timeline, quint64 start, quint64 count);

/// The columns of the messages at positions that rise, and how many of them are no longer there.
py::tuple readPositions(const TraceTimeline &timeline,
                        const py::array_t<quint64, py::array::c_style> &positions);

/// How many messages the expression \a where takes.
quint64 countFound(const TraceTimeline &timeline, const py::object &where);

/// The positions, rising, of \a count of them from \a start on.
py::array positionsFound(const TraceTimeline &timeline, const py::object &where, quint64 start,
                         quint64 count);
