#pragma once

#include <QtEndian>

#include <vector>

/// Bytes in a row, of which single bits may be left open.
class BytePattern
{
public:
    /// Adds a byte of which the bits of \a mask have to be those of \a value.
    void add(quint8 value, quint8 mask);

    int size() const { return int(bytes.size()); }

    /// Whether they occur in the payload of \a length bytes at \a data, where 8 bytes can be read
    /// whatever the length.
    bool isIn(const quint8 *data, int length) const
    {
        // Payloads of 8 bytes are the most frequent, and most of them lack the byte searched for.
        if (length <= 8 && !mayHaveAnchor(qFromLittleEndian<quint64>(data)))
            return false;
        return isAnywhere(data, length);
    }

private:
    struct Byte
    {
        quint8 value;
        quint8 mask;
    };
    static constexpr quint64 everyByte = Q_UINT64_C(0x0101010101010101);

    bool mayHaveAnchor(quint64 window) const
    {
        const quint64 zeroWhereEqual = (window & anchorMask) ^ anchorValue;
        return ((zeroWhereEqual - everyByte) & ~zeroWhereEqual & (everyByte << 7)) != 0;
    }
    bool isAnywhere(const quint8 *data, int length) const;
    bool continues(const quint8 *data) const;

    std::vector<Byte> bytes;
    quint64 headValue = 0; // of the first 8 bytes, the first one lowest
    quint64 headMask = 0;
    quint64 anchorValue = 0; // of the first byte with a mask, 8 times
    quint64 anchorMask = 0;
};
