#pragma once

#include "tracereader.h"

/// Reads lines of fields between blanks whose layout the request describes, see
/// GenericFileImporter. Lines that begin with "#" are passed over, and so are those with a
/// number that cannot be read; a line with too few fields is a line error.
Outcome readGenericFormat(LineSource &lines, TraceSink &sink, const TraceRequest &request);

/// The same of lines that are a frame as a whole; the others are left out.
Outcome readGenericFormatTolerantly(LineSource &lines, TraceSink &sink,
                                    const TraceRequest &request);
