#include "tracecheck.h"

#include "archivelimits.h"
#include "checktexts.h"
#include "chunkarchive.h"
#include "chunkdirectory.h"
#include "chunknames.h"
#include "chunkorder.h"
#include "fileerrors.h"
#include "foldertree.h"

#include <QHash>

#include <algorithm>

namespace {

using Finding = TraceFinding;

/// Tells what it finds and counts it.
class TraceCheck
{
public:
    TraceCheck(const std::function<void(const Finding &)> &tell,
               const std::function<bool(const TraceCheckTotals &)> &isWanted)
        : tellFinding(tell), goesOn([this, &isWanted] { return isWanted(totals); })
    {
    }

    void checkFile(const QString &path);
    void checkFolder(const QString &path);
    void checkArchive(const QString &path);

    TraceCheckTotals totals;

private:
    using Directory = QHash<QString, DirectoryEntry>;

    void tell(Finding finding);
    void tell(Finding::Severity severity, Finding::Kind kind, const QString &path,
              const QString &text, const QString &entry = {}, qint64 byte = -1)
    {
        tell({severity, kind, path, entry, -1, byte, text});
    }
    bool isStopped();
    void take(const QString &path, const QString &entry, CheckedChunk chunk);
    Directory readDirectory(const QString &folder);
    void compare(const QString &path, const DirectoryEntry &known, const FileIdentity &file,
                 const CheckedChunk &chunk);
    std::vector<Zip::Entry> chunksIn(const Zip::Reader &archive);
    void checkEntry(const Zip::Reader &archive, const Zip::Entry &entry);

