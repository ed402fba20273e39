#include "framebits.h"

#include "canframe.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace {

// Two error flags one after the other, the delimiter and the intermission.
constexpr int errorFrameBits = 6 + 6 + 8 + 3;
// Delimiter of the checksum, acknowledgement with its delimiter, end of frame, intermission.
constexpr int classicEnd = 1 + 2 + 7 + 3;
constexpr int fdEnd = 2 + 7 + 3;

// Whatever repeats a bit five times is followed by its opposite, which begins the next run.
struct Stuffing
{
    static constexpr int mostEqual = 5;

    constexpr void addBit(int bit)
    {
        run = bit == last ? run + 1 : 1;
        last = bit;
        endsInStuffBit = run == mostEqual;
        if (!endsInStuffBit)
            return;
        ++stuffBits;
        last = 1 - bit;
        run = 1;
    }

    int last = 0;
    int run = 0;
    int stuffBits = 0;
    bool endsInStuffBit = false;
};

// The checksum of a classic frame.
struct Checksum
{
    static constexpr int width = 15;
    static constexpr quint32 polynomial = 0x4599;
    static constexpr quint32 mask = (1u << width) - 1;

    constexpr void addBit(int bit)
    {
        const bool isOdd = ((value >> (width - 1)) ^ quint32(bit)) & 1;
        value = (value << 1 ^ (isOdd ? polynomial : 0)) & mask;
    }

    quint32 value = 0;
};

// What four bits come to, worked out bit by bit.
constexpr int nibbles = 16;

template <typename Sum> constexpr Sum withNibble(Sum sum, int nibble)
{
    for (int bit = 3; bit >= 0; --bit)
        sum.addBit(nibble >> bit & 1);
    return sum;
}

constexpr std::array<Stuffing, std::size_t(2 * Stuffing::mostEqual * nibbles)> stuffingTable = [] {
    std::array<Stuffing, std::size_t(2 * Stuffing::mostEqual * nibbles)> table{};
    for (int i = 0; i < 2 * Stuffing::mostEqual * nibbles; ++i) {
        Stuffing before;
        before.last = i / nibbles / Stuffing::mostEqual;
        before.run = i / nibbles % Stuffing::mostEqual;
        table[std::size_t(i)] = withNibble(before, i % nibbles);
    }
    return table;
}();

constexpr std::array<Checksum, nibbles> checksumTable = [] {
    std::array<Checksum, nibbles> table{};
    for (int nibble = 0; nibble < nibbles; ++nibble)
        table[std::size_t(nibble)] = withNibble(Checksum(), nibble);
    return table;
}();

// The bits of a frame as they are sent.
class Bits
{
public:
    void add(quint32 value, int width)
    {
        count += width;
        while (width % 4 != 0)
            addBit(int(value >> --width & 1));
        for (; width > 0; width -= 4)
            addNibble(int(value >> (width - 4) & 15));
    }

    int sent() const { return count + stuffing.stuffBits; }
    bool endsInStuffBit() const { return stuffing.endsInStuffBit; }
    quint32 checksum() const { return sum.value; }

private:
    void addBit(int bit)
    {
        stuffing.addBit(bit);
        sum.addBit(bit);
    }
    void addNibble(int nibble)
    {
        const int state = stuffing.last * Stuffing::mostEqual + stuffing.run;
        const int before = stuffing.stuffBits;
        stuffing = stuffingTable[std::size_t(state * nibbles + nibble)];
        stuffing.stuffBits += before;
        const quint32 high = sum.value >> (Checksum::width - 4) ^ quint32(nibble);
        sum.value = (sum.value << 4 ^ checksumTable[high & 15].value) & Checksum::mask;
    }

    Stuffing stuffing;
    Checksum sum;
    int count = 0;
};

// Start of frame, identifier, and what tells a standard one from an extended one.
void addIdentifier(Bits &bits, const CAN::CanRxMessage &message, bool isRemote)
{
    bits.add(0, 1);
    if (!message.extended) {
        bits.add(message.id & 0x7FF, 11);
        bits.add(isRemote ? 1 : 0, 1);
        bits.add(0, 1);
        return;
    }
    bits.add(message.id >> 18 & 0x7FF, 11);
    bits.add(3, 2);
    bits.add(message.id & 0x3FFFF, 18);
    bits.add(isRemote ? 1 : 0, 1);
}

FrameBits classicBits(const CAN::CanRxMessage &message)
{
    const int length = std::min(CAN::payloadSize(message), 8);
    Bits bits;
    addIdentifier(bits, message, message.remote);
    bits.add(0, message.extended ? 2 : 1);
    bits.add(quint32(length), 4);
    for (int i = 0; i < length && !message.remote; ++i)
        bits.add(message.data[i], 8);
    bits.add(bits.checksum(), Checksum::width);
    return {bits.sent() + classicEnd, 0};
}

// The code of the shortest CAN FD frame that has room for a payload, and that room.
struct FdLength
{
    quint32 code;
    int bytes;
};

FdLength fdLength(int length)
{
    static constexpr int rooms[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 12, 16, 20, 24, 32, 48, 64};
    const int *room = std::lower_bound(std::begin(rooms), std::end(rooms), length);
    return {quint32(room - std::begin(rooms)), *room};
}

// Four bits that count stuff bits and the checksum have a fixed bit in front of every four, so that
// their values do not matter.
int fdChecksumBits(int bytes)
{
    return bytes <= 16 ? 4 + 17 + 6 : 4 + 21 + 7;
}

FrameBits fdBits(const CAN::CanRxMessage &message)
{
    const auto [code, bytes] = fdLength(CAN::payloadSize(message));
    Bits bits;
    addIdentifier(bits, message, false);
    bits.add(2, 2); // CAN FD, and a reserved bit
    bits.add(message.flagC ? 1 : 0, 1);
    const int front = bits.sent();
    bits.add(message.flagB ? 1 : 0, 1);
    bits.add(code, 4);
    for (int i = 0; i < bytes; ++i)
        bits.add(i < message.length ? message.data[i] : 0, 8);
    // The first fixed bit stands where a stuff bit would.
    const int body =
        bits.sent() - front - (bits.endsInStuffBit() ? 1 : 0) + fdChecksumBits(bytes) + 1;
    return message.flagC ? FrameBits{front + fdEnd, body} : FrameBits{front + body + fdEnd, 0};
}

} // namespace

FrameBits frameBits(const CAN::CanRxMessage &message)
{
    if (message.id == CAN::errorFrameId)
        return {errorFrameBits, 0};
    return message.fdFrame ? fdBits(message) : classicBits(message);
}
