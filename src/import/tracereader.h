#pragma once

#include "datachunkhelper.h"
#include "linesource.h"
#include "tracesink.h"

#include <QString>

/// What to read, and how.
struct TraceRequest
{
    QString fileName; ///< as the caller gave it; for texts only, the file is open already
    DatachunkHelper::ImportFileType type = DatachunkHelper::Unknown;
    QString formatDescription; ///< the layout of GenericFormat
};

/// How reading a trace ended.
struct ReadResult
{
    enum Status {
        Done,
        Stopped ///< because the sink wanted it
    };
    Status status = Done;

    static ReadResult done() { return {Done}; }
    static ReadResult stopped() { return {Stopped}; }
};

/// The reader of one trace format: a plain function from lines to messages. It neither opens the
/// file nor keeps anything between calls.
struct TraceReader
{
    using Read = ReadResult (*)(LineSource &lines, TraceSink &sink, const TraceRequest &request);

    DatachunkHelper::ImportFileType type;
    LineSource::CarriageReturns carriageReturns;
    Read read;
};

/// The reader of a type, or null for the types that no reader takes.
const TraceReader *traceReaderFor(DatachunkHelper::ImportFileType type);
