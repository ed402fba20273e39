#pragma once

#include "chunksaver.h"
#include "packwish.h"
#include "teller.h"
#include "trace.h"

#include <functional>

/// Makes the store's signals of what its saver and its exports report. Application's thread where
/// nothing else is said; after each of these the store may be gone.
class SaveReports
{
public:
    /// \a pack is to have the chunks packed in the background.
    SaveReports(const Teller &teller, Trace &trace, std::function<void()> pack)
        : teller(teller), trace(trace), pack(std::move(pack))
    {
    }

    /// Leaves a report to the store's thread, which has no use for that of a chunk unless \a saver
    /// still works on its trace. Any thread.
    void post(const SaveReport &report, const ChunkSaver &saver);

    void chunkSaved(quint32 index, const QString &time);
    void partialChunkSaved(const QString &fileName, const QString &importName, const QString &time);
    /// \a wish is what the export has carried; 0 for none.
    void exportEnded(quint32 wish, bool success);

    PackWish &packWish() { return wish; }

    /// A slow disk is told of once more.
    void traceCleared() { slowDiskTold = false; }

private:
    void ended(const SaveReport &report);
    void outcome(const SaveReport &report);
    void slowDisk();

    const Teller teller;
    Trace &trace;
    const std::function<void()> pack;
    PackWish wish;
    bool slowDiskTold = false;
};
