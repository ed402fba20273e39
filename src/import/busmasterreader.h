#pragma once

#include "tracereader.h"

/// Reads BUSMASTER logs: "hours:minutes:seconds:fraction", direction, channel, identifier, type,
/// length and payload. Numbers are hexadecimal or decimal, as the header says. Both modes read them
/// tolerantly. The report tells the start and what times are counted from.
Outcome readBusmasterLog(LineSource &lines, TraceSink &sink, const TraceRequest &request);
