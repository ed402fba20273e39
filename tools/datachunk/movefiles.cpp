#include "movefiles.h"

#include "terminal.h"

#include <QFile>
#include <QFileInfo>

bool checkFree(const QString &fileName)
{
    const QFileInfo file(fileName);
    if (!file.exists() && !file.isSymLink())
        return true;
    printError(fileName, Cli::tr("The file exists already."));
    return false;
}

bool moveFiles(const QStringList &files, const QStringList &names)
{
    for (int i = 0; i < files.size(); ++i) {
        QFile file(files.at(i));
        if (checkFree(names.at(i)) && file.rename(names.at(i)))
            continue;
        if (file.error() != QFileDevice::NoError)
            printError(names.at(i), file.errorString());
        for (int earlier = 0; earlier < i; ++earlier)
            QFile::remove(names.at(earlier));
        return false;
    }
    for (const QString &name : names)
        writeOutput(name + QLatin1Char('\n'));
    return true;
}
