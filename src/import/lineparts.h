#pragma once

#include "charmask.h"

#include <QtAlgorithms>
#include <QVarLengthArray>

#include <algorithm>
#include <string>
#include <type_traits>

// Lets QVarLengthArray take pieces of text without constructing them.
Q_DECLARE_TYPEINFO(Text<char>, Q_PRIMITIVE_TYPE);
Q_DECLARE_TYPEINFO(Text<char16_t>, Q_PRIMITIVE_TYPE);

/// Splits lines into parts that point into the line; text is copied only where it has to change.
namespace LineFields {

using CharMask::IsBlank;

/// Parts of a line, with room for a CAN FD frame without an allocation.
template <typename Char> using Parts = QVarLengthArray<Text<Char>, 192>;

/// Fills a list of parts, which must not be used before finish().
template <typename Char> class PartWriter
{
public:
    explicit PartWriter(Parts<Char> &parts)
        : parts(parts), next(parts.data()), end(next + parts.capacity())
    {
    }

    void write(Text<Char> part)
    {
        if (next == end)
            makeRoom();
        *next++ = part;
    }

    void write(const Char *from, const Char *to)
    {
        write(Text<Char>(from, std::size_t(to - from)));
    }

    void finish() { parts.resize(int(next - parts.data())); }

private:
    void makeRoom()
    {
        finish();
        const int size = parts.size();
        parts.reserve(2 * size);
        next = parts.data() + size;
        end = parts.data() + parts.capacity();
    }

    Parts<Char> &parts;
    Text<Char> *next;
    Text<Char> *end;
};

/// Room for a changed copy of a piece of a line; pieces of ordinary length need no allocation.
template <typename Char> using Scratch = QVarLengthArray<Char, 512>;

template <typename Char> Text<Char> textOf(const Scratch<Char> &scratch)
{
    return {scratch.constData(), std::size_t(scratch.size())};
}

template <typename Char> bool isBlank(Char c)
{
    return IsBlank()(c);
}

template <typename Char> bool contains(Text<Char> text, std::string_view word)
{
    if constexpr (std::is_same_v<Char, char>) {
        return text.find(word) != text.npos;
    } else {
        return std::search(text.begin(), text.end(), word.begin(), word.end()) != text.end();
    }
}

template <typename Char> bool equals(Text<Char> text, std::string_view word)
{
    return text.size() == word.size() && std::equal(text.begin(), text.end(), word.begin());
}

/// The text from part \a index to the end of the last one; empty where there is no such part.
template <typename Char> Text<Char> spanFrom(const Parts<Char> &parts, int index)
{
    if (index >= parts.size())
        return {};
    const Char *const start = parts[index].data();
    return {start, std::size_t(parts.last().data() + parts.last().size() - start)};
}

/// The parts between separators, of which several in a row count as one.
template <typename Char, typename IsSeparator>
Parts<Char> splitDroppingEmpty(Text<Char> line, IsSeparator isSeparator)
{
    Parts<Char> parts;
    PartWriter<Char> writer(parts);
    const Char *at = line.data();
    const Char *const end = at + line.size();
    const Char *start = nullptr; // of a part that began before `at`
    while (at != end) {
        const std::size_t count = std::min(std::size_t(end - at), CharMask::width);
        quint64 inside = ~CharMask::maskOf(at, count, isSeparator);
        if (count < CharMask::width)
            inside &= (quint64(1) << count) - 1;
        // A part begins or ends wherever a separator follows another character or the other way
        // round.
        const quint64 before = inside << 1 | quint64(start != nullptr);
        quint64 starts = inside & ~before;
        quint64 ends = before & ~inside;
        if (start && ends != 0) {
            writer.write(start, at + qCountTrailingZeroBits(ends));
            ends &= ends - 1;
            start = nullptr;
        }
        for (; ends != 0; ends &= ends - 1, starts &= starts - 1) {
            writer.write(at + qCountTrailingZeroBits(starts), at + qCountTrailingZeroBits(ends));
        }
        if (starts != 0)
            start = at + qCountTrailingZeroBits(starts);
        at += count;
    }
    if (start)
        writer.write(start, end);
    writer.finish();
    return parts;
}

/// The parts between runs of blanks: simplified() and split at " " without empty parts.
template <typename Char> Parts<Char> splitAtBlanks(Text<Char> line)
{
    return splitDroppingEmpty(line, IsBlank());
}

/// Calls use(part) for every part between separators, empty ones included.
template <char separator, typename Char, typename Use>
Q_ALWAYS_INLINE void forEachPart(Text<Char> text, Use use)
{
    const Char *start = text.data();
    CharMask::forEach(text, CharMask::Is<separator>(), [&](std::size_t position) {
        const Char *const end = text.data() + position;
        use(Text<Char>(start, std::size_t(end - start)));
        start = end + 1;
    });
    use(Text<Char>(start, std::size_t(text.data() + text.size() - start)));
}

/// Splits at every \a separator, keeping empty parts.
template <char separator, typename Char> Parts<Char> splitKeepingEmpty(Text<Char> text)
{
    Parts<Char> parts;
    PartWriter<Char> writer(parts);
    forEachPart<separator>(text, [&writer](Text<Char> part) { writer.write(part); });
    writer.finish();
    return parts;
}

/// Part \a index, or an empty text when there is none.
template <typename Char> Text<Char> partAt(const Parts<Char> &parts, int index)
{
    return index >= 0 && index < parts.size() ? parts[index] : Text<Char>();
}

/// Without the blanks around it.
template <typename Char> Text<Char> trimmed(Text<Char> text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

/// Whether the words of a trimmed text are separated by single spaces only.
template <typename Char> bool isSimplified(Text<Char> text)
{
    bool afterBlank = false;
    while (!text.empty()) {
        const std::size_t count = CharMask::blockSize(text.size());
        const quint64 blanks = CharMask::maskOf(text.data(), count, IsBlank());
        const quint64 spaces = CharMask::maskOf(text.data(), count, CharMask::Is<' '>());
        if (blanks != spaces || (blanks & (blanks << 1 | quint64(afterBlank))) != 0)
            return false;
        afterBlank = blanks >> (count - 1) != 0;
        text.remove_prefix(count);
    }
    return true;
}

/// QString::simplified; kept in \a scratch when blanks inside have to change.
template <typename Char> Text<Char> simplified(Text<Char> text, Scratch<Char> &scratch)
{
    text = trimmed(text);
    if (isSimplified(text))
        return text;
    scratch.clear();
    for (const Text<Char> part : splitAtBlanks(text)) {
        scratch.append(part.data(), int(part.size()));
        scratch.append(Char(' '));
    }
    scratch.removeLast();
    return textOf(scratch);
}

/// \a text without any \a open and \a close; kept in \a scratch when they stand inside.
template <char open, char close, typename Char>
Text<Char> withoutBrackets(Text<Char> text, std::basic_string<Char> &scratch)
{
    constexpr CharMask::IsOneOf<open, close> isBracket;
    while (!text.empty() && isBracket(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBracket(text.back()))
        text.remove_suffix(1);
    if (!CharMask::anyOf(text, isBracket))
        return text;
    scratch.clear();
    std::remove_copy_if(text.begin(), text.end(), std::back_inserter(scratch), isBracket);
    return scratch;
}

/// Splits at every \a separator outside quotes, keeping empty parts and the quotes.
template <char separator, char quote, typename Char> Parts<Char> splitOutsideQuotes(Text<Char> text)
{
    Parts<Char> parts;
    PartWriter<Char> writer(parts);
    const Char *start = text.data();
    const Char *const end = start + text.size();
    quint64 openQuote = 0; // all bits when a quote is open
    for (const Char *at = start; at != end;) {
        const std::size_t count = CharMask::blockSize(std::size_t(end - at));
        // Bit i tells whether the number of quotes up to character i is odd.
        quint64 inQuotes = CharMask::maskOf(at, count, CharMask::Is<quote>());
        for (std::size_t shift = 1; shift < CharMask::width; shift *= 2)
            inQuotes ^= inQuotes << shift;
        inQuotes ^= openQuote;
        openQuote = (inQuotes >> (count - 1) & 1) != 0 ? ~quint64(0) : 0;
        quint64 ends = CharMask::maskOf(at, count, CharMask::Is<separator>()) & ~inQuotes;
        for (; ends != 0; ends &= ends - 1) {
            const Char *const partEnd = at + qCountTrailingZeroBits(ends);
            writer.write(start, partEnd);
            start = partEnd + 1;
        }
        at += count;
    }
    writer.write(start, end);
    writer.finish();
    return parts;
}

/// A part without the double quotes in and around it.
template <typename Char> class Unquoted
{
public:
    Unquoted(const Parts<Char> &parts, int index)
        : text(withoutBrackets<'"', '"'>(partAt(parts, index), scratch))
    {
    }
    Text<Char> operator*() const { return text; }

private:
    std::basic_string<Char> scratch;
    const Text<Char> text;
};

} // namespace LineFields
