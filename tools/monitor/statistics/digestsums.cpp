#include "digestsums.h"

#include "canframe.h"
#include "framebits.h"

#include <cstring>

namespace {

constexpr qint64 second = 1000000;

// How long bits take, where CAN FD data has the usual four times the bit rate.
double weight(const BusBits &bits)
{
    return double(bits.nominal) + double(bits.data) / 4;
}

BusBits busBits(const CAN::CanRxMessage &message)
{
    const FrameBits bits = frameBits(message);
    return {quint64(bits.nominal), quint64(bits.data)};
}

// Of two messages of the same identifier, whether one is on the bus as the other.
bool isSame(const CAN::CanRxMessage &a, const CAN::CanRxMessage &b)
{
    return a.length == b.length && a.flagB == b.flagB && a.flagC == b.flagC
        && memcmp(a.data, b.data, std::size_t(CAN::payloadSize(a))) == 0;
}

} // namespace

void DigestSums::add(const CAN::CanRxMessage &message, quint64 position)
{
    const TraceStatistics::Identifier *sums = statistics.add(message, position);
    const qint64 time = CAN::timeOf(message);
    if (!sums) {
        addToLine(lineOf(message), message, time, busBits(message));
        return;
    }
    Identifier &identifier = identifierOf(*sums);
    const bool isRepeated = sums->count > 1 && isSame(message, identifier.digest.last);
    if (!isRepeated)
        identifier.bits = busBits(message);
    addToLine(lineOf(message), message, time, identifier.bits);
    if (!isRepeated)
        markChanges(identifier.digest, message, sums->count == 1 ? IdentifierDigest::never : time);
    addToIdentifier(identifier, message, position);
}

DigestSums::Line &DigestSums::lineOf(const CAN::CanRxMessage &message)
{
    const auto number = quint8(message.line);
    Line *&known = byNumber[number];
    if (known)
        return *known;
    Line &line = lines[number];
    known = &line;
    const qint64 start = statistics.all().earliest;
    line.digest.line = number;
    for (TimeCurve *curve :
         {&line.digest.messages, &line.digest.nominalBits, &line.digest.dataBits})
        *curve = TimeCurve(LineDigest::intervals, start);
    line.second = CAN::timeOf(message) / second;
    return line;
}

void DigestSums::addToLine(Line &line, const CAN::CanRxMessage &message, qint64 time,
                           const BusBits &bits)
{
    LineDigest &digest = line.digest;
    ++digest.count;
    digest.errorFrames += message.id == CAN::errorFrameId ? 1 : 0;
    digest.bits += bits;
    digest.messages.add(time, 1);
    digest.nominalBits.add(time, bits.nominal);
    digest.dataBits.add(time, bits.data);
    if (time / second > line.second)
        closeSecond(line, time / second);
    ++line.now.messages;
    line.now.bits += bits;
}

void DigestSums::closeSecond(Line &line, qint64 next)
{
    if (weight(line.now.bits) > weight(line.digest.busiest.bits))
        line.digest.busiest = line.now;
    line.before = next == line.second + 1 ? line.now : BusSecond();
    line.now = {};
    line.second = next;
}

DigestSums::Identifier &DigestSums::identifierOf(const TraceStatistics::Identifier &sums)
{
    if (std::size_t(sums.place) == identifiers.size()) {
        Identifier fresh;
        fresh.sums = &sums;
        fresh.digest.curve = TimeCurve(IdentifierDigest::intervals, statistics.all().earliest);
        identifiers.push_back(std::move(fresh));
    }
    return identifiers[std::size_t(sums.place)];
}

void DigestSums::addToIdentifier(Identifier &identifier, const CAN::CanRxMessage &message,
                                 quint64 position)
{
    constexpr double mostRecent = 8;
    IdentifierDigest &digest = identifier.digest;
    const TraceStatistics::Identifier &sums = *identifier.sums;
    const qint64 time = CAN::timeOf(message);
    const auto periods = double(sums.periods.count());
    if (sums.count > 1 && time >= CAN::timeOf(digest.last) && periods > 0) {
        const auto period = double(time - CAN::timeOf(digest.last));
        digest.recentPeriod += (period - digest.recentPeriod) / std::min(periods, mostRecent);
    }
    digest.last = message;
    digest.position = position;
    digest.curve.add(time, 1);
    if (!identifier.isChanged)
        changed.push_back(sums.place);
    identifier.isChanged = true;
}

// The bytes of the first message have not changed: \a time is never.
void DigestSums::markChanges(IdentifierDigest &digest, const CAN::CanRxMessage &message,
                             qint64 time)
{
    const int length = message.remote ? 0 : CAN::payloadSize(message);
    const int known = std::min(int(digest.changes.size()), length);
    digest.changes.resize(length);
    qint64 *changes = digest.changes.data();
    for (int i = 0; i < known; ++i) {
        if (message.data[i] != digest.last.data[i])
            changes[i] = time;
    }
    std::fill(changes + known, changes + length, time);
}

TraceSummary DigestSums::summary() const
{
    TraceSummary summary;
    const TraceStatistics::Sum &all = statistics.all();
    if (all.count == 0)
        return summary;
    summary.first = all.earliest;
    summary.last = all.latest;
    summary.notToldApart = statistics.messagesNotToldApart();
    qint64 latest = std::numeric_limits<qint64>::min();
    for (const auto &[number, line] : lines)
        latest = std::max(latest, line.second);
    for (const auto &[number, line] : lines) {
        LineDigest digest = line.digest;
        if (line.second == latest)
            digest.latest = line.before;
        else if (line.second == latest - 1)
            digest.latest = line.now;
        if (weight(line.now.bits) > weight(digest.busiest.bits))
            digest.busiest = line.now;
        summary.lines.append(digest);
    }
    return summary;
}

QVector<QPair<int, IdentifierDigest>> DigestSums::takeChanged(int most)
{
    QVector<QPair<int, IdentifierDigest>> taken;
    while (!changed.empty() && taken.size() < most) {
        const int place = changed.front();
        changed.pop_front();
        Identifier &identifier = identifiers[std::size_t(place)];
        identifier.isChanged = false;
        IdentifierDigest digest = identifier.digest;
        const Periods &periods = identifier.sums->periods;
        digest.count = identifier.sums->count;
        digest.meanPeriod = periods.mean();
        digest.leastPeriod = periods.least();
        digest.mostPeriod = periods.most();
        taken.append({place, digest});
    }
    return taken;
}
