#include "chunkrecovery.h"

#include "archivelimits.h"
#include "chunkindexing.h"
#include "fileerrors.h"
#include "recordstail.h"
#include "regularfile.h"
#include "uninterrupted.h"

#include <QCoreApplication>

#include <algorithm>

#include <fcntl.h>
#include <unistd.h>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ChunkRecovery)
};

/// What of a chunk is to be saved.
struct Part
{
    RecoveredChunk::Result result = RecoveredChunk::Unreadable;
    qint64 bytes = 0; ///< from the start of the file
    qint64 messages = 0;
    QString text;
    quint32 firstNumber = 0;
    quint32 lastNumber = 0;
};

bool endsInZeros(QFile &file, qint64 from)
{
    const QByteArray rest = file.seek(from) ? file.read(ChunkFormat::maxRecordSize) : QByteArray();
    return std::all_of(rest.begin(), rest.end(), [](char byte) { return byte == 0; });
}

// Empty when the front can be relied on.
QString frontText(const IndexedChunk &chunk)
{
    const ChunkReading::Front &front = chunk.front;
    if (chunk.result == Outcome::GivenUp)
        return Texts::tr("The work was interrupted.");
    if (chunk.result == Outcome::NewerVersion)
        return Texts::tr("The chunk is of a newer version.");
    if (chunk.result != Outcome::Done)
        return Texts::tr("The chunk is too large.");
    if (front.headerIsDamaged || front.mapsAreDamaged || front.preamble.version == 0)
        return Texts::tr("What stands in front of its messages is damaged or cut short, so that "
                         "they cannot be found.");
    return {};
}

QString endText(const ChunkFormat::RecordsEnd &end, bool hasZeros)
{
    if (hasZeros)
        return Texts::tr("It ends in nothing but zeros, as a loss of power leaves it.");
    if (end.cause == end.Cut)
        return Texts::tr("It ends in the middle of a message.");
    if (end.cause == end.BadLength)
        return Texts::tr("Behind the messages kept a length of %1 is claimed, so that nothing more "
                         "can be found.")
            .arg(end.length);
    return {};
}

Part partToSave(QFile &file, const std::function<bool()> &goesOn)
{
    if (file.size() == 0)
        return {RecoveredChunk::Nothing, 0, 0, Texts::tr("It is empty.")};
    RecordsTail tail;
    const IndexedChunk chunk = indexChunk(file, {ArchiveLimits::memoryLimit(), goesOn}, {},
                                          [&tail](RecordView record) { tail.look(record); });
    const QString damage = frontText(chunk);
    if (!damage.isEmpty())
        return {RecoveredChunk::Unreadable, 0, 0, damage};
    Part part;
    part.result = RecoveredChunk::Saved;
    part.bytes = chunk.front.size + chunk.end.offset;
    part.messages = chunk.index.wholeRecords();
    const bool hasRest = chunk.end.cause != ChunkFormat::RecordsEnd::Whole;
    const bool hasZeroRest = hasRest && endsInZeros(file, part.bytes);
    // Whatever follows them, they would be taken for messages when it is cut off.
    const RecordsTail::Zeros zeros = tail.zeros(chunk.front.size, hasZeroRest);
    const bool hasZeros = zeros.records > 0;
    if (hasZeros) {
        part.bytes = chunk.front.size + zeros.begin;
        part.messages -= zeros.records;
    }
    part.text = endText(chunk.end, hasZeros && (!hasRest || hasZeroRest));
    part.firstNumber = chunk.index.firstNumber;
    part.lastNumber = hasZeros ? zeros.lastNumber : tail.lastNumber();
    if (part.messages == 0)
        return {RecoveredChunk::Nothing, 0, 0,
                part.text.isEmpty() ? Texts::tr("There are no messages in it.") : part.text};
    return part;
}

// Empty when all of it was copied.
QString copy(QFile &from, QFile &to, qint64 bytes, const std::function<bool()> &goesOn)
{
    QByteArray block(256 * 1024, Qt::Uninitialized);
    if (!from.seek(0))
        return from.errorString();
    for (qint64 done = 0; done < bytes;) {
        if (!goesOn())
            return Texts::tr("The work was interrupted.");
        const qint64 got = from.read(block.data(), std::min<qint64>(block.size(), bytes - done));
        if (got <= 0)
            return from.errorString();
        if (!FileErrors::write(to, block.constData(), got))
            return to.errorString();
        done += got;
    }
    return {};
}

// Empty when the new file is whole; otherwise there is none.
QString save(QFile &from, const QString &to, qint64 bytes, const std::function<bool()> &goesOn)
{
    constexpr mode_t onlyOwner = 0600;
    const QByteArray name = QFile::encodeName(to);
    const int handle = uninterrupted([&name] {
        return open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                    onlyOwner);
    });
    QFile file;
    if (handle < 0 || !file.open(handle, QIODevice::WriteOnly, QFileDevice::AutoCloseHandle))
        return qt_error_string();
    QString error = copy(from, file, bytes, goesOn);
    const QString closing = FileErrors::close(file);
    if (error.isEmpty())
        error = closing;
    if (!error.isEmpty())
        unlink(name.constData());
    return error;
}

} // namespace

RecoveredChunk recoverChunk(const QString &from, const QString &to,
                            const std::function<bool()> &goesOn)
{
    RegularFile file(from);
    if (!file.openForReading())
        return {RecoveredChunk::Unreadable, 0, 0, FileErrors::notRead(from, file.errorString())};
    Part part;
    if (!withinMemory([&] { part = partToSave(file, goesOn); }))
        return {RecoveredChunk::Unreadable, 0, 0, FileErrors::outOfMemory(from)};
    const QString readError = file.readErrorText();
    if (!readError.isEmpty() && part.result != RecoveredChunk::Saved)
        return {RecoveredChunk::Unreadable, 0, 0, readError};
    RecoveredChunk recovered{part.result, part.messages,    file.size() - part.bytes,
                             part.text,   part.firstNumber, part.lastNumber};
    if (part.result != RecoveredChunk::Saved)
        return recovered;
    if (!readError.isEmpty())
        recovered.text = readError;
    // What could be read up to a damaged place of the disk is copied by reading it again.
    RegularFile again(from);
    const QString error =
        again.openForReading() ? save(again, to, part.bytes, goesOn) : again.errorString();
    if (!error.isEmpty())
        return {RecoveredChunk::NotWritten, 0, 0, FileErrors::notWritten(to, error)};
    return recovered;
}
