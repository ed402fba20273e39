#pragma once

#include "importreport.h"
#include "tracefile.h"

/// Prints what became of the lines of a trace to standard error: one line, and one more for each
/// reason for which lines were left out or changed; all of it as JSON where the user wants that.
/// Nothing for chunks and archives, which have no lines.
void printReport(const TraceFile &trace, const ImportReport &report);

/// The same as JSON, an object without a line end; empty for chunks and archives.
QByteArray reportJson(const TraceFile &trace, const ImportReport &report);

/// Whether that is a failure to the user, who has asked for a trace without loss.
bool failsOnLoss(const TraceFile &trace, const ImportReport &report);