    const std::function<void(const Finding &)> &tellFinding;
    const std::function<bool()> goesOn;
    Directory directory; // of the folder whose files are checked
    ChunkOrder order;
};

void TraceCheck::tell(Finding finding)
{
    ++(finding.severity == Finding::Error ? totals.errors : totals.remarks);
    tellFinding(finding);
}

bool TraceCheck::isStopped()
{
    totals.isStopped = totals.isStopped || !goesOn();
    return totals.isStopped;
}

void TraceCheck::take(const QString &path, const QString &entry, CheckedChunk chunk)
{
    ++totals.chunks;
    totals.messages += chunk.indexed.index.count;
    totals.isStopped = totals.isStopped || chunk.indexed.result == Outcome::GivenUp;
    for (Finding &finding : chunk.findings) {
        finding.path = path;
        finding.entry = entry;
        tell(std::move(finding));
    }
    order.add(path, entry, chunk);
}

void TraceCheck::checkFile(const QString &path)
{
    RegularFile file(path);
    if (!file.openForReading()) {
        const QString reason =
            file.errorString().isEmpty() ? CheckTexts::tr("no regular file") : file.errorString();
        tell(Finding::Error, Finding::Unreadable, path, FileErrors::notRead(path, reason));
        return;
    }
    const auto identity = FileIdentity::of(file.handle());
    CheckedChunk chunk;
    const ChunkReading::Bounds bounds{ArchiveLimits::memoryLimit(), goesOn};
    if (!withinMemory([&] { chunk = checkChunk(file, numberingOf(path), bounds); })) {
        tell(Finding::Error, Finding::Unreadable, path, FileErrors::outOfMemory(path));
        return;
    }
    if (!file.readErrorText().isEmpty())
        tell(Finding::Error, Finding::Unreadable, path, file.readErrorText());
    const auto known = directory.constFind(QFileInfo(path).fileName());
    if (known != directory.constEnd() && identity && chunk.indexed.result == Outcome::Done)
        compare(path, *known, *identity, chunk);
    take(path, {}, std::move(chunk));
}

void TraceCheck::compare(const QString &path, const DirectoryEntry &known, const FileIdentity &file,
                         const CheckedChunk &chunk)
{
    if (!describes(known, file))
        tell(Finding::Remark, Finding::DirectoryStale, path,
             CheckTexts::tr("The directory knows an earlier state of the chunk, and nobody goes by "
                            "it."));
    else if (!(known.index == chunk.indexed.index))
        tell(Finding::Error, Finding::DirectoryWrong, path,
             CheckTexts::tr("The directory does not say what the chunk holds."));
}

TraceCheck::Directory TraceCheck::readDirectory(const QString &folder)
{
    using Content = ChunkDirectory::Content;
    Content content = ChunkDirectory::look(folder);
    const QString path = ChunkDirectory::path(folder);
    if (content.state == Content::Unreadable || content.state == Content::Foreign)
        tell(Finding::Remark, Finding::DirectoryUnused, path,
             CheckTexts::tr("This is no directory that was made by this user on this machine, so "
                            "that nobody goes by it."));
    if (content.state == Content::Damaged)
        tell(Finding::Remark, Finding::DirectoryDamaged, path,
             CheckTexts::tr("The directory is damaged; nobody goes by what is damaged of it."), {},
             content.damagedAt);
    Directory known;
    for (DirectoryEntry &entry : content.entries)
        known[entry.name] = std::move(entry);
    return known;
}

void TraceCheck::checkFolder(const QString &path)
{
    QFileInfoList files;
    if (!FolderTree::listFiles(QFileInfo(path).canonicalFilePath(), files)) {
        tell(Finding::Error, Finding::Unreadable, path,
             FileErrors::notRead(path, qt_error_string()));
        return;
    }
    const QString prefix = path.endsWith(QLatin1Char('/')) ? path : path + QLatin1Char('/');
    QStringList chunks;
    for (const QFileInfo &file : qAsConst(files)) {
        if (isChunkName(file.fileName()))
            chunks.append(prefix + file.fileName());
    }
    if (chunks.isEmpty())
        tell(Finding::Error, Finding::NoChunks, path,
             CheckTexts::tr("There is no chunk file in the folder."));
    std::sort(chunks.begin(), chunks.end(), [](const QString &a, const QString &b) {
        return ChunkListing::placeOf(a) < ChunkListing::placeOf(b);
    });
    totals.chunksInAll = chunks.size();
    directory = readDirectory(prefix.chopped(1));
    for (const QString &chunk : qAsConst(chunks)) {
        if (isStopped())
            return;
        checkFile(chunk);
    }
    for (Finding &finding : order.findings())
        tell(std::move(finding));
}

// In the order in which they belong together. None, which is told, when there are none to be read.
std::vector<Zip::Entry> TraceCheck::chunksIn(const Zip::Reader &archive)
{
    const QString path = archive.fileName();
    const Outcome checked = ChunkArchive::checkDirectory(archive);
    if (!checked.isDone()) {
        const bool isTooLarge = checked.kind == Outcome::TooLarge;
        tell(Finding::Error, isTooLarge ? Finding::ArchiveLimit : Finding::Unreadable, path,
             checked.text.isEmpty()
                 ? CheckTexts::tr("The file is no archive, or its directory is damaged.")
                 : checked.text);
        return {};
    }
    const std::vector<Zip::Entry> all = archive.entries();
    if (all.size() < archive.entryCount())
        tell(Finding::Error, Finding::ArchiveDirectory, path,
             Damage::brokenDirectory(path, qint64(all.size())));
    std::vector<Zip::Entry> entries;
    std::vector<ChunkArchive::Chunk> chunks;
    for (const Zip::Entry &entry : all) {
        if (!isChunkName(entry.name))
            continue;
        entries.push_back(entry);
        chunks.push_back({entry, {}, 0});
    }
    if (ChunkArchive::isBomb(archive, chunks)) {
        tell(Finding::Error, Finding::ArchiveLimit, path, FileErrors::bomb(path));
        return {};
    }
    if (entries.empty())
        tell(Finding::Error, Finding::NoChunks, path,
             CheckTexts::tr("There is no chunk file in the archive."));
    std::stable_sort(entries.begin(), entries.end(), [](const Zip::Entry &a, const Zip::Entry &b) {
        return ChunkListing::placeOf(a.name) < ChunkListing::placeOf(b.name);
    });
    return entries;
}

void TraceCheck::checkArchive(const QString &path)
{
    const Zip::Reader archive(path);
    const std::vector<Zip::Entry> entries = chunksIn(archive);
    totals.chunksInAll = qint64(entries.size());
    for (const Zip::Entry &entry : entries) {
        if (isStopped())
            return;
        if (!withinMemory([&] { checkEntry(archive, entry); }))
            tell(Finding::Error, Finding::Unreadable, path, FileErrors::outOfMemory(path),
                 entry.name);
    }
    if (!archive.readErrorText().isEmpty())
        tell(Finding::Error, Finding::Unreadable, path, archive.readErrorText());
    for (Finding &finding : order.findings())
        tell(std::move(finding));
}

// The checksum is known only when everything is unpacked.
void readToEnd(QIODevice &device)
{
    QByteArray block(256 * 1024, Qt::Uninitialized);
    while (device.read(block.data(), block.size()) > 0) { }
}

void TraceCheck::checkEntry(const Zip::Reader &archive, const Zip::Entry &entry)
{
    const QString path = archive.fileName();
    WorkProgress work(goesOn);
    if (!ArchiveLimits::isSafeName(entry.name))
        tell(
            Finding::Remark, Finding::EntryName, path,
            CheckTexts::tr("The name cannot be that of a file, so that the entry is not unpacked."),
            entry.name);
    const auto content = archive.open(entry, work);
    if (!content) {
        tell(Finding::Error, Finding::Unreadable, path,
             Damage::notOpened(Damage::entryName(entry.name, path)), entry.name);
        return;
    }
    CheckedChunk chunk =
        checkChunk(*content, numberingOf(entry.name), {ArchiveLimits::memoryLimit(), goesOn},
                   [&content] { return content->isDamaged(); });
    readToEnd(*content);
    // What was not read any further only looks damaged.
    if (isStopped())
        return;
    if (content->isDamaged() && content->isWhole())
        tell(Finding::Error, Finding::Checksum, path,
             CheckTexts::tr("The entry does not match its checksum."), entry.name);
    else if (content->isDamaged())
        tell(Finding::Error, Finding::EntryDamaged, path,
             CheckTexts::tr("The entry is damaged and cannot be unpacked any further."), entry.name,
             content->unpackedSize());
    take(path, entry.name, std::move(chunk));
}

} // namespace

TraceCheckTotals checkTrace(const QString &path,
                            const std::function<void(const TraceFinding &)> &tell,
                            const std::function<bool(const TraceCheckTotals &)> &goesOn)
{
    TraceCheck check(tell, goesOn);
    if (QFileInfo(path).isDir())
        check.checkFolder(path);
    else if (isChunkName(path))
        check.checkFile(path);
    else
        check.checkArchive(path);
    return check.totals;
}
