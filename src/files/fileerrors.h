#pragma once

#include <QFile>
#include <QString>

#include <new>

/// What the user is told when the system fails, and how to find out.
namespace FileErrors {

QString notRead(const QString &fileName, const QString &reason);
QString notWritten(const QString &fileName, const QString &reason);
QString outOfMemory(const QString &fileName);

/// The reason why an archive of more than \a most files is not written.
QString tooManyFiles(int most);

/// Writes all of \a size bytes; false, and the file has an error, when not every one was taken.
bool write(QIODevice &file, const char *bytes, qint64 size);

/// Closes \a file; the reason when not every byte written to it has arrived, otherwise empty.
QString close(QFile &file);

} // namespace FileErrors

/// Calls \a work; false when there is not enough memory for it. Belongs where the size of a file
/// decides how much is taken: the rest of the application may well go on.
template <typename Work> bool withinMemory(const Work &work)
{
    try {
        work();
    } catch (const std::bad_alloc &) {
        return false;
    }
    return true;
}
