#pragma once

#include "chunkreading.h"

#include <QStringList>

/// What the user is told of damaged chunks and archives: one sentence for each, with the place
/// and with what was read.
namespace Damage {

/// What is wrong with a chunk whose reading has ended so; empty when nothing is. \a name says
/// which chunk it is, \a messages is the number of its messages that were read.
QString ofChunk(const QString &name, const ChunkReading::Front &front,
                const ChunkFormat::RecordsEnd &end, qint64 messages);

/// The name of a chunk in an archive.
QString entryName(const QString &entry, const QString &archive);

QString notOpened(const QString &entryName);
QString notUnpackedBehind(const QString &entryName, qint64 byte, const QString &kept);
QString wrongChecksum(const QString &entryName, const QString &kept);
QString badFileName(const QString &entryName);
QString brokenDirectory(const QString &archive, qint64 entries);
QString tooManyEntries(const QString &archive);
QString equalStarts(const QString &archive, qint64 leftOut);

/// What was read or unpacked in spite of the damage.
QString messagesRead(qint64 messages);
QString bytesUnpacked(qint64 bytes);

/// Sentences about one archive. Only the first are kept, so that a hostile archive has neither
/// the memory nor the user's patience.
class List
{
public:
    void add(const QString &sentence);

    /// The sentences, and one about those that were not kept.
    QStringList sentences(const QString &archive) const;

private:
    QStringList kept;
    qint64 others = 0;
};

} // namespace Damage
