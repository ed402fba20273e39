#include "partfile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <filesystem>

namespace {

// A link stays one: what it leads to is replaced.
QString realPath(const QString &target)
{
    const QFileInfo info(target);
    return info.exists() ? info.canonicalFilePath() : info.absoluteFilePath();
}

QString folderTemplate(const QString &target)
{
    return QFileInfo(target).dir().absoluteFilePath(QStringLiteral(".datachunk-part-XXXXXX"));
}

} // namespace

PartFile::PartFile(const QString &target, const QString &suffix)
    : target(realPath(target)), folder(folderTemplate(this->target)),
      part(folder.filePath(QLatin1String("unfinished.") + suffix))
{
    if (!folder.isValid())
        error = folder.errorString();
}

bool PartFile::putInPlace()
{
    if (!isValid())
        return false;
    if (QFile::exists(target))
        QFile::setPermissions(part, QFile::permissions(target));
    std::error_code failure;
    std::filesystem::rename(QFile::encodeName(part).toStdString(),
                            QFile::encodeName(target).toStdString(), failure);
    if (failure)
        error = QString::fromLocal8Bit(failure.message().c_str());
    return !failure;
}
