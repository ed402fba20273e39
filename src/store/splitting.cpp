// The store's part of splitting chunk files.

#include "archivelimits.h"
#include "chunkversion.h"
#include "damage.h"
#include "datachunkhandler.h"
#include "datachunkhandler_p.h"
#include "fileerrors.h"
#include "regularfile.h"

#include <QFileInfo>

#include <memory>
#include <utility>

using ChunkReading::Result;

namespace {

/// Writes the parts one after the other. The store's own continuous output stays out of it until
/// the last part takes its place: what an application adds to it meanwhile belongs to no part.
class PartWriter
{
public:
    PartWriter(const QString &nameTemplate, quint32 messagesPerFile)
        : nameTemplate(nameTemplate), messagesPerFile(messagesPerFile),
          output(std::make_unique<ContinuousOutput>())
    {
    }

    /// False when a part could not be created or written.
    bool add(CAN::CanRxMessage &message);
    bool flush();

    quint32 messages() const { return count; }
    QString fileName() const { return partName; }
    QString errorText() const { return output->errorText(); }
    std::unique_ptr<ContinuousOutput> takeOutput() { return std::move(output); }

private:
    bool beginPart();

    const QString nameTemplate;
    const quint32 messagesPerFile;
    std::unique_ptr<ContinuousOutput> output;
    QString partName;
    // Eight bits on purpose: part 256 is part 0 again.
    quint8 part = 0;
    quint32 count = 0;
};

bool PartWriter::add(CAN::CanRxMessage &message)
{
    if (count % messagesPerFile == 0 && !beginPart())
        return false;
    message.messageNumber = count++;
    output->append(message);
    return true;
}

bool PartWriter::beginPart()
{
    output->finish();
    if (!errorText().isEmpty())
        return false;
    partName = fillChunkNumber(nameTemplate, part++);
    return output->create(partName);
}

bool PartWriter::flush()
{
    output->flush();
    return errorText().isEmpty();
}

} // namespace

bool DatachunkHandler::splitFile(QString fileName, unsigned int messagesPerFile)
{
    const ImportRun run(this);
    bool split = false;
    if (!withinMemory([&] { split = d->split(run, fileName, messagesPerFile); })
        && run.storeExists())
        emit newErrorMessage(FileErrors::outOfMemory(fileName));
    return split;
}

bool DatachunkHandlerPrivate::split(const ImportRun &run, const QString &fileName,
                                    quint32 messagesPerFile)
{
    const QFileInfo source(fileName);
    RegularFile file(fileName);
    if (messagesPerFile == 0 || !source.isFile())
        return false;
    const QString baseName = source.baseName();
    QDir folder = source.absoluteDir();
    const QString folderName = baseName + QLatin1String("_splitted");
    folder.mkdir(folderName);
    if (!folder.cd(folderName) || !file.openForReading())
        return false;
    ChunkReading::Front front;
    const Result result = ChunkReading::readFront(
        file, ChunkFormat::BookmarkMap::Read,
        {ArchiveLimits::memoryLimit(), [&run] { return run.turn(); }}, front);
    if (result == Result::GivenUp)
        return false;
    if (result != Result::Done) {
        refuseChunk(result, ArchiveLimits::messagesIn(file.size()));
        return false;
    }
    // Nobody wants the notes and bookmarks of the source.
    front.maps = {};
    setCurrentChunkVersion(front.preamble.version);
    const QString partTemplate = folder.absoluteFilePath(baseName + QLatin1String("_%1.dck"));
    return splitRecords(run, file, front, partTemplate, messagesPerFile);
}

bool DatachunkHandlerPrivate::splitRecords(const ImportRun &run, RegularFile &file,
                                           const ChunkReading::Front &front,
                                           const QString &partTemplate, quint32 messagesPerFile)
{
    PartWriter parts(partTemplate, messagesPerFile);
    CAN::CanRxMessage message;
    ChunkFormat::RecordReader reader(file, front.preamble.version);
    bool good = true;
    while (good && reader.next(message)) {
        if (parts.messages() == 0) {
            q->finishContinousOutput();
            if (!run.goesOn())
                return false;
        }
        good = parts.add(message);
        if (parts.messages() % ChunkReading::recordsBetweenTurns == 0 && !run.turn())
            return false;
    }
    good = parts.flush() && good;
    QStringList told;
    if (!parts.errorText().isEmpty())
        told.append(FileErrors::notWritten(parts.fileName(), parts.errorText()));
    if (!file.readErrorText().isEmpty())
        told.append(file.readErrorText());
    else if (file.size() > 0)
        told.append(Damage::ofChunk(file.fileName(), front, reader.end(), parts.messages()));
    good = good && file.readErrorText().isEmpty();
    if (good && parts.messages() > 0)
        continueOutput(parts.takeOutput());
    if (run.storeExists())
        tell(told);
    return good;
}

void DatachunkHandlerPrivate::continueOutput(std::unique_ptr<ContinuousOutput> output)
{
    const QPointer<DatachunkHandler> store(q);
    q->finishContinousOutput();
    if (!store)
        return;
    continuousOutput = std::move(output);
    continuousOutputReported = false;
}
