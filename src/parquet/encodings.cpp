#include "encodings.h"

#include <qalgorithms.h>

#include <cstring>

namespace Parquet {

namespace {

constexpr int groupSize = 8;
constexpr int miniblockSize = 32;
constexpr int miniblocks = deltaBlockSize / miniblockSize;

// How many values from the beginning are equal, up to \a most.
int runLength(const quint32 *values, int most)
{
    return int(std::find_if(values, values + most,
                            [first = *values](quint32 value) { return value != first; })
               - values);
}

// How many values stand in front of the next run that is worth one: whole groups, or all.
int literalCount(const quint32 *values, int count)
{
    // So many have their number in one byte, which is what readers see most.
    constexpr int mostGroups = 63;
    int literals = std::min(groupSize, count);
    while (literals < count && literals < mostGroups * groupSize
           && runLength(values + literals, std::min(groupSize, count - literals)) < groupSize)
        literals = std::min(literals + groupSize, count);
    return literals;
}

void addRun(quint32 value, int length, int width, QByteArray &bytes)
{
    addVarint(quint64(length) << 1, bytes);
    for (int bit = 0; bit < width; bit += 8)
        bytes += char(value >> bit);
}

void addLiterals(const quint32 *values, int count, int width, QByteArray &bytes)
{
    quint64 group[groupSize];
    addVarint(quint64((count + groupSize - 1) / groupSize) << 1 | 1, bytes);
    for (int at = 0; at < count; at += groupSize) {
        const int size = std::min(groupSize, count - at);
        std::fill(std::copy_n(values + at, size, group), group + groupSize, 0);
        packBits(group, groupSize, width, bytes);
    }
}

} // namespace

void packBits(const quint64 *values, int count, int width, QByteArray &bytes)
{
    constexpr int wordBits = 64;
    const int begin = bytes.size();
    const int size = count * width / 8;
    bytes.resize(begin + size);
    char *to = bytes.data() + begin;
    quint64 word = 0;
    int used = 0;
    for (int i = 0; i < count; ++i) {
        word |= values[i] << used;
        used += width;
        if (used < wordBits)
            continue;
        qToLittleEndian(word, to);
        to += sizeof word;
        used -= wordBits;
        word = used > 0 ? values[i] >> (width - used) : 0;
    }
    for (; used > 0; used -= 8, word >>= 8)
        *to++ = char(word);
}

int widthOf(quint64 value)
{
    return 64 - int(qCountLeadingZeroBits(value));
}

void addDeltaHeader(int count, qint64 first, QByteArray &bytes)
{
    addVarint(deltaBlockSize, bytes);
    addVarint(miniblocks, bytes);
    addVarint(quint64(count), bytes);
    addZigzag(first, bytes);
}

void addDeltaBlock(quint64 *deltas, int count, QByteArray &bytes)
{
    const auto least = *std::min_element(
        deltas, deltas + count, [](quint64 a, quint64 b) { return qint64(a) < qint64(b); });
    addZigzag(qint64(least), bytes);
    std::for_each(deltas, deltas + count, [least](quint64 &delta) { delta -= least; });
    std::fill(deltas + count, deltas + deltaBlockSize, 0);
    int widths[miniblocks];
    for (int mini = 0; mini < miniblocks; ++mini) {
        quint64 bits = 0;
        for (int i = 0; i < miniblockSize; ++i)
            bits |= deltas[mini * miniblockSize + i];
        widths[mini] = widthOf(bits);
        bytes += char(widths[mini]);
    }
    // Of a block that is cut short the miniblocks behind its end have no bits, nor bytes.
    for (const int width : widths) {
        packBits(deltas, miniblockSize, width, bytes);
        deltas += miniblockSize;
    }
}

void addHybrid(const quint32 *values, int count, int width, QByteArray &bytes)
{
    for (int at = 0; at < count;) {
        const int run = runLength(values + at, count - at);
        if (run >= groupSize) {
            addRun(values[at], run, width, bytes);
            at += run;
            continue;
        }
        const int literals = literalCount(values + at, count - at);
        addLiterals(values + at, literals, width, bytes);
        at += literals;
    }
}

void addBooleans(const quint8 *flags, int count, int bit, QByteArray &bytes)
{
    constexpr quint64 lowestBits = Q_UINT64_C(0x0101010101010101);
    // Moves the lowest bit of each byte into the highest byte, that of the first byte lowest.
    constexpr quint64 gather = Q_UINT64_C(0x0102040810204080);
    const int begin = bytes.size();
    bytes.resize(begin + (count + groupSize - 1) / groupSize);
    char *to = bytes.data() + begin;
    for (int at = 0; at < count; at += groupSize) {
        quint64 group = qFromLittleEndian<quint64>(flags + at);
        if (const int left = count - at; left < groupSize)
            group &= (Q_UINT64_C(1) << left * 8) - 1;
        *to++ = char(((group >> bit) & lowestBits) * gather >> 56);
    }
}

} // namespace Parquet
