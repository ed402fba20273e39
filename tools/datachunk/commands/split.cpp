#include "chunknames.h"
#include "commands.h"
#include "filechecks.h"
#include "movefiles.h"
#include "options.h"
#include "terminal.h"
#include "tracereading.h"
#include "tracewriter.h"
#include "workfolder.h"

#include <QFileInfo>

#include <limits>
#include <memory>

namespace {

// The most parts that the library can number when it splits a file.
constexpr quint64 mostParts = 256;

using Result = TraceReading::Result;

bool checkPartCount(const QString &fileName, quint64 count, quint64 messagesPerFile)
{
    if ((count + messagesPerFile - 1) / messagesPerFile <= mostParts)
        return true;
    printError(fileName,
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

// Writes the parts, one after the other, into a work folder.
class Splitter
{
public:
    Splitter(const WorkFolder &work, const QString &base, quint64 messagesPerFile)
        : work(work), base(base), messagesPerFile(messagesPerFile)
    {
    }

    /// False when the message could not be written.
    bool write(CAN::CanRxMessage message)
    {
        if (count % messagesPerFile == 0 && !(finish() && begin()))
            return false;
        message.messageNumber = count++;
        return part->write(message);
    }

    /// False when something of the part is missing.
    bool finish() { return !part || part->close(); }

    QStringList fileNames() const { return files; }

private:
    bool begin()
    {
        files.append(work.filePath(ChunkNames::part(base, quint32(files.size()))));
        part = std::make_unique<TraceWriter>(files.last(), TraceFrame(), false);
        return part->open();
    }

    const WorkFolder &work;
    const QString base;
    const quint64 messagesPerFile;
    quint32 count = 0;
    std::unique_ptr<TraceWriter> part;
    QStringList files;
};

Result countMessages(TraceReading &reading, quint64 &count)
{
    return reading.forEachMessage([&count](const TraceItem &) {
        ++count;
        return true;
    });
}

bool moveParts(const QStringList &files, const QDir &folder)
{
    QStringList names;
    for (const QString &file : files)
        names.append(folder.filePath(QFileInfo(file).fileName()));
    return makeFolder(folder) && moveChunks(files, names);
}

// The folder for the parts is created only when all of them are written.
bool split(TraceReading &reading, const QString &fileName, quint64 messagesPerFile)
{
    const QFileInfo file(fileName);
    const WorkFolder work(file.path());
    if (!work.isValid()) {
        printError(file.path(), work.errorText());
        return false;
    }
    Splitter splitter(work, file.baseName(), messagesPerFile);
    bool written = true;
    const Result result = reading.forEachMessage([&](const TraceItem &item) {
        written = splitter.write(item.message);
        return written;
    });
    written = splitter.finish() && written;
    if (result == TraceReading::Failed)
        return false;
    if (!written) {
        printError(fileName, Cli::tr("The parts could not be written."));
        return false;
    }
    return moveParts(splitter.fileNames(), partFolder(fileName))
        && result == TraceReading::Complete;
}

} // namespace

QList<QCommandLineOption> splitOptions()
{
    return {{QStringLiteral("messages"), Cli::tr("Messages per chunk file."), QStringLiteral("N")}};
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
    TraceReading reading(trace);
    quint64 count = 0;
    const bool done = reading.open() && countMessages(reading, count) != TraceReading::Failed
        && checkPartCount(trace.name, count, messages) && split(reading, trace.name, messages);
    return finishOutput() && done ? Succeeded : Failed;
}
