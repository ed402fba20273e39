#pragma once

#include "mergedtrace.h"
#include "targetformat.h"

/// What is to become of a trace.
struct Conversion
{
    QString target; ///< a file that is not there yet, or "-" for standard output
    TargetFormat format;
    TraceExport::Times times = TraceExport::Absolute;
    Selection selection;
    bool withNotes = false; ///< in our own text; all others have them where they can
    bool reportsAsJson = false;
    bool failsOnLoss = false;
    bool tellsCounts = false; ///< in the line with the name of the file

    bool goesToOutput() const { return target == QLatin1String("-"); }
};

/// The options "as", "times" and "notes".
QList<QCommandLineOption> conversionOptions();

/// Takes over those options and a selection, and what \a trace says of reports. The format is that
/// of the target's name where they tell none, or \a otherwise. False, with the usage error printed,
/// when something is wrong.
bool readConversion(const QCommandLineParser &parser, const TraceFile &trace,
                    const std::optional<TargetFormat> &otherwise, Conversion &conversion);

/// Writes a trace of the inputs, and prints the name of the file, which is there only when it is
/// complete. What the format cannot say is told on standard error. False when anything failed, or
/// was lost where that is a failure to the user.
bool convert(const std::vector<TraceInput *> &inputs, const Conversion &conversion);
