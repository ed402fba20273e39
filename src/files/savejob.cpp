#include "savejob.h"

#include "chunkversion.h"
#include "fileerrors.h"
#include "textexport.h"

#include <QDebug>
#include <QFile>
#include <QMutexLocker>
#include <QTextCodec>
#include <QTextEncoder>

#include <algorithm>
#include <cerrno>

void SaveJob::markFinished()
{
    const QMutexLocker locker(&mutex);
    finished = true;
    finishedCondition.wakeAll();
}

bool SaveJob::waitForFinished(unsigned long milliseconds)
{
    const QMutexLocker locker(&mutex);
    if (!finished)
        finishedCondition.wait(&mutex, milliseconds);
    return finished;
}

QString chunkTimeText(const MessageList &messages, qint64 first, qint64 last)
{
    return ChunkFormat::timeText(messages.value(first), messages.value(last));
}

namespace {

// Calls write(message) for every position that the job selects and the list has, in order,
// until it returns false or the job is cancelled.
template <typename Write> void forEachMessage(const SaveJob &job, qint64 start, const Write &write)
{
    constexpr int messagesBetweenChecks = 1024;
    const auto goOn = [&job](qint64 done) {
        return done % messagesBetweenChecks != 0 || !job.cancelled;
    };
    if (!job.selected.isEmpty()) {
        for (int i = 0; i < job.selected.size() && goOn(i); ++i) {
            const quint32 position = job.selected.at(i);
            if (position < quint32(job.messages.size()) && !write(job.messages.at(int(position))))
                return;
        }
        return;
    }
    const qint64 end = std::min<qint64>(job.endPosition, job.messages.size());
    for (qint64 i = std::max<qint64>(start, 0); i < end && goOn(i); ++i) {
        if (!write(job.messages.at(int(i))))
            return;
    }
}

SaveOutcome finish(const SaveJob &job, QFile &file, SaveOutcome outcome)
{
    const QString error = FileErrors::close(file);
    if (outcome.errorText.isEmpty())
        outcome.errorText = error;
    if (job.cancelled) {
        outcome.result = SaveOutcome::GivenUp;
        file.remove();
    } else if (!outcome.errorText.isEmpty()) {
        qDebug() << "void SaveFileWorker::saveToFile()" << outcome.errorText << job.endPosition;
    }
    return outcome;
}

void writeChunk(const SaveJob &job, const QString &timeText, QFile &file)
{
    QDataStream stream(&file);
    ChunkFormat::writeHeader(stream, timeText, job.notes, job.bookmarks);
    setCurrentChunkVersion(ChunkFormat::currentVersion);
    ChunkFormat::RecordWriter writer(file, ChunkFormat::currentVersion);
    forEachMessage(job, job.startPosition,
                   [&writer](const CAN::CanRxMessage &message) { return writer.write(message); });
    writer.flush();
}

void writeText(const SaveJob &job, QFile &file)
{
    constexpr int blockSize = 64 * 1024;
    // A QTextStream keeps what it could not encode for want of memory, tries it again when it ends
    // and takes the program down.
    QTextEncoder encoder(QTextCodec::codecForLocale(), QTextCodec::IgnoreHeader);
    QString block = TextExport::headerLine();
    bool good = true;
    const auto writeBlock = [&] {
        const QByteArray bytes = encoder.fromUnicode(block);
        good = good && FileErrors::write(file, bytes.constData(), bytes.size());
        block.resize(0);
    };
    forEachMessage(job, 0, [&](const CAN::CanRxMessage &message) {
        TextExport::appendMessageLine(block, message, job.notes.value(message.messageNumber));
        if (block.size() < blockSize)
            return true;
        writeBlock();
        return good;
    });
    writeBlock();
}

} // namespace

SaveOutcome writeChunkFile(const SaveJob &job)
{
    SaveOutcome outcome;
    QFile file(job.fileName);
    if (!file.open(QIODevice::ReadWrite | QIODevice::Truncate)) {
        outcome.result = SaveOutcome::NotOpened;
        outcome.errorText = file.errorString();
        qDebug() << "void SaveFileWorker::saveToFile()" << outcome.errorText;
        return outcome;
    }
    outcome.timeText = chunkTimeText(job.messages, job.startPosition, qint64(job.endPosition) - 1);
    if (!withinMemory([&] { writeChunk(job, outcome.timeText, file); }))
        outcome.errorText = qt_error_string(ENOMEM);
    return finish(job, file, outcome);
}

SaveOutcome writeTextFile(const SaveJob &job)
{
    SaveOutcome outcome;
    QFile file(job.fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        outcome.result = SaveOutcome::NotOpened;
        outcome.errorText = file.errorString();
        return outcome;
    }
    if (!withinMemory([&] { writeText(job, file); }))
        outcome.errorText = qt_error_string(ENOMEM);
    return finish(job, file, outcome);
}
