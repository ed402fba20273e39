#include "archives.h"
#include "backgroundthread.h"
#include "bookmarkhandler.h"
#include "datachunkhandler.h"
#include "messages.h"
#include "storefixture.h"
#include "unorderedstep.h"

#include <QtTest>

#include <atomic>
#include <thread>
#include <vector>

/// What a second thread may do meanwhile. The outcomes are checked anywhere, the accesses by
/// ThreadSanitizer.
class TestRaces : public QObject
{
    Q_OBJECT
private slots:
    void exportWhileBookmarksChange();
    void mergeWhileAThreadStepsThroughALine();
    void threadsRotateBesideEverythingElse();
    void wakingDuringTheWorkIsNotLost();
};

void TestRaces::exportWhileBookmarksChange()
{
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("marked.dck"));
    BookmarkHandler bookmarks;
    DatachunkHandler store(20000);
    store.setBookmarkhandler(&bookmarks);
    store.appendCanMessage(makeMessage(0));
    UnorderedStep step;
    std::thread user([&] {
        bookmarks.addBookmark(0, QStringLiteral("mark"));
        step.set(1);
        step.waitFor(2);
    });
    step.waitFor(1);
    store.exportMessages(file);
    step.set(2);
    user.join();
    QTRY_VERIFY(QFile::exists(file) && !readChunkFile(file).messages.isEmpty());
    QCOMPARE(readChunkFile(file).bookmarks.keys(), QList<unsigned>{0});
}

void TestRaces::mergeWhileAThreadStepsThroughALine()
{
    QTemporaryDir folder;
    const QString archive = folder.filePath(QStringLiteral("a.zip"));
    QVERIFY(writeArchive(archive, {{"a.dck", chunkBytes("1.0", 0, 1)}}));
    DatachunkHandler store(20000);
    const CAN::CanRxMessage message = makeMessage(0, 8);
    store.appendCanMessage(message);
    UnorderedStep step;
    bool found[2] = {};
    std::thread reader([&] {
        CAN::CanRxMessage next;
        const auto line = static_cast<unsigned char>(message.line);
        found[0] = store.nextMessageForLine(next, line);
        step.set(1);
        step.waitFor(2);
        found[1] = store.nextMessageForLine(next, line);
    });
    step.waitFor(1);
    const bool merged = store.loadZipMerged(archive);
    step.set(2);
    reader.join();
    QVERIFY(merged && found[0] && found[1]);
}

void TestRaces::threadsRotateBesideEverythingElse()
{
    constexpr int rotations = 40;
    QTemporaryDir folder;
    const QString archive = folder.filePath(QStringLiteral("a.zip"));
    QVERIFY(writeArchive(archive, {{"a.dck", chunkBytes("1.0", 0, 3)}}));
    BookmarkHandler bookmarks;
    DatachunkHandler store(5050);
    store.setBookmarkhandler(&bookmarks);
    store.setMaximumHDDSpace(1);
    std::atomic<bool> stop{false};
    std::vector<std::thread> threads;
    for (int feeder = 0; feeder < 2; ++feeder) {
        threads.emplace_back([&] {
            for (quint32 i = 0; i < rotations * 50; ++i)
                store.appendCanMessage(makeMessage(i, 64));
        });
    }
    threads.emplace_back([&] {
        CAN::CanRxMessage message;
        while (!stop) {
            store.getMessageAtIndex(message, int(store.getMessageCount()) - 1);
            store.setMessageNote(message.messageNumber, QStringLiteral("note"));
            store.nextMessageForLine(message, 1);
            store.givenUpMessageCount();
        }
    });
    threads.emplace_back([&] {
        while (!stop)
            store.loadZipFile(archive);
    });
    for (int i = 0; i < rotations; ++i) {
        store.loadDataFromFile(i);
        store.exportAllMessages(QStringLiteral("x.dck"), DatachunkHelper::ExportWithNotes);
        store.exportMessages(folder.filePath(QString::number(i % 3)));
        store.goLive();
        QCoreApplication::processEvents();
        if (i % 10 == 9)
            store.clearAllMessages();
    }
    threads[0].join();
    threads[1].join();
    stop = true;
    threads[2].join();
    threads[3].join();
    QVERIFY(store.waitForSaves());
    QVERIFY(store.getIsLive());
}

void TestRaces::wakingDuringTheWorkIsNotLost()
{
    QSemaphore begun;
    QSemaphore mayEnd;
    BackgroundThread thread([&] {
        begun.release();
        mayEnd.acquire();
    });
    for (int wake = 0; wake < 3; ++wake) {
        QVERIFY(thread.wake() && begun.tryAcquire(1, 10000));
        QVERIFY(thread.wake());
        mayEnd.release();
        QVERIFY(begun.tryAcquire(1, 10000));
        mayEnd.release();
    }
}

QTEST_GUILESS_MAIN(TestRaces)
#include "tst_races.moc"
