#pragma once

#include "tracereader.h"

/// Reads a Kolvar text trace, "12.5 0x123/291 (2): 01 ff ;flag number;note". Lines of another
/// shape are passed over; a time stamp without exactly one point ends the trace.
Outcome readKolvarTxt(LineSource &lines, TraceSink &sink, const TraceRequest &request);

/// The same of lines that are a frame as a whole, with notes to the letter.
Outcome readKolvarTxtTolerantly(LineSource &lines, TraceSink &sink, const TraceRequest &request);
