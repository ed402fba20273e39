#include "digestsums.h"

#include "canframe.h"
#include "framebits.h"

namespace {

constexpr qint64 second = 1000000;

// How long bits take, where CAN FD data has the usual four times the bit rate.
double weight(const BusBits &bits)
{
    return double(bits.nominal) + double(bits.data) / 4;
}

bool isSame(const CAN::CanRxMessage &a, const CAN::CanRxMessage &b, int byte)
{
    return byte < CAN::payloadSize(a) && byte < CAN::payloadSize(b) && a.data[byte] == b.data[byte];
}

} // namespace

void DigestSums::add(const CAN::CanRxMessage &message, quint64 position)
{
    const TraceStatistics::Identifier *sums = statistics.add(message, position);
    addToLine(lineOf(message), message, CAN::timeOf(message));
    if (sums)
        addToIdentifier(*sums, message, position);
}

DigestSums::Line &DigestSums::lineOf(const CAN::CanRxMessage &message)
{
    const auto number = quint8(message.line);
    const auto known = lines.find(number);
    if (known != lines.end())
        return known->second;
    Line &line = lines[number];
    const qint64 start = statistics.all().earliest;
    line.digest.line = number;
    for (TimeCurve *curve :
         {&line.digest.messages, &line.digest.nominalBits, &line.digest.dataBits})
        *curve = TimeCurve(LineDigest::intervals, start);
    line.second = CAN::timeOf(message) / second;
    return line;
}

void DigestSums::addToLine(Line &line, const CAN::CanRxMessage &message, qint64 time)
{
    const FrameBits frame = frameBits(message);
    const BusBits bits{quint64(frame.nominal), quint64(frame.data)};
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

void DigestSums::addToIdentifier(const TraceStatistics::Identifier &sums,
                                 const CAN::CanRxMessage &message, quint64 position)
{
    constexpr double mostRecent = 8;
    if (std::size_t(sums.place) == identifiers.size()) {
        Identifier fresh;
        fresh.sums = &sums;
        fresh.digest.curve = TimeCurve(IdentifierDigest::intervals, statistics.all().earliest);
        identifiers.push_back(std::move(fresh));
    }
    Identifier &identifier = identifiers[std::size_t(sums.place)];
    IdentifierDigest &digest = identifier.digest;
    const qint64 time = CAN::timeOf(message);
    const auto periods = double(sums.periods.count());
    if (sums.count > 1 && time >= CAN::timeOf(digest.last) && periods > 0) {
        const auto period = double(time - CAN::timeOf(digest.last));
        digest.recentPeriod += (period - digest.recentPeriod) / std::min(periods, mostRecent);
    }
    markChanges(digest, message, time);
    digest.last = message;
    digest.position = position;
    digest.curve.add(time, 1);
    if (!identifier.isChanged)
        changed.push_back(sums.place);
    identifier.isChanged = true;
}

// The bytes of the first message have not changed.
void DigestSums::markChanges(IdentifierDigest &digest, const CAN::CanRxMessage &message,
                             qint64 time)
{
    const bool isFirst = digest.curve.size() == 0;
    const int known = isFirst ? 0 : CAN::payloadSize(digest.last);
    const int length = message.remote ? 0 : CAN::payloadSize(message);
    digest.changes.resize(length);
    for (int i = 0; i < length; ++i) {
        if (isFirst)
            digest.changes[i] = IdentifierDigest::never;
        else if (i >= known || !isSame(digest.last, message, i))
            digest.changes[i] = time;
    }
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
