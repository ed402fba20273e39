#include "bookmarkhandler.h"
#include "datachunkhandler.h"
#include "messages.h"
#include "storefixture.h"

#include <QtConcurrent>
#include <QtTest>

#include <thread>

/// Live messages, their way into chunk files and what a clearing or an end does to it.
class Rotation : public QObject
{
    Q_OBJECT
private slots:
    void cleanup();
    void thresholdIsFiveThousandBelowTheLimit_data();
    void thresholdIsFiveThousandBelowTheLimit();
    void viewShowsTheRotatedBufferUntilThePoolGetsToIt();
    void chunkCarriesTheNotesAndBookmarksOfItsMessages();
    void rotationWhileBrowsingTakesTheLiveNotes();
    void everyMessageIsInOneChunkInOrder_data();
    void everyMessageIsInOneChunkInOrder();
    void announcedIndexIsTheOneOfTheFile();
    void withoutBudgetNothingIsWritten();
    void continuousModeDropsTheOldest();
    void clearingForgetsChunksOnTheirWay();
    void clearingKeepsOtherFiles();
    void losingAChunkIsTold();
    void storeEndsSafelyAtAnyMoment();
    void everyStoreHasAFolderOfItsOwn();
};

namespace {

constexpr unsigned margin = 5000;

void append(DatachunkHandler &store, int count)
{
    for (int i = 0; i < count; ++i)
        store.appendCanMessage(makeMessage(quint32(i), i % 9));
}

QString chunk(const DatachunkHandler &store, int number)
{
    return store.chunkFolderPath() + QStringLiteral("/tmpData%1.dck").arg(number);
}

} // namespace

