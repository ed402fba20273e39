#pragma once

#include <QtGlobal>

#include <vector>

namespace Parquet {

/// Finds values that are known by a hash of theirs, and numbers them from 0.
class HashPlaces
{
public:
    HashPlaces() { clear(); }

    void clear()
    {
        hashes.clear();
        makePlaces(firstBits);
    }
    quint32 count() const { return quint32(hashes.size()); }

    /// The number of the value with a hash, which is well spread, that \a isSame says yes to, or
    /// count(), with which it is then taken.
    template <typename IsSame> quint32 numberOf(quint32 hash, const IsSame &isSame)
    {
        const std::size_t last = places.size() - 1;
        std::size_t place = hash >> shift;
        for (; places[place] != 0; place = (place + 1) & last) {
            const quint32 number = places[place] - 1;
            if (hashes[number] == hash && isSame(number))
                return number;
        }
        hashes.push_back(hash);
        places[place] = count();
        if (hashes.size() * 2 > places.size())
            makePlaces(wordBits - shift + 1);
        return count() - 1;
    }

private:
    static constexpr quint32 wordBits = 32;
    static constexpr quint32 firstBits = 10;

    void makePlaces(quint32 bits)
    {
        shift = wordBits - bits;
        places.assign(std::size_t(1) << bits, 0);
        const std::size_t last = places.size() - 1;
        for (quint32 number = 0; number < hashes.size(); ++number) {
            std::size_t place = hashes[number] >> shift;
            while (places[place] != 0)
                place = (place + 1) & last;
            places[place] = number + 1;
        }
    }

    std::vector<quint32> hashes;
    std::vector<quint32> places; // by the hash, its number and 1; 0 where none is
    quint32 shift = 0;           // from a hash to its place
};

} // namespace Parquet
