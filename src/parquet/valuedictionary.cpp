#include "valuedictionary.h"

#include "messagerows.h"

#include <QtEndian>

#include <cstring>

namespace Parquet {

namespace {

constexpr quint64 spread = Q_UINT64_C(0x9E3779B97F4A7C15);
constexpr int wordSize = sizeof(quint64);

quint32 hashOf(quint64 value)
{
    return quint32(value * spread >> 32);
}

// The bytes at \a from, of which \a size count; eight can be read.
quint64 wordAt(const char *from, int size)
{
    const quint64 word = qFromLittleEndian<quint64>(from);
    return size >= wordSize ? word : word & ((Q_UINT64_C(1) << size * 8) - 1);
}

quint32 hashOf(const PayloadDictionary::Payload &payload)
{
    quint64 hash = quint64(payload.size);
    for (int at = 0; at < payload.size; at += wordSize) {
        hash = (hash ^ wordAt(payload.bytes + at, payload.size - at)) * spread;
        hash ^= hash >> 32;
    }
    return hashOf(hash);
}

// Payloads that are repeated are so from early on, if not at once.
bool isHopeless(std::size_t different, std::size_t all)
{
    constexpr std::size_t leastAsked = 8192;
    return all >= leastAsked && different * 3 > all * 2;
}

} // namespace

void ValueDictionary::index(const quint32 *column, int count, std::vector<quint32> &indexes)
{
    found.clear();
    places.clear();
    indexes.resize(std::size_t(count));
    quint32 last = 0;
    for (int i = 0; i < count; ++i) {
        const quint32 value = column[i];
        if (i == 0 || value != column[i - 1]) {
            last = places.numberOf(hashOf(quint64(value)),
                                   [&](quint32 number) { return found[number] == value; });
            if (last == found.size())
                found.push_back(value);
        }
        indexes[std::size_t(i)] = last;
    }
}

quint32 PayloadDictionary::numberOf(const Payload &payload)
{
    const quint32 number = places.numberOf(hashOf(payload), [&](quint32 other) {
        return found[other].size == payload.size
            && std::memcmp(found[other].bytes, payload.bytes, std::size_t(payload.size)) == 0;
    });
    if (number == found.size())
        found.push_back(payload);
    return number;
}

bool PayloadDictionary::index(const MessageRows &rows, std::vector<quint32> &indexes)
{
    const std::size_t most = std::size_t(rows.count) / 3 + 1;
    found.clear();
    places.clear();
    indexes.resize(std::size_t(rows.count));
    const char *at = rows.payloads.data();
    for (std::size_t row = 0; row < indexes.size(); ++row) {
        const int size = rows.payloadSizes[row];
        indexes[row] = numberOf({at, size});
        at += size;
        if (found.size() > most || isHopeless(found.size(), row))
            return false;
    }
    return true;
}

} // namespace Parquet
