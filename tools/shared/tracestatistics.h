#pragma once

#include "canrxmessage.h"
#include "periods.h"

#include <QMap>

#include <array>
#include <limits>
#include <memory>
#include <unordered_map>

/// Adds up what the messages of a trace tell, one after the other. Times are in microseconds.
class TraceStatistics
{
public:
    /// Messages with more different keys than this are counted without telling them apart: a trace
    /// of nothing but different identifiers must not fill the memory.
    static constexpr std::size_t mostIdentifiers = 16384;

    /// Messages of one identifier, line and kind.
    struct Identifier
    {
        explicit Identifier(bool countsLengths) : periods(countsLengths) { }

        quint32 id = 0;
        quint8 line = 0;
        bool extended = false;
        bool remote = false;
        bool fdFrame = false;
        int place = 0; ///< among all of them, in the order in which they came, from 0
        quint64 count = 0;
        qint64 first = 0; ///< time of the first and of the last one
        qint64 last = 0;
        int leastLength = std::numeric_limits<qint8>::max();
        int mostLength = 0;
        Periods periods;
    };

    /// Pauses longer than wanted.
    struct Gaps
    {
        quint64 count = 0;
        qint64 longest = 0;
        quint64 position = 0; ///< of the message behind the longest one
        qint64 time = 0;      ///< of that message
    };

    /// All messages, or those of a line.
    struct Sum
    {
        quint64 count = 0;
        quint64 errorFrames = 0;
        quint64 nominalBits = 0; ///< see FrameBits; 0 where not wanted
        quint64 dataBits = 0;
        qint64 earliest = std::numeric_limits<qint64>::max();
        qint64 latest = std::numeric_limits<qint64>::min();
        qint64 last = 0;
        quint64 timesThatFall = 0; ///< below that of the message before
        Gaps gaps;
    };

    /// What is added up; less takes less time.
    enum Detail {
        NoLengths, ///< of the periods no lengths, and no bits
        NoBits,
        Everything
    };
    TraceStatistics(qint64 longestPause, Detail detail) : longestPause(longestPause), detail(detail)
    {
    }

    /// Returns what it was added to; it holds as long as this. Null where it was not told apart.
    const Identifier *add(const CAN::CanRxMessage &message, quint64 position);

    const Sum &all() const { return total; }
    /// By number, those that occur.
    QMap<quint8, const Sum *> lines() const;
    /// By identifier, line and kind.
    QMap<quint64, const Identifier *> identifiers() const;
    quint64 messagesNotToldApart() const { return others; }

private:
    struct Recent
    {
        quint64 key = 0; // one more than that of the identifier
        Identifier *identifier = nullptr;
    };

    static quint64 keyOf(const CAN::CanRxMessage &message);
    Identifier *identifierOf(quint64 key);
    const Identifier *addToIdentifier(const CAN::CanRxMessage &message, qint64 time);
    void addTime(Sum &sum, qint64 time, quint64 position) const;

    const qint64 longestPause;
    const Detail detail;
    Sum total;
    std::array<std::unique_ptr<Sum>, 256> byLine;
    std::unordered_map<quint64, Identifier> byKey;
    std::array<Recent, 4096> recent; // found faster
    quint64 others = 0;
};
