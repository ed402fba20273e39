#pragma once

#include "tracereader.h"

/// Reads a Vector ASC log whose frame lines tell their "BitCount". All other lines become the
/// note on the next frame. One record serves the whole log: what a line does not set is left
/// from the frame before.
Outcome readVectorAsc(LineSource &lines, TraceSink &sink, const TraceRequest &request);

/// Reads the first trigger block of a Vector ASC log without bit counts, classic and CAN FD
/// frames, with one record as above. Every line of the block counts as a frame, unless it is
/// empty. Always tells whether there were CAN FD frames.
Outcome readVectorAscWithoutBitcount(LineSource &lines, TraceSink &sink,
                                     const TraceRequest &request);

/// Reads every frame of a Vector ASC log, in and outside of trigger blocks: classic and CAN FD,
/// remote and error frames, with and without bit counts. Tells of CAN FD frames as above.
Outcome readVectorAscTolerantly(LineSource &lines, TraceSink &sink, const TraceRequest &request);
