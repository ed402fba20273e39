#include "faults.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <pthread.h>
#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/syscall.h>
#include <unistd.h>

#define FAULTY extern "C" __attribute__((visibility("default")))

namespace Faults {

namespace {

std::string prefix;
enum Watch : char { No, Reading, Writing };
std::array<std::atomic<Watch>, 4096> watched{};
Fault fault;
std::atomic<bool> armed{false};
std::atomic<int> calls{0};
std::atomic<bool> met{false};

Watch watchOf(int fd)
{
    return fd >= 0 && std::size_t(fd) < watched.size() ? watched[std::size_t(fd)].load() : No;
}

bool isWatched(const char *path)
{
    return !prefix.empty() && path && std::string_view(path).substr(0, prefix.size()) == prefix;
}

// A path that may be relative to an open folder.
bool isWatched(int folder, const char *path)
{
    return isWatched(path) || (watchOf(folder) != No && path && *path != '/');
}

int watch(int fd, bool isOurs, int flags)
{
    if (fd >= 0 && std::size_t(fd) < watched.size())
        watched[std::size_t(fd)] = !isOurs ? No : flags & O_ACCMODE ? Writing : Reading;
    return fd;
}

// The same for a file whose name tells whether anybody misses what was written to it.
int watchFile(int fd, const char *path, bool isOurs, int flags)
{
    return watch(fd, isOurs, std::strstr(path, "/.chunk-directory") ? O_RDONLY : flags);
}

bool meets(Call call)
{
    if (!armed || call != fault.call)
        return false;
    const int late = ++calls - fault.at;
    const bool now =
        fault.forEver ? late >= 0 && (fault.effect != EINTR || late % 2 == 0) : late == 0;
    if (now)
        met = true;
    return now;
}

// Whether the call fails; errno is then set.
bool fails(Call call)
{
    if (!meets(call))
        return false;
    if (fault.effect == delay || fault.effect == held) {
        do {
            usleep(10000);
        } while (armed && fault.effect == held);
        return false;
    }
    errno = fault.effect;
    return true;
}

// The same for calls with a byte count, which a short count cuts.
bool fails(Call call, int fd, std::size_t &count)
{
    if (watchOf(fd) == No)
        return false;
    if (fault.effect != shortCount && fault.effect != end)
        return fails(call);
    if (meets(call))
        count = fault.effect == end ? 0 : count - count / 2;
    return false;
}

void setHandleLimit(rlim_t limit)
{
    rlimit limits{};
    getrlimit(RLIMIT_NOFILE, &limits);
    limits.rlim_cur = std::min(limit, limits.rlim_max);
    setrlimit(RLIMIT_NOFILE, &limits);
}

// For ever, the system refuses those calls as well that nobody can define in place of the library.
bool lacksHandle()
{
    if (!fails(Handle))
        return false;
    if (fault.forEver) {
        const long lowestFree = syscall(SYS_dup, STDERR_FILENO);
        syscall(SYS_close, lowestFree);
        setHandleLimit(rlim_t(lowestFree));
    }
    errno = fault.effect;
    return true;
}

template <typename Function> Function *next(const char *name, Function *)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

} // namespace

void watchBelow(const std::string &folder)
{
    prefix = folder;
}

void arm(const Fault &newFault)
{
    fault = newFault;
    calls = 0;
    met = false;
    armed = true;
}

bool isMet()
{
    return met;
}

bool disarm()
{
    armed = false;
    if (fault.call == Handle && fault.forEver)
        setHandleLimit(watched.size());
    return met;
}

int openFiles()
{
    return int(watched.size() - std::count(watched.begin(), watched.end(), No));
}

} // namespace Faults

using namespace Faults;

// The function of the same name that would have been called without us.
#define REAL(function) static const auto real = next(#function, &function)

// What Qt 5.15, the ZIP library and we ourselves call, under the names that each of them uses.

#define FAULTY_OPEN(function)                                                                      \
    FAULTY int function(const char *path, int flags, ...)                                          \
    {                                                                                              \
        REAL(function);                                                                            \
        va_list list;                                                                              \
        va_start(list, flags);                                                                     \
        const mode_t mode = flags & (O_CREAT | O_TMPFILE) ? va_arg(list, mode_t) : 0;              \
        va_end(list);                                                                              \
        const bool isOurs = isWatched(path);                                                       \
        if ((isOurs && fails(Open)) || lacksHandle())                                              \
            return -1;                                                                             \
        return watchFile(real(path, flags, mode), path, isOurs, flags);                            \
    }

