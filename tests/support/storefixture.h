#pragma once

#include "canrxmessage.h"
#include "chunkformat.h"

#include <QMap>
#include <QString>
#include <QVector>

/// A chunk file as it was read back.
struct ReadChunk
{
    ChunkFormat::Preamble preamble;
    ChunkFormat::Notes notes;
    ChunkFormat::Bookmarks bookmarks;
    QVector<CAN::CanRxMessage> messages;

    bool isRefused() const { return preamble.version > ChunkFormat::currentVersion; }
};

/// Reads a chunk file of the current version; fails the program when there is none.
ReadChunk readChunkFile(const QString &fileName);

/// Whether a chunk file holds exactly the messages makeMessage(\a first) to makeMessage(\a last).
bool holds(const QString &fileName, quint32 first, quint32 last);

/// Everything below a folder with its content, which is empty for a folder.
QMap<QString, QByteArray> filesBelow(const QString &folder);

/// The bytes of a chunk of any version, read item by item from one stream, without the blocks of
/// ChunkFormat::RecordReader: what every way of reading a chunk has to give.
ReadChunk streamedChunk(const QByteArray &bytes,
                        ChunkFormat::BookmarkMap bookmarkMap = ChunkFormat::BookmarkMap::Read);

/// Message numbers \a first to \a last, both included.
QVector<quint32> numbersFromTo(quint32 first, quint32 last);
QVector<quint32> numbersOf(const QVector<CAN::CanRxMessage> &messages);

/// Writes \a content to \a fileName; fails the program when that is impossible.
void writeFile(const QString &fileName, const QByteArray &content);
QByteArray readFile(const QString &fileName);

/// The number that an environment variable holds.
quint64 numberFrom(const char *variable, quint64 otherwise);

/// A template for temporary folders with very many files: in memory where that is possible.
QString folderInMemory();
