#include "chunkmarks.h"

#include "archivelimits.h"
#include "fileerrors.h"
#include "filelock.h"
#include "filereplacement.h"
#include "storetexts.h"
#include "uninterrupted.h"

#include <QBuffer>
#include <QDeadlineTimer>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <atomic>
#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ChunkMarks {

namespace {

std::atomic<quint64> changes{0};

/// A chunk file that nobody else writes to.
class LockedChunk
{
public:
    explicit LockedChunk(const QString &fileName);
    ~LockedChunk();

    LockedChunk(const LockedChunk &) = delete;
    LockedChunk &operator=(const LockedChunk &) = delete;

    int handle() const { return ownHandle; }
    bool isLocked() const { return locked; }
    /// Whether it has been written to since.
    bool isTouched() const;

private:
    bool open();
    bool isInPlace() const;
    bool lock(const QDeadlineTimer &end) const;

    const QByteArray name;
    int ownHandle = -1;
    bool locked = false;
    struct stat status = {};
};

LockedChunk::LockedChunk(const QString &fileName) : name(QFile::encodeName(fileName))
{
    constexpr int patience = 10000;
    const QDeadlineTimer end(patience);
    // Whoever had the lock has mostly put another file there.
    while (open()) {
        locked = lock(end);
        if (!locked || isInPlace())
            return;
        locked = false;
        close(ownHandle);
        ownHandle = -1;
    }
}

LockedChunk::~LockedChunk()
{
    if (ownHandle >= 0)
        close(ownHandle);
}

// For writing as well, so that a chunk that the user has protected stays as it is.
bool LockedChunk::open()
{
    ownHandle = uninterrupted([this] {
        return open64(name.constData(), O_RDWR | O_CLOEXEC | O_NOCTTY | O_NONBLOCK | O_NOFOLLOW);
    });
    if (ownHandle < 0)
        return false;
    if (fstat(ownHandle, &status) == 0 && S_ISREG(status.st_mode))
        return true;
    close(ownHandle);
    ownHandle = -1;
    errno = ENOENT;
    return false;
}

bool LockedChunk::lock(const QDeadlineTimer &end) const
{
    while (!FileLock::tryLock(ownHandle)) {
        if (end.hasExpired())
            return false;
        QThread::msleep(1);
    }
    return true;
}

bool LockedChunk::isInPlace() const
{
    struct stat here = {};
    return lstat(name.constData(), &here) == 0 && here.st_ino == status.st_ino
        && here.st_dev == status.st_dev;
}

bool LockedChunk::isTouched() const
{
    struct stat now = {};
    return fstat(ownHandle, &now) != 0 || now.st_size != status.st_size
        || now.st_mtim.tv_sec != status.st_mtim.tv_sec
        || now.st_mtim.tv_nsec != status.st_mtim.tv_nsec;
}

QString beingWritten(const QString &name)
{
    return StoreTexts::tr(
               "The chunk %1 is still being written. Notes and bookmarks on its messages "
               "can be changed when it is complete.")
        .arg(name);
}

Changed failed(const QString &sentence)
{
    return {Changed::Failed, sentence};
}

Changed gone()
{
    return {Changed::Gone, {}};
}

Outcome::Kind readFront(int handle, ChunkReading::Front &front)
{
    QFile file;
    if (!file.open(handle, QIODevice::ReadOnly, QFileDevice::DontCloseHandle))
        return Outcome::NotOpened;
    const ChunkReading::Bounds bounds{ArchiveLimits::memoryLimit(), [] { return true; }};
    return ChunkReading::readFront(file, ChunkFormat::BookmarkMap::Read, bounds, front);
}

// The lowest version that has what the change needs; 0 when its records are others.
quint32 versionFor(quint32 version, const MarkChange &change)
{
    const quint32 needed = std::max({version, change.note ? ChunkFormat::notesSince : 0,
                                     change.bookmark ? ChunkFormat::bookmarksSince : 0});
    const bool isSameLayout =
        (needed >= ChunkFormat::lineFieldSince) == (version >= ChunkFormat::lineFieldSince);
    return isSameLayout ? needed : 0;
}

QString whyNotReadable(const QString &name, Outcome::Kind read, const ChunkReading::Front &front)
{
    if (read == Outcome::NewerVersion)
        return StoreTexts::tr("The chunk %1 was created with a newer version of this tool, which "
                              "has to change it.")
            .arg(name);
    if (read == Outcome::TooLarge)
        return FileErrors::outOfMemory(name);
    if (read != Outcome::Done)
        return FileErrors::notRead(name, qt_error_string());
    if (front.headerIsDamaged || front.mapsAreDamaged)
        return StoreTexts::tr("The chunk %1 is damaged. It has to be repaired before notes and "
                              "bookmarks on its messages can be changed.")
            .arg(name);
    return {};
}

QByteArray headerOf(const ChunkReading::Front &front)
{
    QByteArray header;
    QBuffer buffer(&header);
    buffer.open(QIODevice::WriteOnly);
    ChunkFormat::Stream stream(&buffer);
    ChunkFormat::writeHeader(stream, front.preamble, front.maps);
    return header;
}

Changed rewrite(const QString &name, const LockedChunk &chunk, qint64 records,
                ChunkReading::Front front, const Placed &placed)
{
    const QByteArray header = headerOf(front);
    front.size = header.size();
    FileReplacement replacement(name, chunk.handle());
    if (!replacement.create() || !replacement.write(header) || !replacement.copyFrom(records)
        || !replacement.finish())
        return failed(FileErrors::notWritten(name, qt_error_string()));
    if (chunk.isTouched())
        return failed(beingWritten(name));
    switch (replacement.putInPlace()) {
    case FileReplacement::Placing::Failed:
        return failed(FileErrors::notWritten(name, qt_error_string()));
    case FileReplacement::Placing::OriginalGone:
        return gone();
    case FileReplacement::Placing::Done:
        break;
    }
    placed(replacement.handle(), front);
    ++changes;
    return {Changed::Done, {}};
}

Changed changeLocked(const QString &name, const LockedChunk &chunk, MarkChange change,
                     const FindNumber &findNumber, const Placed &placed)
{
    ChunkReading::Front front;
    const Outcome::Kind read = readFront(chunk.handle(), front);
    const QString whyNot = whyNotReadable(name, read, front);
    if (!whyNot.isEmpty())
        return failed(whyNot);
    const auto number = findNumber(chunk.handle(), front);
    if (!number)
        return gone();
    change.number = *number;
    const bool changesNotes = applyChange(change, front.maps.notes);
    const bool changesBookmarks = applyChange(change, front.maps.bookmarks);
    if (!changesNotes && !changesBookmarks)
        return {Changed::Done, {}};
    front.preamble.version = versionFor(front.preamble.version, change);
    if (front.preamble.version == 0)
        return failed(StoreTexts::tr("The chunk %1 is of an old version, which has no bookmarks. "
                                     "Export it as a new chunk first.")
                          .arg(name));
    return rewrite(name, chunk, front.size, front, placed);
}

} // namespace

Changed change(const QString &fileName, const MarkChange &change, const FindNumber &findNumber,
               const Placed &placed)
{
    // Of a link, what it leads to is replaced.
    const QString path = QFileInfo(fileName).canonicalFilePath();
    if (path.isEmpty())
        return gone();
    const LockedChunk chunk(path);
    if (chunk.handle() < 0)
        return errno == ENOENT ? gone()
                               : failed(FileErrors::notWritten(fileName, qt_error_string()));
    if (!chunk.isLocked())
        return failed(beingWritten(fileName));
    Changed changed;
    if (!withinMemory([&] { changed = changeLocked(path, chunk, change, findNumber, placed); }))
        return failed(FileErrors::outOfMemory(fileName));
    return changed;
}

quint64 changeCount()
{
    return changes;
}

} // namespace ChunkMarks
