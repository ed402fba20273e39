#pragma once

#include "backgroundjob.h"
#include "tracetimeline.h"

#include <QStringList>

/// What became of an archive, or of what was in one.
struct ArchiveResult
{
    bool isDone = false;
    bool isCancelled = false;
    QStringList problems; ///< a sentence each; also what is missing where it is done
    int chunks = 0;
};

/// Packs a trace into a ZIP archive, which is there only when it is complete. Chunks that are files
/// are packed as they are, all others are written anew. Any thread.
ArchiveResult packTrace(const TraceTimeline &timeline, const QStringList &paths,
                        const QString &archive, JobControl &control);

/// Unpacks the chunks of an archive into a folder, which is created if need be. A file that is
/// there stays: the chunk gets another name. Any thread.
ArchiveResult unpackArchive(const QString &archive, const QString &folder, JobControl &control);
