#include "diskbudget.h"

#include <QDateTime>
#include <QDebug>
#include <QFile>

#include <algorithm>

namespace DiskBudget {

namespace {

// The number in "tmpData17.dck", or -1 for any other name.
qint64 chunkNumber(const QString &name)
{
    const QLatin1String prefix("tmpData");
    const QLatin1String suffix(".dck");
    if (!name.startsWith(prefix) || !name.endsWith(suffix))
        return -1;
    const int digits = name.size() - prefix.size() - suffix.size();
    bool ok = false;
    const uint number = name.midRef(prefix.size(), digits).toUInt(&ok);
    return ok ? qint64(number) : -1;
}

} // namespace

QFileInfoList filesByAge(const QDir &folder)
{
    struct Entry
    {
        QFileInfo file;
        qint64 modified;
        qint64 chunk;
    };
    QVector<Entry> entries;
    const QFileInfoList files = folder.entryInfoList(QDir::Files, QDir::Name);
    for (const QFileInfo &file : files) {
        entries.append(
            {file, file.lastModified().toMSecsSinceEpoch(), chunkNumber(file.fileName())});
    }
    std::stable_sort(entries.begin(), entries.end(), [](const Entry &a, const Entry &b) {
        return a.modified != b.modified ? a.modified > b.modified : a.chunk > b.chunk;
    });
    QFileInfoList sorted;
    for (const Entry &entry : qAsConst(entries))
        sorted.append(entry.file);
    return sorted;
}

bool removeOldestAbove(const QDir &folder, unsigned int mebibytes)
{
    const QFileInfoList files = filesByAge(folder);
    quint32 kibibytes = 0;
    for (const QFileInfo &file : files)
        kibibytes += quint32(file.size() / 1024);
    if (kibibytes / 1024 <= mebibytes)
        return false;
    const QFileInfo &oldest = files.last();
    qDebug() << "void SaveFileWorker::checkUsedSpace(QString)" << oldest.fileName();
    return oldest.fileName().endsWith(QLatin1String("dck")) && QFile::remove(oldest.filePath());
}

} // namespace DiskBudget
