#pragma once

#include "tracereader.h"

/// Reads texts that no other reader takes: lines of the text export, or, in a text that
/// mentions "PCAN-Explorer", rows of a trace list; in both, lines of fields parted by ";" or by
/// tabs. Lines of another shape are passed over.
Outcome readPlainText(LineSource &lines, TraceSink &sink, const TraceRequest &request);
