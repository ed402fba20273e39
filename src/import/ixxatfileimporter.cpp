#include "ixxatfileimporter.h"

#include "importersink.h"

IxxatFileImporter::IxxatFileImporter(QObject *parent) : QObject(parent) { }

bool IxxatFileImporter::importFile(QString fileName, QList<CAN::CanRxMessage> *messages,
                                   QMap<unsigned int, QString> *notes)
{
    if (!messages)
        return false;
    ListSink sink(*this, *messages, notes);
    const TraceRequest request{fileName, DatachunkHelper::IxxatTrace, QString()};
    return runImporter(*this, request, sink, errorString);
}

QString IxxatFileImporter::getErrorString()
{
    return errorString;
}
