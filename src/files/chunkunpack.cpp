#include "chunkunpack.h"

#include "archivelimits.h"
#include "chunknames.h"
#include "chunkreading.h"
#include "fileerrors.h"
#include "filenames.h"

#include <QFile>
#include <QHash>

#include <sys/stat.h>
#include <sys/statvfs.h>

namespace ChunkArchive {

namespace {

// Shortens a name so that a number of any length fits behind it.
QString numberedStem(const QString &name, const QString &suffix)
{
    constexpr int longestNumber = 11; // "_4294967295"
    return FileNames::cutToBytes(name.chopped(suffix.size()),
                                 FileNames::longest - longestNumber - suffix.size());
}

QString suffixOf(const QString &name)
{
    const QLatin1String suffix(ChunkNames::suffix);
    return name.endsWith(suffix) ? QString(suffix) : QString();
}

/// Finds free names in a folder. The time for one does not grow with the number of taken names.
class FreeNames
{
public:
    explicit FreeNames(const QDir &folder) : folder(folder) { }

    /// Tries `folder/name`, then names with a number before the suffix, and returns the first path
    /// that \a create accepts. Empty when it refuses a path that is not taken.
    template <typename Create> QString create(const QString &name, const Create &create);

private:
    const QDir folder;
    // The last number used for each shortened name: long names may differ only in what is cut off.
    QHash<QString, int> lastNumbers;
};

template <typename Create> QString FreeNames::create(const QString &name, const Create &create)
{
    constexpr int attempts = 100000;
    const QString bare = folder.absoluteFilePath(name);
    if (create(bare))
        return bare;
    const QString suffix = suffixOf(name);
    const QString stem = numberedStem(name, suffix);
    int &number = *lastNumbers.insert(stem + suffix, lastNumbers.value(stem + suffix, 1));
    QString taken = bare;
    for (int attempt = 0; attempt < attempts && QFileInfo::exists(taken); ++attempt) {
        taken =
            folder.absoluteFilePath(stem + QLatin1Char('_') + QString::number(++number) + suffix);
        if (create(taken))
            return taken;
    }
    return {};
}

// A damaged chunk file is kept up to the end of its last whole record.
qint64 sizeToKeep(QFile &file, WorkProgress &work)
{
    // A damaged file may claim maps of any size; no more memory than this is spent on them.
    constexpr qint64 memory = 256LL * 1024 * 1024;
    const ChunkReading::WholeRecords whole =
        ChunkReading::findWholeRecords(file, {memory, [&work] { return work.goesOn(); }});
    // A newer version may have another layout, so such a file is kept whole.
    return whole.result == Outcome::NewerVersion ? file.size() : whole.end;
}

class Unpacker
{
public:
    enum Result { Unpacked, Skipped, Failed };

    Unpacker(const QDir &folder, WorkProgress &work) : names(folder), work(work) { }

    Result unpack(Zip::EntryDevice &chunk, const QString &name);
    QString fileName() const { return QFileInfo(file).fileName(); }
    /// Size of the file unpacked last.
    qint64 size() const { return written; }
    /// The text about the file that failed.
    QString systemError() const { return FileErrors::notWritten(file.fileName(), errorText); }

private:
    Result copy(Zip::EntryDevice &chunk);
    Result finish(Result result);

