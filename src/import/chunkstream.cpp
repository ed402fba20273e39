#include "chunkstream.h"

#include "archivelimits.h"
#include "chunkarchive.h"
#include "chunkreading.h"
#include "fileerrors.h"
#include "regularfile.h"

#include <QCoreApplication>

namespace ChunkStream {

namespace {

QString newerVersion()
{
    return QCoreApplication::translate("DatachunkHandler",
                                       "This import file was created with a newer version of this "
                                       "tool and could not be imported.");
}

// Hands on the messages of one chunk after the other.
class Streamer
{
public:
    enum Step { Done, Stopped, NewerVersion, TooLarge };

    Streamer(const TraceStream::Take &take, const TraceStream::GoesOn &goesOn)
        : take(take), goesOn(goesOn)
    {
    }

    // A last record that is cut short is handed on, unless `dropsCut` returns true.
    Step read(QIODevice &device, int part, const std::function<bool()> &dropsCut);

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

Streamer::Step Streamer::read(QIODevice &device, int part, const std::function<bool()> &dropsCut)
{
    using ChunkReading::Result;
    front = {};
    end = {};
    messages = 0;
    const Result result = ChunkReading::readFront(device, ChunkFormat::BookmarkMap::Read,
                                                  {ArchiveLimits::memoryLimit(), goesOn}, front);
    if (result != Result::Done)
        return result == Result::NewerVersion ? NewerVersion
            : result == Result::TooLarge      ? TooLarge
                                              : Stopped;
    TraceItem item;
    item.part = part;
    ChunkFormat::RecordReader records(device, front.preamble.version);
    while (records.next(item.message) && !(records.lastIsCut() && dropsCut())) {
        if (!handOn(item))
            return Stopped;
    }
    end = records.end();
    return Done;
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

Outcome outcomeOf(const Streamer &streamer, QStringList errors)
{
    if (streamer.hasMessages())
        return {errors.isEmpty() ? TraceStream::Complete : TraceStream::Incomplete, errors};
    if (errors.isEmpty())
        errors.append(FileErrors::nothingImported());
    return {TraceStream::Failed, errors};
}

// Reads one chunk of an archive. False to stop.
bool readEntry(const Zip::Reader &archive, const ChunkArchive::Chunk &chunk, int part,
               const TraceStream::GoesOn &goesOn, Streamer &streamer, Damage::List &damage)
{
    const QString name = Damage::entryName(chunk.entry.name, archive.fileName());
    const auto content = archive.open(chunk.entry, goesOn);
    if (!content) {
        damage.add(Damage::notOpened(name));
        return true;
    }
    const Streamer::Step step =
        streamer.read(*content, part, [&content] { return content->isDamaged(); });
    if (step == Streamer::Stopped || !goesOn())
        return false;
    QString sentence = streamer.damage(name);
    if (step == Streamer::TooLarge)
        sentence = FileErrors::outOfMemory(name);
    else if (content->isDamaged())
        sentence = ChunkArchive::damageOf(archive, chunk, *content,
                                          Damage::messagesRead(streamer.messagesOfChunk()));
    else if (step == Streamer::NewerVersion)
        sentence = chunk.entry.name + QLatin1String(": ") + newerVersion();
    if (!sentence.isEmpty() && archive.readErrorText().isEmpty())
        damage.add(sentence);
    return true;
}

QStringList errorsOf(const Zip::Reader &archive, const Damage::List &damage)
{
    QStringList errors = damage.sentences(archive.fileName());
    if (!archive.readErrorText().isEmpty())
        errors.append(archive.readErrorText());
    return errors;
}

} // namespace

Outcome readFile(const QString &fileName, const TraceStream::Take &take,
                 const TraceStream::GoesOn &goesOn)
{
    RegularFile file(fileName);
    if (!file.openForReading())
        return {TraceStream::Failed, {FileErrors::notRead(fileName, file.errorString())}};
    Streamer streamer(take, goesOn);
    const Streamer::Step step = streamer.read(file, 0, [] { return false; });
    if (step == Streamer::Stopped)
        return {TraceStream::Stopped, {}};
    if (step == Streamer::NewerVersion)
        return {TraceStream::Failed, {newerVersion()}};
    if (step == Streamer::TooLarge)
        return {TraceStream::Failed, {FileErrors::outOfMemory(fileName)}};
    QString error = file.readErrorText();
    if (error.isEmpty() && file.size() > 0)
        error = streamer.damage(fileName);
    return outcomeOf(streamer, error.isEmpty() ? QStringList() : QStringList(error));
}

Outcome readArchive(const QString &fileName, const TraceStream::Take &take,
                    const TraceStream::GoesOn &goesOn)
{
    const Zip::Reader archive(fileName);
    const ChunkArchive::Outcome checked = ChunkArchive::checkDirectory(archive);
    Damage::List damage;
    Streamer streamer(take, goesOn);
    if (checked.result != ChunkArchive::Outcome::Done) {
        return outcomeOf(streamer,
                         checked.systemError.isEmpty() ? QStringList()
                                                       : QStringList(checked.systemError));
    }
    const auto chunks = ChunkArchive::chunksByStart(archive, goesOn, damage);
    if (ChunkArchive::isBomb(archive, chunks))
        return {TraceStream::Failed, {FileErrors::bomb(fileName)}};
    int part = 0;
    for (const ChunkArchive::Chunk &chunk : chunks) {
        if (!readEntry(archive, chunk, part++, goesOn, streamer, damage))
            return {TraceStream::Stopped, errorsOf(archive, damage)};
    }
    return outcomeOf(streamer, errorsOf(archive, damage));
}

} // namespace ChunkStream
