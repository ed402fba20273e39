#include "diskbudget.h"

#include "chunknames.h"
#include "foldertree.h"

#include <QDebug>
#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>

namespace {

bool readStamp(const QString &folder, timespec &stamp)
{
    struct stat status = {};
    const bool read = stat(QFile::encodeName(folder).constData(), &status) == 0;
    stamp = status.st_mtim;
    return read;
}

} // namespace

QString DiskBudget::pathOf(const QString &name) const
{
    return path + QLatin1Char('/') + name;
}

DiskBudget::DiskBudget(const QString &path, Folder folder) : path(path), folder(folder) { }

bool DiskBudget::isUnchanged() const
{
    timespec now = {};
    return readStamp(path, now) && now.tv_sec == stamp.tv_sec && now.tv_nsec == stamp.tv_nsec;
}

// Sets a fraction of a second that differs at each call and that no file system writes itself.
void DiskBudget::setStamp()
{
    constexpr long inTheFirstMillisecond = 999983;
    const long fraction = 1 + (stamp.tv_nsec + 7919) % inTheFirstMillisecond;
    const timespec times[2] = {{0, UTIME_OMIT}, {time(nullptr), fraction}};
    isCounted = folder == Folder::Own
        && utimensat(AT_FDCWD, QFile::encodeName(path).constData(), times, 0) == 0
        && readStamp(path, stamp);
}

void DiskBudget::beginChange()
{
    isCounted = isCounted && isUnchanged();
}

void DiskBudget::endChange(const QString &created)
{
    newFile = created;
    if (isCounted)
        setStamp();
}

void DiskBudget::dropFile(const QString &name)
{
    const auto known = ages.constFind(name);
    if (known == ages.constEnd())
        return;
    const auto entry = kibibytesByAge.find(*known);
    kibibytes -= entry->second;
    kibibytesByAge.erase(entry);
    ages.erase(known);
}

void DiskBudget::addFile(const QString &name, const struct stat &status)
{
    if (!S_ISREG(status.st_mode))
        return;
    const qint64 modified = status.st_mtim.tv_sec * 1000 + status.st_mtim.tv_nsec / 1000000;
    const Age age{modified, ChunkNames::rotatedNumber(name), name};
    const auto size = quint32(status.st_size / 1024);
    ages.insert(name, age);
    kibibytesByAge.emplace(age, size);
    kibibytes += size;
}

void DiskBudget::countFile(const QString &name)
{
    struct stat status = {};
    dropFile(name);
    if (stat(QFile::encodeName(pathOf(name)).constData(), &status) == 0)
        addFile(name, status);
}

void DiskBudget::readFolder()
{
    ages.clear();
    kibibytesByAge.clear();
    kibibytes = 0;
    countsSinceRead = 0;
    setStamp();
    const int handle = FolderTree::open(path, FolderTree::Link::Followed);
    if (handle < 0)
        return;
    FolderTree::forEachEntry(handle, [this, handle](const char *name) {
        struct stat status = {};
        if (*name != '.' && fstatat(handle, name, &status, 0) == 0)
            addFile(QFile::decodeName(name), status);
    });
}

void DiskBudget::count()
{
    // A file that grows does not change its folder's time stamp.
    constexpr int mostCountsBetweenReads = 64;
    beginChange();
    if (!isCounted || ++countsSinceRead > mostCountsBetweenReads)
        readFolder();
    else if (!newFile.isEmpty())
        countFile(newFile);
    newFile.clear();
}

bool DiskBudget::removeOldestAbove(quint32 mebibytes)
{
    count();
    if (kibibytesByAge.empty() || kibibytes / 1024 <= mebibytes)
        return false;
    const QString oldest = kibibytesByAge.begin()->first.name;
    qDebug() << "void SaveFileWorker::checkUsedSpace(QString)" << oldest;
    if (!isChunkName(oldest) || !QFile::remove(pathOf(oldest)))
        return false;
    endChange();
    dropFile(oldest);
    return true;
}
