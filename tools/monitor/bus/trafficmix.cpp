#include "trafficmix.h"

#include "canframe.h"

#include <cmath>

namespace {

constexpr double microsecondsPerSecond = 1e6;
constexpr quint32 firstExtendedId = 0x800;

struct Kind
{
    quint32 id;
    int milliseconds;
    int length;
};

// Drive train, chassis, body, and what trucks and diagnostics add.
constexpr Kind kinds[] = {
    {0x0A0, 10, 8},       {0x0B4, 10, 8},   {0x110, 10, 8},      {0x120, 10, 6},
    {0x180, 20, 8},       {0x1A4, 20, 8},   {0x1D0, 20, 5},      {0x220, 20, 8},
    {0x260, 50, 8},       {0x2C4, 50, 8},   {0x310, 50, 4},      {0x340, 100, 8},
    {0x39E, 100, 8},      {0x3B0, 100, 2},  {0x420, 100, 8},     {0x470, 200, 8},
    {0x4F1, 500, 8},      {0x520, 500, 3},  {0x5A0, 1000, 8},    {0x610, 1000, 8},
    {0x7DF, 1000, 8},     {0x7E8, 1000, 8}, {0x0CF00400, 20, 8}, {0x18FEF100, 100, 8},
    {0x18FEEE00, 1000, 8}};

// A pseudo random number that is the same in each run.
quint32 mixed(quint32 value)
{
    constexpr quint32 factor = 2654435761U;
    value = (value ^ (value >> 16)) * factor;
    return value ^ (value >> 13);
}

} // namespace

TrafficMix::TrafficMix(const GeneratorOptions &options, quint8 firstLine)
{
    constexpr quint32 fdStep = 6; // every so many identifiers one of CAN FD
    constexpr int fdLengths[] = {12, 24, 48, 64};
    constexpr int errorPeriod = 700;
    const int lines = qMax(1, options.lines);
    for (int i = 0; i < lines; ++i) {
        const auto line = quint8(firstLine + i);
        quint32 number = 0;
        for (const Kind &kind : kinds) {
            const bool fd = options.fdFrames && ++number % fdStep == 0;
            addSource(kind.id, kind.milliseconds,
                      fd ? fdLengths[number / fdStep % std::size(fdLengths)] : kind.length, line);
        }
    }
    if (options.errorFrames)
        addSource(CAN::errorFrameId, errorPeriod, 1, firstLine);
    spread(options.rate);
}

void TrafficMix::addSource(quint32 id, int milliseconds, int length, quint8 line)
{
    constexpr double microsecondsPerMillisecond = 1000;
    Source source;
    source.id = id;
    source.period = milliseconds * microsecondsPerMillisecond;
    source.length = qint8(length);
    source.line = line;
    source.fd = length > 8;
    sources.push_back(source);
}

// Has the periods keep their proportions, and makes so many messages a second of them all.
void TrafficMix::spread(int rate)
{
    double natural = 0;
    for (const Source &source : sources)
        natural += microsecondsPerSecond / source.period;
    const double factor = natural / qMax(1, rate);
    for (std::size_t i = 0; i < sources.size(); ++i) {
        sources[i].period *= factor;
        const double phase = double(mixed(quint32(i + 1)) % 1000) / 1000;
        due.push({phase * sources[i].period, i});
    }
}

CAN::CanRxMessage TrafficMix::next()
{
    const Due now = due.top();
    due.pop();
    Source &source = sources[now.source];
    CAN::CanRxMessage message;
    message.id = source.id;
    message.line = source.line;
    message.length = source.length;
    message.fdFrame = source.fd;
    message.extended = source.id >= firstExtendedId && source.id != CAN::errorFrameId;
    fill(message, source.count++, now.time / microsecondsPerSecond);
    due.push({now.time + source.period, now.source});
    return message;
}

// A counter, a wave, a ramp, a switch, a value that stays, noise, and a sum over it all.
void TrafficMix::fill(CAN::CanRxMessage &message, quint32 count, double seconds)
{
    if (message.id == CAN::errorFrameId) {
        message.data[0] = quint8(count % 8);
        return;
    }
    const double angle = seconds * (0.2 + message.id % 7 * 0.1);
    const auto wave = quint16(2000 + 1500 * std::sin(angle));
    const quint8 values[] = {quint8(wave >> 8),
                             quint8(wave),
                             quint8(seconds * 4 + message.id),
                             quint8(std::fmod(seconds, 8) < 4 ? 0x00 : 0x40),
                             quint8(mixed(message.id)),
                             quint8(0x80 + mixed(count + message.id) % 5)};
    const int length = CAN::payloadSize(message);
    quint8 sum = 0;
    for (int i = 0; i < length; ++i) {
        const bool isCounter = i == 6 || (length < 7 && i == length - 1);
        if (i == 7)
            message.data[i] = sum;
        else if (isCounter)
            message.data[i] = quint8(count & 0x0F);
        else
            message.data[i] = i < 6 ? values[i] : quint8(mixed(count / 16 + quint32(i)));
        sum = quint8(sum + message.data[i]);
    }
}