#define FAULTY_OPENAT(function)                                                                    \
    FAULTY int function(int folder, const char *path, int flags, ...)                              \
    {                                                                                              \
        REAL(function);                                                                            \
        va_list list;                                                                              \
        va_start(list, flags);                                                                     \
        const mode_t mode = flags & (O_CREAT | O_TMPFILE) ? va_arg(list, mode_t) : 0;              \
        va_end(list);                                                                              \
        const bool isOurs = isWatched(folder, path);                                               \
        if ((isOurs && fails(Open)) || lacksHandle())                                              \
            return -1;                                                                             \
        return watch(real(folder, path, flags, mode), isOurs, flags);                              \
    }

FAULTY_OPEN(open)
FAULTY_OPEN(open64)
FAULTY_OPENAT(openat)
FAULTY_OPENAT(openat64)

FAULTY ssize_t read(int fd, void *to, size_t count)
{
    REAL(read);
    return fails(Read, fd, count) ? -1 : real(fd, to, count);
}

FAULTY ssize_t pread(int fd, void *to, size_t count, off_t offset)
{
    REAL(pread);
    return fails(Read, fd, count) ? -1 : real(fd, to, count, offset);
}

FAULTY ssize_t write(int fd, const void *from, size_t count)
{
    REAL(write);
    return fails(Write, fd, count) ? -1 : real(fd, from, count);
}

// The descriptor is gone whatever the result, as the system does it.
FAULTY int close(int fd)
{
    REAL(close);
    const bool failing = watchOf(fd) == Writing && fails(Close);
    const int error = errno;
    watch(fd, false, 0);
    const int result = real(fd);
    if (!failing)
        return result;
    errno = error;
    return -1;
}

#define FAULTY_CALL(call, function, parameters, watching, arguments)                               \
    FAULTY int function parameters                                                                 \
    {                                                                                              \
        REAL(function);                                                                            \
        return (watching) && fails(call) ? -1 : real arguments;                                    \
    }

FAULTY_CALL(Sync, fsync, (int fd), watchOf(fd) != No, (fd))
FAULTY_CALL(Sync, fdatasync, (int fd), watchOf(fd) != No, (fd))
FAULTY_CALL(Rename, rename, (const char *from, const char *path) noexcept, isWatched(path),
            (from, path))
FAULTY_CALL(Rename, renameat, (int a, const char *from, int b, const char *path) noexcept,
            isWatched(b, path), (a, from, b, path))
FAULTY_CALL(Rename, renameat2,
            (int a, const char *from, int b, const char *path, unsigned flags) noexcept,
            isWatched(b, path), (a, from, b, path, flags))
FAULTY_CALL(Rename, link, (const char *from, const char *path) noexcept, isWatched(path),
            (from, path))
FAULTY_CALL(Rename, linkat, (int a, const char *from, int b, const char *path, int flags) noexcept,
            isWatched(b, path), (a, from, b, path, flags))
FAULTY_CALL(Unlink, unlink, (const char *path) noexcept, isWatched(path), (path))
FAULTY_CALL(Unlink, unlinkat, (int folder, const char *path, int flags) noexcept,
            isWatched(folder, path), (folder, path, flags))
FAULTY_CALL(Unlink, rmdir, (const char *path) noexcept, isWatched(path), (path))
FAULTY_CALL(Mkdir, mkdir, (const char *path, mode_t mode) noexcept, isWatched(path), (path, mode))
FAULTY_CALL(Mkdir, mkdirat, (int folder, const char *path, mode_t mode) noexcept,
            isWatched(folder, path), (folder, path, mode))
FAULTY_CALL(Stat, access, (const char *path, int mode) noexcept, isWatched(path), (path, mode))
FAULTY_CALL(Stat, stat, (const char *path, struct stat *to) noexcept, isWatched(path), (path, to))
FAULTY_CALL(Stat, lstat, (const char *path, struct stat *to) noexcept, isWatched(path), (path, to))
FAULTY_CALL(Stat, fstat, (int fd, struct stat *to) noexcept, watchOf(fd) != No, (fd, to))
FAULTY_CALL(Stat, fstatat, (int folder, const char *path, struct stat *to, int flags) noexcept,
            isWatched(folder, path), (folder, path, to, flags))
FAULTY_CALL(Stat, stat64, (const char *path, struct stat64 *to) noexcept, isWatched(path),
            (path, to))
FAULTY_CALL(Stat, lstat64, (const char *path, struct stat64 *to) noexcept, isWatched(path),
            (path, to))
