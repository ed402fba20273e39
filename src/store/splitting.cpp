#include "splitting.h"

#include "archivelimits.h"
#include "chunkfolder.h"
#include "chunkloading.h"
#include "chunkversion.h"
#include "damage.h"
#include "fileerrors.h"
#include "importrun.h"
#include "regularfile.h"

#include <QFileInfo>

#include <memory>
#include <utility>

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

/// The splitting of one file.
class Splitting
{
public:
    Splitting(Browsing &browsing, RecordingOutput &output, const QString &fileName)
        : browsing(browsing), output(output), teller(browsing.teller), run(browsing), file(fileName)
    {
    }

    bool split(quint32 messagesPerFile);

private:
    bool openFolder(QDir &folder) const;
    bool readFront();
    bool splitRecords(PartWriter &parts);
    QStringList damage(const PartWriter &parts, const ChunkFormat::RecordsEnd &end) const;

    Browsing &browsing;
    RecordingOutput &output;
    const Teller teller;
    const ImportRun run;
    RegularFile file;
    ChunkReading::Front front;
};

bool Splitting::openFolder(QDir &folder) const
{
    const QFileInfo source(file.fileName());
    if (!source.isFile())
        return false;
    folder = source.absoluteDir();
    const QString name = source.baseName() + QLatin1String("_splitted");
    folder.mkdir(name);
    return folder.cd(name);
}

bool Splitting::readFront()
{
    const Outcome::Kind result = ChunkReading::readFront(
        file, ChunkFormat::BookmarkMap::Read,
        {ArchiveLimits::memoryLimit(), [this] { return run.turn(); }}, front);
    if (result == Outcome::GivenUp)
        return false;
    if (result != Outcome::Done) {
        ChunkLoading::refuse(browsing, result, ArchiveLimits::messagesIn(file.size()));
        return false;
    }
    // Nobody wants the notes and bookmarks of the source.
    front.maps = {};
    setCurrentChunkVersion(front.preamble.version);
    return true;
}

bool Splitting::split(quint32 messagesPerFile)
{
    QDir folder;
    if (messagesPerFile == 0 || !openFolder(folder) || !file.openForReading() || !readFront())
        return false;
    const QString baseName = QFileInfo(file.fileName()).baseName();
    PartWriter parts(folder.absoluteFilePath(baseName + QLatin1String("_%1.dck")), messagesPerFile);
    return splitRecords(parts);
}

bool Splitting::splitRecords(PartWriter &parts)
{
    CAN::CanRxMessage message;
    ChunkFormat::RecordReader reader(file, front.preamble.version);
    bool good = true;
    while (good && reader.next(message)) {
        if (parts.messages() == 0 && !(output.finish() && run.goesOn()))
            return false;
        good = parts.add(message);
        if (parts.messages() % ChunkReading::recordsBetweenTurns != 0)
            continue;
        browsing.setProgress({file.pos(), file.size(), parts.messages()});
        if (!run.turn())
            return false;
    }
    good = parts.flush() && good && file.readErrorText().isEmpty();
    const QStringList told = damage(parts, reader.end());
    // What is told may be a slot's reason to delete the store, and is no failure of the splitting.
    if (!good || parts.messages() == 0 || output.goOnWith(parts.takeOutput()))
        static_cast<void>(teller.tellErrors(told));
    return good;
}

QStringList Splitting::damage(const PartWriter &parts, const ChunkFormat::RecordsEnd &end) const
{
    QStringList told;
    if (!parts.errorText().isEmpty())
        told.append(FileErrors::notWritten(parts.fileName(), parts.errorText()));
    if (!file.readErrorText().isEmpty())
        told.append(file.readErrorText());
    else if (file.size() > 0)
        told.append(Damage::ofChunk(file.fileName(), front, end, parts.messages()));
    return told;
}

} // namespace

bool splitChunkFile(Browsing &browsing, RecordingOutput &output, const QString &fileName,
                    quint32 messagesPerFile)
{
    const Teller teller = browsing.teller;
    Splitting splitting(browsing, output, fileName);
    bool isSplit = false;
    if (!withinMemory([&] { isSplit = splitting.split(messagesPerFile); }))
        teller.tellLast(&DatachunkHandler::newErrorMessage, FileErrors::outOfMemory(fileName));
    return isSplit;
}
