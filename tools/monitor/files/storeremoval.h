#pragma once

#include "bookmarkhandler.h"
#include "datachunkhandler.h"

#include <memory>
#include <thread>

/// Destroys a store whose chunks may take long to delete, so that nobody waits for it.
class StoreRemoval : public QObject
{
    Q_OBJECT
public:
    /// \a bookmarks are those of the store. Goes by itself when all is done.
    StoreRemoval(std::unique_ptr<BookmarkHandler> bookmarks,
                 std::unique_ptr<DatachunkHandler> store, QObject *parent);
    /// Waits until the chunks are gone.
    ~StoreRemoval() override;

private:
    const std::unique_ptr<BookmarkHandler> bookmarks;
    const std::unique_ptr<DatachunkHandler> store;
    std::thread thread;
};
