#pragma once

#include "tracegenerator.h"

#include <QString>

/// Number of frames that a benchmark works on: DATACHUNK_BENCH_FRAMES, or 1,000,000.
int benchFrames();

/// The traffic that every benchmark works on, made once.
const QVector<CAN::CanRxMessage> &benchTraffic();

/// A folder that goes with the program.
QString workPath(const QString &name);

/// The trace of the traffic in a format, written once and read once, so that it is in the page
/// cache.
QString traceFile(const GeneratedFormat &format);

/// Peak resident memory of the process in bytes since the last resetPeakMemory(), and the
/// memory resident now. 0 where the system does not tell.
qint64 peakMemory();
qint64 residentMemory();
void resetPeakMemory();

/// CPU time of the process in seconds, over all its threads.
double cpuSeconds();
