#include "diskspace.h"

#include "terminal.h"

#include <QFile>

#include <sys/statvfs.h>

std::optional<DiskSpace> diskSpaceOf(const QString &folder)
{
    struct statvfs status = {};
    // Some file systems know no size.
    if (statvfs(QFile::encodeName(folder).constData(), &status) != 0 || status.f_blocks == 0)
        return {};
    const auto block = qint64(status.f_frsize);
    return DiskSpace{qint64(status.f_blocks) * block, qint64(status.f_bavail) * block};
}

QString mebibyteText(qint64 bytes)
{
    const double mebibytes = double(bytes) / double(bytesPerMebibyte);
    const bool isWhole = bytes % bytesPerMebibyte == 0;
    return Cli::tr("%1 MiB").arg(QString::number(mebibytes, 'f', isWhole ? 0 : 1));
}
