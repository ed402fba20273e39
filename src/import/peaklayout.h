#pragma once

#include "lineparts.h"

#include <algorithm>

/// Where the rows of PEAK traces keep their fields, and the types of rows that there are.
namespace PeakRow {

using LineFields::equals;
using LineFields::partAt;
using LineFields::Parts;

constexpr int noWord = -1;

// Which word of a row holds what. Payload bytes count as one word here.
struct Layout
{
    int number = noWord;
    int time = noWord;
    int bus = noWord;
    int type = noWord;
    int id = noWord;
    int direction = noWord;
    int length = noWord;
    int data = noWord;
    int size = 0;

    bool isUsable() const { return std::min({time, id, length}) != noWord; }
};

// The columns of a version by their letters, as headers of version 2 name them.
struct Version
{
    std::string_view number;
    std::string_view columns;
};

constexpr Version versions[] = {
    {"1.0", "NOILD"},    {"1.1", "NOTILD"},  {"1.2", "NOBTILD"},
    {"1.3", "NOBTIRLD"}, {"2.0", "NOTIdlD"}, {"2.1", "NOTBIdRLD"},
};

struct Column
{
    char letter;
    int Layout::*word;
};

constexpr Column columns[] = {
    {'N', &Layout::number}, {'O', &Layout::time},   {'B', &Layout::bus},
    {'T', &Layout::type},   {'I', &Layout::id},     {'d', &Layout::direction},
    {'L', &Layout::length}, {'l', &Layout::length}, {'D', &Layout::data},
};

// A letter that is not known is a column all the same.
inline void addColumn(Layout &layout, unsigned letter)
{
    for (const Column &column : columns) {
        if (letter == static_cast<unsigned char>(column.letter))
            layout.*column.word = layout.size;
    }
    ++layout.size;
}

inline Layout layoutOf(std::string_view columns)
{
    Layout layout;
    for (const char letter : columns)
        addColumn(layout, static_cast<unsigned char>(letter));
    return layout;
}

enum class Kind { Frame, Remote, Error, Warning, Event, Status };

struct RowType
{
    char name[3]; // the first two letters of what a row says
    Kind kind;
    bool transmitted = false;
    bool fdFrame = false;
    bool bitRateSwitch = false;
    bool errorState = false;
};

constexpr RowType rowTypes[] = {
    {"RX", Kind::Frame},
    {"TX", Kind::Frame, true},
    {"DT", Kind::Frame},
    {"FD", Kind::Frame, false, true},
    {"FB", Kind::Frame, false, true, true},
    {"FE", Kind::Frame, false, true, false, true},
    {"BI", Kind::Frame, false, true, true, true},
    {"RR", Kind::Remote},
    {"ER", Kind::Error},
    {"WA", Kind::Warning},
    {"EV", Kind::Event},
    {"ST", Kind::Status},
    {"EC", Kind::Status},
};

template <typename Char> constexpr Char upper(Char c)
{
    return c >= 'a' && c <= 'z' ? Char(c - 'a' + 'A') : c;
}

// Null for what is no type. Version 1 writes whole words: "Warng", "Error", "Event".
template <typename Char> const RowType *typeNamed(Text<Char> text)
{
    constexpr std::size_t wordSize = 5;
    if (text.size() != 2 && text.size() != wordSize)
        return nullptr;
    for (const RowType &type : rowTypes) {
        if (upper(text[0]) == Char(type.name[0]) && upper(text[1]) == Char(type.name[1]))
            return &type;
    }
    return nullptr;
}

template <typename Char> bool isPlaceholder(Text<Char> word)
{
    return equals(word, "-") || equals(word, "--");
}

// The version of a trace without a header, from its first row.
template <typename Char> std::string_view columnsOfRow(const Parts<Char> &words)
{
    const bool isVersion1 = !words.isEmpty() && words[0].back() == ')';
    const bool typeIsThird = typeNamed(partAt(words, 2)) != nullptr;
    if (!isVersion1)
        return versions[typeNamed(partAt(words, 4)) ? 4 : 5].columns;
    if (typeIsThird)
        return versions[1].columns;
    if (!typeNamed(partAt(words, 3)))
        return versions[0].columns;
    return versions[isPlaceholder(partAt(words, 5)) ? 3 : 2].columns;
}

} // namespace PeakRow
