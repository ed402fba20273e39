#pragma once

#include "frametable.h"
#include "recordview.h"

#include <array>
#include <cstring>

/// Finds the messages whose payload differs from that of the last one with the same identifier,
/// width of the identifier and line; the first one counts as different. To be asked in order.
class ChangeTracker
{
public:
    template <typename View> bool isChanged(const View &view)
    {
        const int kind = view.kind() & (FrameKey::Extended | FrameKey::Remote);
        const quint64 frame = FrameKey(view.id(), view.line(), quint8(kind)).value();
        Payload *last = payloads.find(frame);
        if (!last)
            last = &payloads.add({frame, 0, none, -1});
        const int size = kind & FrameKey::Remote ? 0 : view.length();
        const bool isSameLength = last->length == view.length();
        last->length = view.length();
        return size > shortSize ? isLongChanged(*last, isSameLength, view.data(), size)
                                : isShortChanged(*last, isSameLength, view.data(), size);
    }

private:
    static constexpr int shortSize = 8;
    static constexpr quint32 none = ~quint32(0);
    using LongPayload = std::array<quint8, CAN::maxDataBytes>;

    struct Payload
    {
        quint64 frame = 0;
        quint64 bytes = 0;     // of a short one
        quint32 number = none; // of a long one
        int length = -1;
    };

    // Behind a payload a record goes on, so that a short one can be read at one stroke.
    static bool isShortChanged(Payload &last, bool isSameLength, const quint8 *data, int size)
    {
        const quint64 bytes = size == 0
            ? 0
            : qFromLittleEndian<quint64>(data) & (~Q_UINT64_C(0) >> (8 * (shortSize - size)));
        const bool isChanged = !isSameLength || last.bytes != bytes;
        last.bytes = bytes;
        return isChanged;
    }
    bool isLongChanged(Payload &last, bool isSameLength, const quint8 *data, int size)
    {
        if (last.number == none) {
            last.number = quint32(longPayloads.size());
            longPayloads.emplace_back();
        }
        LongPayload &bytes = longPayloads[last.number];
        const bool isChanged =
            !isSameLength || std::memcmp(bytes.data(), data, std::size_t(size)) != 0;
        std::memcpy(bytes.data(), data, std::size_t(size));
        return isChanged;
    }

    FrameTable<Payload> payloads;
    std::vector<LongPayload> longPayloads;
};
