#include "standardinput.h"

#include "stopsignals.h"
#include "terminal.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <poll.h>
#include <unistd.h>

namespace {

constexpr qint64 mostKept = 4LL * 1024 * 1024;

} // namespace

StandardInput::StandardInput()
{
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

QByteArray StandardInput::peekBeginning(qint64 size)
{
    constexpr qint64 blockSize = 64LL * 1024;
    QByteArray block(int(blockSize), Qt::Uninitialized);
    while (kept.size() < size && readMore(block.data(), blockSize) > 0) { }
    return kept.left(int(size));
}

bool StandardInput::seek(qint64 to)
{
    if (to != 0 || hasFailed)
        return false;
    if (received > kept.size()) {
        fail(Cli::tr("This has to be read twice, which standard input cannot be."));
        return false;
    }
    // Drops what was read ahead.
    close();
    position = 0;
    return open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

// As much as may come, so that readers ask for much at a time.
qint64 StandardInput::bytesAvailable() const
{
    constexpr qint64 many = 1024LL * 1024;
    const bool isAtEnd = isOver && position >= received;
    return QIODevice::bytesAvailable() + (isAtEnd ? 0 : many);
}

qint64 StandardInput::readData(char *data, qint64 maxSize)
{
    if (hasFailed)
        return -1;
    if (position == received && readMore(data, maxSize) <= 0)
        return isOver ? 0 : -1;
    // What has just come is kept as well, or it is in its place already.
    const qint64 size =
        position < kept.size() ? std::min(maxSize, kept.size() - position) : received - position;
    if (position < kept.size())
        std::memcpy(data, kept.constData() + position, std::size_t(size));
    position += size;
    return size;
}

qint64 StandardInput::readMore(char *data, qint64 maxSize)
{
    // Bytes are kept all or not at all, so that those behind them need no second place.
    const qint64 size = std::min(maxSize, received < mostKept ? mostKept - received : maxSize);
    if (isOver || !waitForBytes())
        return 0;
    const ssize_t got = ::read(STDIN_FILENO, data, std::size_t(size));
    if (got < 0)
        return fail(systemErrorText(errno));
    isOver = got == 0;
    if (received < mostKept)
        kept.append(data, int(got));
    received += got;
    return got;
}

// A signal ends the waiting, whichever thread gets it, and is told by whoever reads.
bool StandardInput::waitForBytes()
{
    constexpr int millisecondsBetweenLooks = 100;
    pollfd input = {STDIN_FILENO, POLLIN, 0};
    while (!StopSignals::received()) {
        const int ready = poll(&input, 1, millisecondsBetweenLooks);
        if (ready > 0)
            return true;
        if (ready < 0 && errno != EINTR) {
            fail(systemErrorText(errno));
            return false;
        }
    }
    isOver = true;
    return false;
}

qint64 StandardInput::fail(const QString &text)
{
    hasFailed = true;
    setErrorString(text);
    return -1;
}
