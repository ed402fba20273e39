#pragma once

#include "varint.h"

#include <QtEndian>

#include <algorithm>

/// The encodings of Parquet that a trace is written in.
namespace Parquet {

/// Adds a number as PLAIN has it, the lowest byte first.
template <typename Number> void addPlain(Number value, QByteArray &bytes)
{
    char plain[sizeof(Number)];
    qToLittleEndian(value, plain);
    bytes.append(plain, int(sizeof plain));
}

/// Adds \a count values of \a width bits each, the lowest bit first; \a count is a multiple of 8.
void packBits(const quint64 *values, int count, int width, QByteArray &bytes);

/// How many bits a number takes.
int widthOf(quint64 value);

constexpr int deltaBlockSize = 128;

void addDeltaHeader(int count, qint64 first, QByteArray &bytes);
/// Adds up to deltaBlockSize differences; \a deltas has room for that many, and is used up.
void addDeltaBlock(quint64 *deltas, int count, QByteArray &bytes);

/// DELTA_BINARY_PACKED: the first value, and what each one is more than the one before. The
/// differences have to fit into 64 bits, which those of times in microseconds do.
template <typename Value>
void addDeltaBinaryPacked(const Value *values, int count, QByteArray &bytes)
{
    addDeltaHeader(count, count > 0 ? qint64(values[0]) : 0, bytes);
    quint64 deltas[deltaBlockSize];
    for (int at = 1; at < count; at += deltaBlockSize) {
        const int size = std::min(deltaBlockSize, count - at);
        for (int i = 0; i < size; ++i)
            deltas[i] = quint64(qint64(values[at + i]) - qint64(values[at + i - 1]));
        addDeltaBlock(deltas, size, bytes);
    }
}

/// The mixture of runs and packed bits that levels and indexes of a dictionary are written in, of
/// values with up to \a width bits.
void addHybrid(const quint32 *values, int count, int width, QByteArray &bytes);

/// PLAIN booleans, a bit each: the bit \a bit of each of \a count bytes, behind which seven more
/// can be read.
void addBooleans(const quint8 *flags, int count, int bit, QByteArray &bytes);

} // namespace Parquet
