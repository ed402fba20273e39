#include "chunkdirectory.h"

#include "chunkbytes.h"
#include "directoryformat.h"
#include "fileerrors.h"
#include "uninterrupted.h"

#include <QFile>

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ChunkDirectory {

namespace {

constexpr mode_t onlyOwner = 0600;
// No link, so that nobody has another file written in its place; and nothing to wait for.
constexpr int asDirectory = O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;

int openFile(const QByteArray &name, int flags)
{
    return uninterrupted([&] { return open(name.constData(), flags | asDirectory, onlyOwner); });
}

QByteArray readHead(int handle)
{
    QByteArray bytes(DirectoryFormat::headSize, Qt::Uninitialized);
    bytes.truncate(int(readSome(handle, bytes.data(), 0, bytes.size())));
    return bytes;
}

std::vector<DirectoryEntry> entriesIn(int handle, qint64 *damagedAt = nullptr)
{
    const auto file = FileIdentity::of(handle);
    const auto read = [handle](char *to, qint64 offset, qint64 size) {
        return readSome(handle, to, offset, size);
    };
    return DirectoryFormat::entries(read, file ? file->size : 0, DirectoryFormat::ownKey(),
                                    damagedAt);
}

// Waits for others, who take a moment, but not for one who has been stopped with the lock.
bool lock(int handle)
{
    constexpr int attempts = 1000;
    constexpr useconds_t between = 1000;
    for (int i = 0; i < attempts; ++i) {
        if (flock(handle, LOCK_EX | LOCK_NB) == 0)
            return true;
        if (errno != EWOULDBLOCK && errno != EINTR)
            return false;
        usleep(between);
    }
    return false;
}

/// The directory of a folder while nobody else writes it.
class Locked
{
public:
    explicit Locked(const QString &folder);
    ~Locked();

    Locked(const Locked &) = delete;
    Locked &operator=(const Locked &) = delete;

    bool isOpen() const { return handle >= 0; }
    bool add(const DirectoryEntry &entry) const;
    bool replace(const std::vector<DirectoryEntry> &entries) const;

private:
    bool openLocked();
    bool isInPlace() const;
    bool append(const QByteArray &bytes, qint64 size) const;
    std::vector<DirectoryEntry> current() const;

    const QString folder;
    const QByteArray name;
    const quint64 key = DirectoryFormat::ownKey();
    int handle = -1;
};

Locked::Locked(const QString &folder) : folder(folder), name(QFile::encodeName(path(folder)))
{
    // Whoever had the lock may have replaced the file meanwhile.
    constexpr int attempts = 10;
    for (int i = 0; i < attempts && openLocked(); ++i) {
        if (isInPlace())
            return;
        close(handle);
        handle = -1;
    }
}

Locked::~Locked()
{
    if (handle >= 0)
        close(handle);
}

bool Locked::openLocked()
{
    handle = openFile(name, O_RDWR | O_APPEND | O_CREAT);
    if (handle < 0)
        return false;
    if (FileIdentity::of(handle) && lock(handle))
        return true;
    close(handle);
    handle = -1;
    return false;
}

bool Locked::isInPlace() const
{
    struct stat here = {};
    struct stat opened = {};
    return lstat(name.constData(), &here) == 0 && fstat(handle, &opened) == 0
        && here.st_ino == opened.st_ino && here.st_dev == opened.st_dev;
}

// What could not be written whole goes again.
bool Locked::append(const QByteArray &bytes, qint64 size) const
{
    if (writeAll(handle, bytes.constData(), bytes.size()))
        return true;
    static_cast<void>(ftruncate(handle, size) == 0);
    return false;
}

std::vector<DirectoryEntry> Locked::current() const
{
    auto entries = entriesIn(handle);
    const auto isSuperseded = [this](const DirectoryEntry &entry) {
        const auto now = FileIdentity::of(folder + QLatin1Char('/') + entry.name);
        return !now || !describes(entry, *now);
    };
    entries.erase(std::remove_if(entries.begin(), entries.end(), isSuperseded), entries.end());
    return entries;
}

bool Locked::add(const DirectoryEntry &entry) const
{
    // Up to here superseded entries do no harm.
    constexpr qint64 small = 1024LL * 1024;
    const QByteArray bytes = DirectoryFormat::encoded(entry, key);
    const auto file = FileIdentity::of(handle);
    if (bytes.isEmpty() || !file)
        return false;
    if (file->size == 0)
        return append(DirectoryFormat::head(0, key) + bytes, 0);
    const auto compact = DirectoryFormat::compactBytes(readHead(handle), key);
    const qint64 most = compact ? qMin(2 * *compact + small, DirectoryFormat::mostBytes) : 0;
    if (file->size + bytes.size() <= most)
        return append(bytes, file->size);
    std::vector<DirectoryEntry> entries = current();
    const auto isOld = [&entry](const DirectoryEntry &known) { return known.name == entry.name; };
    entries.erase(std::remove_if(entries.begin(), entries.end(), isOld), entries.end());
    entries.push_back(entry);
    return replace(entries);
}

// The last of \a entries that leave room for more to be added.
QByteArray compacted(const std::vector<DirectoryEntry> &entries, quint64 key)
{
    constexpr qint64 mostKept = DirectoryFormat::mostBytes / 8 * 7;
    qint64 size = DirectoryFormat::headSize;
    std::vector<QByteArray> kept;
    for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
        QByteArray bytes = DirectoryFormat::encoded(*entry, key);
        if (size + bytes.size() > mostKept)
            break;
        size += bytes.size();
        kept.push_back(std::move(bytes));
    }
    QByteArray all = DirectoryFormat::head(size, key);
    all.reserve(int(size));
    for (auto bytes = kept.rbegin(); bytes != kept.rend(); ++bytes)
        all += *bytes;
    return all;
}

bool Locked::replace(const std::vector<DirectoryEntry> &entries) const
{
    const QByteArray bytes = compacted(entries, key);
    // With the lock held it can only be what somebody has left who was killed.
    const QByteArray next = name + ".new";
    unlink(next.constData());
    const int file = openFile(next, O_WRONLY | O_CREAT | O_EXCL);
    if (file < 0)
        return false;
    const bool isWritten = writeAll(file, bytes.constData(), bytes.size());
    if (close(file) == 0 && isWritten && rename(next.constData(), name.constData()) == 0)
        return true;
    unlink(next.constData());
    return false;
}

} // namespace

