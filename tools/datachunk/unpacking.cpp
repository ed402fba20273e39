#include "unpacking.h"

#include "datachunkhandler.h"
#include "stopsignals.h"
#include "terminal.h"

#include <QCoreApplication>
#include <QEventLoop>

Unpacked unpackArchive(DatachunkHandler &store, const QString &zipName)
{
    Unpacked unpacked;
    QEventLoop loop;
    QObject::connect(&store, &DatachunkHandler::newErrorMessage, &loop, [&](const QString &text) {
        printError(zipName, text);
        unpacked.damaged = true;
    });
    QObject::connect(&store, &DatachunkHandler::newZippedFile, &loop,
                     [&](const QString &name, const QString &, const QDir &folder) {
                         unpacked.chunks.append(folder.filePath(name));
                     });
    QObject::connect(&store, &DatachunkHandler::zipFileLoaded, &loop, &QEventLoop::quit);
    StopSignals::whenStopped(&loop, [&loop] { loop.quit(); });
    store.importMessages(zipName, DatachunkHelper::ZipArchive);
    loop.exec();
    QCoreApplication::sendPostedEvents(&store);
    return interrupted(zipName) ? Unpacked{{}, true} : unpacked;
}
