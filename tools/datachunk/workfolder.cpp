#include "workfolder.h"

#include <QDir>
#include <QFile>

WorkFolder::WorkFolder(const QString &parent)
    : folder(QDir(parent).absoluteFilePath(QStringLiteral(".datachunk-XXXXXX")))
{
    // The store asks for the user's data location each time it creates its chunk folder.
    if (folder.isValid())
        qputenv("XDG_DATA_HOME", QFile::encodeName(folder.path()));
}
