#include "regularfile.h"

#include "fileerrors.h"

#include <QFileInfo>

bool RegularFile::openForReading()
{
    return QFileInfo(fileName()).isFile() && open(QIODevice::ReadOnly);
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
