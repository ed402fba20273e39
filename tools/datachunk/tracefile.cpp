#include "tracefile.h"

#include "commands.h"
#include "terminal.h"

#include <QEventLoop>
#include <QFileInfo>
#include <QMetaEnum>

namespace {

// The store moves a buffer to disk this much below its limit.
constexpr quint32 rotationMargin = 5000;

QMetaEnum typeEnum()
{
    return QMetaEnum::fromType<DatachunkHelper::ImportFileType>();
}

QString allTypeNames()
{
    QStringList names;
    for (int i = 0; i < typeEnum().keyCount(); ++i)
        names.append(QLatin1String(typeEnum().key(i)));
    return names.join(QLatin1String(", "));
}

} // namespace

QList<QCommandLineOption> traceOptions()
{
    return {
        {QStringLiteral("type"),
         Cli::tr("Read the file as this type instead of the one detected: %1.").arg(allTypeNames()),
         QStringLiteral("NAME")},
        {QStringLiteral("format"),
         Cli::tr("Read a text of the layout described (type GenericFormat)."),
         QStringLiteral("DESCRIPTION")}};
}

QString typeName(DatachunkHelper::ImportFileType type)
{
    return QLatin1String(typeEnum().valueToKey(type));
}

bool chooseType(const QCommandLineParser &parser, TraceFile &trace)
{
    const QString name = parser.value(QStringLiteral("type"));
    const bool described = parser.isSet(QStringLiteral("format"));
    if (parser.isSet(QStringLiteral("type"))) {
        bool known = false;
        trace.type = DatachunkHelper::ImportFileType(
            typeEnum().keyToValue(name.toLatin1().constData(), &known));
        if (!known) {
            usageError(
                Cli::tr("there is no type \"%1\"; the types are %2").arg(name, allTypeNames()));
            return false;
        }
    } else {
        trace.type = described ? DatachunkHelper::GenericFormat
                               : DatachunkHelper().getImportFileType(trace.name);
    }
    if (described != (trace.type == DatachunkHelper::GenericFormat)) {
        usageError(Cli::tr("--format and the type GenericFormat go together"));
        return false;
    }
    trace.formatDescription = parser.value(QStringLiteral("format"));
    return true;
}

bool checkReadable(const QString &fileName)
{
    QFile file(fileName);
    if (QFileInfo(fileName).isFile() && file.open(QIODevice::ReadOnly))
        return true;
    const WorkFolder work(QDir::tempPath());
    DatachunkHandler store(0);
    QObject::connect(&store, &DatachunkHandler::newErrorMessage,
                     [&](const QString &text) { printError(fileName, text); });
    // Names the file that the text is about.
    store.loadFile(fileName, false, DatachunkHelper::Unknown, DatachunkHelper::CurrentMessages,
                   QString());
    store.showFileLoadingError();
    return false;
}

bool checkChunkFile(const QString &fileName)
{
    if (!checkReadable(fileName))
        return false;
    if (DatachunkHelper().getImportFileType(fileName) == DatachunkHelper::ChunkFile)
        return true;
    printError(fileName, Cli::tr("The file is no chunk file."));
    return false;
}

TraceReading::TraceReading(const TraceFile &trace, const QString &workParent,
                           quint32 messagesPerPart)
    : trace(trace), messagesPerPart(messagesPerPart), work(workParent)
{
    store = createStore(work, messagesPerPart + rotationMargin, trace.name);
    if (!store)
        return;
    store->setBookmarkhandler(&bookmarks);
    printStoreErrors(*store);
    QObject::connect(&stopSignals, &StopSignals::stop, store.get(), &DatachunkHandler::goLive);
}

TraceReading::~TraceReading() = default;

void TraceReading::printStoreErrors(DatachunkHandler &from)
{
    QObject::connect(&from, &DatachunkHandler::newErrorMessage, [this](const QString &text) {
        printError(trace.name, text);
        errorPrinted = true;
    });
}

bool TraceReading::checkType() const
{
    if (trace.type == DatachunkHelper::Unknown)
        printError(trace.name, Cli::tr("The type of the file is unknown."));
    else if (trace.type == DatachunkHelper::EmptyTxtFile)
        printError(trace.name, Cli::tr("The file is empty."));
    else if (trace.type == DatachunkHelper::Unassigned)
        printError(trace.name,
                   Cli::tr("Files of type %1 cannot be read.").arg(typeName(trace.type)));
    else
        return true;
    return false;
}

bool TraceReading::import()
{
    if (!store || !checkReadable(trace.name) || !checkType())
        return false;
    Progress progress(trace.name);
    const bool isArchive = trace.type == DatachunkHelper::ZipArchive;
    const bool imported = isArchive ? importArchive() : importFile(progress);
    if (interrupted(trace.name))
        return false;
    if (!imported && !errorPrinted)
        printError(trace.name, Cli::tr("The file could not be imported."));
    if (imported) {
        const int fullParts = qMax(0, partNames.size() - 1);
        progress.setCount(quint64(fullParts) * messagesPerPart + store->getMessageCount());
    }
    return imported && !errorPrinted;
}

bool TraceReading::importFile(Progress &progress)
{
    QObject::connect(store.get(), &DatachunkHandler::newPartialDataFile, store.get(),
                     [&](const QString &fileName) {
                         partNames.append(fileName);
                         progress.setCount(quint64(partNames.size()) * messagesPerPart);
                     });
    bool imported = false;
    QObject::connect(store.get(), &DatachunkHandler::messagesImported, store.get(),
                     [&](const QString &name) { imported = !name.isEmpty(); });
    store->importMessages(trace.name, trace.type, trace.formatDescription);
    store->disconnect(SIGNAL(newPartialDataFile(QString, QString, QString)));
    store->disconnect(SIGNAL(messagesImported(QString)));
    return imported;
}

bool TraceReading::importArchive()
{
    // The list is shown, or a failure told, only behind the signal.
    QEventLoop loop;
    QObject::connect(store.get(), &DatachunkHandler::informAboutCleared, &loop, &QEventLoop::quit,
                     Qt::QueuedConnection);
    store->importZipAndMerge(trace.name);
    loop.exec();
    return !store->getIsLive();
}

bool TraceReading::forEachPart(const Visitor &visit)
{
    const bool done = partNames.size() <= 1 ? (visit(*store), true) : pageParts(visit);
    return !interrupted(trace.name) && done;
}

bool TraceReading::pageParts(const Visitor &visit)
{
    // The parts belong to the importing store, which needs not show the last one any longer.
    store->goLive();
    DatachunkHandler pager(0);
    pager.setBookmarkhandler(&bookmarks);
    printStoreErrors(pager);
    for (const QString &part : qAsConst(partNames)) {
        if (!pager.loadFile(part, false, DatachunkHelper::ChunkFile,
                            DatachunkHelper::CurrentMessages, QString())) {
            if (!errorPrinted)
                printError(trace.name, Cli::tr("%1 could not be read back.").arg(part));
            return false;
        }
        if (!visit(pager))
            break;
    }
    return true;
}
