#include "savejob.h"

#include "chunkcut.h"
#include "chunkversion.h"
#include "fileerrors.h"
#include "filelock.h"
#include "pipes.h"
#include "storetexts.h"
#include "textexport.h"
#include "uninterrupted.h"

#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTextCodec>
#include <QTextEncoder>

#include <algorithm>
#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

SaveReport::SaveReport(const SaveJob &job, Outcome outcome)
    : SaveTicket(job), timeText(isChunkName(job.fileName) ? chunkTimeText(job) : QString()),
      outcome(std::move(outcome))
{
}

QString chunkTimeText(const SaveJob &job)
{
    return chunkTimeText(job.messages, job.startPosition, qint64(job.endPosition) - 1);
}

QString chunkTimeText(const MessageList &messages, qint64 first, qint64 last)
{
    return ChunkFormat::timeText(messages.value(first), messages.value(last));
}

namespace {

Outcome finish(const SaveJob &job, QFile &file, Outcome outcome)
{
    const QString error = FileErrors::close(file);
    if (outcome.text.isEmpty())
        outcome.text = error;
    if (job.cancelled) {
        outcome.kind = Outcome::GivenUp;
        if (!Pipes::isPipe(job.fileName))
            QFile::remove(job.fileName);
    } else if (!outcome.text.isEmpty()) {
        qDebug() << "void SaveFileWorker::saveToFile()" << outcome.text << job.endPosition;
    }
    return outcome;
}

// Creates the file of a private job, before anything is in it that others must not read.
void makePrivate(const SaveJob &job)
{
    constexpr mode_t onlyOwner = 0600;
    const QByteArray name = QFile::encodeName(job.fileName);
    const int handle = uninterrupted([&name] {
        return open(name.constData(), O_RDONLY | O_CREAT | O_NOFOLLOW | O_CLOEXEC, onlyOwner);
    });
    if (handle < 0)
        return;
    fchmod(handle, onlyOwner);
    close(handle);
}

void writeChunk(const SaveJob &job, QFile &file)
{
    ChunkFormat::Stream stream(&file);
    ChunkFormat::writeHeader(stream, chunkTimeText(job), job.notes, job.bookmarks);
    setCurrentChunkVersion(ChunkFormat::currentVersion);
    ChunkFormat::RecordWriter writer(file, ChunkFormat::currentVersion);
    forEachSaved(job,
                 [&writer](const CAN::CanRxMessage &message) { return writer.write(message); });
    writer.flush();
}

// A full disk ends a chunk within a record, which would be read as far as it goes: a message at 0 s
// among those of the trace.
void cutHalfRecord(const QString &chunk)
{
    if (cutToWholeRecords(chunk) == 0)
        QFile::resize(chunk, 0);
}

// Takes the bytes of a text; false when they cannot be written.
using WriteBytes = std::function<bool(const QByteArray &)>;

void writeText(const SaveJob &job, const WriteBytes &write)
{
    constexpr int blockSize = 64 * 1024;
    // A QTextStream keeps what it could not encode for want of memory, tries it again when it ends
    // and takes the program down.
    QTextEncoder encoder(QTextCodec::codecForLocale(), QTextCodec::IgnoreHeader);
    QString block = TextExport::headerLine();
    bool good = true;
    const auto writeBlock = [&] {
        good = good && write(encoder.fromUnicode(block));
        block.resize(0);
    };
    forEachSaved(job, 0, [&](const CAN::CanRxMessage &message) {
        TextExport::appendMessageLine(block, message, job.notes.value(message.messageNumber));
        if (block.size() < blockSize)
            return true;
        writeBlock();
        return good;
    });
    writeBlock();
}

Outcome finishText(const SaveJob &job, QFile &file, const WriteBytes &write)
{
    Outcome outcome;
    if (!withinMemory([&] { writeText(job, write); }))
        outcome.text = qt_error_string(ENOMEM);
    return finish(job, file, outcome);
}

Outcome writeTextToPipe(const SaveJob &job)
{
    QFile file;
    const int handle = Pipes::open(job.fileName, job.cancelled);
    if (handle < 0 || !file.open(handle, QIODevice::WriteOnly, QFileDevice::AutoCloseHandle))
        return Outcome::notOpened(qt_error_string());
    QString error;
    Outcome outcome = finishText(job, file, [&](const QByteArray &bytes) {
        const bool good = Pipes::write(handle, bytes.constData(), bytes.size(), job.cancelled);
        if (!good)
            error = qt_error_string();
        return good;
    });
    if (outcome.text.isEmpty())
        outcome.text = error;
    return outcome;
}

} // namespace

Outcome save(const SaveJob &job, const std::function<void()> &opened)
{
    if (job.cancelled)
        return Outcome::givenUp();
    const QFileInfo target(job.fileName);
    if (!target.absoluteDir().exists())
        QDir().mkdir(target.absolutePath());
    if (!isChunkName(job.fileName))
        return writeTextFile(job);
    if (job.endPosition == 0)
        return {Outcome::NothingToDo, {}, 0};
    return writeChunkFile(job, opened);
}

Outcome writeChunkFile(const SaveJob &job, const std::function<void()> &opened)
{
    QFile file(job.fileName);
    // Opened for reading as well, a pipe would never tell that nobody reads it.
    if (Pipes::isPipe(job.fileName))
        return Outcome::notOpened(StoreTexts::tr("A chunk cannot be written into a pipe."));
    if (job.isPrivate)
        makePrivate(job);
    if (!file.open(QIODevice::ReadWrite | QIODevice::Truncate)) {
        qDebug() << "void SaveFileWorker::saveToFile()" << file.errorString();
        return Outcome::notOpened(file.errorString());
    }
    FileLock::tryLock(file.handle());
    if (opened)
        opened();
    Outcome outcome;
    if (!withinMemory([&] { writeChunk(job, file); }))
        outcome.text = qt_error_string(ENOMEM);
    outcome = finish(job, file, outcome);
    if (job.isPrivate && outcome.kind == Outcome::Done && !outcome.text.isEmpty())
        withinMemory([&] { cutHalfRecord(job.fileName); });
    return outcome;
}

Outcome writeTextFile(const SaveJob &job)
{
    if (Pipes::isPipe(job.fileName))
        return writeTextToPipe(job);
    QFile file(job.fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return Outcome::notOpened(file.errorString());
    return finishText(job, file, [&file](const QByteArray &bytes) {
        return FileErrors::write(file, bytes.constData(), bytes.size());
    });
}
