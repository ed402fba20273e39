#include "tracereading.h"

#include "datachunkhandler.h"
#include "stopsignals.h"
#include "terminal.h"
#include "tracestream.h"
#include "unpacking.h"

#include <QFileInfo>

TraceReading::TraceReading(const TraceFile &trace, const QString &workParent)
    : trace(trace), workParent(workParent)
{
}

TraceReading::~TraceReading() = default;

bool TraceReading::open()
{
    if (!checkTrace(trace))
        return false;
    const bool isArchive = trace.type == DatachunkHelper::ZipArchive;
    const bool isChunk = trace.type == DatachunkHelper::ChunkFile;
    return (!isArchive && !isChunk) || openChunks();
}

bool TraceReading::openChunks()
{
    work.emplace(workParent);
    if (!work->isValid()) {
        printError(trace.name,
                   Cli::tr("There is no place for temporary files: %1").arg(work->errorText()));
        return false;
    }
    if (trace.type == DatachunkHelper::ZipArchive)
        return unpack();
    chunks = QStringList(trace.name);
    return true;
}

bool TraceReading::unpack()
{
    unpackingStore = createStore(*work, 0, trace.name);
    if (!unpackingStore)
        return false;
    const Unpacked unpacked = unpackArchive(*unpackingStore, trace.name);
    chunks = unpacked.chunks;
    damaged = unpacked.damaged;
    return !chunks.isEmpty();
}

TraceReading::Result TraceReading::forEachMessage(const Visitor &visit)
{
    anyMessage = false;
    const Result result = chunks.isEmpty() ? readText(visit) : readChunks(visit);
    return interrupted(trace.name) ? Failed : result;
}

void TraceReading::tell(const QString &subject, const QString &text)
{
    damaged = true;
    const int before = told.size();
    told.insert(subject + QLatin1Char('\n') + text);
    if (told.size() != before)
        printError(subject, text);
}

TraceReading::Result TraceReading::readText(const Visitor &visit)
{
    TraceItem item;
    const auto take = [&](const CAN::CanRxMessage &message, const QString &note) {
        item.message = message;
        item.note = note;
        return visit(item);
    };
    const auto goesOn = [] {
        QCoreApplication::processEvents();
        return !StopSignals::received();
    };
    TraceStream stream(trace.name, trace.type, trace.formatDescription);
    const TraceStream::Result result = stream.read(take, goesOn);
    if (!stream.errorText().isEmpty())
        tell(trace.name, stream.errorText());
    if (result == TraceStream::Failed)
        return Failed;
    return result == TraceStream::Incomplete ? Damaged : Complete;
}

TraceReading::Result TraceReading::readChunks(const Visitor &visit)
{
    bool goesOn = true;
    for (int part = 0; part < chunks.size() && goesOn; ++part)
        goesOn = readChunk(part, visit);
    if (!damaged)
        return Complete;
    return anyMessage ? Damaged : Failed;
}

void TraceReading::load(int part)
{
    const QString path = chunks.at(part);
    const QString name = QFileInfo(path).fileName();
    const bool isTrace = path == trace.name;
    const QString subject = isTrace ? path : trace.name + QLatin1String(": ") + name;
    if (!store) {
        store = std::make_unique<DatachunkHandler>(0);
        store->setBookmarkhandler(&bookmarks);
    }
    bool failed = false;
    const auto connection =
        QObject::connect(store.get(), &DatachunkHandler::newErrorMessage, [&](QString text) {
            tell(subject, isTrace ? text : text.replace(path, name));
            failed = true;
        });
    const bool loaded = store->loadFile(path, false, DatachunkHelper::ChunkFile,
                                        DatachunkHelper::CurrentMessages, QString());
    QObject::disconnect(connection);
    if (!loaded && !failed)
        tell(subject, Cli::tr("The file could not be read."));
    partShown = part;
    if (!loaded)
        store->goLive();
}

// False when no more is to be read.
bool TraceReading::readChunk(int part, const Visitor &visit)
{
    if (partShown != part)
        load(part);
    const int count = int(store->getMessageCount());
    TraceItem item;
    item.part = part;
    for (int i = 0; i < count; ++i) {
        item.message = store->messageAtPassMutex(i);
        item.note = store->getMessageNote(item.message.messageNumber);
        item.bookmark = store->bookmarkAt(int(item.message.messageNumber));
        anyMessage = true;
        if (StopSignals::received() || !visit(item))
            return false;
    }
    QCoreApplication::processEvents();
    return !StopSignals::received();
}
