#include "storeremoval.h"

#include <QDirIterator>
#include <QFile>

#include <system_error>
#include <utility>

namespace {

void removeFiles(const QString &folder)
{
    QDirIterator files(folder, QDir::Files | QDir::Hidden);
    while (files.hasNext())
        QFile::remove(files.next());
}

} // namespace

void StoreRemoval::begin(std::unique_ptr<BookmarkHandler> bookmarks,
                         std::unique_ptr<DatachunkHandler> store, QObject *parent)
{
    new StoreRemoval(std::move(bookmarks), std::move(store), parent);
}

// The store itself belongs to this thread; it only removes what it still finds.
StoreRemoval::StoreRemoval(std::unique_ptr<BookmarkHandler> bookmarks,
                           std::unique_ptr<DatachunkHandler> removed, QObject *parent)
    : QObject(parent), bookmarks(std::move(bookmarks)), store(std::move(removed))
{
    const QString folder = store->chunkFolderPath();
    const auto remove = [this, folder] {
        if (!folder.isEmpty())
            removeFiles(folder);
        QMetaObject::invokeMethod(this, &QObject::deleteLater, Qt::QueuedConnection);
    };
    try {
        thread = std::thread(remove);
    } catch (const std::system_error &) {
        deleteLater();
    }
}

StoreRemoval::~StoreRemoval()
{
    if (thread.joinable())
        thread.join();
}
