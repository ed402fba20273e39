#pragma once

#include <QHash>
#include <QString>

#include <map>
#include <tuple>

#include <sys/stat.h>

/// The files of a folder by age and the room that they take, for keeping the folder within its
/// budget of disk space. Sizes are added up in whole KiB, and the sum is compared in whole MiB.
/// A folder of our own is read once; after that its owner tells of the files that it writes. The
/// folder's time stamp is set to a value of our own after each change; any other value means that
/// somebody else has changed the folder, and it is read again. One thread at a time.
class DiskBudget
{
public:
    enum class Folder {
        Own,    ///< counted and stamped
        Foreign ///< read each time, and left as it is
    };

    explicit DiskBudget(const QString &path, Folder folder = Folder::Own);

    /// To be called before a file is created or removed ...
    void beginChange();
    /// ... and right after that; \a created is the bare name of a file that is there from now on.
    void endChange(const QString &created = QString());

    /// Has the folder read again: somebody else may have changed a file in it.
    void forget() { isCounted = false; }

    /// Deletes the oldest file of the folder when all its files together take more than
    /// \a mebibytes and the oldest one is a chunk file. Returns whether a file was deleted.
    /// Of two files with the same modification time the one with the higher chunk number is the
    /// newer: time stamps of a file system are coarser than rotations are quick.
    bool removeOldestAbove(quint32 mebibytes);

private:
    // Modification time in milliseconds, chunk number, and last the name, the greater one first.
    struct Age
    {
        qint64 modified = 0;
        qint64 chunk = 0;
        QString name;

        bool operator<(const Age &other) const
        {
            return std::tie(modified, chunk, other.name)
                < std::tie(other.modified, other.chunk, name);
        }
    };

    bool isUnchanged() const;
    void setStamp();
    void count();
    QString pathOf(const QString &name) const;
    void dropFile(const QString &name);
    void addFile(const QString &name, const struct stat &status);
    void countFile(const QString &name);
    void readFolder();

    const QString path;
    const Folder folder;
    timespec stamp = {}; // what the folder's time stamp was set to
    bool isCounted = false;
    int countsSinceRead = 0;
    QString newFile; // not counted before it is whole
    std::map<Age, quint32> kibibytesByAge;
    QHash<QString, Age> ages;
    quint32 kibibytes = 0;
};
