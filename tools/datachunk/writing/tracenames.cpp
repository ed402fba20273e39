#include "tracenames.h"

#include <QDir>
#include <QFileInfo>

namespace {

QString baseName(const QFileInfo &file)
{
    const QString base = file.completeBaseName();
    const bool isCompressed = QStringList{QStringLiteral("gz"), QStringLiteral("zst"),
                                          QStringLiteral("xz"), QStringLiteral("bz2")}
                                  .contains(file.suffix(), Qt::CaseInsensitive);
    return isCompressed && QFileInfo(base).completeBaseName() != QString()
        ? QFileInfo(base).completeBaseName()
        : base;
}

} // namespace

QString traceName(const QString &path)
{
    // A folder may be named by its place alone, as "." and ".." do.
    const QFileInfo file(QDir::cleanPath(QFileInfo(path).absoluteFilePath()));
    return file.isDir() ? file.fileName() : baseName(file);
}
