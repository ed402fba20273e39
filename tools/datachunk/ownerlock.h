#pragma once

#include <QString>

/// Tells other runs of the program that somebody works with a folder. It is gone as soon as its
/// owner is, however that ended.
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

    QString errorText() const;

private:
    State lock(const QString &path, int flags);
    void release();

    int descriptor = -1;
    int error = 0;
    QString file; // to be removed
};
