#pragma once

#include <QString>
#include <QStringList>

#include <tuple>
#include <vector>

/// Finding the chunk files that paths name, and what their names say about their order.
namespace ChunkListing {

/// The place of a chunk among those that belong together: "a2.dck" comes before "a10.dck", and what
/// stood behind the last rotation of a recording behind all of its chunks.
struct Place
{
    QString run;        ///< the folder and the name without the number
    quint64 number = 0; ///< behind it
};

inline bool operator<(const Place &a, const Place &b)
{
    return std::tie(a.run, a.number) < std::tie(b.run, b.number);
}

Place placeOf(const QString &path);

/// The chunk files in a folder, without hidden ones, in no order.
QStringList filesIn(const QString &folder);

/// Whether that is an archive by its name.
bool isArchive(const QString &path);

} // namespace ChunkListing
