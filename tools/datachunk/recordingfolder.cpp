#include "recordingfolder.h"

#include "terminal.h"

#include <QFile>

#include <cerrno>
#include <cstring>

#include <unistd.h>

namespace {

// 0 or the errno of the failure.
int hardLink(const QString &from, const QString &to)
{
    const QByteArray source = QFile::encodeName(from);
    const QByteArray target = QFile::encodeName(to);
    return link(source.constData(), target.constData()) == 0 ? 0 : errno;
}

bool tellsOfNoHardLinks(int error)
{
    return error == EPERM || error == EOPNOTSUPP || error == ENOSYS || error == EMLINK
        || error == EXDEV;
}

} // namespace

RecordingFolder::RecordingFolder(const QString &path) : folder(path) { }

bool RecordingFolder::open()
{
    const QStringList recording = {QStringLiteral("tmpData*.dck"),
                                   QStringLiteral("zlastChunk.dck")};
    if (!makeFolder(folder))
        return false;
    if (!folder.entryList(recording, QDir::AllEntries | QDir::Hidden | QDir::System).isEmpty()) {
        printError(folder.path(), Cli::tr("The folder holds a recording already."));
        return false;
    }
    work = std::make_unique<WorkFolder>(folder.path());
    if (!work->isValid())
        printError(folder.path(), work->errorText());
    return work->isValid();
}

QString RecordingFolder::chunkPath(quint32 index) const
{
    return folder.absoluteFilePath(QStringLiteral("tmpData%1.dck").arg(index));
}

QString RecordingFolder::workPath(quint32 index) const
{
    return chunkFolder.absoluteFilePath(QStringLiteral("tmpData%1.dck").arg(index));
}

QStringList RecordingFolder::chunkPaths() const
{
    QStringList paths;
    for (auto chunk = chunks.cbegin(); chunk != chunks.cend(); ++chunk)
        paths.append(chunkPath(chunk.key()));
    return paths;
}

QString RecordingFolder::lastChunkPath() const
{
    return folder.absoluteFilePath(QStringLiteral("zlastChunk.dck"));
}

bool RecordingFolder::addChunk(quint32 index)
{
    const int error = hardLink(workPath(index), chunkPath(index));
    if (error == 0) {
        chunks.insert(index, Place::Linked);
    } else if (tellsOfNoHardLinks(error)) {
        chunks.insert(index, Place::WorkFolder);
    } else if (error == ENOENT) {
        // The next chunk was written before this one was heard of, and the budget took it.
        ++dropped;
    } else {
        printError(chunkPath(index), QString::fromLocal8Bit(std::strerror(error)));
        return false;
    }
    return true;
}

void RecordingFolder::dropRemovedChunks()
{
    for (auto chunk = chunks.begin(); chunk != chunks.end();) {
        if (QFile::exists(workPath(chunk.key()))) {
            ++chunk;
            continue;
        }
        if (chunk.value() == Place::Linked)
            QFile::remove(chunkPath(chunk.key()));
        ++dropped;
        chunk = chunks.erase(chunk);
    }
}

bool RecordingFolder::moveRemaining()
{
    bool allMoved = true;
    for (auto chunk = chunks.begin(); chunk != chunks.end();) {
        QFile file(workPath(chunk.key()));
        if (chunk.value() == Place::Linked || file.rename(chunkPath(chunk.key()))) {
            ++chunk;
            continue;
        }
        printError(chunkPath(chunk.key()), file.errorString());
        allMoved = false;
        chunk = chunks.erase(chunk);
    }
    return allMoved;
}
