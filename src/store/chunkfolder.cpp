#include "chunkfolder.h"

#include <QFile>
#include <QFileInfo>
#include <QMutexLocker>
#include <QStandardPaths>

#include <cstdlib>

namespace {

// An empty string where no folder can be created.
QString createFolder()
{
    const QDir location(QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation));
    const QDir parent(location.absoluteFilePath(QStringLiteral("datachunks")));
    if (!parent.mkpath(QStringLiteral(".")))
        return {};
    // Every process draws the same numbers unless the application seeds them, and mkdir alone
    // tells whether a folder is ours.
    constexpr int attempts = 100000;
    for (int i = 0; i < attempts; ++i) {
        const QString name = QStringLiteral("%1").arg(rand());
        if (parent.mkdir(name))
            return parent.absoluteFilePath(name);
        if (!QFileInfo::exists(parent.absoluteFilePath(name)))
            return {};
    }
    return {};
}

} // namespace

ChunkFolder::ChunkFolder()
{
    const QString path = createFolder();
    created = !path.isEmpty();
    folder.setPath(path);
}

ChunkFolder::~ChunkFolder()
{
    if (!created)
        return;
    for (const QString &path : qAsConst(filesBeside))
        QFile::remove(path);
    folder.removeRecursively();
}

QString ChunkFolder::chunkPath(quint32 number) const
{
    return folder.absoluteFilePath(QStringLiteral("tmpData%1.dck").arg(number));
}

QString ChunkFolder::partialChunkTemplate(const QString &importName) const
{
    return folder.path() + QLatin1Char('\\') + importName + QLatin1String("\\%1.dck");
}

void ChunkFolder::removeChunks()
{
    if (!created)
        return;
    const QStringList names = folder.entryList(QDir::Files, QDir::Unsorted);
    for (const QString &name : names) {
        if (name.contains(QLatin1String("tmpData")))
            QFile::remove(folder.absoluteFilePath(name));
    }
}

void ChunkFolder::addFileBeside(const QString &path)
{
    const QMutexLocker locker(&mutex);
    filesBeside.insert(path);
}

QString fillChunkNumber(QString nameTemplate, quint32 number)
{
    const int placeholder = nameTemplate.lastIndexOf(QLatin1String("%1"));
    if (placeholder < 0)
        return nameTemplate;
    return nameTemplate.replace(placeholder, 2, QString::number(number));
}
