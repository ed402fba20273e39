#include "bookmarkhandler.h"
#include "datachunkhandler.h"
#include "messagelist.h"
#include "messages.h"

#include <QtTest>

/// Reading single messages, stepping through lines, notes and bookmarks.
class Access : public QObject
{
    Q_OBJECT
private slots:
    void listSharesItsBlocksWithoutMixingThemUp();
    void numberIsFoundInAnyOrder_data();
    void numberIsFoundInAnyOrder();
    void indexOutsideGivesADefaultRecord();
    void missingLineGivesTheFarEnd();
    void stepsThroughOneLine();
    void wideLineBelongsToNoLine();
    void newLineIsTold();
    void bookmarkIsNotReplaced();
    void bookmarkStreamStopsAtForeignForms_data();
    void bookmarkStreamStopsAtForeignForms();
};

namespace {

CAN::CanRxMessage onLine(quint16 line)
{
    return makeMessage(1, "", line);
}

} // namespace

void Access::listSharesItsBlocksWithoutMixingThemUp()
{
    MessageList list;
    for (quint32 i = 0; i < 1500; ++i)
        list.append(makeMessage(i, 8));
    MessageList copy = list;
    const MessageList frozen = list;
    for (quint32 i = 1500; i < 3000; ++i) {
        list.append(makeMessage(i, 8));
        copy.append(makeMessage(i + 100000, 8));
    }
    QCOMPARE(frozen.size(), 1500);
    for (int i = 0; i < 3000; ++i) {
        QVERIFY(sameInChunk(list.at(i), makeMessage(quint32(i), 8)));
        QVERIFY(sameInChunk(copy.at(i), makeMessage(quint32(i < 1500 ? i : i + 100000), 8)));
    }
    for (int i = 0; i < 2999; ++i)
        list.removeFirst();
    QCOMPARE(list.size(), 1);
    QCOMPARE(list.at(0).messageNumber, 2999u);
    list.removeFirst();
    list.removeFirst();
    list.append(makeMessage(7, 8));
    QCOMPARE(list.at(0).messageNumber, 7u);
    QCOMPARE(copy.at(1499).messageNumber, 1499u);
}

void Access::numberIsFoundInAnyOrder_data()
{
    QTest::addColumn<QVector<quint32>>("numbers");
    QTest::addColumn<quint32>("wanted");
    QTest::addColumn<int>("index");
    const quint32 top = 0xFFFFFFFF;
    QTest::newRow("consecutive") << QVector<quint32>{4, 5, 6} << 6u << 2;
    QTest::newRow("below the first") << QVector<quint32>{4, 5, 6} << 3u << -1;
    QTest::newRow("beyond the last") << QVector<quint32>{4, 5, 6} << 7u << -1;
    QTest::newRow("over the highest number") << QVector<quint32>{top, 0, 1} << 1u << 2;
    QTest::newRow("with a gap") << QVector<quint32>{4, 5, 9} << 9u << 2;
    QTest::newRow("in the gap") << QVector<quint32>{4, 5, 9} << 6u << -1;
    QTest::newRow("the first of equal ones") << QVector<quint32>{8, 3, 3} << 3u << 1;
}

void Access::numberIsFoundInAnyOrder()
{
    QFETCH(QVector<quint32>, numbers);
    QFETCH(quint32, wanted);
    MessageList list;
    for (const quint32 number : numbers) {
        CAN::CanRxMessage message;
        message.messageNumber = number;
        list.append(message);
    }
    QTEST(list.indexOfNumber(wanted), "index");
}

void Access::indexOutsideGivesADefaultRecord()
{
    DatachunkHandler store(20000);
    store.appendCanMessage(makeMessage(0x123));
    CAN::CanRxMessage out = makeMessage(9);
    QCOMPARE(store.messageAt(-1).id, 0u);
    QCOMPARE(store.messageAt(1).id, 0u);
    QCOMPARE(store.messageAtPassMutex(7).id, 0u);
    QVERIFY(!store.getMessageAtIndex(out, 1));
    QCOMPARE(out.id, 9u);
    QVERIFY(store.getMessageAtIndex(out, -3));
    QCOMPARE(out.id, 0u);
    QVERIFY(store.getMessageAtIndex(out, 0));
    QCOMPARE(out.id, 0x123u);
}

