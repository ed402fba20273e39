#pragma once

#include "datachunkhelper.h"
#include "linesource.h"
#include "outcome.h"
#include "tracesink.h"

#include <QString>

/// What to read, and how.
struct TraceRequest
{
    QString fileName; ///< as the caller gave it; for texts only, the file is open already
    DatachunkHelper::ImportFileType type = DatachunkHelper::Unknown;
    QString formatDescription; ///< the layout of GenericFormat
    DatachunkHelper::ImportMode mode = DatachunkHelper::Strict;
    bool unpacks = false; ///< a compressed file in strict mode, too, as it is in tolerant mode
    QIODevice *device = nullptr; ///< read instead of the file, if there is one

    bool readsCompressed() const { return unpacks || mode == DatachunkHelper::Tolerant; }
};

/// Opens the file, compressed or not, or goes to the beginning of the device, and runs the reader
/// of its type. Done, with a text when the rest of the file is missing, or GivenUp when the sink
/// wanted it, NotOpened also for a version that no reader takes, WrongLine or NoColumns.
Outcome readTraceFile(const TraceRequest &request, TraceSink &sink);

/// The text about a failure for the user: "No error." for a trace that was not read, and empty
/// where the format has no text of its own.
QString errorText(const Outcome &result, const TraceRequest &request);

/// Reads line by line, counted from 1. \a readLine takes Text<Char> and returns an Outcome; the
/// first that is not done ends the reading.
template <typename ReadLine> Outcome readNumberedLines(LineSource &lines, ReadLine readLine)
{
    for (quint64 number = 1; lines.next(); ++number) {
        Outcome result = lines.visit(readLine);
        if (result.isDone())
            continue;
        result.number = number;
        return result;
    }
    return Outcome::done();
}
