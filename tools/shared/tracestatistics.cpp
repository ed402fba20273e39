#include "tracestatistics.h"

#include "canframe.h"
#include "framebits.h"

#include <algorithm>

const TraceStatistics::Identifier *TraceStatistics::add(const CAN::CanRxMessage &message,
                                                        quint64 position)
{
    const qint64 time = CAN::timeOf(message);
    const bool isError = message.id == CAN::errorFrameId;
    const FrameBits bits = detail == Everything ? frameBits(message) : FrameBits();
    auto &line = byLine[quint8(message.line)];
    if (!line)
        line = std::make_unique<Sum>();
    for (Sum *sum : {&total, line.get()}) {
        sum->errorFrames += isError ? 1 : 0;
        sum->nominalBits += quint64(bits.nominal);
        sum->dataBits += quint64(bits.data);
        addTime(*sum, time, position);
    }
    return addToIdentifier(message, time);
}

void TraceStatistics::addTime(Sum &sum, qint64 time, quint64 position) const
{
    const qint64 pause = time - sum.last;
    if (sum.count++ > 0) {
        sum.timesThatFall += pause < 0 ? 1 : 0;
        sum.gaps.count += pause > longestPause ? 1 : 0;
        if (pause > std::max(longestPause, sum.gaps.longest)) {
            sum.gaps.longest = pause;
            sum.gaps.position = position;
            sum.gaps.time = time;
        }
    }
    sum.last = time;
    sum.earliest = std::min(sum.earliest, time);
    sum.latest = std::max(sum.latest, time);
}

quint64 TraceStatistics::keyOf(const CAN::CanRxMessage &message)
{
    return quint64(message.id) << 11 | quint64(quint8(message.line)) << 3
        | (message.extended ? 4u : 0u) | (message.remote ? 2u : 0u) | (message.fdFrame ? 1u : 0u);
}

// Null for one too many.
TraceStatistics::Identifier *TraceStatistics::identifierOf(quint64 key)
{
    Recent &known = recent[(key * Q_UINT64_C(0x9E3779B97F4A7C15) >> 32) % recent.size()];
    if (known.key == key + 1)
        return known.identifier;
    auto found = byKey.find(key);
    if (found == byKey.end()) {
        if (byKey.size() >= mostIdentifiers)
            return nullptr;
        found = byKey.emplace(key, detail != NoLengths).first;
    }
    known = {key + 1, &found->second};
    return known.identifier;
}

const TraceStatistics::Identifier *
TraceStatistics::addToIdentifier(const CAN::CanRxMessage &message, qint64 time)
{
    Identifier *identifier = identifierOf(keyOf(message));
    if (!identifier) {
        ++others;
        return nullptr;
    }
    if (identifier->count++ == 0) {
        identifier->place = int(byKey.size()) - 1;
        identifier->id = message.id;
        identifier->line = quint8(message.line);
        identifier->extended = message.extended;
        identifier->remote = message.remote;
        identifier->fdFrame = message.fdFrame;
        identifier->first = time;
    } else if (time >= identifier->last) {
        identifier->periods.add(time - identifier->last);
    }
    identifier->last = time;
    identifier->leastLength = std::min(identifier->leastLength, int(message.length));
    identifier->mostLength = std::max(identifier->mostLength, int(message.length));
    return identifier;
}

QMap<quint8, const TraceStatistics::Sum *> TraceStatistics::lines() const
{
    QMap<quint8, const Sum *> all;
    for (std::size_t line = 0; line < byLine.size(); ++line) {
        if (byLine[line])
            all.insert(quint8(line), byLine[line].get());
    }
    return all;
}

QMap<quint64, const TraceStatistics::Identifier *> TraceStatistics::identifiers() const
{
    QMap<quint64, const Identifier *> all;
    for (const auto &[key, identifier] : byKey)
        all.insert(key, &identifier);
    return all;
}
