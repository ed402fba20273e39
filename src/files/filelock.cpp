#include "filelock.h"

#include "uninterrupted.h"

#include <sys/file.h>

bool FileLock::tryLock(int handle)
{
    return uninterrupted([handle] { return flock(handle, LOCK_EX | LOCK_NB); }) == 0
        || errno != EWOULDBLOCK;
}
