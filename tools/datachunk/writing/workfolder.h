#pragma once

#include "datachunkhandler.h"
#include "ownerlock.h"

#include <QDir>
#include <QString>

#include <memory>

/// Creates a folder unless it is there. False, with a text printed, when that fails.
bool makeFolder(const QDir &folder);

/// A folder for what the stores of a command put on disk, removed with everything in it. Stores
/// that are created while it lives have their chunk folders there; it has to outlive them.
class WorkFolder
{
public:
    /// Creates a hidden folder in \a parent, and removes those of runs that were killed.
    explicit WorkFolder(const QString &parent);
    ~WorkFolder();

    WorkFolder(const WorkFolder &) = delete;
    WorkFolder &operator=(const WorkFolder &) = delete;

    bool isValid() const { return !path.isEmpty(); }
    QString filePath(const QString &name) const { return path + QLatin1Char('/') + name; }
    QString errorText() const { return error; }

private:
    bool create(const QString &nameTemplate);

    std::unique_ptr<OwnerLock> lock;
    QString path;
    QString error;
};

/// Removes the work folders in \a parent whose owners are gone.
void removeLeftWorkFolders(const QString &parent);

/// Whether such a folder, be its owner gone or not, has messages in a chunk file.
bool hasLeftChunks(const QString &parent);

/// A store with its chunk folder in \a work. Null, with a text on \a subject printed, when there is
/// no place for that.
std::unique_ptr<DatachunkHandler> createStore(const WorkFolder &work, quint32 maxMessageCount,
                                              const QString &subject);
