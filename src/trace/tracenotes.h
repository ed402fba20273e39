#pragma once

#include "locks.h"
#include "messagelist.h"
#include "notes.h"

#include <QPointer>
#include <QString>

#include <atomic>

class BookmarkHandler;

/// The notes of a trace: those shown, and the live ones, which are set aside while others are
/// shown. The bookmarks shown are those of the application's handler; the live ones are set aside
/// with the notes. Any thread; its lock is taken last of all and never held during a call outside,
/// but for the handler's own operations.
class TraceNotes
{
public:
    /// What belongs to the messages of one list.
    struct Marks
    {
        Notes notes;
        Bookmarks bookmarks;
    };

    /// Before any other thread marks messages; the handler has to outlive those that do.
    void setBookmarkHandler(const QPointer<BookmarkHandler> &newHandler) { handler = newHandler; }
    bool hasBookmarks() const { return !handler.isNull(); }
    CanMessageBookmark bookmarkAt(quint32 number) const;

    // The notes shown.

    QString note(quint32 number) const EXCLUDES(mutex);
    void set(quint32 number, const QString &text) EXCLUDES(mutex);
    /// Adds \a text behind " ; " unless the note contains it already.
    void append(quint32 number, const QString &text) EXCLUDES(mutex);
    /// Adds \a text behind " | ".
    void join(quint32 number, const QString &text) EXCLUDES(mutex);
    Notes shown() const EXCLUDES(mutex);
    /// Those on the messages of a list.
    Notes of(const MessageList &messages) const EXCLUDES(mutex);
    void show(Notes notes) EXCLUDES(mutex);
    void showBookmarks(const Bookmarks &bookmarks);

    // The note that waits for the next live message.

    /// \a note has one "%1", for the time of day at which that message comes.
    void setForNext(const QString &note) EXCLUDES(mutex);
    void attachToNext(quint32 number) EXCLUDES(mutex)
    {
        // Hardly any message finds a note waiting, and a plain load is cheaper.
        if (isNoteWaiting.load(std::memory_order_relaxed))
            attach(number);
    }

    // The live notes and bookmarks, whether or not others are shown.

    Marks live() const EXCLUDES(mutex);
    /// False, and nothing changes, when it is about a bookmark and there is no handler.
    bool changeLive(const MarkChange &change) EXCLUDES(mutex);
    Marks takeLive() EXCLUDES(mutex);
    /// Undoes takeLive().
    void giveBackLive(Marks &marks) EXCLUDES(mutex);
    /// Keeps the live ones until bringBack(), and shows none. Where they are aside already the
    /// bookmarks shown go.
    void setAside() EXCLUDES(mutex);
    void bringBack() EXCLUDES(mutex);

    /// Drops all of them but the note that waits.
    void clear() EXCLUDES(mutex);

private:
    void attach(quint32 number) EXCLUDES(mutex);
    Bookmarks shownBookmarks() const;

    QPointer<BookmarkHandler> handler;

    mutable Mutex mutex;
    Notes notes GUARDED_BY(mutex);
    Marks aside GUARDED_BY(mutex);
    bool isAside GUARDED_BY(mutex) = false;
    QString noteForNext GUARDED_BY(mutex);
    std::atomic<bool> isNoteWaiting{false}; // changed under the mutex
};
