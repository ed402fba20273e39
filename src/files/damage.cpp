#include "damage.h"

#include "archivelimits.h"
#include "storetexts.h"

namespace Damage {

QString ofChunk(const QString &name, const ChunkReading::Front &front,
                const ChunkFormat::RecordsEnd &end, qint64 messages)
{
    const QString kept = messagesRead(messages);
    const QString record = QString::number(messages + (end.cause == end.Cut ? 0 : 1));
    const QString place = QString::number(front.size + end.offset);
    if (front.headerIsDamaged)
        return StoreTexts::tr("The header of the chunk %1 is damaged; %2.").arg(name, kept);
    if (front.mapsAreDamaged) {
        return StoreTexts::tr(
                   "The notes or bookmarks of the chunk %1, which begin at byte %2, are damaged or "
                   "cut short; %3.")
            .arg(name, QString::number(front.damagedMap), kept);
    }
    if (end.cause == end.Cut) {
        return StoreTexts::tr(
                   "The chunk %1 ends in the middle of record %2, which begins at byte %3; %4.")
            .arg(name, record, place, kept);
    }
    if (end.cause == end.BadLength) {
        return StoreTexts::tr(
                   "The chunk %1 is damaged at byte %2, where record %3 claims a length of %4; %5.")
            .arg(name, place, record, QString::number(end.length), kept);
    }
    return {};
}

QString entryName(const QString &entry, const QString &archive)
{
    return StoreTexts::tr("%1 of the archive %2").arg(entry, archive);
}

QString notOpened(const QString &entryName)
{
    return StoreTexts::tr("The entry %1 cannot be read and was left out.").arg(entryName);
}

QString notUnpackedBehind(const QString &entryName, qint64 byte, const QString &kept)
{
    return StoreTexts::tr("The entry %1 is damaged and cannot be unpacked beyond byte %2; %3.")
        .arg(entryName, QString::number(byte), kept);
}

QString wrongChecksum(const QString &entryName, const QString &kept)
{
    return StoreTexts::tr("The entry %1 does not match its checksum; %2.").arg(entryName, kept);
}

QString badFileName(const QString &entryName)
{
    return StoreTexts::tr("The entry %1 was left out, because its name cannot be that of a file.")
        .arg(entryName);
}

QString brokenDirectory(const QString &archive, qint64 entries)
{
    return StoreTexts::tr(
               "The directory of the archive %1 is damaged behind entry %2; what follows was left "
               "out.")
        .arg(archive, QString::number(entries));
}

QString tooManyEntries(const QString &archive)
{
    return StoreTexts::tr("The archive %1 has more than %2 entries and is not read.")
        .arg(archive, QString::number(ArchiveLimits::maxEntries));
}

QString equalStarts(const QString &archive, qint64 leftOut)
{
    return StoreTexts::tr(
               "The archive %1 has chunks with equal starts, of which only one is taken; chunks "
               "left out: %2.")
        .arg(archive, QString::number(leftOut));
}

QString messagesRead(qint64 messages)
{
    return StoreTexts::tr("messages read: %1").arg(messages);
}

QString bytesUnpacked(qint64 bytes)
{
    return StoreTexts::tr("bytes unpacked: %1").arg(bytes);
}

void List::add(const QString &sentence)
{
    constexpr int keptAtMost = 20;
    if (kept.size() < keptAtMost)
        kept.append(sentence);
    else
        ++others;
}

QStringList List::sentences(const QString &archive) const
{
    if (others == 0)
        return kept;
    return kept
        + QStringList(
               StoreTexts::tr("The archive %1 has more damage like that; entries not named: %2.")
                   .arg(archive, QString::number(others)));
}

} // namespace Damage
