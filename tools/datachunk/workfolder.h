#pragma once

#include <QString>
#include <QTemporaryDir>

/// A folder for what the stores of a command put on disk, removed with everything in it. Stores
/// that are created while it lives have their chunk folders there; it has to outlive them.
class WorkFolder
{
public:
    /// Creates a hidden folder in \a parent.
    explicit WorkFolder(const QString &parent);

    bool isValid() const { return folder.isValid(); }
    QString errorText() const { return folder.errorString(); }

private:
    QTemporaryDir folder;
};
