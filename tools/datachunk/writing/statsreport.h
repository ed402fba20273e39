#pragma once

#include "tracestatistics.h"

#include <QByteArray>

/// What the user wants to know beyond the counts.
struct StatsRequest
{
    qint64 longestPause = 1000000; ///< in microseconds; a longer one is a gap
    quint64 bitrate = 0;           ///< in bit/s; 0 for no bus load
    quint64 dataBitrate = 0;       ///< that of the data of CAN FD frames
};

/// Prints it as tables.
void printStats(const TraceStatistics &statistics, const StatsRequest &request);

/// The same as one JSON object, line end included.
QByteArray statsJson(const TraceStatistics &statistics, const StatsRequest &request);
