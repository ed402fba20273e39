#pragma once

#include "digestvalues.h"
#include "tracestatistics.h"

#include <array>
#include <deque>
#include <map>

/// Adds up the messages of a trace for the views of statistics. What has changed is taken piece by
/// piece.
class DigestSums
{
public:
    DigestSums() : statistics(std::numeric_limits<qint64>::max(), TraceStatistics::NoLengths) { }

    void add(const CAN::CanRxMessage &message, quint64 position);

    /// All but how much of the trace it is.
    TraceSummary summary() const;
    /// Identifiers that have changed since they were taken, at most \a most, with their place in
    /// order of appearance.
    QVector<QPair<int, IdentifierDigest>> takeChanged(int most);

private:
    struct Line
    {
        LineDigest digest;
        qint64 second = 0; // that of `now`
        BusSecond now;
        BusSecond before; // the second before that
    };
    struct Identifier
    {
        const TraceStatistics::Identifier *sums = nullptr;
        IdentifierDigest digest;
        BusBits bits; // of the last message
        bool isChanged = false;
    };

    Line &lineOf(const CAN::CanRxMessage &message);
    void addToLine(Line &line, const CAN::CanRxMessage &message, qint64 time, const BusBits &bits);
    static void closeSecond(Line &line, qint64 next);
    Identifier &identifierOf(const TraceStatistics::Identifier &sums);
    void addToIdentifier(Identifier &identifier, const CAN::CanRxMessage &message,
                         quint64 position);
    static void markChanges(IdentifierDigest &digest, const CAN::CanRxMessage &message,
                            qint64 time);

    TraceStatistics statistics;
    std::map<quint8, Line> lines;
    std::array<Line *, 256> byNumber{}; // the same, found faster
    std::vector<Identifier> identifiers;
    std::deque<int> changed;
};
