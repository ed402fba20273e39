#pragma once

#include "tracereader.h"

/// Reads a CoCTT test log: entries of fields joined by " : ", of which "Test CAN" ones are frames
/// and "Test Notice", "Test Info" and "Test Error" ones are notes on the frame that follows.
/// A frame that cannot be read is a line error.
Outcome readCoCTTLog(LineSource &lines, TraceSink &sink, const TraceRequest &request);