QString path(const QString &folder)
{
    return folder + QLatin1String("/.chunk-directory");
}

std::vector<DirectoryEntry> read(const QString &folder)
{
    return look(folder).entries;
}

Content look(const QString &folder)
{
    Content content;
    const int handle = openFile(QFile::encodeName(path(folder)), O_RDONLY);
    if (handle < 0) {
        content.state = errno == ENOENT ? Content::Missing : Content::Unreadable;
        return content;
    }
    const bool isFile = FileIdentity::of(handle).has_value();
    const bool isRead =
        withinMemory([&] { content.entries = entriesIn(handle, &content.damagedAt); });
    close(handle);
    if (!isFile || !isRead)
        return {Content::Unreadable, -1, {}};
    if (content.damagedAt < 0)
        content.state = Content::Whole;
    else
        content.state = content.damagedAt == 0 ? Content::Foreign : Content::Damaged;
    return content;
}

bool add(const QString &folder, const DirectoryEntry &entry)
{
    bool isAdded = false;
    withinMemory([&] {
        const Locked directory(folder);
        isAdded = directory.isOpen() && directory.add(entry);
    });
    return isAdded;
}

bool rewrite(const QString &folder, const std::vector<DirectoryEntry> &entries)
{
    bool isWritten = false;
    withinMemory([&] {
        const Locked directory(folder);
        isWritten = directory.isOpen() && directory.replace(entries);
    });
    return isWritten;
}

} // namespace ChunkDirectory
