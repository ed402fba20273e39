#include "filechecks.h"

#include "datachunkhelper.h"
#include "terminal.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <optional>

#include <sys/stat.h>
#include <unistd.h>

namespace {

std::optional<struct stat> statusOf(const QString &fileName)
{
    struct stat status = {};
    if (stat(QFile::encodeName(fileName).constData(), &status) != 0)
        return {};
    return status;
}

bool isSame(const struct stat &a, const struct stat &b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

// Empty for a regular file.
QString kindText(const struct stat &status)
{
    if (S_ISREG(status.st_mode))
        return {};
    if (S_ISDIR(status.st_mode))
        return Cli::tr("This is a folder, and a file is needed.");
    if (S_ISFIFO(status.st_mode))
        return Cli::tr("This is a named pipe, and a file is needed.");
    return Cli::tr("This is a device or a socket, and a file is needed.");
}

} // namespace

bool checkReadable(const QString &fileName)
{
    const std::optional<struct stat> status = statusOf(fileName);
    QString text;
    if (status)
        text = kindText(*status);
    else if (errno == ENOENT)
        text = QCoreApplication::translate("DatachunkHandler", "The file at %1 does not exists.")
                   .arg(fileName);
    else
        text = systemErrorText(errno);
    QFile file(fileName);
    if (text.isEmpty() && !file.open(QIODevice::ReadOnly))
        text = file.errorString();
    if (!text.isEmpty())
        printError(fileName, text);
    return text.isEmpty();
}

bool checkChunkFile(const QString &fileName)
{
    if (!checkReadable(fileName))
        return false;
    if (DatachunkHelper().getImportFileType(fileName) == DatachunkHelper::ChunkFile)
        return true;
    printError(fileName, Cli::tr("The file is no chunk file."));
    return false;
}

bool checkFree(const QString &fileName)
{
    const QFileInfo file(fileName);
    if (!file.exists() && !file.isSymLink())
        return true;
    printError(fileName, Cli::tr("The file exists already."));
    return false;
}

bool checkNoInput(const QString &target, const QStringList &inputs)
{
    const std::optional<struct stat> status = statusOf(target);
    for (const QString &input : inputs) {
        const std::optional<struct stat> other = statusOf(input);
        if (!status || !other || !isSame(*status, *other))
            continue;
        printError(target, Cli::tr("This is the file %1, which is to be read.").arg(input));
        return false;
    }
    return true;
}

bool checkOutputIsNoInput(const QStringList &inputs)
{
    struct stat output = {};
    if (fstat(STDOUT_FILENO, &output) != 0 || !S_ISREG(output.st_mode))
        return true;
    for (const QString &input : inputs) {
        const std::optional<struct stat> other = statusOf(input);
        if (!other || !isSame(output, *other))
            continue;
        printError(input, Cli::tr("Standard output goes into this file, which is to be read."));
        return false;
    }
    return true;
}