FAULTY_CALL(Stat, fstat64, (int fd, struct stat64 *to) noexcept, watchOf(fd) != No, (fd, to))
FAULTY_CALL(Stat, statx,
            (int folder, const char *path, int flags, unsigned mask, struct statx *to) noexcept,
            path[0] ? isWatched(folder, path) : watchOf(folder) != No,
            (folder, path, flags, mask, to))
FAULTY_CALL(Write, ftruncate, (int fd, off_t size) noexcept, watchOf(fd) != No, (fd, size))
FAULTY_CALL(Mode, chmod, (const char *path, mode_t mode) noexcept, isWatched(path), (path, mode))
FAULTY_CALL(Mode, fchmod, (int fd, mode_t mode) noexcept, watchOf(fd) != No, (fd, mode))
FAULTY_CALL(Space, statvfs, (const char *path, struct statvfs *to) noexcept, true, (path, to))
FAULTY_CALL(Space, statvfs64, (const char *path, struct statvfs64 *to) noexcept, true, (path, to))

#define FAULTY_HANDLE(function, parameters, arguments)                                             \
    FAULTY int function parameters                                                                 \
    {                                                                                              \
        REAL(function);                                                                            \
        return lacksHandle() ? -1 : real arguments;                                                \
    }

FAULTY_HANDLE(eventfd, (unsigned value, int flags) noexcept, (value, flags))
FAULTY_HANDLE(pipe, (int to[2]) noexcept, (to))
FAULTY_HANDLE(pipe2, (int to[2], int flags) noexcept, (to, flags))
FAULTY_HANDLE(socketpair, (int domain, int type, int protocol, int to[2]) noexcept,
              (domain, type, protocol, to))
FAULTY_HANDLE(epoll_create1, (int flags) noexcept, (flags))
FAULTY_HANDLE(dup, (int fd) noexcept, (fd))

#define FAULTY_FCNTL(function)                                                                     \
    FAULTY int function(int fd, int command, ...)                                                  \
    {                                                                                              \
        REAL(function);                                                                            \
        va_list list;                                                                              \
        va_start(list, command);                                                                   \
        void *const argument = va_arg(list, void *);                                               \
        va_end(list);                                                                              \
        const bool duplicates = command == F_DUPFD || command == F_DUPFD_CLOEXEC;                  \
        return duplicates && lacksHandle() ? -1 : real(fd, command, argument);                     \
    }

FAULTY_FCNTL(fcntl)
FAULTY_FCNTL(fcntl64)

FAULTY DIR *opendir(const char *path)
{
    REAL(opendir);
    if ((isWatched(path) && fails(List)) || lacksHandle())
        return nullptr;
    DIR *const folder = real(path);
    if (folder)
        watch(dirfd(folder), isWatched(path), O_RDONLY);
    return folder;
}

FAULTY DIR *fdopendir(int fd)
{
    REAL(fdopendir);
    return watchOf(fd) != No && fails(List) ? nullptr : real(fd);
}

FAULTY int closedir(DIR *folder)
{
    REAL(closedir);
    watch(dirfd(folder), false, 0);
    return real(folder);
}

#define FAULTY_READDIR(entry, function)                                                            \
    FAULTY entry *function(DIR *folder)                                                            \
    {                                                                                              \
        REAL(function);                                                                            \
        return watchOf(dirfd(folder)) != No && fails(Entry) ? nullptr : real(folder);              \
    }

FAULTY_READDIR(dirent, readdir)
FAULTY_READDIR(dirent64, readdir64)

FAULTY int pthread_create(pthread_t *thread, const pthread_attr_t *attributes,
                          void *(*start)(void *), void *argument) noexcept
{
    REAL(pthread_create);
    return fails(Thread) ? fault.effect : real(thread, attributes, start, argument);
}

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)

// Looking up the real ones would allocate.
extern "C" void *__libc_malloc(size_t);
extern "C" void *__libc_calloc(size_t, size_t);
extern "C" void *__libc_realloc(void *, size_t);

namespace {
bool allocationFails(size_t size)
{
    constexpr size_t large = 1024 * 1024;
    return size >= large && fails(Allocate);
}
} // namespace

FAULTY void *malloc(size_t size) noexcept
{
    return allocationFails(size) ? nullptr : __libc_malloc(size);
}

FAULTY void *calloc(size_t number, size_t size) noexcept
{
    return allocationFails(number * size) ? nullptr : __libc_calloc(number, size);
}

FAULTY void *realloc(void *memory, size_t size) noexcept
{
    return allocationFails(size) ? nullptr : __libc_realloc(memory, size);
}

#endif
