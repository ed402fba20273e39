#include "chunklisting.h"

#include "chunknames.h"
#include "foldertree.h"

#include <QFileInfo>

#include <limits>

namespace ChunkListing {

Place placeOf(const QString &path)
{
    constexpr quint64 behindAll = std::numeric_limits<quint64>::max();
    const int nameAt = path.lastIndexOf(QLatin1Char('/')) + 1;
    if (QStringView(path).mid(nameAt) == ChunkNames::last())
        return {path.left(nameAt) + ChunkNames::rotatedTemplate(), behindAll};
    int end = path.size();
    while (end > nameAt && !path.at(end - 1).isDigit())
        --end;
    int begin = end;
    while (begin > nameAt && path.at(begin - 1).isDigit())
        --begin;
    bool isNumber = false;
    const quint64 number = QStringView(path).mid(begin, end - begin).toULongLong(&isNumber);
    if (!isNumber)
        return {path, 0};
    return {path.left(begin) + QLatin1String("%1") + path.mid(end), number};
}

QStringList filesIn(const QString &folder)
{
    QFileInfoList files;
    FolderTree::listFiles(folder, files);
    QStringList paths;
    for (const QFileInfo &file : qAsConst(files)) {
        if (isChunkName(file.fileName()))
            paths.append(file.filePath());
    }
    return paths;
}

bool isArchive(const QString &path)
{
    return path.endsWith(QLatin1String(".zip"), Qt::CaseInsensitive);
}

} // namespace ChunkListing
