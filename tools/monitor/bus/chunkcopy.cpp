#include "chunkcopy.h"

#include "chunkmove.h"
#include "chunknames.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <cerrno>
#include <cstdio>

#include <unistd.h>

namespace {

struct CopyTexts
{
    Q_DECLARE_TR_FUNCTIONS(ChunkCopy)
};

QStringList chunkNames(const QString &folder)
{
    QStringList names = QDir(folder).entryList(QDir::Files | QDir::NoSymLinks);
    QStringList chunks;
    for (const QString &name : qAsConst(names)) {
        if (isChunkName(name))
            chunks.append(name);
    }
    return chunks;
}

// Returns why it failed.
QString linkOrCopy(const QString &from, const QString &to)
{
    if (link(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0)
        return {};
    if (errno == EEXIST)
        return CopyTexts::tr("%1 is there already.").arg(to);
    QFile source(from);
    if (source.copy(to))
        return {};
    const QString reason = source.errorString();
    QFile::remove(to);
    return CopyTexts::tr("%1 could not be written: %2.").arg(to, reason);
}

QString copyAll(const QStringList &names, const QString &from, const QString &to,
                const std::function<bool(int)> &goesOn, int &made)
{
    QString failure;
    moveChunks(from, to, names, [&](const QString &name) {
        if (!goesOn(made * 100 / names.size()))
            return false;
        failure = linkOrCopy(from + QLatin1Char('/') + name, to + QLatin1Char('/') + name);
        made += failure.isEmpty() ? 1 : 0;
        return failure.isEmpty();
    });
    return failure;
}

} // namespace

QString copyChunks(const QString &from, const QString &to, const std::function<bool(int)> &goesOn)
{
    const QStringList names = chunkNames(from);
    if (names.isEmpty())
        return CopyTexts::tr("There are no chunks in %1; somebody has removed them.").arg(from);
    const QString folderError =
        QFile::exists(to) ? CopyTexts::tr("%1 is there already.").arg(to) : makeFolder(to);
    if (!folderError.isEmpty())
        return folderError;
    int made = 0;
    const QString failure = copyAll(names, from, to, goesOn, made);
    if (made == names.size()) {
        // What the directory lacks is found by whoever opens the folder.
        indexChunks(to);
        return {};
    }
    QDir(to).removeRecursively();
    return failure;
}

void removeChunks(const QString &folder)
{
    const QStringList names = chunkNames(folder);
    for (const QString &name : names)
        QFile::remove(folder + QLatin1Char('/') + name);
}

QString makeFolder(const QString &path)
{
    return QDir().mkpath(path) ? QString()
                               : CopyTexts::tr("The folder %1 could not be made.").arg(path);
}

QString replaceFile(const QString &from, const QString &to)
{
    if (std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0)
        return {};
    const QString reason = qt_error_string(errno);
    QFile::remove(from);
    return CopyTexts::tr("%1 could not be written: %2.").arg(to, reason);
}
