#pragma once

#include "tracereader.h"

/// Reads the traces of CANHacker: seconds of the minute, identifier, length, data and a comment,
/// which becomes a note. Both modes read them tolerantly.
Outcome readCanHackerTrace(LineSource &lines, TraceSink &sink, const TraceRequest &request);
