#include "targets.h"

#include "storefixture.h"

#include <QFile>
#include <QTemporaryDir>

std::vector<FuzzTarget> fuzzTargets()
{
    std::vector<FuzzTarget> all;
    for (const auto &room :
         {readerTargets(), chunkTargets(), archiveTargets(), compressedTargets(), careTargets(),
          directoryTargets(), expressionTargets(), parquetTargets()})
        all.insert(all.end(), room.begin(), room.end());
    return all;
}

void require(bool holds, const char *what)
{
    if (!holds)
        qFatal("%s", what);
}

QString workPath(const QString &name)
{
    static const QTemporaryDir folder(folderInMemory());
    return folder.filePath(name);
}

QString inputFile(const QString &name, const QByteArray &bytes)
{
    const QString path = workPath(name);
    QFile file(path);
    require(file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)
                && file.write(bytes) == bytes.size(),
            "the input cannot be written");
    return path;
}
