#pragma once

#include "datachunkhandler.h"

#include <QDir>
#include <QString>
#include <QTemporaryDir>

#include <memory>

/// Creates a folder unless it is there. False, with a text printed, when that fails.
bool makeFolder(const QDir &folder);

/// A folder for what the stores of a command put on disk, removed with everything in it. Stores
/// that are created while it lives have their chunk folders there; it has to outlive them.
class WorkFolder
{
public:
    /// Creates a hidden folder in \a parent.
    explicit WorkFolder(const QString &parent);

    bool isValid() const { return folder.isValid(); }
    QString filePath(const QString &name) const { return folder.filePath(name); }
    QString errorText() const { return folder.errorString(); }

private:
    QTemporaryDir folder;
};

/// A store with its chunk folder in \a work. Null, with a text on \a subject printed, when there is
/// no place for that.
std::unique_ptr<DatachunkHandler> createStore(const WorkFolder &work, quint32 maxMessageCount,
                                              const QString &subject);
