#pragma once

#include "tracefile.h"

/// The option "partition"; "into" is the command's own.
QCommandLineOption partitionOption();

/// Takes over those options and the others of a conversion, and writes each of the traces at
/// \a paths, as \a trace says, into the data set in a folder, beside what is there. Its files get
/// their names when all traces are read; a trace that cannot be read is told and left out. The exit
/// status of the program.
int runDataset(const QCommandLineParser &parser, const QStringList &paths, const TraceFile &trace);
