// Loaded in front of a program: while the file that STALL names exists, chunk files cannot be
// written, or moved where STALL_MOVES is set, as on a disk that does not answer.

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <dlfcn.h>
#include <unistd.h>

namespace {

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

extern "C" __attribute__((visibility("default"))) ssize_t write(int fd, const void *data,
                                                                std::size_t size)
{
    using Write = ssize_t (*)(int, const void *, std::size_t);
    static const auto real = reinterpret_cast<Write>(dlsym(RTLD_NEXT, "write"));
    while (isStalled() && !std::getenv("STALL_MOVES") && isChunk(fd))
        usleep(1000);
    return real(fd, data, size);
}

extern "C" __attribute__((visibility("default"))) int
renameat2(int oldFolder, const char *oldName, int newFolder, const char *newName, unsigned flags)
{
    using Rename = int (*)(int, const char *, int, const char *, unsigned);
    static const auto real = reinterpret_cast<Rename>(dlsym(RTLD_NEXT, "renameat2"));
    while (isStalled() && std::getenv("STALL_MOVES") && std::strstr(newName, ".dck"))
        usleep(1000);
    return real(oldFolder, oldName, newFolder, newName, flags);
}
