#pragma once

#include "tracereader.h"

/// Reads a Kvaser text log: a header that may tell the number bases, up to the first line with
/// "Trigger", then a frame on every line. Error frames are passed over.
Outcome readKvaserTxt(LineSource &lines, TraceSink &sink, const TraceRequest &request);

/// Reads such a log with or without its header, with remote, error and CAN FD frames and
/// directions. Where no header tells the bases, letters and the number of digits do.
Outcome readKvaserTxtTolerantly(LineSource &lines, TraceSink &sink, const TraceRequest &request);
