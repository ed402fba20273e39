#include "genericfileimporter.h"

#include "importersink.h"

GenericFileImporter::GenericFileImporter(QObject *parent) : QObject(parent) { }

bool GenericFileImporter::importFile(QString fileName, QList<CAN::CanRxMessage> *messages,
                                     QMap<unsigned int, QString> *notes)
{
    if (!messages)
        return false;
    ListSink sink(*this, *messages, notes);
    const TraceRequest request{fileName, DatachunkHelper::GenericFormat, formatDescription};
    return runImporter(*this, request, sink, errorString);
}

QString GenericFileImporter::getErrorString()
{
    return errorString;
}
