#pragma once

#include <QtGlobal>

#include <array>
#include <memory>

/// What is known of the times between the messages of one identifier, in microseconds: the exact
/// mean, deviation and ends, and where it is wanted, how many came to each length within one
/// percent. That takes some 300 bytes for each power of two that occurs.
class Periods
{
public:
    explicit Periods(bool countsLengths = true)
        : histogram(countsLengths ? std::make_unique<Histogram>() : nullptr)
    {
    }

    /// \a period is not negative.
    void add(qint64 period);

    quint64 count() const { return periods; }
    qint64 least() const { return shortest; }
    qint64 most() const { return longest; }
    double mean() const;
    /// Standard deviation of all of them.
    double deviation() const;
    /// The length that \a percent of them do not go beyond, at most 1 % off; the longest where
    /// lengths are not counted.
    double percentile(int percent) const;

private:
    // Each power of two is parted into so many lengths, the first ones being exact.
    static constexpr int bitsOfPart = 6;
    static constexpr int parts = 1 << bitsOfPart;
    static constexpr int octaves = 64 - bitsOfPart;
    using Octave = std::array<quint32, parts>;
    using Histogram = std::array<std::unique_ptr<Octave>, octaves>;

    struct Place
    {
        int octave;
        int part;
    };
    static Place placeOf(quint64 period);
    static double middleOf(Place place);
    void countLength(quint64 period);

    quint64 periods = 0;
    qint64 shortest = 0;
    qint64 longest = 0;
    // Distances from the first one, whose squares lose fewer digits than those of the periods.
    qint64 origin = 0;
    double sum = 0;
    double sumOfSquares = 0;
    std::unique_ptr<Histogram> histogram; // null where lengths are not counted
};
