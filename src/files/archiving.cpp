// The store's part of packing chunk files into ZIP archives and reading them back.

#include "datachunkhandler.h"
#include "datachunkhandler_p.h"

void DatachunkHandler::setZipFileName(QString fileName)
{
    d->zipFileName = fileName;
}

void DatachunkHandler::setZipAfterSaving(bool on)
{
    d->zipAfterSaving = on;
}

void DatachunkHandler::saveDatachunksToZip() { }

bool DatachunkHandler::loadZipFile(QString zipName)
{
    emit zipFileLoaded(zipName);
    return false;
}