void Access::missingLineGivesTheFarEnd()
{
    DatachunkHandler store(20000);
    QCOMPARE(store.firstMessageOfLine(1).id, 0u);
    for (quint32 id = 1; id <= 3; ++id)
        store.appendCanMessage(makeMessage(id, "", 5));
    QCOMPARE(store.firstMessageOfLine(1).id, 3u);
    QCOMPARE(store.lastMessageOfLine(1).id, 1u);
    QCOMPARE(store.firstMessageOfLine(5).id, 1u);
    QCOMPARE(store.lastMessageOfLine(5).id, 3u);
    unsigned position = 1;
    CAN::CanRxMessage out;
    QVERIFY(!store.getMessageOfLine(out, 1, position));
    QCOMPARE(out.id, 3u);
    QCOMPARE(position, 1u);
    position = 0xFFFFFFFF;
    QVERIFY(!store.getMessageOfLine(out, 5, position));
}

void Access::stepsThroughOneLine()
{
    DatachunkHandler store(20000);
    for (const quint16 line : {1, 2, 1, 2, 1})
        store.appendCanMessage(onLine(line));
    CAN::CanRxMessage out;
    for (const quint32 number : {0u, 2u, 4u}) {
        QVERIFY(store.nextMessageForLine(out, 1));
        QCOMPARE(out.messageNumber, number);
    }
    QVERIFY(!store.nextMessageForLine(out, 1));
    QVERIFY(!store.nextMessageForLine(out, 1));
    store.appendCanMessage(onLine(1));
    QVERIFY(store.nextMessageForLine(out, 1));
    QCOMPARE(out.messageNumber, 5u);
    store.resetLinePositions();
    QVERIFY(store.nextMessageForLine(out, 1));
    QCOMPARE(out.messageNumber, 0u);
    QCOMPARE(store.messageCountForLine(1), 4u);
    QCOMPARE(store.getMessagesOfLine(2, 2).size(), 1);
}

void Access::wideLineBelongsToNoLine()
{
    DatachunkHandler store(20000);
    store.appendCanMessage(onLine(0x103));
    QCOMPARE(store.getLines(), QSet<unsigned char>{3});
    QCOMPARE(store.messageCountForLine(3), 0u);
    CAN::CanRxMessage out;
    QVERIFY(!store.nextMessageForLine(out, 3));
}

void Access::newLineIsTold()
{
    DatachunkHandler store(20000);
    QSignalSpy lines(&store, &DatachunkHandler::newLine);
    for (const quint16 line : {7, 7, 255, 263})
        store.appendCanMessage(onLine(line));
    QCOMPARE(lines.count(), 2);
    store.clearLines();
    QVERIFY(store.getLines().isEmpty());
    store.updateLines();
    QCOMPARE(lines.count(), 4);
    QCOMPARE(store.getLines(), (QSet<unsigned char>{7, 255}));
}

void Access::bookmarkIsNotReplaced()
{
    DatachunkHandler store(20000);
    QVERIFY(!store.bookmarkAt(5).isValid());
    {
        BookmarkHandler handler;
        store.setBookmarkhandler(&handler);
        QVERIFY(!handler.addBookmark(5, QString()));
        QVERIFY(handler.addBookmark(5, QStringLiteral("X")));
        QVERIFY(!handler.addBookmark(5, QStringLiteral("Y")));
        QCOMPARE(store.bookmarkAt(5).text(), QStringLiteral("X"));
    }
    QVERIFY(!store.bookmarkAt(5).isValid());
}

void Access::bookmarkStreamStopsAtForeignForms_data()
{
    QTest::addColumn<QByteArray>("hex");
    QTest::addColumn<bool>("taken");
    QTest::addColumn<int>("bytesLeft");
    const QByteArray rest = "0000000500000002"
                            "0058";
    QTest::newRow("our form is read") << QByteArray("0000b00a"
                                                    "01"
                                                    + rest)
                                      << true << 0;
    QTest::newRow("foreign magic") << QByteArray("0000b00b"
                                                 "01"
                                                 + rest)
                                   << false << 11;
    QTest::newRow("newer form") << QByteArray("0000b00a"
                                              "02"
                                              + rest)
                                << false << 10;
}

void Access::bookmarkStreamStopsAtForeignForms()
{
    QFETCH(QByteArray, hex);
    QFETCH(bool, taken);
    const CanMessageBookmark before(9, QStringLiteral("before"));
    CanMessageBookmark bookmark = before;
    QDataStream stream(QByteArray::fromHex(hex));
    stream >> bookmark;
    QCOMPARE(bookmark, taken ? CanMessageBookmark(5, QStringLiteral("X")) : before);
    QTEST(int(stream.device()->bytesAvailable()), "bytesLeft");
    QByteArray written;
    QDataStream out(&written, QIODevice::WriteOnly);
    out << bookmark;
    if (taken)
        QCOMPARE(written.toHex(), hex);
}

QTEST_GUILESS_MAIN(Access)
#include "tst_access.moc"
