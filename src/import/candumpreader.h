#pragma once

#include "tracereader.h"

/// Reads a log of SocketCAN's candump, compact ("(12.5) can0 123#1122") or as shown on
/// the screen ("(12.5) can0 123 [2] 11 22", the time stamp may be missing). Lines of another
/// shape are passed over.
Outcome readSocketCanDump(LineSource &lines, TraceSink &sink, const TraceRequest &request);

/// Reads whatever candump and its relatives write: every interface name, time and layout, CAN FD,
/// remote and error frames. A remark behind a frame becomes its note.
Outcome readSocketCanDumpTolerantly(LineSource &lines, TraceSink &sink,
                                    const TraceRequest &request);
