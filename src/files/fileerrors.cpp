#include "fileerrors.h"

#include "storetexts.h"

namespace FileErrors {

QString notRead(const QString &fileName, const QString &reason)
{
    return StoreTexts::tr("The file %1 could not be read to its end: %2").arg(fileName, reason);
}

QString notWritten(const QString &fileName, const QString &reason)
{
    return StoreTexts::tr("The file %1 could not be written: %2").arg(fileName, reason);
}

QString outOfMemory(const QString &fileName)
{
    return StoreTexts::tr("There is not enough memory for the file %1.").arg(fileName);
}

QString tooManyFiles(int most)
{
    return StoreTexts::tr("An archive takes at most %1 files.").arg(most);
}

QString nothingImported()
{
    return StoreTexts::tr("File seems to be empty or broken, nothing imported.");
}

QString bomb(const QString &archive)
{
    return StoreTexts::tr(
               "The archive %1 claims to hold more than can be in it and was not unpacked.")
        .arg(archive);
}

bool write(QIODevice &file, const char *bytes, qint64 size)
{
    // An almost full disk takes a part of the bytes without an error. The reason comes only with
    // the attempt to write the rest.
    qint64 taken = 1;
    for (qint64 written = 0; written < size && taken > 0; written += taken)
        taken = file.write(bytes + written, size - written);
    return taken > 0;
}

// Some file systems find out that they are full only when the file is closed.
QString close(QFile &file)
{
    file.flush();
    QString error = file.error() == QFileDevice::NoError ? QString() : file.errorString();
    file.close();
    if (error.isEmpty() && file.error() != QFileDevice::NoError)
        error = file.errorString();
    return error;
}

} // namespace FileErrors
