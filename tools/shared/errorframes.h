#pragma once

#include "canerrortypes.h"
#include "canframe.h"

/// The name of the error that an error frame stands for, by the number in its first byte; empty for
/// other frames and other numbers.
inline QString errorTypeName(const CAN::CanRxMessage &message)
{
    if (message.id != CAN::errorFrameId || message.length < 1)
        return {};
    return canErrorTypes().value(message.data[0]);
}
