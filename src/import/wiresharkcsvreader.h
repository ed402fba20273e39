#pragma once

#include "tracereader.h"

/// Reads the CSV export of Wireshark's packet list. Message numbers are the packet numbers of
/// the capture. Rows of frames with an extended identifier are passed over.
Outcome readWiresharkCsv(LineSource &lines, TraceSink &sink, const TraceRequest &request);

/// The same for packet lists of every generation and for exports of single fields, whose columns
/// the title row names; extended identifiers and channels included. An export without the payload
/// brings frames of the right length, and the report counts their payload as changed.
Outcome readWiresharkTolerantly(LineSource &lines, TraceSink &sink, const TraceRequest &request);
