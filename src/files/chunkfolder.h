#pragma once

#include "locks.h"

#include <QDir>
#include <QSet>
#include <QString>

#include <sys/stat.h>

/// The folder of one store's chunk files: the application's writable data location, then
/// "datachunks", then a random number. Created by the constructor for its user alone (mode 0700),
/// and locked (flock) as long as the store lives, which shows others that it is in use;
/// the destructor removes it with everything in it, and the files beside it. Symbolic links are
/// never followed, and a folder that is not the one created is left alone, whatever it is called.
/// Any thread.
class ChunkFolder
{
public:
    ChunkFolder();
    ~ChunkFolder();

    ChunkFolder(const ChunkFolder &) = delete;
    ChunkFolder &operator=(const ChunkFolder &) = delete;

    /// Where the folders of this application's stores lie.
    static QString parentPath();

    /// False when no folder could be created; there is then no place for chunks.
    bool exists() const { return !folderPath.isEmpty(); }

    /// Empty when no folder could be created. Constant after construction.
    QString path() const { return folderPath; }

    /// A new object for the caller: a QDir reads its folder when it is asked something, and must
    /// not be shared by threads.
    QDir dir() const { return QDir(folderPath); }

    /// Whether its name still leads to the folder that was created.
    bool isInPlace() const;

    /// Whether a file of that name lies in the folder.
    bool holds(const QString &fileName) const;

    /// "tmpData%1.dck" in the folder, and the same with \a number in place of "%1".
    QString chunkTemplate() const;
    QString chunkPath(qint64 number) const;

    /// The template "%1.dck" for the chunks of an import. The separators are backslashes on every
    /// system, so that on most of them the files lie beside the folder.
    QString partialChunkTemplate(const QString &importName) const;

    /// Deletes every file of the folder whose name contains "tmpData".
    void removeChunks();

    /// Has the destructor delete a file that lies beside the folder.
    void addFileBeside(const QString &path) EXCLUDES(mutex);

private:
    /// A handle of the folder created; -1 when its name leads to something else by now.
    int open() const;
    bool isOurs(const struct stat &status) const;

    QString folderPath;
    dev_t device = 0;
    ino_t inode = 0;     // with the device, what the folder is, whatever its name
    int heldHandle = -1; // for the end, when there may be no other
    Mutex mutex;
    QSet<QString> filesBeside GUARDED_BY(mutex);
};

/// Puts \a number in place of the last "%1" of \a nameTemplate: an earlier one belongs to the
/// name of a folder or of an imported file.
QString fillChunkNumber(QString nameTemplate, qint64 number);
