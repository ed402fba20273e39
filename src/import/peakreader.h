#pragma once

#include "tracereader.h"

// The readers of PEAK traces, one for each file version. A rejected line ends the import as a line
// error; the messages before it have been handed on.

/// Returns \a type if it is a PEAK trace that can be read, otherwise PeakTrc10, which is refused.
DatachunkHelper::ImportFileType peakTraceType(DatachunkHelper::ImportFileType type);

/// Version 1.0 says nowhere what kind of frame a line is: it is not read.
Outcome refuseFileVersion10(LineSource &lines, TraceSink &sink, const TraceRequest &request);

/// "number) milliseconds type identifier length data..."; warnings become notes.
Outcome importFileVersion11(LineSource &lines, TraceSink &sink, const TraceRequest &request);

/// As 1.1, with the bus before the type.
Outcome importFileVersion12(LineSource &lines, TraceSink &sink, const TraceRequest &request);

/// As 1.2, with a reserved column before the length.
Outcome importFileVersion13(LineSource &lines, TraceSink &sink, const TraceRequest &request);

/// Rows whose columns are named in one of the first ten lines.
Outcome importFileVersion20(LineSource &lines, TraceSink &sink, const TraceRequest &request);

/// As 2.0; where there is a reserved column, a line without any "-" is passed over.
Outcome importFileVersion21(LineSource &lines, TraceSink &sink, const TraceRequest &request);

/// Reads every version by what the header names, 1.0 included, and a trace without a header by its
/// first row. Warnings and events become notes, a start time goes into the report.
Outcome readPeakTolerantly(LineSource &lines, TraceSink &sink, const TraceRequest &request);
