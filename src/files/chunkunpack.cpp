#include "chunkunpack.h"

#include "archivelimits.h"
#include "chunkformat.h"
#include "fileerrors.h"

#include <QDataStream>
#include <QFile>
#include <QHash>
#include <QStorageInfo>

#include <algorithm>

namespace ChunkArchive {

namespace {

// `name` with a number before the suffix, cut where the file system would find it too long.
QString numbered(const QString &name, int number)
{
    constexpr int longestName = 255; // bytes
    const QString suffix = name.endsWith(QLatin1String(".dck")) ? name.right(4) : QString();
    const QString end = QLatin1Char('_') + QString::number(number) + suffix;
    QString stem = name.chopped(suffix.size());
    while (QFile::encodeName(stem + end).size() > longestName)
        stem.chop(1);
    return stem + end;
}

// `folder/name`, or with a number before the suffix the first such path that `create` accepts.
// `number` is the first one to try, and is set behind the last one tried; 1 is the bare name.
template <typename Create>
QString createNumbered(const QDir &folder, const QString &name, int &number, const Create &create)
{
    constexpr int attempts = 10000;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        const QString path = folder.absoluteFilePath(number == 1 ? name : numbered(name, number));
        ++number;
        if (create(path))
            return path;
        if (!QFileInfo::exists(path))
            break;
    }
    return {};
}

// Where the last whole record of a chunk file ends; 0 when there is none.
qint64 endOfWholeRecords(QFile &file)
{
    // The maps of a damaged file are not trusted with more memory than this takes.
    constexpr qint64 maxPreamble = 64 * 1024 * 1024;
    file.seek(0);
    const QByteArray head = file.read(std::min(maxPreamble, file.size()));
    QDataStream stream(head);
    const quint32 version = ChunkFormat::readPreamble(stream).version;
    ChunkFormat::readMaps(stream, version);
    if (stream.status() != QDataStream::Ok || !file.seek(stream.device()->pos()))
        return 0;
    const qint64 start = file.pos();
    CAN::CanRxMessage message;
    ChunkFormat::RecordReader records(file, version);
    while (records.next(message)) { }
    return records.wholeRecords() > 0 ? start + records.wholeRecords() : 0;
}

class Unpacker
{
public:
    enum Result { Unpacked, Skipped, Failed };

    explicit Unpacker(const QDir &folder) : folder(folder) { }

    Result unpack(Zip::EntryDevice &chunk, const QString &name);
    QString fileName() const { return QFileInfo(file).fileName(); }
    /// Tells of the file that failed.
    QString systemError() const { return FileErrors::notWritten(file.fileName(), errorText); }

private:
    Result copy(Zip::EntryDevice &chunk);
    Result finish(Result result);

    const QDir folder;
    QFile file;
    QString errorText;
    QHash<QString, int> nextNumbers; // an archive may hold one name very often
};

Unpacker::Result Unpacker::unpack(Zip::EntryDevice &chunk, const QString &name)
{
    int &number = *nextNumbers.insert(name, nextNumbers.value(name, 1));
    const QString path = createNumbered(folder, name, number, [this](const QString &path) {
        file.setFileName(path);
        return file.open(QIODevice::ReadWrite | QIODevice::NewOnly);
    });
    if (path.isEmpty()) {
        errorText = file.errorString();
        return Failed;
    }
    Result result = copy(chunk);
    if (result == Unpacked && chunk.isDamaged()) {
        const qint64 end = endOfWholeRecords(file);
        result = end > 0 && file.resize(end) ? Unpacked : Skipped;
    }
    return finish(result);
}

Unpacker::Result Unpacker::copy(Zip::EntryDevice &chunk)
{
    QByteArray block(256 * 1024, Qt::Uninitialized);
    for (;;) {
        const qint64 got = chunk.read(block.data(), block.size());
        if (got <= 0)
            return got == 0 || chunk.isDamaged() ? Unpacked : Failed;
        if (!FileErrors::write(file, block.constData(), got))
            return Failed;
    }
}

Unpacker::Result Unpacker::finish(Result result)
{
    errorText = FileErrors::close(file);
    if (!errorText.isEmpty())
        result = Failed;
    if (result != Unpacked)
        file.remove();
    return result;
}

} // namespace

namespace {

Outcome unpackChunks(const Zip::Reader &archive, const QString &folderName, const QDir &parent,
                     const Zip::KeepGoing &keepGoing, const Unpacked &unpacked)
{
    const std::vector<Chunk> chunks = chunksByStart(archive, keepGoing);
    if (!archive.isOpen())
        return {Outcome::NotOpened, 0, archive.readErrorText()};
    if (isBomb(archive, chunks))
        return tooLarge(chunks);
    if (totalSize(chunks) > QStorageInfo(parent).bytesAvailable())
        return {Outcome::NoRoom, 0, {}};
    int number = 1;
    const QString path = createNumbered(
        parent, folderName, number, [&parent](const QString &path) { return parent.mkdir(path); });
    if (path.isEmpty())
        return {Outcome::NoRoom, 0, {}};
    const QDir folder(path);
    Unpacker unpacker(folder);
    for (const Chunk &chunk : chunks) {
        const auto content = archive.open(chunk.entry, keepGoing);
        const Unpacker::Result result =
            content ? unpacker.unpack(*content, chunk.entry.name) : Unpacker::Skipped;
        if (!keepGoing())
            return {Outcome::GivenUp, 0, {}};
        if (result == Unpacker::Failed)
            return {Outcome::NoRoom, 0, unpacker.systemError()};
        if (result == Unpacker::Unpacked)
            unpacked(unpacker.fileName(), folder, chunk.timeText);
    }
    return {Outcome::Done, 0, archive.readErrorText()};
}

} // namespace

Outcome unpack(const QString &zipName, const QDir &parent, const Zip::KeepGoing &keepGoing,
               const Unpacked &unpacked)
{
    Outcome outcome;
    const auto unpackArchive = [&] {
        const Zip::Reader archive(zipName);
        const QString name = ArchiveLimits::folderName(ArchiveLimits::archiveName(zipName));
        outcome = unpackChunks(archive, name, parent, keepGoing, unpacked);
    };
    if (!withinMemory(unpackArchive))
        outcome = {Outcome::TooLarge, 0, FileErrors::outOfMemory(zipName)};
    return outcome;
}

} // namespace ChunkArchive
