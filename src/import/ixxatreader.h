#pragma once

#include "tracereader.h"

/// Reads an Ixxat trace export: comma-separated rows below a header that names the columns. Rows
/// never fail; a header without a time, an identifier and a data column does.
Outcome readIxxatTrace(LineSource &lines, TraceSink &sink, const TraceRequest &request);

/// Reads the traces of Ixxat programs below any header that names a time, an identifier and a data
/// column, whatever separates them.
Outcome readIxxatTraceTolerantly(LineSource &lines, TraceSink &sink, const TraceRequest &request);
