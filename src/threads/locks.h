#pragma once

#include "threadannotations.h"

#include <QDeadlineTimer>
#include <QMutex>
#include <QReadWriteLock>
#include <QWaitCondition>

/// Qt's mutex for members that are GUARDED_BY it. Not recursive.
class CAPABILITY("mutex") Mutex
{
public:
    Mutex() = default;

    Mutex(const Mutex &) = delete;
    Mutex &operator=(const Mutex &) = delete;

    void lock() ACQUIRE() { mutex.lock(); }
    void unlock() RELEASE() { mutex.unlock(); }

    /// Gives the lock back, waits until \a condition is woken, and takes it again. False when
    /// \a end came first. It may wake for nothing: the caller asks in a loop for what it waits for.
    bool waitFor(QWaitCondition &condition,
                 QDeadlineTimer end = QDeadlineTimer(QDeadlineTimer::Forever)) REQUIRES(this)
    {
        return condition.wait(&mutex, end);
    }

private:
    QMutex mutex;
};

/// Holds a mutex as long as it lives.
class SCOPED_CAPABILITY MutexLock
{
public:
    explicit MutexLock(Mutex &mutex) ACQUIRE(mutex) : mutex(mutex) { mutex.lock(); }
    ~MutexLock() RELEASE() { mutex.unlock(); }

    MutexLock(const MutexLock &) = delete;
    MutexLock &operator=(const MutexLock &) = delete;

private:
    Mutex &mutex;
};

/// Qt's lock for many readers or one writer. Not recursive, not even for readers.
class CAPABILITY("lock") ReadWriteLock
{
public:
    ReadWriteLock() = default;

    ReadWriteLock(const ReadWriteLock &) = delete;
    ReadWriteLock &operator=(const ReadWriteLock &) = delete;

    void lockForRead() ACQUIRE_SHARED() { lock.lockForRead(); }
    void unlockForRead() RELEASE_SHARED() { lock.unlock(); }
    void lockForWrite() ACQUIRE() { lock.lockForWrite(); }
    void unlockForWrite() RELEASE() { lock.unlock(); }

private:
    QReadWriteLock lock;
};

/// Holds a lock for reading as long as it lives.
class SCOPED_CAPABILITY ReadLock
{
public:
    explicit ReadLock(ReadWriteLock &lock) ACQUIRE_SHARED(lock) : lock(lock) { lock.lockForRead(); }
    ~ReadLock() RELEASE() { lock.unlockForRead(); }

    ReadLock(const ReadLock &) = delete;
    ReadLock &operator=(const ReadLock &) = delete;

private:
    ReadWriteLock &lock;
};

/// Holds a lock for writing as long as it lives.
class SCOPED_CAPABILITY WriteLock
{
public:
    explicit WriteLock(ReadWriteLock &lock) ACQUIRE(lock) : lock(lock) { lock.lockForWrite(); }
    ~WriteLock() RELEASE() { lock.unlockForWrite(); }

    WriteLock(const WriteLock &) = delete;
    WriteLock &operator=(const WriteLock &) = delete;

private:
    ReadWriteLock &lock;
};
