#pragma once

#include "tracereader.h"

/// Reads the CSV export of Wireshark's packet list. Message numbers are the packet numbers of
/// the capture. Rows of frames with an extended identifier are passed over.
Outcome readWiresharkCsv(LineSource &lines, TraceSink &sink, const TraceRequest &request);
