#include "pipes.h"

#include <QFile>

#include <cerrno>
#include <chrono>
#include <thread>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Pipes {

namespace {
// The time after which a waiting call notices that it is given up.
constexpr int millisecondsBetweenLooks = 20;
} // namespace

bool isPipe(const QString &path)
{
    struct stat status = {};
    return stat(QFile::encodeName(path).constData(), &status) == 0 && S_ISFIFO(status.st_mode);
}

int open(const QString &path, const std::atomic<bool> &givenUp)
{
    const QByteArray name = QFile::encodeName(path);
    while (!givenUp) {
        const int handle = ::open(name.constData(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
        if (handle >= 0 || (errno != ENXIO && errno != EINTR))
            return handle;
        std::this_thread::sleep_for(std::chrono::milliseconds(millisecondsBetweenLooks));
    }
    return -1;
}

bool write(int handle, const char *bytes, qint64 size, const std::atomic<bool> &givenUp)
{
    while (size > 0 && !givenUp) {
        const ssize_t taken = ::write(handle, bytes, std::size_t(size));
        if (taken > 0) {
            bytes += taken;
            size -= taken;
        } else if (taken < 0 && errno != EAGAIN && errno != EINTR) {
            return false;
        } else {
            pollfd reader = {handle, POLLOUT, 0};
            poll(&reader, 1, millisecondsBetweenLooks);
        }
    }
    return size == 0;
}

} // namespace Pipes
