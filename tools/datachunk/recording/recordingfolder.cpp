#include "recordingfolder.h"

#include "chunkcut.h"
#include "chunkmove.h"
#include "chunknames.h"
#include "movefiles.h"
#include "terminal.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>

RecordingFolder::RecordingFolder(const QString &path) : folder(path) { }

bool RecordingFolder::open()
{
    if (!makeFolder(folder))
        return false;
    const OwnerLock::State state =
        lock.lockByFile(folder.absoluteFilePath(QStringLiteral(".datachunk-lock")));
    if (state != OwnerLock::Held) {
        printError(folder.path(),
                   state == OwnerLock::HeldByOther
                       ? Cli::tr("Somebody else records into this folder.")
                       : Cli::tr("The folder cannot be locked: %1").arg(lock.errorText()));
        return false;
    }
    const QStringList names = {ChunkNames::rotatedTemplate().arg(QLatin1Char('*')),
                               ChunkNames::last()};
    if (!folder.entryList(names, QDir::AllEntries | QDir::Hidden | QDir::System).isEmpty()) {
        printError(folder.path(), Cli::tr("The folder holds a recording already."));
        return false;
    }
    if (hasLeftChunks(folder.path())) {
        printError(folder.path(),
                   Cli::tr("The folder holds chunks of a recording that was killed; \"datachunk "
                           "recover\" saves them."));
        return false;
    }
    work = std::make_unique<WorkFolder>(folder.path());
    if (!work->isValid())
        printError(folder.path(), work->errorText());
    return work->isValid();
}

QString RecordingFolder::chunkPath(quint32 index) const
{
    return folder.absoluteFilePath(ChunkNames::rotated(index));
}

int RecordingFolder::moveIn(const QString &from, const QString &to) const
{
    int error = 0;
    const auto move = [&] {
        error = moveFile(from, to);
        return error == 0;
    };
    return moveChunk(from, to, move) ? 0 : error;
}

int RecordingFolder::moveChunkIn(quint32 index) const
{
    return moveIn(chunkFolder.absoluteFilePath(ChunkNames::rotated(index)), chunkPath(index));
}

void RecordingFolder::addChunk(quint32 index, quint32 messageCount)
{
    const qint64 size = QFileInfo(chunkPath(index)).size();
    chunks.insert(index, {size, messageCount});
    bytes += size;
    messages += messageCount;
}

QString RecordingFolder::unfinishedLastChunk() const
{
    return work->filePath(ChunkNames::last());
}

qint64 RecordingFolder::addLastChunk()
{
    const qint64 count = cutToWholeRecords(unfinishedLastChunk());
    // The same permissions as those of the other chunks.
    QFile::setPermissions(unfinishedLastChunk(), QFile::ReadOwner | QFile::WriteOwner);
    if (count <= 0)
        return 0;
    const QString path = folder.absoluteFilePath(ChunkNames::last());
    const int error = moveIn(unfinishedLastChunk(), path);
    if (error != 0)
        printError(path, systemErrorText(error));
    return error == 0 ? count : 0;
}

bool RecordingFolder::removeOldest()
{
    if (chunks.isEmpty())
        return false;
    QFile file(chunkPath(chunks.firstKey()));
    if (!file.remove()) {
        printError(file.fileName(), file.errorString());
        return false;
    }
    const Chunk oldest = chunks.take(chunks.firstKey());
    bytes -= oldest.bytes;
    messages -= oldest.messages;
    return true;
}

qint64 RecordingFolder::countRecords()
{
    qint64 total = 0;
    for (auto chunk = chunks.begin(); chunk != chunks.end();) {
        const qint64 count = cutToWholeRecords(chunkPath(chunk.key()));
        total += qMax<qint64>(count, 0);
        if (count != 0) {
            ++chunk;
            continue;
        }
        QFile::remove(chunkPath(chunk.key()));
        chunk = chunks.erase(chunk);
    }
    return total;
}
