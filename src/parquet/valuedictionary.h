#pragma once

#include <QtGlobal>

#include <vector>

namespace Parquet {

/// The different values of a column, in the order of the first of each.
class ValueDictionary
{
public:
    /// Forgets all values and sets \a indexes to the place of each of \a count others in values().
    void index(const quint32 *column, int count, std::vector<quint32> &indexes);

    const std::vector<quint32> &values() const { return found; }

private:
    quint32 indexOf(quint32 value);
    std::size_t placeOf(quint32 value) const;
    void makeRoom(quint32 bits);

    std::vector<quint32> found;
    std::vector<quint32> places; // by the hash of a value, its index and 1; 0 where none is
    quint32 shift = 0;           // from a hash to its place
};

} // namespace Parquet
