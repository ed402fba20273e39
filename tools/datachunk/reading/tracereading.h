#pragma once

#include "tracefile.h"
#include "tracestream.h"

#include <QSet>

#include <atomic>

/// Reads a trace of any size from front to back and prints what cannot be read of it.
class TraceReading
{
public:
    enum Result {
        Complete,
        Damaged, ///< some of the trace could not be read; the rest was
        Failed   ///< what was read is not to be used
    };

    explicit TraceReading(const TraceFile &trace) : trace(trace) { }

    /// False, with a text printed, when that is no trace.
    bool open() { return checkTrace(trace); }

    DatachunkHelper::ImportFileType type() const { return trace.type; }

    /// Reads the trace from its beginning, and tells what became of its lines, or until \a visit
    /// returns false, which is no failure. A signal counts as one. May be called again, and prints
    /// nothing twice.
    Result forEachMessage(const TraceStream::Take &visit);

    /// What became of the lines that were read last, as JSON; empty for chunks and archives.
    QByteArray report() const { return lastReport; }

    /// The part of the trace that is read, from 0 to 1; less than 0 where nobody knows. Any thread.
    double part() const { return readPart; }

private:
    TraceFile trace;
    std::atomic<double> readPart{-1};
    QSet<QString> printed;
    bool reported = false;
    QByteArray lastReport;
};
