#pragma once

#include "lineparts.h"

#include <array>

/// Rows of comma separated values whose columns are named in a title row.
namespace CsvColumns {

template <typename Char> bool equalsIgnoringCase(Text<Char> text, std::string_view lowerCase)
{
    const auto isSame = [](Char c, char wanted) {
        return (c >= 'A' && c <= 'Z' ? Char(c - 'A' + 'a') : c) == Char(wanted);
    };
    return text.size() == lowerCase.size()
        && std::equal(text.begin(), text.end(), lowerCase.begin(), isSame);
}

/// Whether a cell says yes: "1", "true" or "set".
template <typename Char> bool isTrue(Text<Char> cell)
{
    return LineFields::equals(cell, "1") || equalsIgnoringCase(cell, "true")
        || equalsIgnoringCase(cell, "set");
}

/// Without blanks around it, and without the quotes around that.
template <typename Char> Text<Char> unquoted(Text<Char> cell)
{
    cell = LineFields::trimmed(cell);
    if (cell.size() < 2 || cell.front() != '"' || cell.back() != '"')
        return cell;
    return cell.substr(1, cell.size() - 2);
}

/// The one of ",", ";" and the tabulator that stands most often in a title row.
template <typename Char> char separatorOf(Text<Char> line)
{
    char separator = ',';
    std::ptrdiff_t most = 0;
    for (const char candidate : {',', ';', '\t'}) {
        const std::ptrdiff_t count = std::count(line.begin(), line.end(), Char(candidate));
        if (count > most) {
            most = count;
            separator = candidate;
        }
    }
    return separator;
}

/// The cells of a row, with their quotes.
template <typename Char> LineFields::Parts<Char> cellsOf(Text<Char> line, char separator)
{
    switch (separator) {
    case ';':
        return LineFields::splitOutsideQuotes<';', '"'>(line);
    case '\t':
        return LineFields::splitOutsideQuotes<'\t', '"'>(line);
    default:
        return LineFields::splitOutsideQuotes<',', '"'>(line);
    }
}

/// One of the names that a column goes by, in lower case.
struct Name
{
    std::string_view text;
    int column;
};

/// Where the columns 0 to \a count - 1 stand in a row.
template <std::size_t count> class Positions
{
public:
    constexpr Positions()
    {
        for (int &position : positions)
            position = -1;
    }

    /// The positions that the cells of a title row name; of two equal names the first counts.
    template <typename Char, std::size_t nameCount>
    Positions(const LineFields::Parts<Char> &titles, const Name (&names)[nameCount]) : Positions()
    {
        for (int i = titles.size() - 1; i >= 0; --i) {
            for (const Name &name : names) {
                if (equalsIgnoringCase(unquoted(titles[i]), name.text))
                    positions[std::size_t(name.column)] = i;
            }
        }
    }

    int &operator[](int column) { return positions[std::size_t(column)]; }
    int at(int column) const { return positions[std::size_t(column)]; }
    bool has(int column) const { return at(column) >= 0; }

    /// The cell of a column without its quotes; empty where there is none.
    template <typename Char> Text<Char> cell(const LineFields::Parts<Char> &cells, int column) const
    {
        return unquoted(LineFields::partAt(cells, positions[std::size_t(column)]));
    }

private:
    std::array<int, count> positions{};
};

} // namespace CsvColumns
