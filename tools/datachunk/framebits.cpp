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
class Stuffing
{
public:
    void addBit(int bit)
    {
        run = bit == last ? run + 1 : 1;
        last = bit;
        endsWithStuffBit = run == mostEqual;
        if (!endsWithStuffBit)
            return;
        ++stuffed;
        last = 1 - bit;
        run = 1;
    }

    void addNibble(int nibble)
    {
        const Entry &entry = table()[std::size_t((last * mostEqual + run) * 16 + nibble)];
        stuffed += entry.stuffed;
        last = entry.last;
        run = entry.run;
        endsWithStuffBit = entry.endsWithStuffBit;
    }

    int count() const { return stuffed; }
    bool endsInStuffBit() const { return endsWithStuffBit; }

private:
    static constexpr int mostEqual = 5;

    struct Entry
    {
        quint8 stuffed;
        quint8 last;
        quint8 run;
        bool endsWithStuffBit;
    };
    using Table = std::array<Entry, std::size_t(2 * mostEqual * 16)>;

    // What four bits come to in each state.
    static const Table &table()
    {
        static const Table all = [] {
            Table made{};
            for (int state = 0; state < 2 * mostEqual; ++state) {
                for (int nibble = 0; nibble < 16; ++nibble) {
                    Stuffing bits;
                    bits.last = state / mostEqual;
                    bits.run = state % mostEqual;
                    for (int bit = 3; bit >= 0; --bit)
                        bits.addBit(nibble >> bit & 1);
                    made[std::size_t(state * 16 + nibble)] = {quint8(bits.stuffed),
                                                              quint8(bits.last), quint8(bits.run),
                                                              bits.endsWithStuffBit};
                }
            }
            return made;
        }();
        return all;
    }

    int last = 0;
    int run = 0;
    int stuffed = 0;
    bool endsWithStuffBit = false;
};

// The checksum of a classic frame.
class Checksum
{
public:
    void addBit(int bit)
    {
        const bool isOdd = ((value >> 14) ^ quint32(bit)) & 1;
        value = (value << 1 ^ (isOdd ? polynomial : 0)) & mask;
    }
    void addNibble(int nibble)
    {
        value = (value << 4 ^ table()[(value >> 11 ^ quint32(nibble)) & 15]) & mask;
    }
    quint32 result() const { return value; }

private:
    static constexpr quint32 polynomial = 0x4599;
    static constexpr quint32 mask = 0x7FFF;

    static const std::array<quint32, 16> &table()
    {
        static const std::array<quint32, 16> all = [] {
            std::array<quint32, 16> made{};
            for (quint32 nibble = 0; nibble < 16; ++nibble) {
                Checksum checksum;
                for (int bit = 3; bit >= 0; --bit)
                    checksum.addBit(int(nibble >> bit & 1));
                made[nibble] = checksum.value;
            }
            return made;
        }();
        return all;
    }

    quint32 value = 0;
};

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

    int sent() const { return count + stuffing.count(); }
    bool endsWithStuffBit() const { return stuffing.endsInStuffBit(); }
    quint32 checksum() const { return sum.result(); }

private:
    void addBit(int bit)
    {
        stuffing.addBit(bit);
        sum.addBit(bit);
    }
    void addNibble(int nibble)
    {
        stuffing.addNibble(nibble);
        sum.addNibble(nibble);
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
    constexpr int checksumWidth = 15;
    const int length = std::min(CAN::payloadSize(message), 8);
    Bits bits;
    addIdentifier(bits, message, message.remote);
    bits.add(0, message.extended ? 2 : 1);
    bits.add(quint32(length), 4);
    for (int i = 0; i < length && !message.remote; ++i)
        bits.add(message.data[i], 8);
    bits.add(bits.checksum(), checksumWidth);
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
        bits.sent() - front - (bits.endsWithStuffBit() ? 1 : 0) + fdChecksumBits(bytes) + 1;
    return message.flagC ? FrameBits{front + fdEnd, body} : FrameBits{front + body + fdEnd, 0};
}

} // namespace

FrameBits frameBits(const CAN::CanRxMessage &message)
{
    if (message.id == CAN::errorFrameId)
        return {errorFrameBits, 0};
    return message.fdFrame ? fdBits(message) : classicBits(message);
}
