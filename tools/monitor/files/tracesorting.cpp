#include "tracesorting.h"

#include "chunknames.h"
#include "plaintexts.h"
#include "tracerecognition.h"

#include <QCoreApplication>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QMetaEnum>

#include <algorithm>

namespace {

using Refused = SortedPaths::Refused;

struct Sorting
{
    Q_DECLARE_TR_FUNCTIONS(Sorting)
};

Refused refuse(const QString &path, const QString &text, const QString &advice)
{
    return {path, {Notice::Failure, text.arg(shortName(path)), advice}};
}

std::optional<Refused> unreadable(const QString &path)
{
    const QFileInfo info(path);
    if (!info.exists())
        return refuse(path, Sorting::tr("%1 is not there."),
                      Sorting::tr("It may have been moved or renamed, or its disk is not "
                                  "connected."));
    if (info.isDir())
        return std::nullopt;
    // Reading a pipe or a device might never end.
    if (!info.isFile())
        return refuse(path, Sorting::tr("%1 is no ordinary file."),
                      Sorting::tr("Copy what it delivers into a file and open that."));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return refuse(
            path,
            Sorting::tr("%1 cannot be read: %2.").arg(QStringLiteral("%1"), file.errorString()),
            Sorting::tr("Ask whoever owns it for the right to read it."));
    if (file.size() == 0)
        return refuse(path, Sorting::tr("%1 is empty."),
                      Sorting::tr("Nothing was recorded into it, or it was not copied "
                                  "completely."));
    return std::nullopt;
}

bool holdsChunks(const QString &folder)
{
    QDirIterator files(folder, QDir::Files | QDir::Hidden);
    while (files.hasNext()) {
        const QString name = files.next();
        if (isChunkName(name))
            return true;
    }
    return false;
}

std::optional<Refused> sortFolder(const QString &path, SortedPaths &sorted)
{
    if (!QFileInfo(path).isReadable())
        return refuse(path, Sorting::tr("The folder %1 cannot be read."),
                      Sorting::tr("Ask whoever owns it for the right to read it."));
    if (holdsChunks(path)) {
        sorted.chunks.append(path);
        return std::nullopt;
    }
    Refused refused = refuse(path, Sorting::tr("The folder %1 holds no chunk files."),
                             Sorting::tr("Choose the traces in it one by one, if there are any."));
    refused.isFolder = true;
    return refused;
}

// A timeline goes to and fro in a chunk file, which it cannot in a compressed one, and tells an
// archive by its name.
bool canBeInTimeline(const QString &path, DatachunkHelper::ImportFileType type)
{
    if (type == DatachunkHelper::ZipArchive)
        return path.endsWith(QLatin1String(".zip"), Qt::CaseInsensitive);
    return type == DatachunkHelper::ChunkFile && isChunkName(path);
}

} // namespace

std::optional<Refused> sortFile(const QString &path, SortedPaths &sorted)
{
    const TraceRecognition found = TraceRecognition::of(path);
    if (canBeInTimeline(path, found.type)) {
        sorted.chunks.append(path);
        return std::nullopt;
    }
    if (isForeignType(found.type)) {
        sorted.foreign.append({path, found.type});
        return std::nullopt;
    }
    if (found.type == DatachunkHelper::EmptyTxtFile)
        return refuse(path, Sorting::tr("%1 is empty."),
                      Sorting::tr("There are only line ends in it."));
    Refused refused = refuse(path, Sorting::tr("%1 was not recognised as a trace."), {});
    refused.notice.advice = found.explanation;
    refused.mayBeForced = true;
    return refused;
}

namespace {

Refused emptyTrace(const SortedPaths &sorted, const QStringList &problems)
{
    const QString names = shortNames(sorted.chunks);
    if (problems.isEmpty())
        return {sorted.chunks.first(),
                {Notice::Failure, Sorting::tr("There are no messages in %1.").arg(names),
                 Sorting::tr("The recording may have ended before the first message came.")}};
    return {sorted.chunks.first(),
            {Notice::Failure, QStringLiteral("%1: %2").arg(names, firstSentences(problems)),
             Sorting::tr("Try another copy of it.")}};
}

// Nobody wants to see a trace without messages; one that has some may grow while it is shown.
void openChunks(SortedPaths &sorted, const std::atomic<bool> &isCancelled)
{
    TraceTimeline timeline(sorted.chunks);
    const auto isEmpty = [&] {
        timeline.refresh();
        return !isCancelled && timeline.count() == 0;
    };
    const bool isKnown = timeline.waitForAll(isEmpty);
    if (timeline.count() > 0)
        sorted.timeline = timeline;
    else if (isKnown)
        sorted.refused.append(emptyTrace(sorted, timeline.problems()));
}

} // namespace

SortedPaths sortPaths(const QStringList &paths, const std::atomic<bool> &isCancelled)
{
    SortedPaths sorted;
    for (const QString &path : paths) {
        if (isCancelled)
            return sorted;
        std::optional<Refused> refused = unreadable(path);
        if (!refused)
            refused = QFileInfo(path).isDir() ? sortFolder(path, sorted) : sortFile(path, sorted);
        if (refused)
            sorted.refused.append(*refused);
    }
    if (!sorted.chunks.isEmpty())
        openChunks(sorted, isCancelled);
    return sorted;
}

bool isForeignType(DatachunkHelper::ImportFileType type)
{
    switch (type) {
    case DatachunkHelper::Unassigned:
    case DatachunkHelper::EmptyTxtFile:
    case DatachunkHelper::Unknown:
        return false;
    default:
        return true;
    }
}

QString typeName(DatachunkHelper::ImportFileType type)
{
    const auto types = QMetaEnum::fromType<DatachunkHelper::ImportFileType>();
    return QLatin1String(types.valueToKey(type));
}
