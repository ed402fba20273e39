#pragma once

#include "lineparts.h"

/// What programs write to a terminal besides the text that it shows.
namespace EscapeSequences {

constexpr char escape = '\x1B';

/// Where the control sequence that begins at \a start ends: "ESC [", parameters and one letter.
/// Any other character behind the escape character belongs to it as well.
template <typename Char> std::size_t endOfSequence(Text<Char> text, std::size_t start)
{
    std::size_t at = start + 1;
    if (at < text.size() && text[at] == '[') {
        const auto isParameter = [](Char c) { return c >= 0x20 && c < 0x40; };
        do
            ++at;
        while (at < text.size() && isParameter(text[at]));
    }
    return std::min(at + 1, text.size());
}

/// \a text without colours and other control sequences; kept in \a scratch when there are any.
template <typename Char> Text<Char> withoutThem(Text<Char> text, LineFields::Scratch<Char> &scratch)
{
    std::size_t start = text.find(Char(escape));
    if (start == text.npos)
        return text;
    std::size_t from = 0;
    for (; start != text.npos; start = text.find(Char(escape), from)) {
        scratch.append(text.data() + from, int(start - from));
        from = endOfSequence(text, start);
    }
    scratch.append(text.data() + from, int(text.size() - from));
    return LineFields::textOf(scratch);
}

} // namespace EscapeSequences
