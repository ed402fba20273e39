#include "workfolder.h"

#include "terminal.h"

#include <QFile>

bool makeFolder(const QDir &folder)
{
    if (folder.mkpath(QStringLiteral(".")))
        return true;
    printError(folder.path(), Cli::tr("The folder could not be created."));
    return false;
}

WorkFolder::WorkFolder(const QString &parent)
    : folder(QDir(parent).absoluteFilePath(QStringLiteral(".datachunk-XXXXXX")))
{
    // The store asks for the user's data location each time it creates its chunk folder.
    if (folder.isValid())
        qputenv("XDG_DATA_HOME", QFile::encodeName(folder.path()));
}

std::unique_ptr<DatachunkHandler> createStore(const WorkFolder &work, quint32 maxMessageCount,
                                              const QString &subject)
{
    std::unique_ptr<DatachunkHandler> store;
    if (work.isValid())
        store = std::make_unique<DatachunkHandler>(maxMessageCount);
    if (store && !store->chunkFolderPath().isEmpty())
        return store;
    printError(subject, Cli::tr("There is no place for temporary files: %1").arg(work.errorText()));
    return nullptr;
}
