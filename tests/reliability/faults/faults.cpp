#include "faults.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <pthread.h>
#include <sys/stat.h>
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

int watch(int fd, const char *path, int flags)
{
    if (fd >= 0 && std::size_t(fd) < watched.size())
        watched[std::size_t(fd)] = !isWatched(path) ? No : flags & O_ACCMODE ? Writing : Reading;
    return fd;
}

bool isMet(Call call)
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
    if (!isMet(call))
        return false;
    if (fault.effect == delay) {
        usleep(10000);
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
    if (isMet(call))
        count = fault.effect == end ? 0 : count - count / 2;
    return false;
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

bool disarm()
{
    armed = false;
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

// Only what Qt 5.15 calls is here, and fsync, which we call.

FAULTY int open64(const char *path, int flags, ...)
{
    REAL(open64);
    va_list list;
    va_start(list, flags);
    const mode_t mode = flags & (O_CREAT | O_TMPFILE) ? va_arg(list, mode_t) : 0;
    va_end(list);
    return isWatched(path) && fails(Open) ? -1 : watch(real(path, flags, mode), path, flags);
}

FAULTY ssize_t read(int fd, void *to, size_t count)
{
    REAL(read);
    return fails(Read, fd, count) ? -1 : real(fd, to, count);
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
    watch(fd, nullptr, 0);
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
        return watching && fails(call) ? -1 : real arguments;                                      \
    }

FAULTY_CALL(Sync, fsync, (int fd), watchOf(fd) != No, (fd))
FAULTY_CALL(Sync, fdatasync, (int fd), watchOf(fd) != No, (fd))
FAULTY_CALL(Rename, rename, (const char *from, const char *path) noexcept, isWatched(path),
            (from, path))
FAULTY_CALL(Rename, renameat2,
            (int a, const char *from, int b, const char *path, unsigned flags) noexcept,
            isWatched(path), (a, from, b, path, flags))
FAULTY_CALL(Rename, link, (const char *from, const char *path) noexcept, isWatched(path),
            (from, path))
FAULTY_CALL(Rename, linkat, (int a, const char *from, int b, const char *path, int flags) noexcept,
            isWatched(path), (a, from, b, path, flags))
FAULTY_CALL(Unlink, unlink, (const char *path) noexcept, isWatched(path), (path))
FAULTY_CALL(Unlink, rmdir, (const char *path) noexcept, isWatched(path), (path))
FAULTY_CALL(Mkdir, mkdir, (const char *path, mode_t mode) noexcept, isWatched(path), (path, mode))

FAULTY DIR *opendir(const char *path)
{
    REAL(opendir);
    return isWatched(path) && fails(List) ? nullptr : real(path);
}

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
