#pragma once

#include "hashplaces.h"

namespace Parquet {

struct MessageRows;

/// The different values of a column, in the order of the first of each.
class ValueDictionary
{
public:
    /// Forgets all values and sets \a indexes to the place of each of \a count others in values().
    void index(const quint32 *column, int count, std::vector<quint32> &indexes);

    const std::vector<quint32> &values() const { return found; }

private:
    HashPlaces places;
    std::vector<quint32> found;
};

/// The same of payloads, which are often repeated and often not.
class PayloadDictionary
{
public:
    struct Payload
    {
        const char *bytes;
        int size;
    };

    /// False when more than a third of them differ: it is then not worth it, and nothing else
    /// holds.
    bool index(const MessageRows &rows, std::vector<quint32> &indexes);

    const std::vector<Payload> &values() const { return found; }

private:
    quint32 numberOf(const Payload &payload);

    HashPlaces places;
    std::vector<Payload> found;
};

} // namespace Parquet
