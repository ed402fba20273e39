#pragma once

#include <QChar>
#include <QtAlgorithms>

#include <algorithm>
#include <string_view>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

/// A piece of a line: plain ASCII bytes, or UTF-16 where a line holds anything else. Grammars
/// are templates over Char, so that both are read by the very same code.
template <typename Char> using Text = std::basic_string_view<Char>;

/// Finds characters of a kind, many at a time: bit i of a mask says whether character i is one.
namespace CharMask {

/// The most characters that one mask covers.
constexpr std::size_t width = 64;

/// How many characters the next mask should cover when \a left are left, at most width. Fewer than
/// 16 would be tested one by one, so a longer text is divided such that no shorter rest remains.
constexpr std::size_t blockSize(std::size_t left)
{
    constexpr std::size_t step = 16;
    return left > width && left < width + step ? width - step : std::min(left, width);
}

/// What QChar::isSpace says of a character.
struct IsBlank
{
    bool operator()(char c) const
    {
        // Tested first, because nearly every character is above all blanks.
        return c <= ' ' && (c == ' ' || (c >= '\t' && c <= '\r'));
    }
    bool operator()(char16_t c) const { return QChar(c).isSpace(); }
#ifdef __SSE2__
    __m128i operator()(__m128i chars) const
    {
        const __m128i spaces = _mm_cmpeq_epi8(chars, _mm_set1_epi8(' '));
        const __m128i fromTab = _mm_sub_epi8(chars, _mm_set1_epi8('\t'));
        const __m128i limited = _mm_min_epu8(fromTab, _mm_set1_epi8('\r' - '\t'));
        return _mm_or_si128(spaces, _mm_cmpeq_epi8(fromTab, limited));
    }
#endif
};

/// A single ASCII character.
template <char wanted> struct Is
{
    template <typename Char> bool operator()(Char c) const { return c == Char(wanted); }
#ifdef __SSE2__
    __m128i operator()(__m128i chars) const
    {
        return _mm_cmpeq_epi8(chars, _mm_set1_epi8(wanted));
    }
#endif
};

/// One of two ASCII characters.
template <char first, char second> struct IsOneOf
{
    template <typename Char> bool operator()(Char c) const
    {
        return c == Char(first) || c == Char(second);
    }
#ifdef __SSE2__
    __m128i operator()(__m128i chars) const
    {
        return _mm_or_si128(_mm_cmpeq_epi8(chars, _mm_set1_epi8(first)),
                            _mm_cmpeq_epi8(chars, _mm_set1_epi8(second)));
    }
#endif
};

template <typename Char, typename IsOfKind>
Q_NEVER_INLINE quint64 maskOneByOne(const Char *at, std::size_t count, IsOfKind isOfKind)
{
    quint64 mask = 0;
    for (std::size_t i = 0; i < count; ++i)
        mask |= quint64(isOfKind(at[i])) << i;
    return mask;
}

/// The mask of the first \a count characters, at most width.
template <typename Char, typename IsOfKind>
Q_ALWAYS_INLINE quint64 maskOf(const Char *at, std::size_t count, IsOfKind isOfKind)
{
#ifdef __SSE2__
    constexpr std::size_t step = sizeof(__m128i);
    if constexpr (sizeof(Char) == 1) {
        const auto maskOfStep = [at, isOfKind](std::size_t start) {
            const auto *const chars = reinterpret_cast<const __m128i *>(at + start);
            const int bits = _mm_movemask_epi8(isOfKind(_mm_loadu_si128(chars)));
            return quint64(quint32(bits)) << start;
        };
        if (count >= step) {
            // The last step overlaps the one before it, so that nothing behind the end is read.
            quint64 mask = maskOfStep(count - step);
            for (std::size_t start = 0; start + step < count; start += step)
                mask |= maskOfStep(start);
            return mask;
        }
    }
#endif
    return maskOneByOne(at, count, isOfKind);
}

/// Calls found(position) for every character of \a text that is of a kind.
template <typename Char, typename IsOfKind, typename Found>
Q_ALWAYS_INLINE void forEach(Text<Char> text, IsOfKind isOfKind, Found found)
{
    std::size_t count = 0;
    for (std::size_t start = 0; start < text.size(); start += count) {
        count = blockSize(text.size() - start);
        quint64 mask = maskOf(text.data() + start, count, isOfKind);
        for (; mask != 0; mask &= mask - 1)
            found(start + qCountTrailingZeroBits(mask));
    }
}

/// Whether any character of \a text is of a kind.
template <typename Char, typename IsOfKind> bool anyOf(Text<Char> text, IsOfKind isOfKind)
{
    constexpr std::size_t fewCharacters = 16;
    if (text.size() < fewCharacters)
        return std::any_of(text.begin(), text.end(), isOfKind);
    for (; text.size() > width; text.remove_prefix(width)) {
        if (maskOf(text.data(), width, isOfKind) != 0)
            return true;
    }
    return maskOf(text.data(), text.size(), isOfKind) != 0;
}

} // namespace CharMask
