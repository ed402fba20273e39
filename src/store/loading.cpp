// The store's doors for loading and importing files.

#include "chunkloading.h"
#include "datachunkhandler.h"
#include "datachunkhandler_p.h"
#include "loadertable.h"
#include "peakreader.h"
#include "regularfile.h"
#include "splitting.h"
#include "storesink.h"

#include <QDebug>
#include <QFileInfo>

using ChunkFormat::BookmarkMap;

namespace {

// What debug lines name, whatever the function is called today.
constexpr char importSignature[] = "void DatachunkHandler::importMessages(QString, "
                                   "DatachunkHelper::ImportFileType, QString)";
constexpr int importBeginLine = 1835;
constexpr int importEndLine = 1872;

// What nobody knows is read as plain text, but for what nobody found out about.
bool canBeLoaded(DatachunkHelper::ImportFileType type)
{
    return quint32(type) <= DatachunkHelper::GenericFormat || isTraceText(type);
}

bool canBeImported(DatachunkHelper::ImportFileType type)
{
    return type == DatachunkHelper::ChunkFile || isTraceText(type);
}

} // namespace

bool DatachunkHandler::loadFile(QString fileName, bool clearFileName,
                                DatachunkHelper::ImportFileType type,
                                DatachunkHelper::SavedMessageType savedType,
                                QString formatDescription)
{
    Q_UNUSED(clearFileName)
    if (d->browsing.refuseDuringImport())
        return false;
    d->fileToLoad = fileName;
    RegularFile file(fileName);
    if (!canBeLoaded(type) || !file.openForReading())
        return false;
    file.close();
    const bool save = savedType == DatachunkHelper::CurrentMessages;
    return d->loadFile({fileName, type, formatDescription, d->browsing.importMode(),
                        d->browsing.readsCompressed()},
                       save);
}

bool DatachunkHandlerPrivate::loadFile(const TraceRequest &request, bool save)
{
    const Teller caller = teller;
    const ImportRun run(browsing, &partialChunks);
    browsing.leaveLive();
    if (!run.storeExists())
        return false;
    if (request.type == DatachunkHelper::ChunkFile) {
        const bool read = ChunkLoading::readFile(browsing, request.fileName, BookmarkMap::Read);
        if (!run.goesOn())
            return run.cancelled();
        return read && run.finish(nullptr);
    }
    if (!caller.tell(&DatachunkHandler::showLoadingDialog, true))
        return false;
    const bool read = readTrace(run, browsing, partialChunks, request);
    if (!caller.tell(&DatachunkHandler::showLoadingDialog, false) || !run.goesOn())
        return run.cancelled();
    if (!read || traceReaderFor(request).verdict == TraceReader::CountsAsFailed)
        return run.failed();
    return run.finish(save ? &partialChunks : nullptr);
}

bool DatachunkHandlerPrivate::readAlone(const TraceRequest &request)
{
    if (browsing.refuseDuringImport())
        return false;
    const ImportRun run(browsing, &partialChunks);
    return readTrace(run, browsing, partialChunks, request);
}

void DatachunkHandler::importMessages(QString openFileName,
                                      DatachunkHelper::ImportFileType importFileType,
                                      QString genericFormatDescription)
{
    if (d->browsing.refuseDuringImport())
        return;
    const QPointer<DatachunkHandler> store(this);
    const QString name = QFileInfo(openFileName).baseName();
    d->partialChunks.setImportName(name);
    qDebug() << importSignature << "Line:" << importBeginLine << name << int(importFileType);
    if (importFileType == DatachunkHelper::ZipArchive) {
        d->archives.later([this, openFileName] { loadZipFile(openFileName); });
        return;
    }
    const bool described = importFileType == DatachunkHelper::GenericFormat;
    const bool imported = canBeImported(importFileType)
        && loadFile(openFileName, false, importFileType, DatachunkHelper::CurrentMessages,
                    described ? genericFormatDescription : QString());
    qDebug() << importSignature << "Line:" << importEndLine << imported;
    if (!store)
        return;
    if (!imported) {
        emit messagesImported(QString());
        return;
    }
    if (importFileType == DatachunkHelper::ChunkFile)
        emit newImportedFile(openFileName.section(QLatin1Char('/'), -1), openFileName);
    if (store)
        emit messagesImported(openFileName);
}

bool DatachunkHandler::loadDckFile(QString fileName)
{
    return !d->browsing.refuseDuringImport()
        && ChunkLoading::readFile(d->browsing, fileName, BookmarkMap::Read);
}

bool DatachunkHandler::appendDckFile(QString fileName)
{
    return !d->browsing.refuseDuringImport()
        && ChunkLoading::readFile(d->browsing, fileName, BookmarkMap::NotRead);
}

