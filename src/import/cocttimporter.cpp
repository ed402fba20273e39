#include "cocttimporter.h"

#include "importersink.h"

CoCTTImporter::CoCTTImporter(QObject *parent) : QObject(parent) { }

bool CoCTTImporter::importFile(QString fileName, QList<CAN::CanRxMessage> *messages,
                               QMap<unsigned int, QString> *notes)
{
    if (!messages)
        return false;
    ListSink sink(*this, *messages, notes);
    const TraceRequest request{fileName, DatachunkHelper::CoCTTLog, QString()};
    return runImporter(*this, request, sink, errorString);
}

QString CoCTTImporter::getErrorString()
{
    return errorString;
}
