// The store's part of loading and importing files of any type.

#include "datachunkhandler.h"
#include "datachunkhandler_p.h"
#include "fileerrors.h"
#include "filenames.h"
#include "loadertable.h"
#include "peakreader.h"
#include "regularfile.h"
#include "storesink.h"
#include "tracereader.h"

#include <QDebug>
#include <QFileInfo>

#include <utility>

namespace {

// What debug lines name, whatever the function is called today.
constexpr char importSignature[] = "void DatachunkHandler::importMessages(QString, "
                                   "DatachunkHelper::ImportFileType, QString)";
constexpr int importBeginLine = 1835;
constexpr int importEndLine = 1872;

bool canBeImported(DatachunkHelper::ImportFileType type)
{
    return type != DatachunkHelper::Unassigned && type != DatachunkHelper::EmptyTxtFile
        && quint32(type) <= DatachunkHelper::GenericFormat;
}

ReadResult readInto(DatachunkHandlerPrivate &store, const ImportRun &run,
                    const TraceRequest &request)
{
    if (traceReaderFor(request.type).delivery == TraceReader::AsRead) {
        StoreSink sink(store, run);
        return readTraceFile(request, sink);
    }
    WholeTraceSink sink(store, run, request);
    return sink.finish(readTraceFile(request, sink));
}

} // namespace

bool DatachunkHandlerPrivate::refuseDuringImport()
{
    if (!importRunning)
        return false;
    emit q->messagesImported(QString());
    return true;
}

