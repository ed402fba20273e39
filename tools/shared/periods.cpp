#include "periods.h"

#include <QtAlgorithms>

#include <algorithm>
#include <cmath>
#include <limits>

void Periods::add(qint64 period)
{
    if (periods++ == 0)
        origin = shortest = longest = period;
    shortest = std::min(shortest, period);
    longest = std::max(longest, period);
    const auto distance = double(period - origin);
    sum += distance;
    sumOfSquares += distance * distance;
    if (histogram)
        countLength(quint64(period));
}

void Periods::countLength(quint64 period)
{
    const Place place = placeOf(period);
    auto &octave = (*histogram)[std::size_t(place.octave)];
    if (!octave)
        octave = std::make_unique<Octave>();
    quint32 &counted = (*octave)[std::size_t(place.part)];
    counted += counted < std::numeric_limits<quint32>::max() ? 1 : 0;
}

double Periods::mean() const
{
    return periods == 0 ? 0 : double(origin) + sum / double(periods);
}

double Periods::deviation() const
{
    if (periods == 0)
        return 0;
    const double meanDistance = sum / double(periods);
    return std::sqrt(std::max(0.0, sumOfSquares / double(periods) - meanDistance * meanDistance));
}

double Periods::percentile(int percent) const
{
    quint64 wanted = quint64(std::ceil(double(periods) * percent / 100));
    for (int octave = 0; histogram && octave < octaves; ++octave) {
        const auto &counts = (*histogram)[std::size_t(octave)];
        for (int part = 0; counts && part < parts; ++part) {
            const quint64 counted = (*counts)[std::size_t(part)];
            if (counted >= wanted)
                return std::clamp(middleOf({octave, part}), double(shortest), double(longest));
            wanted -= counted;
        }
    }
    return double(longest);
}

Periods::Place Periods::placeOf(quint64 period)
{
    if (period < parts)
        return {0, int(period)};
    const int octave = 63 - int(qCountLeadingZeroBits(period)) - bitsOfPart;
    return {octave + 1, int(period >> octave) & (parts - 1)};
}

double Periods::middleOf(Place place)
{
    if (place.octave == 0)
        return place.part;
    const double width = std::ldexp(1, place.octave - 1);
    return (parts + place.part) * width + (width - 1) / 2;
}
