#pragma once

#include "tracereader.h"

/// Reads a CoCTT test log: entries of fields joined by " : ". An entry with "Test CAN" is a frame;
/// one with "Test Notice", "Test Info" or "Test Error" becomes a note on the next frame. A frame
/// that cannot be read is a line error.
Outcome readCoCTTLog(LineSource &lines, TraceSink &sink, const TraceRequest &request);

/// The same of entries that are a frame as a whole; the others are left out.
Outcome readCoCTTLogTolerantly(LineSource &lines, TraceSink &sink, const TraceRequest &request);
