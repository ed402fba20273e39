#pragma once

#include "datachunkhelper.h"
#include "notices.h"
#include "tracetimeline.h"

#include <QStringList>
#include <QVector>

#include <atomic>
#include <optional>

/// How a foreign trace is read.
struct ImportSource
{
    QString path;
    DatachunkHelper::ImportFileType type = DatachunkHelper::Unknown;
    DatachunkHelper::ImportMode mode = DatachunkHelper::Tolerant;
    QString formatDescription = {}; ///< for GenericFormat
};

/// What paths turned out to be.
struct SortedPaths
{
    /// A path that cannot be shown, and why.
    struct Refused
    {
        QString path;
        Notice notice;
        bool mayBeForced = false; ///< whether it could be read as a type that the user tells
        bool isFolder = false;
    };

    QStringList chunks; ///< chunk files, folders and archives of them, which are one trace
    std::optional<TraceTimeline> timeline; ///< over these, where there are any
    QVector<ImportSource> foreign;         ///< each a trace of its own
    QVector<Refused> refused;
};

/// Looks at each of the paths, and opens the chunks among them. Any thread; it may take long.
SortedPaths sortPaths(const QStringList &paths, const std::atomic<bool> &isCancelled);

/// The same of one file that is no folder. Nothing in front of a type that can be read.
std::optional<SortedPaths::Refused> sortFile(const QString &path, SortedPaths &sorted);

/// Whether a type is one that an import reads.
bool isForeignType(DatachunkHelper::ImportFileType type);
/// "PeakTrc21" and so on, as the program calls it too.
QString typeName(DatachunkHelper::ImportFileType type);
