#pragma once

#include "canrxmessage.h"

#include <optional>
#include <string_view>

/// A frame as candump prints it.
struct CandumpLine
{
    CAN::CanRxMessage message;
    bool hasTime = false; ///< otherwise the time of the message is 0
};

/// Reads one line in candump's log layout, "(12.345678) can0 123#1122", or in its screen layout,
/// "can0  123   [2]  11 22", with or without a time in front. The line of the message is the
/// number in the interface's name.
///
/// A recording has no second chance, so that this is stricter than the import of a log and
/// keeps more of a frame: CAN FD, remote and error frames, and identifiers of eight digits are
/// extended. Nothing when the line is not exactly a frame.
std::optional<CandumpLine> readCandumpLine(std::string_view line);
