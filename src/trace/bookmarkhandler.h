#pragma once

#include "canmessagebookmark.h"
#include "datachunkglobal.h"

#include <QMap>
#include <QMutex>
#include <QObject>

/// The bookmarks of the messages in view, one per message number. The application owns it and
/// hands it to the store with DatachunkHandler::setBookmarkhandler; it has to outlive the
/// threads that append to that store.
///
/// Every operation may be called from any thread, but the reference that bookmarks() returns
/// holds only while no other thread changes the map.
class DATACHUNK_EXPORT BookmarkHandler : public QObject
{
    Q_OBJECT
public:
    /// Without any bookmark.
    explicit BookmarkHandler(QObject *parent = nullptr);

    /// By message number.
    const QMap<unsigned int, CanMessageBookmark> &bookmarks() const;

    /// A copy of them, whatever other threads do to the map.
    QMap<unsigned int, CanMessageBookmark> copyOfBookmarks() const;

    /// The bookmark of message \a number, or the default bookmark.
    CanMessageBookmark bookmarkAt(unsigned int number);

    /// False, and nothing changes, when \a text is empty or the message has a bookmark already.
    bool addBookmark(unsigned int number, QString text);

    /// Does nothing when the message has none.
    void removeBookmark(unsigned int number);
    /// Removes all there are.
    void clearBookmarks();
    /// In place of all there are.
    void setBookmarks(const QMap<unsigned int, CanMessageBookmark> &bookmarks);

    /// Empties the map and returns what it held, in one step.
    QMap<unsigned int, CanMessageBookmark> takeBookmarks();

private:
    // A rotation takes the bookmarks on whichever thread appends.
    mutable QMutex mutex;
    QMap<unsigned int, CanMessageBookmark> map;
};
