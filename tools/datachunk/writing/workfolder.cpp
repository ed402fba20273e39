#include "workfolder.h"

#include "chunknames.h"
#include "terminal.h"

#include <QDirIterator>
#include <QFile>

#include <cerrno>
#include <cstdlib>
#include <filesystem>

#include <sys/stat.h>
#include <unistd.h>

namespace {

// Symbolic links are removed, never followed.
void removeTree(const QString &path)
{
    std::error_code ignored;
    std::filesystem::remove_all(QFile::encodeName(path).toStdString(), ignored);
}

bool isOurFolder(const QString &path)
{
    struct stat status = {};
    return lstat(QFile::encodeName(path).constData(), &status) == 0 && S_ISDIR(status.st_mode)
        && status.st_uid == geteuid();
}

} // namespace

bool makeFolder(const QDir &folder)
{
    if (folder.mkpath(QStringLiteral(".")))
        return true;
    printError(folder.path(), Cli::tr("The folder could not be created."));
    return false;
}

WorkFolder::WorkFolder(const QString &parent)
{
    constexpr int attempts = 100;
    removeLeftWorkFolders(parent);
    const QString nameTemplate =
        QDir(parent).absoluteFilePath(QStringLiteral(".datachunk-work-XXXXXX"));
    for (int i = 0; i < attempts && path.isEmpty() && create(nameTemplate); ++i) { }
    // The store asks for the user's data location each time it creates its chunk folder.
    if (isValid())
        qputenv("XDG_DATA_HOME", QFile::encodeName(path));
}

WorkFolder::~WorkFolder()
{
    if (isValid())
        removeTree(path);
}

// False when no folder can be created. The path is empty if another run has removed the folder
// before it was locked, taking it for one that was left behind.
bool WorkFolder::create(const QString &nameTemplate)
{
    QByteArray name = QFile::encodeName(nameTemplate);
    if (!mkdtemp(name.data())) {
        error = systemErrorText(errno);
        return false;
    }
    const QString created = QFile::decodeName(name);
    lock = std::make_unique<OwnerLock>();
    const OwnerLock::State state = lock->lockFolder(created);
    // Where folders cannot be locked, no other run can tell whether this one is left behind.
    if (state == OwnerLock::Held || (state == OwnerLock::Impossible && isOurFolder(created)))
        path = created;
    return true;
}

namespace {

QStringList workFoldersIn(const QString &parent)
{
    const QDir folder(parent);
    QStringList paths = folder.entryList({QStringLiteral(".datachunk-work-??????")},
                                         QDir::Dirs | QDir::Hidden | QDir::NoSymLinks);
    for (QString &path : paths)
        path = folder.absoluteFilePath(path);
    return paths;
}

} // namespace

bool hasLeftChunks(const QString &parent)
{
    for (const QString &path : workFoldersIn(parent)) {
        QDirIterator files(path, QDir::Files | QDir::NoSymLinks, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            if (isChunkName(files.next()) && files.fileInfo().size() > 0)
                return true;
        }
    }
    return false;
}

void removeLeftWorkFolders(const QString &parent)
{
    for (const QString &path : workFoldersIn(parent)) {
        OwnerLock lock;
        if (isOurFolder(path) && lock.lockFolder(path) == OwnerLock::Held)
            removeTree(path);
    }
}

std::unique_ptr<DatachunkHandler> createStore(const WorkFolder &work, quint32 maxMessageCount,
                                              const QString &subject)
{
    std::unique_ptr<DatachunkHandler> store;
    if (work.isValid())
        store = std::make_unique<DatachunkHandler>(maxMessageCount);
    if (store && !store->chunkFolderPath().isEmpty())
        return store;
    printError(subject, Cli::tr("There is no place for temporary files: %1").arg(work.errorText()));
    return nullptr;
}
