#include "storefixture.h"

#include "messages.h"

#include <QDirIterator>
#include <QFile>

ReadChunk readChunkFile(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(fileName));
    ReadChunk chunk;
    QDataStream stream(&file);
    chunk.preamble = ChunkFormat::readPreamble(stream);
    stream >> chunk.notes >> chunk.bookmarks;
    ChunkFormat::RecordReader reader(file, chunk.preamble.version);
    CAN::CanRxMessage message;
    while (reader.next(message))
        chunk.messages.append(message);
    return chunk;
}

bool holds(const QString &fileName, quint32 first, quint32 last)
{
    if (!QFile::exists(fileName))
        return false;
    const QVector<CAN::CanRxMessage> messages = readChunkFile(fileName).messages;
    for (const CAN::CanRxMessage &message : messages) {
        if (!sameInChunk(message, makeMessage(message.messageNumber, message.length)))
            return false;
    }
    return numbersOf(messages) == numbersFromTo(first, last);
}

QMap<QString, QByteArray> filesBelow(const QString &folder)
{
    QMap<QString, QByteArray> files;
    QDirIterator found(folder, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                       QDirIterator::Subdirectories);
    while (found.hasNext()) {
        const QString path = found.next();
        files.insert(path, found.fileInfo().isDir() ? QByteArray() : readFile(path));
    }
    return files;
}

ReadChunk streamedChunk(const QByteArray &bytes, ChunkFormat::BookmarkMap bookmarkMap)
{
    ReadChunk chunk;
    QDataStream stream(bytes);
    chunk.preamble = ChunkFormat::readPreamble(stream);
    if (chunk.isRefused())
        return chunk;
    if (chunk.preamble.version > 100)
        stream >> chunk.notes;
    if (chunk.preamble.version > 103 && bookmarkMap == ChunkFormat::BookmarkMap::Read)
        stream >> chunk.bookmarks;
    CAN::CanRxMessage message;
    while (!stream.atEnd() && ChunkFormat::readRecord(stream, message, chunk.preamble.version))
        chunk.messages.append(message);
    return chunk;
}

QVector<quint32> numbersFromTo(quint32 first, quint32 last)
{
    QVector<quint32> numbers;
    for (quint32 number = first; number <= last; ++number)
        numbers.append(number);
    return numbers;
}

QVector<quint32> numbersOf(const QVector<CAN::CanRxMessage> &messages)
{
    QVector<quint32> numbers;
    for (const CAN::CanRxMessage &message : messages)
        numbers.append(message.messageNumber);
    return numbers;
}

void writeFile(const QString &fileName, const QByteArray &content)
{
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(fileName));
}

QByteArray readFile(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(fileName));
    return file.readAll();
}

quint64 numberFrom(const char *variable, quint64 otherwise)
{
    bool ok = false;
    const quint64 number = qEnvironmentVariable(variable).toULongLong(&ok);
    return ok ? number : otherwise;
}

QString folderInMemory()
{
    const QString memory = QStringLiteral("/dev/shm");
    return (QFileInfo(memory).isWritable() ? memory : QDir::tempPath())
        + QStringLiteral("/datachunk-test-XXXXXX");
}
