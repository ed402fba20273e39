#pragma once

#include "canrxmessage.h"

/// How long a frame is on the bus, from its start to the end of the intermission behind it, with
/// the stuff bits that its own bits bring.
struct FrameBits
{
    int nominal = 0; ///< bits at the bitrate of the bus
    int data = 0;    ///< bits at that of the data, of a CAN FD frame with the bit rate switched
};

/// An error frame has the longest form; the frame that it destroyed is not known. A CAN FD payload
/// of a length that no frame has is filled up with zeros, of a classic frame 8 bytes count.
FrameBits frameBits(const CAN::CanRxMessage &message);
