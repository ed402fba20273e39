#include "leftchunks.h"

#include "chunknames.h"
#include "filechecks.h"
#include "terminal.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <utility>

#include <sys/stat.h>

namespace {

constexpr char workFolders[] = ".datachunk-work-??????";

// A data location has the folders of applications, in those lie "datachunks", in these the folders
// of stores, and in these again archives that were unpacked.
constexpr int deepest = 5;

/// Looks for chunks below a folder.
class Search
{
public:
    explicit Search(std::vector<LeftChunks> &found) : found(found) { }

    void lookAt(const QString &path, int depth);
    void addFile(const QString &path);
    bool isComplete() const { return complete; }

private:
    QFileInfoList entries(const QString &path, QDir::Filters filters,
                          const QStringList &names = {});
    void keepFree(const QString &path, LeftChunks &chunks);
    void addFiles(const QString &path, LeftChunks &chunks);
    void addWork(const QString &path, LeftChunks &chunks, int depth);
    void end(LeftChunks chunks);

    std::vector<LeftChunks> &found;
    bool complete = true;
    QString unread; // the folder that was told of last
};

QFileInfoList Search::entries(const QString &path, QDir::Filters filters, const QStringList &names)
{
    const QFileInfo folder(path);
    if ((!folder.isReadable() || !folder.isExecutable()) && std::exchange(unread, path) != path) {
        printError(path, Cli::tr("The folder cannot be read."));
        complete = false;
    }
    return QDir(path).entryInfoList(names, filters | QDir::NoSymLinks | QDir::NoDotAndDotDot);
}

void Search::keepFree(const QString &path, LeftChunks &chunks)
{
    auto lock = std::make_unique<OwnerLock>();
    const OwnerLock::State state = lock->keepFree(path);
    chunks.isInUse = chunks.isInUse || state == OwnerLock::HeldByOther;
    if (state == OwnerLock::Held)
        chunks.locks.push_back(std::move(lock));
}

// An import writes chunks beside the folder of its store, under names that begin with that of the
// folder and a backslash.
QString ownerOf(const QFileInfo &file)
{
    const int backslash = file.fileName().indexOf(QLatin1Char('\\'));
    return backslash < 0 ? QString()
                         : file.path() + QLatin1Char('/') + file.fileName().left(backslash);
}

bool isOwned(const QFileInfo &file)
{
    const QString owner = ownerOf(file);
    return !owner.isEmpty() && OwnerLock().keepFree(owner) == OwnerLock::HeldByOther;
}

void Search::addFiles(const QString &path, LeftChunks &chunks)
{
    const QFileInfoList files = entries(path, QDir::Files);
    for (const QFileInfo &file : files) {
        if (isChunkName(file.fileName()) && !isOwned(file))
            chunks.files.append(file.filePath());
    }
}

// What the recorder, or its store, keeps in a work folder belongs to the recording.
void Search::addWork(const QString &path, LeftChunks &chunks, int depth)
{
    keepFree(path, chunks);
    addFiles(path, chunks);
    if (depth >= deepest)
        return;
    const QFileInfoList folders = entries(path, QDir::Dirs);
    for (const QFileInfo &folder : folders)
        addWork(folder.filePath(), chunks, depth + 1);
}

void Search::lookAt(const QString &path, int depth)
{
    LeftChunks chunks;
    chunks.folder = path;
    keepFree(path, chunks);
    keepFree(path + QLatin1String("/.datachunk-lock"), chunks);
    addFiles(path, chunks);
    const QFileInfoList work =
        entries(path, QDir::Dirs | QDir::Hidden, {QLatin1String(workFolders)});
    for (const QFileInfo &folder : work)
        addWork(folder.filePath(), chunks, 0);
    const bool isInUse = chunks.isInUse;
    end(std::move(chunks));
    if (isInUse || depth >= deepest)
        return;
    const QFileInfoList folders = entries(path, QDir::Dirs);
    for (const QFileInfo &folder : folders)
        lookAt(folder.filePath(), depth + 1);
}

// By number, which is what digits in front of the suffix are; the last chunk of a recording is the
// last by its name.
bool comesBefore(const QString &a, const QString &b)
{
    const QString nameA = QFileInfo(a).fileName();
    const QString nameB = QFileInfo(b).fileName();
    const qint64 numberA = ChunkNames::rotatedNumber(nameA);
    const qint64 numberB = ChunkNames::rotatedNumber(nameB);
    if (numberA >= 0 && numberB >= 0)
        return numberA < numberB;
    return nameA < nameB;
}

// A chunk that is moved into its recording may have two names for a moment.
bool isSameFile(const QString &a, const QString &b)
{
    struct stat statusA = {};
    struct stat statusB = {};
    return stat(QFile::encodeName(a).constData(), &statusA) == 0
        && stat(QFile::encodeName(b).constData(), &statusB) == 0 && statusA.st_dev == statusB.st_dev
        && statusA.st_ino == statusB.st_ino;
}

void Search::end(LeftChunks chunks)
{
    QStringList &files = chunks.files;
    std::stable_sort(files.begin(), files.end(), comesBefore);
    files.erase(std::unique(files.begin(), files.end(), isSameFile), files.end());
    if (!chunks.files.isEmpty() || chunks.isInUse)
        found.push_back(std::move(chunks));
}

void Search::addFile(const QString &path)
{
    const QFileInfo file(path);
    const auto same = std::find_if(found.begin(), found.end(), [&](const LeftChunks &chunks) {
        return chunks.folder == file.path();
    });
    if (same != found.end()) {
        if (!same->files.contains(path))
            same->files.append(path);
        return;
    }
    LeftChunks chunks;
    chunks.folder = file.path();
    chunks.files.append(path);
    keepFree(file.path(), chunks);
    keepFree(file.path() + QLatin1String("/.datachunk-lock"), chunks);
    chunks.isInUse = chunks.isInUse || isOwned(file);
    end(std::move(chunks));
}

} // namespace

bool findLeftChunks(const QStringList &paths, std::vector<LeftChunks> &found)
{
    Search search(found);
    bool areGood = true;
    for (const QString &path : paths) {
        if (QFileInfo(path).isDir())
            search.lookAt(QDir::cleanPath(path), 0);
        else if (checkChunkFile(path))
            search.addFile(QDir::cleanPath(path));
        else
            areGood = false;
    }
    return areGood && search.isComplete();
}
