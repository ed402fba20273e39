#include "regularfile.h"

#include "fileerrors.h"
#include "uninterrupted.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// Does not wait: neither for the other end of a pipe now, nor later for new lines of a system file.
int openWithoutWaiting(const QString &fileName)
{
    const QByteArray name = QFile::encodeName(fileName);
    return uninterrupted(
        [&name] { return open64(name.constData(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK); });
}

} // namespace

RegularFile::RegularFile(const QString &fileName) : QFile(fileName), name(fileName) { }

bool RegularFile::openForReading()
{
    const int handle = openWithoutWaiting(fileName());
    if (handle < 0) {
        missing = errno == ENOENT;
        setErrorString(qt_error_string(errno));
        return false;
    }
    struct stat status = {};
    if (fstat(handle, &status) != 0)
        setErrorString(qt_error_string(errno));
    else if (S_ISREG(status.st_mode) && open(handle, QIODevice::ReadOnly, AutoCloseHandle))
        return true;
    ::close(handle);
    return false;
}

QString RegularFile::readErrorText() const
{
    return readError.isEmpty() ? QString() : FileErrors::notRead(fileName(), readError);
}

qint64 RegularFile::readData(char *data, qint64 maxSize)
{
    if (!readError.isEmpty())
        return -1;
    const qint64 got = QFile::readData(data, maxSize);
    if (got < 0)
        readError = errorString();
    return got;
}
