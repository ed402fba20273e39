#pragma once

#include "recordview.h"

#include <cstring>
#include <unordered_map>

/// Finds the messages whose payload differs from that of the last one with the same identifier,
/// width of the identifier and line; the first one counts as different. To be asked in order.
class ChangeTracker
{
public:
    template <typename View> bool isChanged(const View &view)
    {
        const quint64 key = quint64(view.id()) << 16 | quint64(view.line()) << 8
            | (view.kind() & (FrameKey::Extended | FrameKey::Remote));
        Payload &last = payloads[key];
        const int length = view.kind() & FrameKey::Remote ? 0 : view.length();
        const bool isSame = last.length == view.length()
            && std::memcmp(last.bytes, view.data(), std::size_t(length)) == 0;
        if (isSame)
            return false;
        last.length = view.length();
        std::memcpy(last.bytes, view.data(), std::size_t(length));
        return true;
    }

private:
    struct Payload
    {
        int length = -1;
        quint8 bytes[CAN::maxDataBytes];
    };

    std::unordered_map<quint64, Payload> payloads;
};
