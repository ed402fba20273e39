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

/// How reading a trace, or one line of it, ended.
struct ReadResult
{
    enum Status {
        Done,
        Stopped,   ///< because the sink wanted it
        NotRead,   ///< because it cannot be opened, or is of a version that no reader takes
        LineError, ///< in line `line`, counted from 1
        NoColumns  ///< nothing usable tells what the columns are
    };
    Status status = Done;
    quint64 line = 0;
    QString systemError; ///< why the rest of the file is missing, for the user; mostly empty

    static ReadResult done() { return {Done, 0, {}}; }
    static ReadResult stopped() { return {Stopped, 0, {}}; }
    static ReadResult notRead() { return {NotRead, 0, {}}; }
    static ReadResult lineError(quint64 line = 0) { return {LineError, line, {}}; }
    static ReadResult noColumns() { return {NoColumns, 0, {}}; }

    bool isDone() const { return status == Done; }
    /// Whether the content of the file is to blame.
    bool isFileError() const { return status == LineError || status == NoColumns; }
};

/// Opens the file and runs the reader of its type.
ReadResult readTraceFile(const TraceRequest &request, TraceSink &sink);

/// The text about a failure for the user: "No error." for a trace that was not read, and empty
/// where the format has no text of its own.
QString errorText(const ReadResult &result, const TraceRequest &request);

/// Reads line by line, counted from 1. \a readLine takes Text<Char> and returns a ReadResult; the
/// first that is not done ends the reading.
template <typename ReadLine> ReadResult readNumberedLines(LineSource &lines, ReadLine readLine)
{
    for (quint64 number = 1; lines.next(); ++number) {
        ReadResult result = lines.visit(readLine);
        if (result.isDone())
            continue;
        result.line = number;
        return result;
    }
    return ReadResult::done();
}
