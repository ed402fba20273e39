#pragma once

#include "canframe.h"
#include "flagnumber.h"
#include "linefields.h"

/// The frame of a Kolvar line, "12.5 0x123/291 (2): 01 ff": also what the text export writes.
namespace KolvarLine {

template <typename Char> bool hasFrameShape(const LineFields::Parts<Char> &tokens)
{
    constexpr Char ending[] = {Char(')'), Char(':')};
    return tokens.size() >= 3 && tokens[2].size() >= 2
        && tokens[2].substr(tokens[2].size() - 2) == Text<Char>(ending, 2);
}

template <typename Char> void readId(Text<Char> text, CAN::CanRxMessage &message)
{
    message.id = LineFields::contains(text, "Error")
        ? CAN::errorFrameId
        : LineFields::toNumber<quint32>(text.substr(0, text.find(Char('/'))), 16);
}

// Reads the number in "(8):", whose base its prefix tells.
template <typename Char> void readLength(Text<Char> text, CAN::CanRxMessage &message)
{
    const std::size_t digits = text.size() - std::min<std::size_t>(text.size(), 3);
    message.length = qint8(LineFields::toNumber<quint32>(text.substr(1, digits), 0));
}

/// Reads tokens that have the shape of a frame. The extended flag comes from the flag number
/// alone. False, and nothing is read, unless the time stamp has exactly one point.
template <typename Char>
bool readFrame(const LineFields::Parts<Char> &tokens, quint32 flagNumber,
               CAN::CanRxMessage &message)
{
    using namespace LineFields;
    if (std::count(tokens[0].begin(), tokens[0].end(), Char('.')) != 1)
        return false;
    readTimeStamp(tokens[0], FractionPart::Second, message);
    readId(tokens[1], message);
    readLength(tokens[2], message);
    CAN::setFlags(flagNumber, message);
    message.remote = std::any_of(tokens.begin(), tokens.end(),
                                 [](Text<Char> token) { return equals(token, "Remote"); });
    readBytes(tokens, 3, CAN::payloadSize(message), 16, message);
    return true;
}

} // namespace KolvarLine
