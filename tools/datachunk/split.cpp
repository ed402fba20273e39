#include "commands.h"
#include "options.h"
#include "terminal.h"
#include "tracefile.h"

#include <QFileInfo>

#include <limits>

namespace {

// The library numbers the parts with eight bits and would write over the first ones.
constexpr quint64 mostParts = 256;

bool countMessages(const TraceFile &trace, quint64 &count)
{
    TraceReading reading(trace);
    return reading.import() && reading.forEachPart([&count](DatachunkHandler &part) {
        count += part.getMessageCount();
        return true;
    });
}

bool checkPartCount(const TraceFile &trace, quint64 messagesPerFile)
{
    quint64 count = 0;
    if (!countMessages(trace, count))
        return false;
    if ((count + messagesPerFile - 1) / messagesPerFile <= mostParts)
        return true;
    printError(trace.name,
               Cli::tr("More than %1 parts are not possible; take --messages %2.")
                   .arg(mostParts)
                   .arg((count + mostParts - 1) / mostParts));
    return false;
}

QDir partFolder(const QString &fileName)
{
    const QFileInfo file(fileName);
    return file.dir().filePath(file.baseName() + QLatin1String("_splitted"));
}

void printParts(const QString &fileName)
{
    const QString base = QFileInfo(fileName).baseName();
    for (int part = 0; part < int(mostParts); ++part) {
        const QString name =
            partFolder(fileName).filePath(QStringLiteral("%1_%2.dck").arg(base).arg(part));
        if (!QFileInfo::exists(name) || !writeOutput(name + QLatin1Char('\n')))
            return;
    }
}

bool split(const TraceFile &trace, quint64 messagesPerFile)
{
    const WorkFolder work(QDir::tempPath());
    const auto store = createStore(work, 0, trace.name);
    if (!store)
        return false;
    bool errorPrinted = false;
    QObject::connect(store.get(), &DatachunkHandler::newErrorMessage, [&](const QString &text) {
        printError(trace.name, text);
        errorPrinted = true;
    });
    const bool done = store->splitFile(trace.name, quint32(messagesPerFile));
    store->finishContinousOutput();
    if (!done && !errorPrinted)
        printError(trace.name, Cli::tr("The parts could not be written."));
    return done;
}

} // namespace

QList<QCommandLineOption> splitOptions()
{
    return {{QStringLiteral("messages"), Cli::tr("Messages per part."), QStringLiteral("N")}};
}

int runSplit(const QCommandLineParser &parser, const QStringList &files)
{
    quint64 messages = 0;
    if (!parser.isSet(QStringLiteral("messages")))
        return usageError(Cli::tr("--messages is missing"));
    if (!numberOption(parser, QStringLiteral("messages"), 1, std::numeric_limits<quint32>::max(), 0,
                      messages))
        return WrongUsage;
    TraceFile trace;
    trace.name = files.first();
    trace.type = DatachunkHelper::ChunkFile;
    if (!checkChunkFile(trace.name))
        return Failed;
    const QDir folder = partFolder(trace.name);
    if (folder.exists() && !folder.isEmpty()) {
        printError(folder.path(), Cli::tr("The folder of the parts exists already."));
        return Failed;
    }
    if (!checkPartCount(trace, messages) || !split(trace, messages))
        return Failed;
    printParts(trace.name);
    return finishOutput() ? Succeeded : Failed;
}