bool DatachunkHandler::loadDataFromFile(int number)
{
    const ChunkFolder &folder = d->chunkSaver.folder();
    if (!folder.exists())
        return true;
    const SharedSaveJob job = d->chunkSaver.pending(quint32(number));
    if (!job) {
        loadFile(folder.chunkPath(number), true, DatachunkHelper::ChunkFile,
                 DatachunkHelper::CurrentMessages, QString());
    } else if (!d->browsing.refuseDuringImport()) {
        d->fileToLoad = job->fileName;
        ChunkLoading::showPending(d->browsing, *job);
    }
    return true;
}

void DatachunkHandler::loadDataFromFile(QString fileName, DatachunkHelper::SavedMessageType smt)
{
    loadFile(fileName, false, DatachunkHelper().getImportFileType(fileName), smt, QString());
}

void DatachunkHandler::showFileLoadingError()
{
    emit newErrorMessage(tr("The file at %1 does not exists.").arg(d->fileToLoad));
}

bool DatachunkHandler::splitFile(QString fileName, unsigned int messagesPerFile)
{
    return splitChunkFile(d->browsing, d->continuousOutput, fileName, messagesPerFile);
}

bool DatachunkHandler::addTxtMessage(CAN::CanRxMessage msg)
{
    const ImportRun run(d->browsing, &d->partialChunks);
    StoreSink(run, d->browsing, d->partialChunks).message(msg);
    return true;
}

bool DatachunkHandler::loadSocketCanDump(QString fileName)
{
    return d->readAlone({fileName, DatachunkHelper::SocketCanDump, {}, d->browsing.importMode()});
}

bool DatachunkHandler::loadVectorAscLog(QString fileName)
{
    return d->readAlone({fileName, DatachunkHelper::VectorAsc, {}, d->browsing.importMode()});
}

bool DatachunkHandler::loadVectorAscLogWithoutBitcount(QString fileName)
{
    return d->readAlone(
        {fileName, DatachunkHelper::VectorAscWithoutBitcount, {}, d->browsing.importMode()});
}

bool DatachunkHandler::loadKvaserCanKingLog(QString fileName)
{
    return d->readAlone(
        {fileName, DatachunkHelper::KvaserCanKingLog, {}, d->browsing.importMode()});
}

bool DatachunkHandler::loadKvaserTxtLog(QString fileName)
{
    return d->readAlone({fileName, DatachunkHelper::KvaserTxtLog, {}, d->browsing.importMode()});
}

bool DatachunkHandler::loadKolvarTxtFile(QString fileName)
{
    return d->readAlone({fileName, DatachunkHelper::KolvarTxt, {}, d->browsing.importMode()});
}

bool DatachunkHandler::importMessagesFromTxt(QString fileName)
{
    return d->readAlone({fileName, DatachunkHelper::PcanExplorerTxt, {}, d->browsing.importMode()});
}

bool DatachunkHandler::loadWiresharkCSV(QString fileName)
{
    return d->readAlone({fileName, DatachunkHelper::WiresharkCsv, {}, d->browsing.importMode()});
}

bool DatachunkHandler::loadPeakTraceFile(QString fileName, DatachunkHelper::ImportFileType type)
{
    return d->readAlone({fileName, peakTraceType(type), {}, d->browsing.importMode()});
}

bool DatachunkHandler::loadIxxatFile(QString fileName)
{
    return d->readAlone({fileName, DatachunkHelper::IxxatTrace, {}, d->browsing.importMode()});
}

bool DatachunkHandler::loadCoCTTFile(QString fileName)
{
    return d->readAlone({fileName, DatachunkHelper::CoCTTLog, {}, d->browsing.importMode()});
}

bool DatachunkHandler::loadGenericFile(QString fileName, QString formatDescription)
{
    return d->readAlone(
        {fileName, DatachunkHelper::GenericFormat, formatDescription, d->browsing.importMode()});
}

void DatachunkHandler::setImportMode(ImportMode mode)
{
    d->browsing.setImportMode(mode);
}

DatachunkHandler::ImportMode DatachunkHandler::importMode() const
{
    return d->browsing.importMode();
}

void DatachunkHandler::setReadsCompressed(bool always)
{
    d->browsing.setReadsCompressed(always);
}

ImportProgress DatachunkHandler::importProgress() const
{
    if (d->browsing.isImporting())
        return d->browsing.progress();
    const auto work = d->archives.workUnderWay();
    return work ? ImportProgress{work->bytesDone(), work->bytes(), work->messages()}
                : ImportProgress();
}

void DatachunkHandler::cancelImport()
{
    if (d->browsing.isImporting()) {
        d->browsing.discardImport();
        return;
    }
    if (const auto work = d->archives.workUnderWay())
        work->cancel();
}

ImportReport DatachunkHandler::importReport() const
{
    return d->browsing.importReport();
}
