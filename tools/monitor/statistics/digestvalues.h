#pragma once

#include "canrxmessage.h"
#include "timecurve.h"

#include <QVector>

#include <limits>

/// Bits on the bus, at the bit rate of the bus and at that of CAN FD data.
struct BusBits
{
    quint64 nominal = 0;
    quint64 data = 0;

    void operator+=(const BusBits &other)
    {
        nominal += other.nominal;
        data += other.data;
    }
};

/// What came within a second.
struct BusSecond
{
    quint64 messages = 0;
    BusBits bits;
};

/// What is known of a line. Times are in microseconds.
struct LineDigest
{
    static constexpr int intervals = 256; ///< of its curves

    quint8 line = 0;
    quint64 count = 0;
    quint64 errorFrames = 0;
    BusBits bits;
    BusSecond latest;  ///< the last whole second of the trace
    BusSecond busiest; ///< a bit of CAN FD data counts as a quarter of the others
    // All of them have the same intervals.
    TimeCurve messages{intervals};
    TimeCurve nominalBits{intervals};
    TimeCurve dataBits{intervals};
};

/// What is known of an identifier with its line and kind.
struct IdentifierDigest
{
    static constexpr int intervals = 64; ///< of its curve
    static constexpr qint64 never = std::numeric_limits<qint64>::min();

    CAN::CanRxMessage last;
    quint64 position = 0; ///< of the last one
    quint64 count = 0;
    double recentPeriod = 0; ///< mean of about the last eight; 0 for a single message
    double meanPeriod = 0;
    qint64 leastPeriod = 0;
    qint64 mostPeriod = 0;
    QVector<qint64> changes; ///< of each payload byte, when it last got another value; `never`
    TimeCurve curve{intervals};
};

/// What is known of the whole trace.
struct TraceSummary
{
    quint64 done = 0; ///< messages looked at, or gone
    quint64 of = 0;   ///< messages that there are
    qint64 first = 0; ///< times
    qint64 last = 0;
    quint64 notToldApart = 0;  ///< messages of identifiers beyond the most that are kept
    QVector<LineDigest> lines; ///< rising
};
