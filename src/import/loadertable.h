#pragma once

#include "tracereader.h"

#include <vector>

/// What the importer of a format says of a trace, in its own context.
struct ImporterTexts
{
    const char *context;
    const char *wrongLine;
    const char *noColumns = nullptr; ///< null where there are no columns to describe
};

/// The reader of one trace format: a plain function from lines to messages. It neither opens the
/// file nor keeps anything between calls.
struct TraceReader
{
    using Read = Outcome (*)(LineSource &lines, TraceSink &sink, const TraceRequest &request);

    /// What an import makes of a trace that could be read.
    enum Verdict {
        CountsAsRead,
        CountsAsFailed ///< reports the last error and goes back to live mode
    };

    /// When the messages of a trace reach the store.
    enum Delivery {
        AsRead,
        WhenWhole ///< at the end: a trace with an error anywhere in it brings none
    };

    DatachunkHelper::ImportFileType type;
    LineSource::CarriageReturns carriageReturns;
    Read read;
    Read readTolerantly = nullptr;           ///< null where the strict road is the only one
    const ImporterTexts *importer = nullptr; ///< null where the format has no error texts
    Verdict verdict = CountsAsRead;
    Delivery delivery = AsRead;
};

/// Whether files of this type are texts that a reader takes: those with a row, and plain texts.
bool isTraceText(DatachunkHelper::ImportFileType type);

/// What a type in a mode is read by, and what comes of it. A trace that is read tolerantly always
/// counts as read, and its messages arrive as they are read.
TraceReader traceReaderFor(const TraceRequest &request);

/// One type for each tolerant reader that needs no description.
std::vector<DatachunkHelper::ImportFileType> tolerantTypes();

/// The reader of a type: its own, or for every other type the one of plain texts.
const TraceReader &traceReaderFor(DatachunkHelper::ImportFileType type);
