// Loaded in front of a program. While the file that STALL names exists, chunk files cannot be
// written, or moved where STALL_MOVES is set, as on a disk that does not answer. With ROOM, in
// bytes, the disk has no more of it, which nobody but the program takes.

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <dlfcn.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace {

std::atomic<long long> bytesWritten{0};

bool isStalled()
{
    static const char *const stall = std::getenv("STALL");
    return stall && access(stall, F_OK) == 0;
}

bool isChunk(int fd)
{
    char link[64];
    char path[4096];
    std::snprintf(link, sizeof(link), "/proc/self/fd/%d", fd);
    const ssize_t size = readlink(link, path, sizeof(path) - 1);
    if (size <= 0)
        return false;
    path[size] = '\0';
    return std::strstr(path, ".dck") != nullptr;
}

} // namespace

#pragma GCC visibility push(default)

extern "C" ssize_t write(int fd, const void *data, std::size_t size)
{
    using Write = ssize_t (*)(int, const void *, std::size_t);
    static const auto real = reinterpret_cast<Write>(dlsym(RTLD_NEXT, "write"));
    while (isStalled() && !std::getenv("STALL_MOVES") && isChunk(fd))
        usleep(1000);
    const ssize_t written = real(fd, data, size);
    if (written > 0 && isChunk(fd))
        bytesWritten += written;
    return written;
}

extern "C" int statvfs(const char *path, struct statvfs *status)
{
    using Stat = int (*)(const char *, struct statvfs *);
    static const auto real = reinterpret_cast<Stat>(dlsym(RTLD_NEXT, "statvfs"));
    static const char *const room = std::getenv("ROOM");
    const int result = real(path, status);
    if (!room || result != 0)
        return result;
    const long long all = std::atoll(room);
    status->f_frsize = 1;
    status->f_blocks = fsblkcnt_t(all);
    status->f_bavail = fsblkcnt_t(all > bytesWritten ? all - bytesWritten : 0);
    return 0;
}

extern "C" int renameat2(int oldFolder, const char *oldName, int newFolder, const char *newName,
                         unsigned flags)
{
    using Rename = int (*)(int, const char *, int, const char *, unsigned);
    static const auto real = reinterpret_cast<Rename>(dlsym(RTLD_NEXT, "renameat2"));
    while (isStalled() && std::getenv("STALL_MOVES") && std::strstr(newName, ".dck"))
        usleep(1000);
    return real(oldFolder, oldName, newFolder, newName, flags);
}

#pragma GCC visibility pop