void DatachunkHandler::importMessages(QString openFileName,
                                      DatachunkHelper::ImportFileType importFileType,
                                      QString genericFormatDescription)
{
    if (d->refuseDuringImport())
        return;
    const QPointer<DatachunkHandler> store(this);
    d->loadedFileName = QFileInfo(openFileName).baseName();
    qDebug() << importSignature << "Line:" << importBeginLine << d->loadedFileName
             << int(importFileType);
    if (importFileType == DatachunkHelper::ZipArchive) {
        d->archives.run([this, openFileName] { loadZipFile(openFileName); });
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

bool DatachunkHandler::loadFile(QString fileName, bool clearFileName,
                                DatachunkHelper::ImportFileType type,
                                DatachunkHelper::SavedMessageType savedType,
                                QString formatDescription)
{
    Q_UNUSED(clearFileName)
    if (d->refuseDuringImport())
        return false;
    d->fileToLoad = fileName;
    RegularFile file(fileName);
    if (quint32(type) > DatachunkHelper::GenericFormat || !file.openForReading())
        return false;
    file.close();
    const ImportRun run(this);
    d->leaveLiveMode();
    if (!run.storeExists())
        return false;
    if (type == DatachunkHelper::ChunkFile) {
        const bool read = d->readChunk(fileName, ChunkFormat::BookmarkMap::Read);
        if (!run.goesOn())
            return run.storeExists() && d->endCancelledImport();
        return read && d->finishImport(run, false);
    }
    emit showLoadingDialog(true);
    if (!run.storeExists())
        return false;
    const bool read = d->runReader(run, fileName, type, formatDescription);
    if (!run.storeExists())
        return false;
    emit showLoadingDialog(false);
    if (!run.goesOn())
        return run.storeExists() && d->endCancelledImport();
    if (!read || traceReaderFor(type).outcome == TraceReader::CountsAsFailed)
        return d->failImport();
    return d->finishImport(run, savedType == DatachunkHelper::CurrentMessages);
}

bool DatachunkHandlerPrivate::runReader(const ImportRun &run, const QString &fileName,
                                        DatachunkHelper::ImportFileType type,
                                        const QString &formatDescription)
{
    const TraceRequest request{fileName, type, formatDescription};
    ReadResult result;
    if (!withinMemory([&] { result = readInto(*this, run, request); }))
        result = {ReadResult::NotRead, 0, FileErrors::outOfMemory(fileName)};
    if (!run.storeExists())
        return false;
    if (result.isDone()) {
        if (!result.systemError.isEmpty())
            emit q->newErrorMessage(result.systemError);
        return true;
    }
    // Whoever calls this tells the last error.
    const QString error =
        result.systemError.isEmpty() ? errorText(result, request) : result.systemError;
    if (!error.isEmpty())
        lastError = error;
    return false;
}

bool DatachunkHandlerPrivate::runLoader(const QString &fileName,
                                        DatachunkHelper::ImportFileType type,
                                        const QString &formatDescription)
{
    if (refuseDuringImport())
        return false;
    const ImportRun run(q);
    return runReader(run, fileName, type, formatDescription);
}

bool DatachunkHandlerPrivate::endCancelledImport()
{
    lastPartialSave.reset();
    q->goLive();
    return false;
}

bool DatachunkHandlerPrivate::failImport()
{
    const QPointer<DatachunkHandler> store(q);
    q->informAboutLastError();
    if (store)
        emit q->informAboutCleared(trace.isLive());
    return store && endCancelledImport();
}

void DatachunkHandlerPrivate::reportNothingImported()
{
    lastError = FileErrors::nothingImported();
    q->informAboutLastError();
}

bool DatachunkHandlerPrivate::finishImport(const ImportRun &run, bool save)
{
    trace.dropRotated();
    lastPartialSave.reset();
    if (!trace.hasPaged()) {
        emit q->informAboutCleared(trace.isLive());
        if (run.storeExists())
            q->goLive();
        if (run.storeExists())
            reportNothingImported();
        return false;
    }
    emit q->informAboutClearStart();
    if (!run.goesOn())
        return run.storeExists() && endCancelledImport();
    const SharedSaveJob job = save ? savePagedMessages(notes.shown()) : SharedSaveJob();
    trace.showPaged();
    if (job && !run.waitFor(job))
        return run.storeExists() && endCancelledImport();
    q->updateLines();
    emit q->informAboutCleared(trace.isLive());
    if (run.goesOn())
        emit q->liveModeChanged(trace.isLive());
    return run.goesOn();
}

QString DatachunkHandlerPrivate::partName() const
{
    constexpr int rest = 2 + 10 + 4; // "\\" twice, a number, ".dck"
    const int folderBytes = QFile::encodeName(chunkFolder.dir().dirName()).size();
    return FileNames::cutToBytes(loadedFileName, FileNames::longest - folderBytes - rest);
}

SharedSaveJob DatachunkHandlerPrivate::savePagedMessages(const ChunkFormat::Notes &messageNotes)
{
    if (!chunkFolder.exists())
        return {};
    const auto job = std::make_shared<SaveJob>();
    job->type = DatachunkHelper::PartialBuffer;
    job->isPrivate = true;
    job->messages = trace.paged();
    job->endPosition = quint32(job->messages.size());
    job->notes = messageNotes;
    job->importName = loadedFileName;
    job->fileName = chunkFolder.partialChunkTemplate(partName());
    chunkSaver.add(job);
    chunkFolder.addFileBeside(job->fileName);
    chunkSaver.start();
    return job;
}

bool DatachunkHandlerPrivate::makeRoomForImported()
{
    const ImportRun run(q);
    // One buffer in the making and one being written is all that an import holds.
    if (lastPartialSave && !run.waitFor(lastPartialSave))
        return false;
    lastPartialSave.reset();
    if (chunkSaver.budget() != 0)
        lastPartialSave = savePagedMessages(notes.of(trace.paged()));
    trace.setPaged({});
    return true;
}

bool DatachunkHandlerPrivate::addImported(const CAN::CanRxMessage &message)
{
    if (trace.pagedIsFull() && !makeRoomForImported())
        return false;
    trace.addPaged(message);
    return true;
}

void DatachunkHandlerPrivate::takeImported(MessageList messages)
{
    LineSet lines;
    for (int i = 0; i < messages.size(); ++i)
        lines.insert(static_cast<unsigned char>(messages.at(i).line));
    trace.addLines(lines);
    trace.setPaged(std::move(messages));
}

bool DatachunkHandler::addTxtMessage(CAN::CanRxMessage msg)
{
    d->addImported(msg);
    return true;
}

bool DatachunkHandler::loadSocketCanDump(QString fileName)
{
    return d->runLoader(fileName, DatachunkHelper::SocketCanDump);
}

bool DatachunkHandler::loadVectorAscLog(QString fileName)
{
    return d->runLoader(fileName, DatachunkHelper::VectorAsc);
}

bool DatachunkHandler::loadVectorAscLogWithoutBitcount(QString fileName)
{
    return d->runLoader(fileName, DatachunkHelper::VectorAscWithoutBitcount);
}

bool DatachunkHandler::loadKvaserCanKingLog(QString fileName)
{
    return d->runLoader(fileName, DatachunkHelper::KvaserCanKingLog);
}

bool DatachunkHandler::loadKvaserTxtLog(QString fileName)
{
    return d->runLoader(fileName, DatachunkHelper::KvaserTxtLog);
}

bool DatachunkHandler::loadKolvarTxtFile(QString fileName)
{
    return d->runLoader(fileName, DatachunkHelper::KolvarTxt);
}

bool DatachunkHandler::importMessagesFromTxt(QString fileName)
{
    return d->runLoader(fileName, DatachunkHelper::PcanExplorerTxt);
}

bool DatachunkHandler::loadWiresharkCSV(QString fileName)
{
    return d->runLoader(fileName, DatachunkHelper::WiresharkCsv);
}

bool DatachunkHandler::loadPeakTraceFile(QString fileName, DatachunkHelper::ImportFileType type)
{
    return d->runLoader(fileName, peakTraceType(type));
}

bool DatachunkHandler::loadIxxatFile(QString fileName)
{
    return d->runLoader(fileName, DatachunkHelper::IxxatTrace);
}

bool DatachunkHandler::loadCoCTTFile(QString fileName)
{
    return d->runLoader(fileName, DatachunkHelper::CoCTTLog);
}

bool DatachunkHandler::loadGenericFile(QString fileName, QString formatDescription)
{
    return d->runLoader(fileName, DatachunkHelper::GenericFormat, formatDescription);
}
