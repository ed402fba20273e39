#include "tracenotes.h"

#include "bookmarkhandler.h"

#include <QTime>

#include <utility>

namespace {

// Qt's maps count who shares them, without ordering what they did with it before.
template <typename Map> Map unshared(Map map)
{
    map.detach();
    return map;
}

} // namespace

CanMessageBookmark TraceNotes::bookmarkAt(quint32 number) const
{
    return handler ? handler->bookmarkAt(number) : CanMessageBookmark();
}

QString TraceNotes::note(quint32 number) const
{
    const MutexLock locker(mutex);
    return notes.value(number);
}

void TraceNotes::set(quint32 number, const QString &text)
{
    const MutexLock locker(mutex);
    notes[number] = text;
}

void TraceNotes::append(quint32 number, const QString &text)
{
    const MutexLock locker(mutex);
    const QString existing = notes.value(number);
    if (existing.contains(text))
        return;
    notes[number] = existing.isEmpty() ? text : QStringLiteral("%1 ; %2").arg(existing).arg(text);
}

void TraceNotes::join(quint32 number, const QString &text)
{
    const MutexLock locker(mutex);
    joinNote(notes, number, text);
}

Notes TraceNotes::shown() const
{
    const MutexLock locker(mutex);
    return unshared(notes);
}

Notes TraceNotes::of(const MessageList &messages) const
{
    const MutexLock locker(mutex);
    Notes found;
    for (int i = 0; i < messages.size() && !notes.isEmpty(); ++i) {
        const auto note = notes.constFind(messages.at(i).messageNumber);
        if (note != notes.constEnd())
            found.insert(note.key(), note.value());
    }
    return found;
}

void TraceNotes::show(Notes newNotes)
{
    const MutexLock locker(mutex);
    notes.swap(newNotes);
}

void TraceNotes::showBookmarks(const Bookmarks &bookmarks)
{
    if (handler)
        handler->setBookmarks(bookmarks);
}

void TraceNotes::setForNext(const QString &note)
{
    const MutexLock locker(mutex);
    noteForNext = note;
    isNoteWaiting = true;
}

void TraceNotes::attach(quint32 number)
{
    const MutexLock locker(mutex);
    if (!isNoteWaiting.exchange(false))
        return;
    const QString note =
        noteForNext.arg(QTime::currentTime().toString(QStringLiteral("hh:mm:ss.zzz")));
    (isAside ? aside.notes : notes).insert(number, note);
}

Bookmarks TraceNotes::shownBookmarks() const
{
    return handler ? handler->copyOfBookmarks() : Bookmarks();
}

TraceNotes::Marks TraceNotes::live() const
{
    const MutexLock locker(mutex);
    if (isAside)
        return {unshared(aside.notes), unshared(aside.bookmarks)};
    return {unshared(notes), shownBookmarks()};
}

bool TraceNotes::changeLive(const MarkChange &change)
{
    const MutexLock locker(mutex);
    if (change.bookmark && !handler)
        return false;
    applyChange(change, isAside ? aside.notes : notes);
    if (isAside) {
        applyChange(change, aside.bookmarks);
    } else if (change.bookmark) {
        handler->removeBookmark(change.number);
        handler->addBookmark(change.number, *change.bookmark);
    }
    return true;
}

TraceNotes::Marks TraceNotes::takeLive()
{
    const MutexLock locker(mutex);
    if (isAside)
        return std::exchange(aside, {});
    return {std::exchange(notes, {}), handler ? handler->takeBookmarks() : Bookmarks()};
}

void TraceNotes::giveBackLive(Marks &marks)
{
    const MutexLock locker(mutex);
    if (isAside) {
        std::swap(aside, marks);
        return;
    }
    notes.swap(marks.notes);
    showBookmarks(marks.bookmarks);
}

void TraceNotes::setAside()
{
    const MutexLock locker(mutex);
    if (!std::exchange(isAside, true))
        aside = {std::exchange(notes, {}), shownBookmarks()};
    else if (handler)
        handler->clearBookmarks();
}

void TraceNotes::bringBack()
{
    const MutexLock locker(mutex);
    isAside = false;
    Marks live = std::exchange(aside, {});
    notes.swap(live.notes);
    showBookmarks(live.bookmarks);
}

void TraceNotes::clear()
{
    const MutexLock locker(mutex);
    notes.clear();
    // What was set aside belongs to messages that are gone, and their numbers come again.
    aside = {};
    if (handler)
        handler->clearBookmarks();
}
