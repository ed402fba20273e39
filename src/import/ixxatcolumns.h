#pragma once

#include "lineparts.h"
#include "writtenfields.h"

/// The columns of an Ixxat trace as tolerant reading takes them from its header.
namespace IxxatColumns {

using namespace LineFields;
using WrittenFields::beginsWithWord;
using WrittenFields::hasWord;
using WrittenFields::isWord;

constexpr int noColumn = -1;

struct Columns
{
    char separator = ',';
    int time = noColumn;
    int id = noColumn;
    int length = noColumn;
    int data = noColumn;
    int bus = noColumn;
    QVarLengthArray<int, 8> marks; // format, flags, direction and the like
    unsigned idBase = 16;
    unsigned dataBase = 16;

    bool areComplete() const { return std::min({time, id, data}) != noColumn; }
    int last() const { return std::max({time, id, data}); }
};

template <typename Char> Text<Char> unquoted(Text<Char> field)
{
    field = trimmed(field);
    if (!field.empty() && field.front() == '"')
        field.remove_prefix(1);
    if (!field.empty() && field.back() == '"')
        field.remove_suffix(1);
    return trimmed(field);
}

template <typename Char> Parts<Char> splitRow(Text<Char> line, char separator)
{
    if (separator == ';')
        return splitOutsideQuotes<';', '"'>(line);
    return separator == ',' ? splitOutsideQuotes<',', '"'>(line)
                            : splitOutsideQuotes<'\t', '"'>(line);
}

template <typename Char, std::size_t count>
bool beginsWithOneOf(Text<Char> text, const std::string_view (&words)[count])
{
    return std::any_of(std::begin(words), std::end(words),
                       [text](std::string_view word) { return beginsWithWord(text, word); });
}

template <typename Char> bool namesId(Text<Char> name)
{
    return !hasWord(name, "node")
        && (beginsWithWord(name, "id") || hasWord(name, " id") || hasWord(name, "-id")
            || isWord(name, "canid") || isWord(name, "cobid"));
}

template <typename Char> int *columnFor(Text<Char> name, Columns &columns)
{
    constexpr std::string_view times[] = {"time", "zeit"};
    constexpr std::string_view lengths[] = {"dlc", "len"};
    constexpr std::string_view payloads[] = {"data", "daten"};
    constexpr std::string_view buses[] = {"bus", "chan", "controller"};
    if (beginsWithOneOf(name, times))
        return &columns.time;
    if (namesId(name))
        return &columns.id;
    if (beginsWithOneOf(name, lengths))
        return &columns.length;
    if (beginsWithOneOf(name, payloads))
        return &columns.data;
    return beginsWithOneOf(name, buses) ? &columns.bus : nullptr;
}

// The first of several columns with the same meaning counts.
template <typename Char> Columns columnsOf(const Parts<Char> &names, char separator)
{
    constexpr std::string_view marks[] = {"format", "type", "flag", "state", "status",
                                          "dir",    "rtr",  "ext",  "frame"};
    Columns columns;
    columns.separator = separator;
    for (int i = 0; i < names.size(); ++i) {
        const Text<Char> name = unquoted(names[i]);
        if (int *const column = columnFor(name, columns)) {
            if (*column == noColumn)
                *column = i;
        } else if (beginsWithOneOf(name, marks)) {
            columns.marks.append(i);
        }
    }
    columns.idBase = hasWord(partAt(names, columns.id), "dec") ? 10 : 16;
    columns.dataBase = hasWord(partAt(names, columns.data), "dec") ? 10 : 16;
    return columns;
}

} // namespace IxxatColumns
