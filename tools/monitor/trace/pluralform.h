#pragma once

#include <QtGlobal>

#include <algorithm>
#include <limits>

/// What tr() picks the form of a text by, for any \a count. The number itself is better %L1 than
/// %n, which has no separators and ends at 2^31.
inline int pluralForm(quint64 count)
{
    return int(std::min<quint64>(count, std::numeric_limits<int>::max()));
}
