#pragma once

#include "tracereader.h"

/// Reads the comma separated frames that python-can's logger writes: seconds, identifier, whether
/// extended, remote or an error frame, length, and data in base64. The title row says which columns
/// there are. Both modes read them tolerantly.
Outcome readPythonCanCsv(LineSource &lines, TraceSink &sink, const TraceRequest &request);
