#pragma once

#include "chunkformat.h"

#include <QByteArray>
#include <QString>
#include <QVector>

/// One entry of an archive that a test makes up.
struct TestEntry
{
    QString name;
    QByteArray content;
    bool stored = false; ///< as it is, so that the bytes of the content stand in the archive
};

/// Writes an archive as other programs might.
bool writeArchive(const QString &fileName, const QVector<TestEntry> &entries);

/// The bytes of such an archive.
QByteArray archiveOf(const QVector<TestEntry> &entries);

// What a hostile archive may say of itself, of its first entry where it is about one.
QByteArray withClaimedSize(QByteArray archive, quint32 size);
QByteArray withClaimedEntries(QByteArray archive, quint16 count);
/// The same beyond 16 bits, by the records of the ZIP64 extension.
QByteArray withManyClaimedEntries(QByteArray archive, quint64 count);
QByteArray withLink(QByteArray archive); ///< that it is a symbolic link
/// The one entry of an archive as often as told, all sharing the same bytes.
QByteArray withRepeatedEntry(const QByteArray &archive, int count);

/// What an archive holds, in its order; a damaged entry has no content.
QVector<TestEntry> archiveEntries(const QString &fileName);

/// The bytes of a chunk with the messages makeMessage(number, 8) for the numbers from \a first
/// on, whose header text begins with \a start.
QByteArray chunkBytes(const QString &start, quint32 first, int count,
                      const ChunkFormat::Notes &notes = {},
                      const ChunkFormat::Bookmarks &bookmarks = {});

/// The same with a version that is not known yet.
QByteArray newerChunkBytes();
