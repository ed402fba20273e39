#pragma once

#include "lineparts.h"

namespace WrittenFields {

/// Gives the words between blanks one after the other, and empty ones at the end.
template <typename Char> class Words
{
public:
    explicit Words(Text<Char> text) : left(text) { }

    Text<Char> next()
    {
        skipBlanks();
        std::size_t size = 0;
        while (size < left.size() && !LineFields::isBlank(left[size]))
            ++size;
        const Text<Char> word = left.substr(0, size);
        left.remove_prefix(size);
        return word;
    }

    /// What follows, without the blanks around it.
    Text<Char> rest() const { return LineFields::trimmed(left); }

private:
    void skipBlanks()
    {
        while (!left.empty() && LineFields::isBlank(left.front()))
            left.remove_prefix(1);
    }

    Text<Char> left;
};

} // namespace WrittenFields
