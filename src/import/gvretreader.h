#pragma once

#include "tracereader.h"

/// Reads the comma separated frames that GVRET devices and SavvyCAN write: microseconds,
/// identifier, extended or not, direction, bus, length and one column for each byte. The title row
/// says which columns there are. Both modes read them tolerantly.
Outcome readGvretCsv(LineSource &lines, TraceSink &sink, const TraceRequest &request);
