#pragma once

#include "messagelist.h"
#include "notes.h"

#include <QMutex>
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

    QString note(quint32 number) const;
    void set(quint32 number, const QString &text);
    /// Adds \a text behind " ; " unless the note contains it already.
    void append(quint32 number, const QString &text);
    /// Adds \a text behind " | ".
    void join(quint32 number, const QString &text);
    Notes shown() const;
    /// Those on the messages of a list.
    Notes of(const MessageList &messages) const;
    void show(Notes notes);
    void showBookmarks(const Bookmarks &bookmarks);

    // The note that waits for the next live message.

    /// \a note has one "%1", for the time of day at which that message comes.
    void setForNext(const QString &note);
    void attachToNext(quint32 number)
    {
        // Hardly any message finds a note waiting, and a plain load is cheaper.
        if (isNoteWaiting.load(std::memory_order_relaxed))
            attach(number);
    }

    // The live notes and bookmarks, whether or not others are shown.

    Marks live() const;
    Marks takeLive();
    /// Undoes takeLive().
    void giveBackLive(Marks &marks);
    /// Keeps the live ones until bringBack(), and shows none. Where they are aside already the
    /// bookmarks shown go.
    void setAside();
    void bringBack();

    /// Drops all of them but the note that waits.
    void clear();

private:
    void attach(quint32 number);
    Bookmarks shownBookmarks() const;

    QPointer<BookmarkHandler> handler;

    mutable QMutex mutex;
    // Guarded by mutex.
    Notes notes;
    Marks aside;
    bool isAside = false;
    QString noteForNext;
    std::atomic<bool> isNoteWaiting{false}; // may be read without it
};
