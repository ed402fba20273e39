#pragma once

#include <QString>

/// Shows other runs of the program that a folder is in use. The lock ends with its owner, however
/// that one ended.
class OwnerLock
{
public:
    enum State {
        Held,
        HeldByOther,
        Impossible ///< errorText() tells why
    };

    OwnerLock() = default;
    ~OwnerLock();

    OwnerLock(const OwnerLock &) = delete;
    OwnerLock &operator=(const OwnerLock &) = delete;

    /// Locks the folder itself, which need not leave a trace, but is not possible on some file
    /// systems of other machines. A symbolic link is not followed.
    State lockFolder(const QString &path);

    /// Locks by a file, which is created if need be and removed with the lock. A symbolic link is
    /// not followed.
    State lockByFile(const QString &path);

    /// Keeps owners away from a folder or a lock file of theirs that is there, while others may do
    /// the same. HeldByOther as long as it has an owner. Nothing is changed or created.
    State keepFree(const QString &path);

    QString errorText() const;

private:
    State lock(const QString &path, int flags, int operation);
    void release();

    int descriptor = -1;
    int error = 0;
    QString file; // to be removed
};
