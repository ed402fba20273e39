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
    /// \a bookmarks are those of the store. What is begun goes by itself when all is done, and with
    /// \a parent at the latest.
    static void begin(std::unique_ptr<BookmarkHandler> bookmarks,
                      std::unique_ptr<DatachunkHandler> store, QObject *parent);
    /// Waits until the chunks are gone.
    ~StoreRemoval() override;

private:
    StoreRemoval(std::unique_ptr<BookmarkHandler> bookmarks,
                 std::unique_ptr<DatachunkHandler> store, QObject *parent);

    const std::unique_ptr<BookmarkHandler> bookmarks;
    const std::unique_ptr<DatachunkHandler> store;
    std::thread thread;
};
