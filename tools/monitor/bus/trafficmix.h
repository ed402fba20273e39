#pragma once

#include "canrxmessage.h"

#include <queue>
#include <vector>

/// What the traffic of a generator looks like.
struct GeneratorOptions
{
    int rate = 1000; ///< messages a second, of all lines together
    int lines = 2;   ///< how many, rising from the first
    bool fdFrames = false;
    bool errorFrames = false;
};

/// Traffic like that of a car: each identifier has its period, a counter and signals that change.
/// The same for the same options, so that two runs can be compared.
class TrafficMix
{
public:
    TrafficMix(const GeneratorOptions &options, quint8 firstLine);

    /// The time of the next message, in microseconds since the start.
    qint64 nextTime() const { return qint64(due.top().time); }
    /// That message, without its time.
    CAN::CanRxMessage next();

private:
    struct Source
    {
        quint32 id = 0;
        double period = 0; // in microseconds
        qint8 length = 8;
        quint8 line = 0;
        bool fd = false;
        quint32 count = 0;
    };
    struct Due
    {
        double time;
        std::size_t source;
        bool operator<(const Due &other) const
        {
            return time > other.time || (time == other.time && source > other.source);
        }
    };

    void addSource(quint32 id, int milliseconds, int length, quint8 line);
    void spread(int rate);
    static void fill(CAN::CanRxMessage &message, quint32 count, double seconds);

    std::vector<Source> sources;
    std::priority_queue<Due> due;
};
