#pragma once

#include "canrxmessage.h"

// The flags of a record as texts write them: one number.
namespace CAN {

enum FlagBit : quint32 { ExtendedBit = 1, FdFrameBit = 2, FlagCBit = 4, FlagBBit = 8 };

inline quint32 flagNumber(const CanRxMessage &message)
{
    return (message.extended ? ExtendedBit : 0u) | (message.fdFrame ? FdFrameBit : 0u)
        | (message.flagC ? FlagCBit : 0u) | (message.flagB ? FlagBBit : 0u);
}

/// Sets the four flags; other bits of the number mean nothing.
inline void setFlags(quint32 flagNumber, CanRxMessage &message)
{
    message.extended = flagNumber & ExtendedBit;
    message.fdFrame = flagNumber & FdFrameBit;
    message.flagC = flagNumber & FlagCBit;
    message.flagB = flagNumber & FlagBBit;
}

} // namespace CAN
