#include "datachunkhandler.h"
#include "messages.h"
#include "storefixture.h"
#include "tracetimeline.h"

#include <QThreadPool>
#include <QtTest>

#include <thread>

/// Live messages, their way into chunk files and what a clearing or an end does to it.
class TestRotation : public QObject
{
    Q_OBJECT
private slots:
    void viewShowsTheRotatedBufferUntilThePoolGetsToIt();
    void aStoreRotatesOnDemand();
    void severalFeedersGetNumbersInOrder();
    void continuousModeDropsTheOldest();
    void clearingKeepsOtherFiles();
};

namespace {

void append(DatachunkHandler &store, int count)
{
    for (int i = 0; i < count; ++i)
        store.appendCanMessage(makeMessage(quint32(i), i % 9));
}

} // namespace

void TestRotation::viewShowsTheRotatedBufferUntilThePoolGetsToIt()
{
    const auto release = std::make_shared<QSemaphore>();
    QThreadPool &pool = *QThreadPool::globalInstance();
    for (int i = 0; i < pool.maxThreadCount(); ++i)
        pool.start([release] { release->acquire(); });
    DatachunkHandler store(5010);
    QSignalSpy saved(&store, &DatachunkHandler::newDataFile);
    QVector<bool> cleared;
    // A signal spy would collect them on the pool's thread, while this one reads.
    QObject listener;
    connect(&store, &DatachunkHandler::informAboutCleared, &listener,
            [&](bool live) { cleared.append(live); });
    append(store, 11);
    // A pool that is busy with something else holds up the view, but no chunk.
    QTRY_COMPARE(saved.count(), 1);
    QCOMPARE(store.getMessageCount(), 10u);
    QCOMPARE(store.messageAt(0).messageNumber, 0u);
    release->release(pool.maxThreadCount());
    QTRY_COMPARE(cleared, QVector<bool>{true});
    QCOMPARE(store.getMessageCount(), 1u);
    QCOMPARE(store.messageAt(0).messageNumber, 10u);
}

void TestRotation::aStoreRotatesOnDemand()
{
    DatachunkHandler store(5010);
    QSignalSpy saved(&store, &DatachunkHandler::newDataFile);
    QVERIFY(!store.rotate());
    append(store, 4);
    store.setMessageNote(3, "noted");
    QVERIFY(store.rotate());
    QVERIFY(!store.rotate());
    TraceTimeline timeline = store.timeline();
    QCOMPARE(timeline.count(), 4u);
    append(store, 10); // one more would be too many
    timeline.refresh();
    QCOMPARE(timeline.count(), 14u);
    QVERIFY(store.rotate());
    QTRY_COMPARE(saved.count(), 2);
    QCOMPARE(saved.at(1).first().toInt(), 1);
    const ReadChunk first = readChunkFile(store.chunkFolderPath() + "/tmpData0.dck");
    QCOMPARE(first.messages.size(), 4);
    QCOMPARE(first.notes.value(3), QStringLiteral("noted"));
    QCOMPARE(readChunkFile(store.chunkFolderPath() + "/tmpData1.dck").messages.size(), 10);
    store.setContinuesMode(true);
    append(store, 1);
    QVERIFY(!store.rotate());
    QCOMPARE(store.getMessageCount(), 1u);
}

void TestRotation::severalFeedersGetNumbersInOrder()
{
    constexpr int feeders = 3;
    constexpr int messages = 333333;
    DatachunkHandler store(20000);
    QVector<quint32> announced;
    connect(&store, &DatachunkHandler::newDataFile, this,
            [&announced](quint32 index) { announced.append(index); });
    std::vector<std::thread> threads;
    for (int i = 0; i < feeders; ++i)
        threads.emplace_back([&] { append(store, messages); });
    QCoreApplication::processEvents();
    for (std::thread &thread : threads)
        thread.join();
    constexpr quint32 total = feeders * messages;
    const quint32 chunks = (total - 1) / 15000;
    QTRY_COMPARE_WITH_TIMEOUT(quint32(announced.size()), chunks, 60000);
    QCOMPARE(announced, numbersFromTo(0, chunks - 1));
    quint32 expected = 0;
    for (quint32 i = 0; i < chunks; ++i) {
        const QString chunk =
            QStringLiteral("%1/tmpData%2.dck").arg(store.chunkFolderPath()).arg(i);
        for (const CAN::CanRxMessage &message : readChunkFile(chunk).messages)
            QVERIFY(message.messageNumber == expected++);
    }
    QTRY_COMPARE(store.messageAt(0).messageNumber, expected);
    QCOMPARE(store.getMessageCount(), total - expected);
}

void TestRotation::continuousModeDropsTheOldest()
{
    DatachunkHandler store(5010);
    store.setContinuesMode(true);
    append(store, 10005);
    QCOMPARE(store.messageAt(0).messageNumber, 5u);
    QCOMPARE(store.getPositionOfMessageNumber(5), 0u);
    // Positions go on counting what was dropped.
    unsigned position = 52; // of a message of the line
    CAN::CanRxMessage found;
    QVERIFY(store.getMessageOfLine(found, 0, position));
    QCOMPARE(found.messageNumber, 52u);
    QCOMPARE(position, 47u);
    QCOMPARE(store.getMessagesOfLine(0, 5).first().messageNumber, found.messageNumber);
    QCOMPARE(store.getMessagesOfLine(0, found.messageNumber + 1).size(),
             store.getMessagesOfLine(0, 0).size() - 1);
    QCOMPARE(store.getMaxMessageCount(), 10000u);
    QVERIFY(QDir(store.chunkFolderPath()).isEmpty());
}

void TestRotation::clearingKeepsOtherFiles()
{
    DatachunkHandler store(20000);
    writeFile(store.chunkFolderPath() + QStringLiteral("/mine.dck"), "x");
    writeFile(store.chunkFolderPath() + QStringLiteral("/old tmpData"), "x");
    append(store, 3);
    store.clearAllMessages();
    QCOMPARE(QDir(store.chunkFolderPath()).entryList(QDir::Files), QStringList("mine.dck"));
    QVERIFY(store.getLines().isEmpty());
}

QTEST_GUILESS_MAIN(TestRotation)
#include "tst_rotation.moc"
