#pragma once

#include "tracereader.h"

/// Reads the lines that python-can prints of frames: "Timestamp:", "ID:", flags, "DL:", data and
/// "Channel:". Both modes read them tolerantly.
Outcome readPythonCanText(LineSource &lines, TraceSink &sink, const TraceRequest &request);
