#pragma once

#include "directoryformat.h"
#include "messages.h"

#include <QVector>

// Entries of a directory to test with.

inline bool operator==(const DirectoryEntry &a, const DirectoryEntry &b)
{
    return a.name == b.name && a.file == b.file && a.index == b.index;
}

inline ChunkIndex indexOf(const QVector<CAN::CanRxMessage> &messages, qint64 recordsStart)
{
    ChunkIndexer indexer(ChunkFormat::currentVersion, recordsStart);
    for (const CAN::CanRxMessage &message : messages)
        indexer.add(MessageView(message));
    return indexer.finish();
}

inline DirectoryEntry entryOf(const QString &name, const ChunkIndex &index)
{
    return {name, {index.recordsEnd, 1, 2, 3}, index};
}

inline DirectoryEntry smallEntry(const QString &name)
{
    return entryOf(name, indexOf({makeMessage(5, 8), makeMessage(6, 3)}, 60));
}

// An index with very many steps, of a size that can be told.
inline DirectoryEntry largeEntry(const QString &name)
{
    return entryOf(name, indexOf(QVector<CAN::CanRxMessage>(3000000, makeMessage(1, 8)), 0));
}
