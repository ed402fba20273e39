#include "archiving.h"

#include "archivelimits.h"
#include "chunkmove.h"

#include <utility>

using ChunkArchive::Merged;

namespace {

bool isRead(const Merged &merged)
{
    return merged.outcome.isDone() && !merged.messages.isEmpty();
}

} // namespace

Archiving::Archiving(Browsing &browsing, ArchiveDesk &desk)
    : browsing(browsing), desk(desk), teller(browsing.teller)
{
}

void Archiving::pack()
{
    const QString error = desk.packChunks();
    const auto tellError = [teller = teller, error] {
        teller.tellLast(&DatachunkHandler::newErrorMessage, error);
    };
    if (!error.isEmpty())
        teller.onStoreThread(tellError);
}

bool Archiving::merge(const QString &archive, quint32 wish)
{
    const Teller caller = teller;
    caller.onStoreThread([caller] { caller.tellLast(&DatachunkHandler::informAboutClearStart); });
    if (!caller.storeExists())
        return false;
    const auto merged = std::make_shared<Merged>();
    desk.merge(
        archive, [this, wish] { return browsing.isNewestWish(wish); }, *merged);
    const QString name = ArchiveLimits::archiveName(archive);
    if (caller.isOnStoreThread())
        return endMerge(name, wish, *merged);
    // Waiting for the store's thread here could deadlock: it may be waiting for this one.
    const bool readAny = isRead(*merged);
    caller.later([this, name, wish, merged] { endMerge(name, wish, *merged); });
    return readAny;
}

bool Archiving::endMerge(const QString &name, quint32 wish, Merged &merged)
{
    const Teller caller = teller;
    for (const bool hasFdFrame : qAsConst(merged.fdFramesByChunk)) {
        if (!caller.tell(&DatachunkHandler::chunkContainsFdMessage, hasFdFrame))
            return false;
    }
    const IsWanted isWanted = [this, caller, wish] {
        return caller.storeExists() && browsing.isNewestWish(wish) && !browsing.isImporting();
    };
    if (isRead(merged))
        return tellMerged(name, merged, isWanted);
    tellNotMerged(name, merged, isWanted);
    return false;
}

bool Archiving::tellMerged(const QString &name, Merged &merged, const IsWanted &isWanted)
{
    const Teller caller = teller;
    if (isWanted())
        show(merged);
    if (!caller.tell(&DatachunkHandler::zipFileLoaded, name))
        return false;
    const QSet<unsigned char> lines = merged.lines.toSet();
    for (auto line = lines.begin(); line != lines.end() && isWanted(); ++line)
        caller.tellLast(&DatachunkHandler::newLine, *line);
    if (!caller.storeExists()
        || !caller.tell(&DatachunkHandler::informAboutCleared, browsing.trace.isLive()))
        return false;
    if (isWanted())
        caller.tellLast(&DatachunkHandler::liveModeChanged, browsing.trace.isLive());
    if (isWanted() && !merged.outcome.text.isEmpty())
        tellFailure(merged.outcome);
    return isWanted() && caller.tellErrors(merged.damage) && isWanted();
}

void Archiving::tellNotMerged(const QString &name, const Merged &merged, const IsWanted &isWanted)
{
    const Teller caller = teller;
    const Outcome &outcome = merged.outcome;
    const bool isNewer = outcome.kind == Outcome::NewerVersion;
    // Of a newer version the user is told first, as with a single chunk file.
    if (isNewer && isWanted())
        tellFailure(outcome);
    else if (!isNewer && outcome.kind != Outcome::NotOpened)
        caller.tellLast(&DatachunkHandler::zipFileLoaded, name);
    if (!caller.storeExists()
        || !caller.tell(&DatachunkHandler::informAboutCleared, browsing.trace.isLive()))
        return;
    if (!isWanted() || !caller.tellErrors(merged.damage) || !isWanted())
        return;
    browsing.showLive();
    if (caller.storeExists() && !isNewer)
        tellFailure(outcome);
}

void Archiving::show(Merged &merged)
{
    browsing.trace.showMerged(std::move(merged.messages), merged.lines, std::move(merged.notes));
    browsing.expectError();
    if (merged.hasBookmarkMap)
        browsing.trace.notes().showBookmarks(merged.bookmarks);
}

void Archiving::tellFailure(const Outcome &outcome)
{
    if (!outcome.text.isEmpty()) {
        teller.tellLast(&DatachunkHandler::newErrorMessage, outcome.text);
    } else if (outcome.kind == Outcome::NewerVersion) {
        teller.tellLast(&DatachunkHandler::showDataChunkVersionMismatch);
    } else if (outcome.kind == Outcome::TooLarge) {
        teller.tellLast(&DatachunkHandler::showTooMuchMessagesError, quint32(outcome.number));
    } else if (outcome.kind == Outcome::NoRoom) {
        teller.tellLast(
            &DatachunkHandler::newErrorMessage,
            DatachunkHandler::tr("There is no room on the disk to unpack the archive."));
    } else if (outcome.kind != Outcome::GivenUp) {
        browsing.tellNothingImported();
    }
}

bool Archiving::unpack(const QString &archive)
{
    const Teller caller = teller;
    const QString name = ArchiveLimits::archiveName(archive);
    const bool isOnStoreThread = caller.isOnStoreThread();
    QVector<std::function<void()>> held;
    QString unpackedInto; // empty as long as nothing is
    const auto unpacked = [&](const QString &file, const QDir &folder, const QString &time) {
        unpackedInto = folder.path();
        const auto report = [=] {
            caller.tellLast(&DatachunkHandler::newZippedFile, file, name, folder, time);
        };
        // A slot must not be called in the middle of the desk's work.
        if (isOnStoreThread)
            held.append(report);
        else
            caller.later(report);
    };
    QStringList damage;
    const Outcome outcome = desk.unpack(archive, unpacked, damage);
    if (outcome.kind == Outcome::GivenUp) {
        held.clear();
        unpackedInto.clear();
    }
    const bool anything = !unpackedInto.isEmpty();
    if (anything)
        indexChunks(unpackedInto);
    const bool failed = !anything || !outcome.isDone() || !outcome.text.isEmpty();
    for (const std::function<void()> &report : qAsConst(held))
        report();
    caller.onStoreThread([this, caller, name, outcome, damage, failed] {
        if (caller.tellErrors(damage) && failed)
            tellFailure(outcome);
        caller.tellLast(&DatachunkHandler::zipFileLoaded, name);
    });
    return anything;
}
