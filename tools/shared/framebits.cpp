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

constexpr int mostEqual = 5; // bits in a row
constexpr int states = 2 * mostEqual;
constexpr int checksumWidth = 15;
constexpr quint32 checksumMask = (1u << checksumWidth) - 1;

// Whatever repeats a bit five times is followed by its opposite, which begins the next run.
struct Stuffing
{
    quint8 state = 0; // the last bit and how often it stands in a row
    quint8 stuffBits = 0;
    bool endsInStuffBit = false;

    constexpr void addBit(int bit)
    {
        const int last = state / mostEqual;
        const int run = bit == last ? state % mostEqual + 1 : 1;
        endsInStuffBit = run == mostEqual;
        stuffBits = quint8(stuffBits + (endsInStuffBit ? 1 : 0));
        state = quint8(endsInStuffBit ? (1 - bit) * mostEqual + 1 : bit * mostEqual + run);
    }
};

constexpr quint32 checksumWithBit(quint32 checksum, int bit)
{
    constexpr quint32 polynomial = 0x4599;
    const bool isOdd = ((checksum >> (checksumWidth - 1)) ^ quint32(bit)) & 1;
    return (checksum << 1 ^ (isOdd ? polynomial : 0)) & checksumMask;
}

// What so many bits come to at once, for each state and value, worked out bit by bit.
template <int width>
constexpr auto stuffingTable = [] {
    std::array<Stuffing, std::size_t(states) << width> table{};
    for (int i = 0; i < states << width; ++i) {
        Stuffing &stuffing = table[std::size_t(i)];
        stuffing.state = quint8(i >> width);
        for (int bit = width - 1; bit >= 0; --bit)
            stuffing.addBit(i >> bit & 1);
    }
    return table;
}();
template <int width>
constexpr auto checksumTable = [] {
    std::array<quint16, std::size_t(1) << width> table{};
    for (int i = 0; i < 1 << width; ++i) {
        quint32 checksum = 0;
        for (int bit = width - 1; bit >= 0; --bit)
            checksum = checksumWithBit(checksum, i >> bit & 1);
        table[std::size_t(i)] = quint16(checksum);
    }
    return table;
}();

// The bits of a frame as they are sent.
class Bits
{
public:
    void add(quint64 value, int width)
    {
        while (width % 4 != 0)
            addPiece<1>(quint32(value >> --width & 1));
        for (; width > 0; width -= 4)
            addPiece<4>(quint32(value >> (width - 4) & 15));
    }
    void addByte(quint8 byte) { addPiece<8>(byte); }

    int sent() const { return count; }
    bool endsInStuffBit() const { return endsSo; }
    quint32 checksum() const { return sum; }

private:
    template <int width> void addPiece(quint32 piece)
    {
        const Stuffing &stuffing = stuffingTable<width>[state << width | piece];
        state = stuffing.state;
        endsSo = stuffing.endsInStuffBit;
        count += width + stuffing.stuffBits;
        const quint32 high = (sum >> (checksumWidth - width) ^ piece) & ((1u << width) - 1);
        sum = (sum << width ^ checksumTable<width>[high]) & checksumMask;
    }

    quint32 state = 0;
    quint32 sum = 0;
    int count = 0;
    bool endsSo = false;
};

// Start of frame, identifier, and what tells a standard one from an extended one.
void addIdentifier(Bits &bits, const CAN::CanRxMessage &message, bool isRemote)
{
    const quint64 remote = isRemote ? 1 : 0;
    if (!message.extended)
        bits.add(quint64(message.id & 0x7FF) << 2 | remote << 1, 14);
    else
        bits.add(quint64(message.id >> 18 & 0x7FF) << 21 | quint64(3) << 19
                     | quint64(message.id & 0x3FFFF) << 1 | remote,
                 33);
}

FrameBits classicBits(const CAN::CanRxMessage &message)
{
    const int length = std::min(CAN::payloadSize(message), 8);
    Bits bits;
    addIdentifier(bits, message, message.remote);
    bits.add(quint64(length), message.extended ? 6 : 5); // behind reserved bits
    for (int i = 0; i < length && !message.remote; ++i)
        bits.addByte(message.data[i]);
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
        bits.addByte(i < message.length ? message.data[i] : 0);
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
