#include "bookmarkhandler.h"

#include <QMutexLocker>

#include <utility>

BookmarkHandler::BookmarkHandler(QObject *parent) : QObject(parent) { }

const QMap<unsigned int, CanMessageBookmark> &BookmarkHandler::bookmarks() const
{
    return map;
}

QMap<unsigned int, CanMessageBookmark> BookmarkHandler::copyOfBookmarks() const
{
    const QMutexLocker locker(&mutex);
    // Qt's maps count who shares them, without ordering what they did with it before.
    QMap<unsigned int, CanMessageBookmark> copy = map;
    copy.detach();
    return copy;
}

CanMessageBookmark BookmarkHandler::bookmarkAt(unsigned int number)
{
    const QMutexLocker locker(&mutex);
    return map.value(number);
}

bool BookmarkHandler::addBookmark(unsigned int number, QString text)
{
    const QMutexLocker locker(&mutex);
    if (text.isEmpty() || map.contains(number))
        return false;
    map.insert(number, CanMessageBookmark(number, text));
    return true;
}

void BookmarkHandler::removeBookmark(unsigned int number)
{
    const QMutexLocker locker(&mutex);
    map.remove(number);
}

void BookmarkHandler::clearBookmarks()
{
    const QMutexLocker locker(&mutex);
    map.clear();
}

void BookmarkHandler::setBookmarks(const QMap<unsigned int, CanMessageBookmark> &bookmarks)
{
    const QMutexLocker locker(&mutex);
    map = bookmarks;
}

QMap<unsigned int, CanMessageBookmark> BookmarkHandler::takeBookmarks()
{
    const QMutexLocker locker(&mutex);
    return std::exchange(map, {});
}