void Rotation::cleanup()
{
    // A store leaves nothing behind, whatever a test did to it.
    const QString root = qEnvironmentVariable("XDG_DATA_HOME");
    QDirIterator files(root, QDir::Files | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    QVERIFY2(!files.hasNext(), qPrintable(files.next()));
}

void Rotation::thresholdIsFiveThousandBelowTheLimit_data()
{
    QTest::addColumn<unsigned>("limit");
    QTest::addColumn<int>("appended");
    QTest::addColumn<int>("chunks");
    QTest::addColumn<unsigned>("kept");
    QTest::newRow("the buffer may be full") << 5100u << 100 << 0 << 100u;
    QTest::newRow("one more rotates it") << 5100u << 101 << 1 << 1u;
    QTest::newRow("a limit of 5001 rotates every message") << 5001u << 3 << 2 << 1u;
    QTest::newRow("a limit of 5000 does so too") << 5000u << 3 << 2 << 1u;
    QTest::newRow("a limit of 4999 never rotates") << 4999u << 20000 << 0 << 20000u;
    QTest::newRow("a limit of 0 rotates far beyond 5000") << 0u << 6000 << 0 << 6000u;
}

void Rotation::thresholdIsFiveThousandBelowTheLimit()
{
    QFETCH(unsigned, limit);
    QFETCH(int, appended);
    QFETCH(int, chunks);
    QFETCH(unsigned, kept);
    DatachunkHandler store(limit);
    QSignalSpy saved(&store, &DatachunkHandler::newDataFile);
    append(store, appended);
    QTRY_COMPARE(saved.count(), chunks);
    QTRY_COMPARE(store.getMessageCount(), kept);
    // The rotated buffer, shown until the pool gets to it, may be as long as the live list.
    QTRY_COMPARE(store.messageAt(int(kept) - 1).messageNumber, quint32(appended - 1));
    QCOMPARE(QDir(store.chunkFolderPath()).entryList(QDir::Files).size(), chunks);
}

void Rotation::viewShowsTheRotatedBufferUntilThePoolGetsToIt()
{
    QSemaphore release;
    QThreadPool &pool = *QThreadPool::globalInstance();
    for (int i = 0; i < pool.maxThreadCount(); ++i)
        QtConcurrent::run([&release] { release.acquire(); });
    DatachunkHandler store(margin + 10);
    QSignalSpy saved(&store, &DatachunkHandler::newDataFile);
    QSignalSpy cleared(&store, &DatachunkHandler::informAboutCleared);
    append(store, 11);
    // A pool that is busy with something else holds up the view, but no chunk.
    QTRY_COMPARE(saved.count(), 1);
    QCOMPARE(store.getMessageCount(), 10u);
    QCOMPARE(store.messageAt(0).messageNumber, 0u);
    release.release(pool.maxThreadCount());
    QTRY_COMPARE(cleared.count(), 1);
    QCOMPARE(cleared.first().first().toBool(), true);
    QCOMPARE(store.getMessageCount(), 1u);
    QCOMPARE(store.messageAt(0).messageNumber, 10u);
}

void Rotation::chunkCarriesTheNotesAndBookmarksOfItsMessages()
{
    BookmarkHandler bookmarks;
    DatachunkHandler store(margin + 10);
    store.setBookmarkhandler(&bookmarks);
    QSignalSpy saved(&store, &DatachunkHandler::newDataFile);
    append(store, 10);
    store.setMessageNote(3, QStringLiteral("third"));
    bookmarks.addBookmark(4, QStringLiteral("mark"));
    append(store, 1);
    store.setMessageNote(10, QStringLiteral("tenth"));
    bookmarks.addBookmark(10, QStringLiteral("later mark"));
    QTRY_COMPARE(saved.count(), 1);
    const ReadChunk read = readChunkFile(chunk(store, 0));
    QCOMPARE(read.notes, (ChunkFormat::Notes{{3, QStringLiteral("third")}}));
    QCOMPARE(read.bookmarks.keys(), QList<unsigned>{4});
    QCOMPARE(numbersOf(read.messages), numbersFromTo(0, 9));
    QCOMPARE(store.getMessageNote(3), QString());
    QCOMPARE(store.getMessageNote(10), QStringLiteral("tenth"));
    QCOMPARE(store.bookmarkAt(10).text(), QStringLiteral("later mark"));
}

void Rotation::rotationWhileBrowsingTakesTheLiveNotes()
{
    BookmarkHandler bookmarks;
    DatachunkHandler store(margin + 10);
    store.setBookmarkhandler(&bookmarks);
    QSignalSpy saved(&store, &DatachunkHandler::newDataFile);
    append(store, 9);
    store.setMessageNote(8, QStringLiteral("in chunk 0"));
    append(store, 6);
    store.setMessageNote(12, QStringLiteral("live"));
    bookmarks.addBookmark(13, QStringLiteral("live mark"));
    store.loadDataFromFile(0);
    QVERIFY(!store.getIsLive());
    QCOMPARE(store.getMessageNote(8), QStringLiteral("in chunk 0"));
    store.addMessageNoteToNextMessage(QStringLiteral("pending"));
    append(store, 6);
    QTRY_COMPARE(saved.count(), 2);
    QCOMPARE(store.getMessageNote(8), QStringLiteral("in chunk 0"));
    const ReadChunk read = readChunkFile(chunk(store, 1));
    QCOMPARE(read.notes.keys(), (QList<unsigned>{12, 15}));
    QVERIFY(read.notes.value(15).endsWith(QStringLiteral(" - pending")));
    QCOMPARE(read.bookmarks.keys(), QList<unsigned>{13});
    store.goLive();
    QCOMPARE(store.getMessageNote(12), QString());
    QVERIFY(bookmarks.bookmarks().isEmpty());
    QCOMPARE(store.getMessageCount(), 1u);
}

void Rotation::everyMessageIsInOneChunkInOrder_data()
{
    QTest::addColumn<int>("feeders");
    QTest::addColumn<int>("messages");
    QTest::newRow("one feeder") << 1 << 6000000;
    QTest::newRow("three feeders") << 3 << 1000000;
}

void Rotation::everyMessageIsInOneChunkInOrder()
{
    QFETCH(int, feeders);
    QFETCH(int, messages);
    DatachunkHandler store(20000);
    QVector<quint32> announced;
    connect(&store, &DatachunkHandler::newDataFile, this,
            [&announced](quint32 index) { announced.append(index); });
    std::vector<std::thread> threads;
    for (int i = 0; i < feeders; ++i)
        threads.emplace_back([&] { append(store, messages / feeders); });
    QCoreApplication::processEvents();
    for (std::thread &thread : threads)
        thread.join();
    const quint32 total = quint32(messages / feeders * feeders);
    const quint32 chunks = (total - 1) / 15000;
    QTRY_COMPARE_WITH_TIMEOUT(quint32(announced.size()), chunks, 60000);
    QCOMPARE(announced, numbersFromTo(0, chunks - 1));
    quint32 expected = 0;
    for (quint32 i = 0; i < chunks; ++i) {
        for (const CAN::CanRxMessage &message : readChunkFile(chunk(store, int(i))).messages)
            QVERIFY(message.messageNumber == expected++);
    }
    QTRY_COMPARE(store.messageAt(0).messageNumber, expected);
    QCOMPARE(store.getMessageCount(), total - expected);
}

void Rotation::announcedIndexIsTheOneOfTheFile()
{
    DatachunkHandler store(margin + 1000);
    int wrong = 0;
    connect(&store, &DatachunkHandler::newDataFile, this, [&](quint32 index, const QString &time) {
        const ReadChunk read = readChunkFile(chunk(store, int(index)));
        wrong += read.preamble.timeText != time;
        wrong += read.messages.first().messageNumber != index * 1000;
    });
    QSignalSpy saved(&store, &DatachunkHandler::newDataFile);
    append(store, 20001);
    QTRY_COMPARE(saved.count(), 20);
    QCOMPARE(wrong, 0);
}

void Rotation::withoutBudgetNothingIsWritten()
{
    DatachunkHandler store(margin + 10);
    store.setMaximumHDDSpace(0);
    QSignalSpy cleared(&store, &DatachunkHandler::informAboutCleared);
    append(store, 11);
    QTRY_COMPARE(cleared.count(), 1);
    QCOMPARE(store.getMessageCount(), 1u);
    QVERIFY(QDir(store.chunkFolderPath()).isEmpty());
}

void Rotation::continuousModeDropsTheOldest()
{
    DatachunkHandler store(5010);
    store.setContinuesMode(true);
    store.addMessageNoteToNextMessage(QStringLiteral("never taken"));
    append(store, 10005);
    QCOMPARE(store.getMessageCount(), 10000u);
    QCOMPARE(store.messageAt(0).messageNumber, 5u);
    QCOMPARE(store.getPositionOfMessageNumber(5), 0u);
    QCOMPARE(store.getPositionOfMessageNumber(4), 0xFFFFFFFFu);
    // Positions go on counting what was dropped.
    unsigned position = 5;
    CAN::CanRxMessage found;
    QVERIFY(store.getMessageOfLine(found, 0, position));
    QCOMPARE(position, found.messageNumber - 5);
    QCOMPARE(store.getMessagesOfLine(0, 5).first().messageNumber, found.messageNumber);
    QCOMPARE(store.getMessagesOfLine(0, found.messageNumber + 1).size(),
             store.getMessagesOfLine(0, 0).size() - 1);
    store.setContinuesMode(false);
    QCOMPARE(store.getMaxMessageCount(), 10000u);
    QVERIFY(QDir(store.chunkFolderPath()).isEmpty());
}

void Rotation::clearingForgetsChunksOnTheirWay()
{
    DatachunkHandler store(margin + 1000);
    QSignalSpy saved(&store, &DatachunkHandler::newDataFile);
    for (int round = 0; round < 20; ++round) {
        append(store, 10001);
        store.clearAllMessages();
        QCOMPARE(store.getMessageCount(), 0u);
        QVERIFY(QDir(store.chunkFolderPath()).isEmpty());
    }
    append(store, 1001);
    QTRY_COMPARE(saved.count(), 1);
    QCOMPARE(saved.first().first().toUInt(), 0u);
    QCOMPARE(QDir(store.chunkFolderPath()).entryList(QDir::Files),
             QStringList{QStringLiteral("tmpData0.dck")});
    QCOMPARE(numbersOf(readChunkFile(chunk(store, 0)).messages), numbersFromTo(0, 999));
}

void Rotation::clearingKeepsOtherFiles()
{
    BookmarkHandler bookmarks;
    DatachunkHandler store(20000);
    store.setBookmarkhandler(&bookmarks);
    QSignalSpy cleared(&store, &DatachunkHandler::informAboutCleared);
    writeFile(store.chunkFolderPath() + QStringLiteral("/mine.dck"), "x");
    writeFile(store.chunkFolderPath() + QStringLiteral("/old tmpData"), "x");
    append(store, 3);
    store.setMessageNote(1, QStringLiteral("note"));
    bookmarks.addBookmark(1, QStringLiteral("mark"));
    store.clearAllMessages();
    QCOMPARE(QDir(store.chunkFolderPath()).entryList(QDir::Files),
             QStringList{QStringLiteral("mine.dck")});
    QCOMPARE(store.getMessageNote(1), QString());
    QVERIFY(!store.bookmarkAt(1).isValid());
    QVERIFY(store.getLines().isEmpty());
    QCOMPARE(cleared.count(), 1);
    append(store, 1);
    QCOMPARE(store.getLastMessage().messageNumber, 0u);
}

void Rotation::losingAChunkIsTold()
{
    DatachunkHandler store(margin + 10);
    QSignalSpy errors(&store, &DatachunkHandler::newErrorMessage);
    QSignalSpy saved(&store, &DatachunkHandler::newDataFile);
    QVERIFY(QDir().mkdir(chunk(store, 0)));
    append(store, 21);
    QTRY_COMPARE(saved.count(), 1);
    QCOMPARE(saved.first().first().toUInt(), 1u);
    QCOMPARE(errors.count(), 1);
    QVERIFY(errors.first().first().toString().contains(chunk(store, 0)));
}

void Rotation::storeEndsSafelyAtAnyMoment()
{
    for (int round = 0; round < 300; ++round) {
        QTemporaryDir exports;
        const QString exported = exports.filePath(QStringLiteral("all.dck"));
        {
            DatachunkHandler store(margin + 500);
            append(store, round * 13);
            store.saveMessagesToFile(exported, DatachunkHelper::CurrentMessages, {}, 0, 0);
        }
        // What the user asked for is written even though nobody waits for it.
        const int left = round == 0 ? 0 : (round * 13 - 1) % 500 + 1;
        QCOMPARE(QFile::exists(exported) ? readChunkFile(exported).messages.size() : 0, left);
    }
}

void Rotation::everyStoreHasAFolderOfItsOwn()
{
    srand(1);
    auto first = std::make_unique<DatachunkHandler>(20000);
    srand(1);
    DatachunkHandler second(20000);
    QVERIFY(first->chunkFolderPath() != second.chunkFolderPath());
    const QString folder = second.chunkFolderPath();
    first.reset();
    QVERIFY(QDir(folder).exists());
}

QTEST_GUILESS_MAIN(Rotation)
#include "tst_rotation.moc"
