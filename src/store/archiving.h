#pragma once

#include "archivedesk.h"
#include "browsing.h"

#include <QVector>

#include <functional>

/// What the application is told of archives, on the store's thread, wherever the work is done. Any
/// thread; on the store's own the store may be gone afterwards.
class Archiving
{
public:
    Archiving(Browsing &browsing, ArchiveDesk &desk);

    /// See DatachunkHandler::saveDatachunksToZip().
    void pack();

    /// Merges an archive and shows it, as long as \a wish is the newest. Whether that was done;
    /// from another thread whether anything was read.
    bool merge(const QString &archive, quint32 wish);

    /// See DatachunkHandler::loadZipFile().
    bool unpack(const QString &archive);

private:
    /// Whether the store exists and nobody wants anything else to be shown by now.
    using IsWanted = std::function<bool()>;

    bool endMerge(const QString &name, quint32 wish, ChunkArchive::Merged &merged);
    bool tellMerged(const QString &name, ChunkArchive::Merged &merged, const IsWanted &isWanted);
    void tellNotMerged(const QString &name, const ChunkArchive::Merged &merged,
                       const IsWanted &isWanted);
    void show(ChunkArchive::Merged &merged);
    void tellFailure(const Outcome &outcome);

    Browsing &browsing;
    ArchiveDesk &desk;
    const Teller teller;
};