    FreeNames names;
    WorkProgress &work;
    QFile file;
    qint64 written = 0;
    QString errorText;
};

Unpacker::Result Unpacker::unpack(Zip::EntryDevice &chunk, const QString &name)
{
    const QString path = names.create(name, [this](const QString &path) {
        file.setFileName(path);
        if (!file.open(QIODevice::ReadWrite | QIODevice::NewOnly))
            return false;
        // The result is ignored, because not every file system knows permissions.
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
        return true;
    });
    if (path.isEmpty()) {
        errorText = file.errorString();
        return Failed;
    }
    Result result = copy(chunk);
    if (result == Unpacked && chunk.isDamaged()) {
        const qint64 size = sizeToKeep(file, work);
        result = size > 0 && file.resize(size) ? Unpacked : Skipped;
    }
    return finish(result);
}

Unpacker::Result Unpacker::copy(Zip::EntryDevice &chunk)
{
    QByteArray block(256 * 1024, Qt::Uninitialized);
    for (;;) {
        const qint64 got = chunk.read(block.data(), block.size());
        if (got <= 0)
            return got == 0 || chunk.isDamaged() ? Unpacked : Failed;
        if (!FileErrors::write(file, block.constData(), got))
            return Failed;
    }
}

Unpacker::Result Unpacker::finish(Result result)
{
    written = result == Unpacked ? file.size() : 0;
    errorText = FileErrors::close(file);
    if (!errorText.isEmpty())
        result = Failed;
    if (result != Unpacked)
        file.remove();
    return result;
}

} // namespace

namespace {

// Whether the disk that holds `folder` has less room than that. False when the system does not tell
// the size of the disk, because its free room is then unknown as well.
bool hasNoRoom(const QDir &folder, qint64 bytes)
{
    struct statvfs disk = {};
    const bool isKnown = statvfs(QFile::encodeName(folder.path()).constData(), &disk) == 0
        && disk.f_blocks != 0 && disk.f_frsize != 0;
    return isKnown && quint64(bytes) / disk.f_frsize > disk.f_bavail;
}

// The chunks whose names are safe as names of files; the others are reported as damage.
std::vector<Chunk> withFileNames(const QString &archive, const std::vector<Chunk> &chunks,
                                 Damage::List &damage)
{
    std::vector<Chunk> kept;
    for (const Chunk &chunk : chunks) {
        if (ArchiveLimits::isSafeName(chunk.entry.name))
            kept.push_back(chunk);
        else
            damage.add(Damage::badFileName(Damage::entryName(chunk.entry.name, archive)));
    }
    return kept;
}

// Returns an empty string when no folder can be created.
QString createFolder(const QDir &parent, const QString &name)
{
    return FreeNames(parent).create(name, [](const QString &path) {
        constexpr mode_t onlyOwner = 0700;
        return mkdir(QFile::encodeName(path).constData(), onlyOwner) == 0;
    });
}

// Leaves what others have put into the folder meanwhile.
void removeUnpacked(const QDir &folder, const QStringList &files)
{
    for (const QString &file : files)
        QFile::remove(folder.absoluteFilePath(file));
    QDir().rmdir(folder.absolutePath());
}

Outcome unpackInto(const QDir &folder, const Zip::Reader &archive, const std::vector<Chunk> &chunks,
                   WorkProgress &work, const Unpacked &unpacked, Damage::List &damage)
{
    Unpacker unpacker(folder, work);
    QStringList files;
    for (const Chunk &chunk : chunks) {
        const auto content = archive.open(chunk.entry, work);
        if (!content) {
            damage.add(Damage::notOpened(Damage::entryName(chunk.entry.name, archive.fileName())));
            continue;
        }
        const Unpacker::Result result = unpacker.unpack(*content, chunk.entry.name);
        if (result == Unpacker::Unpacked)
            files.append(unpacker.fileName());
        if (!work.goesOn()) {
            removeUnpacked(folder, files);
            return Outcome::givenUp();
        }
        if (result == Unpacker::Failed)
            return {Outcome::NoRoom, unpacker.systemError(), 0};
        if (result == Unpacker::Unpacked)
            unpacked(unpacker.fileName(), folder, chunk.timeText);
        if (content->isDamaged() && archive.readErrorText().isEmpty())
            damage.add(damageOf(archive, chunk, *content, Damage::bytesUnpacked(unpacker.size())));
    }
    return {Outcome::Done, archive.readErrorText(), 0};
}

Outcome unpackChunks(const Zip::Reader &archive, const QString &folderName, const QDir &parent,
                     WorkProgress &work, const Unpacked &unpacked, Damage::List &damage)
{
    const Outcome checked = checkDirectory(archive);
    if (!checked.isDone())
        return checked;
    const std::vector<Chunk> chunks =
        withFileNames(archive.fileName(), chunksByStart(archive, work, damage), damage);
    if (!work.goesOn())
        return Outcome::givenUp();
    if (isBomb(archive, chunks))
        return tooLarge(chunks);
    if (hasNoRoom(parent, totalSize(chunks)))
        return {Outcome::NoRoom, {}, 0};
    const QString path = createFolder(parent, folderName);
    if (path.isEmpty())
        return {Outcome::NoRoom, {}, 0};
    work.begin(totalSize(chunks));
    return unpackInto(QDir(path), archive, chunks, work, unpacked, damage);
}

} // namespace

Outcome unpack(const QString &zipName, const QDir &parent, WorkProgress &work,
               const Unpacked &unpacked, QStringList &damage)
{
    Outcome outcome;
    const auto unpackArchive = [&] {
        const Zip::Reader archive(zipName);
        const QString name = ArchiveLimits::folderName(ArchiveLimits::archiveName(zipName));
        Damage::List found;
        outcome = unpackChunks(archive, name, parent, work, unpacked, found);
        if (outcome.kind != Outcome::GivenUp)
            damage = found.sentences(zipName);
    };
    if (!withinMemory(unpackArchive))
        outcome = {Outcome::TooLarge, FileErrors::outOfMemory(zipName), 0};
    return outcome;
}

} // namespace ChunkArchive
