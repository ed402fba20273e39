#include "chunkstream.h"

#include "archivelimits.h"
#include "chunkarchive.h"
#include "chunkreading.h"
#include "fileerrors.h"
#include "storetexts.h"
#include "unpackedfile.h"

ReadingPlace placeIn(const UnpackedFile &file)
{
    return [&file] { return ImportProgress{file.bytesRead(), file.bytes(), 0}; };
}

namespace ChunkStream {

namespace {

QString newerVersion()
{
    return StoreTexts::tr("This import file was created with a newer version of this "
                          "tool and could not be imported.");
}

// Hands on the messages of one chunk after the other.
class Streamer
{
public:
    Streamer(const TraceStream::Take &take, const TraceStream::GoesOn &goesOn)
        : take(take), goesOn(goesOn)
    {
    }

    // Done, or NewerVersion, TooLarge or GivenUp. A last record that is cut short is handed on,
    // unless `dropsCut` returns true.
    Outcome::Kind read(QIODevice &device, int part, const std::function<bool()> &dropsCut);

    // Tells what is wrong with the chunk read last; empty when nothing is.
    QString damage(const QString &name) const
    {
        return Damage::ofChunk(name, front, end, messages);
    }
    qint64 messagesOfChunk() const { return messages; }
    bool hasMessages() const { return total > 0; }

private:
    bool handOn(TraceItem &item);

    const TraceStream::Take &take;
    const TraceStream::GoesOn &goesOn;
    ChunkReading::Front front;
    ChunkFormat::RecordsEnd end;
    qint64 messages = 0;
    qint64 total = 0;
};

Outcome::Kind Streamer::read(QIODevice &device, int part, const std::function<bool()> &dropsCut)
{
    front = {};
    end = {};
    messages = 0;
    const Outcome::Kind result = ChunkReading::readFront(
        device, ChunkFormat::BookmarkMap::Read, {ArchiveLimits::memoryLimit(), goesOn}, front);
    if (result != Outcome::Done)
        return result;
    TraceItem item;
    item.part = part;
    ChunkFormat::RecordReader records(device, front.preamble.version);
    while (records.next(item.message) && !(records.lastIsCut() && dropsCut())) {
        if (!handOn(item))
            return Outcome::GivenUp;
    }
    end = records.end();
    return Outcome::Done;
}

bool Streamer::handOn(TraceItem &item)
{
    constexpr qint64 messagesBetweenQuestions = 1000;
    const quint32 number = item.message.messageNumber;
    item.note = front.maps.notes.value(number);
    item.bookmark = front.maps.bookmarks.value(number);
    ++messages;
    return (total++ % messagesBetweenQuestions != 0 || goesOn()) && take(item);
}

TraceStream::Result resultOf(const Streamer &streamer, QStringList &errors)
{
    if (streamer.hasMessages())
        return errors.isEmpty() ? TraceStream::Complete : TraceStream::Incomplete;
    if (errors.isEmpty())
        errors.append(FileErrors::nothingImported());
    return TraceStream::Failed;
}

// Reads one chunk of an archive. False to stop.
bool readEntry(const Zip::Reader &archive, const ChunkArchive::Chunk &chunk, int part,
               WorkProgress &work, Streamer &streamer, Damage::List &damage)
{
    const QString name = Damage::entryName(chunk.entry.name, archive.fileName());
    const auto content = archive.open(chunk.entry, work);
    if (!content) {
        damage.add(Damage::notOpened(name));
        return true;
    }
    const Outcome::Kind step =
        streamer.read(*content, part, [&content] { return content->isDamaged(); });
    if (step == Outcome::GivenUp || !work.goesOn())
        return false;
    QString sentence = streamer.damage(name);
    if (step == Outcome::TooLarge)
        sentence = FileErrors::outOfMemory(name);
    else if (content->isDamaged())
        sentence = ChunkArchive::damageOf(archive, chunk, *content,
                                          Damage::messagesRead(streamer.messagesOfChunk()));
    else if (step == Outcome::NewerVersion)
        sentence = chunk.entry.name + QLatin1String(": ") + newerVersion();
    if (!sentence.isEmpty() && archive.readErrorText().isEmpty())
        damage.add(sentence);
    return true;
}

void addErrors(const Zip::Reader &archive, const Damage::List &damage, QStringList &errors)
{
    errors += damage.sentences(archive.fileName());
    if (!archive.readErrorText().isEmpty())
        errors.append(archive.readErrorText());
}

TraceStream::Result failed(const QString &error, QStringList &errors)
{
    errors.append(error);
    return TraceStream::Failed;
}

} // namespace

TraceStream::Result readFile(const QString &fileName, const TraceStream::Take &take,
                             const TraceStream::GoesOn &goesOn, ReadingPlace &place,
                             QStringList &errors)
{
    UnpackedFile file(fileName);
    if (!file.openForReading()) {
        const QString error = FileErrors::notRead(fileName, file.errorString());
        return failed(file.refusal().isEmpty() ? error : file.refusal(), errors);
    }
    place = placeIn(file);
    Streamer streamer(take, goesOn);
    const Outcome::Kind step = streamer.read(file, 0, [] { return false; });
    if (step == Outcome::GivenUp)
        return TraceStream::Stopped;
    if (step == Outcome::NewerVersion)
        return failed(newerVersion(), errors);
    if (step == Outcome::TooLarge)
        return failed(FileErrors::outOfMemory(fileName), errors);
    QString error = file.readErrorText();
    if (error.isEmpty() && file.bytes() > 0)
        error = streamer.damage(fileName);
    if (!error.isEmpty())
        errors.append(error);
    return resultOf(streamer, errors);
}

TraceStream::Result readArchive(const QString &fileName, const TraceStream::Take &take,
                                const TraceStream::GoesOn &goesOn, ReadingPlace &place,
                                QStringList &errors)
{
    const Zip::Reader archive(fileName);
    const Outcome checked = ChunkArchive::checkDirectory(archive);
    Damage::List damage;
    Streamer streamer(take, goesOn);
    if (!checked.isDone()) {
        if (!checked.text.isEmpty())
            errors.append(checked.text);
        return resultOf(streamer, errors);
    }
    WorkProgress work(goesOn);
    const auto chunks = ChunkArchive::chunksByStart(archive, work, damage);
    if (ChunkArchive::isBomb(archive, chunks))
        return failed(FileErrors::bomb(fileName), errors);
    work.begin(ChunkArchive::totalSize(chunks));
    place = [&work] { return ImportProgress{work.bytesDone(), work.bytes(), 0}; };
    int part = 0;
    for (const ChunkArchive::Chunk &chunk : chunks) {
        if (readEntry(archive, chunk, part++, work, streamer, damage))
            continue;
        addErrors(archive, damage, errors);
        return TraceStream::Stopped;
    }
    addErrors(archive, damage, errors);
    return resultOf(streamer, errors);
}

} // namespace ChunkStream
