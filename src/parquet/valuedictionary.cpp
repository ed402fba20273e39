#include "valuedictionary.h"

namespace Parquet {

namespace {

constexpr quint32 wordBits = 32;
constexpr quint32 firstBits = 11;

quint32 hashOf(quint32 value)
{
    constexpr quint32 spread = 0x9E3779B1;
    return value * spread;
}

} // namespace

void ValueDictionary::makeRoom(quint32 bits)
{
    shift = wordBits - bits;
    places.assign(std::size_t(1) << bits, 0);
    for (quint32 index = 0; index < found.size(); ++index)
        places[placeOf(found[index])] = index + 1;
}

// Where a value is, or would be.
std::size_t ValueDictionary::placeOf(quint32 value) const
{
    const std::size_t last = places.size() - 1;
    std::size_t place = hashOf(value) >> shift;
    while (places[place] != 0 && found[places[place] - 1] != value)
        place = (place + 1) & last;
    return place;
}

quint32 ValueDictionary::indexOf(quint32 value)
{
    const std::size_t place = placeOf(value);
    if (places[place] != 0)
        return places[place] - 1;
    found.push_back(value);
    places[place] = quint32(found.size());
    if (found.size() * 2 > places.size())
        makeRoom(wordBits - shift + 1);
    return quint32(found.size() - 1);
}

void ValueDictionary::index(const quint32 *column, int count, std::vector<quint32> &indexes)
{
    found.clear();
    makeRoom(firstBits);
    indexes.resize(std::size_t(count));
    quint32 last = 0;
    for (int i = 0; i < count; ++i) {
        if (i == 0 || column[i] != column[i - 1])
            last = indexOf(column[i]);
        indexes[std::size_t(i)] = last;
    }
}

} // namespace Parquet
