#pragma once

#include "tracereader.h"

/// Reads a log of SocketCAN's candump, compact ("(12.5) can0 123#1122") or as shown on
/// the screen ("(12.5) can0 123 [2] 11 22", the time stamp may be missing). Lines of another
/// shape are passed over.
Outcome readSocketCanDump(LineSource &lines, TraceSink &sink, const TraceRequest &request);
