#pragma once

#include "tracereader.h"

/// Reads a log of Kvaser's CanKing. Its numbers are hexadecimal when its head holds any letter
/// from a to f, and decimal otherwise. Lines of another shape are passed over.
Outcome readKvaserCanKing(LineSource &lines, TraceSink &sink, const TraceRequest &request);

/// Reads such a log with or without its title, with remote, error and CAN FD frames and directions.
/// Letters, leading zeros and the number of digits tell whether its numbers are hexadecimal.
Outcome readKvaserCanKingTolerantly(LineSource &lines, TraceSink &sink,
                                    const TraceRequest &request);
