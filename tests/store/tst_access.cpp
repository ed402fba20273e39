#include "bookmarkhandler.h"
#include "datachunkhandler.h"
#include "messagelist.h"
#include "messages.h"

#include <QtTest>

/// Reading single messages, stepping through lines, notes and bookmarks.
class TestAccess : public QObject
{
    Q_OBJECT
private slots:
    void listSharesItsBlocksWithoutMixingThemUp();
    void numberIsFoundInAnyOrder();
    void indexOutsideGivesADefaultRecord();
    void missingLineGivesTheFarEnd();
    void stepsThroughOneLine();
    void newLineIsTold();
    void bookmarksEndWithTheirHandler();
    void bookmarkStreamStopsAtForeignForms();
};

namespace {

void appendOnLines(DatachunkHandler &store, const QVector<quint16> &lines)
{
    for (const quint16 line : lines)
        store.appendCanMessage(makeMessage(store.getMessageCount() + 1, "", line));
}

} // namespace

void TestAccess::listSharesItsBlocksWithoutMixingThemUp()
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
        QCOMPARE(list.at(0).messageNumber, quint32(i));
        QVERIFY(sameInChunk(copy.at(i), makeMessage(quint32(i < 1500 ? i : i + 100000), 8)));
        list.removeFirst();
    }
    list.removeFirst();
    list.append(makeMessage(7, 8));
    QCOMPARE(list.at(0).messageNumber, 7u);
}

void TestAccess::numberIsFoundInAnyOrder()
{
    const auto indexOf = [](quint32 wanted, const QVector<quint32> &numbers) {
        MessageList list;
        for (const quint32 number : numbers)
            list.append(makeMessage(number, 8));
        return list.indexOfNumber(wanted);
    };
    QCOMPARE(indexOf(3, {4, 5, 6}), -1);
    QCOMPARE(indexOf(7, {4, 5, 6}), -1);
    QCOMPARE(indexOf(1, {0xFFFFFFFF, 0, 1}), 2);
    QCOMPARE(indexOf(9, {4, 5, 9}), 2);
    QCOMPARE(indexOf(6, {4, 5, 9}), -1);
    QCOMPARE(indexOf(3, {8, 3, 3}), 1);
}

void TestAccess::indexOutsideGivesADefaultRecord()
{
    DatachunkHandler store(20000);
    appendOnLines(store, {7});
    CAN::CanRxMessage out = makeMessage(9);
    QCOMPARE(store.messageAt(-1).id, 0u);
    QCOMPARE(store.messageAtPassMutex(7).id, 0u);
    QVERIFY(!store.getMessageAtIndex(out, 1));
    QCOMPARE(out.id, 9u);
    QVERIFY(store.getMessageAtIndex(out, -3));
    QCOMPARE(out.id, 0u);
    QVERIFY(store.getMessageAtIndex(out, 0));
    QCOMPARE(out.id, 1u);
}

void TestAccess::missingLineGivesTheFarEnd()
{
    DatachunkHandler store(20000);
    QCOMPARE(store.firstMessageOfLine(1).id, 0u);
    appendOnLines(store, {5, 5, 5});
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

void TestAccess::stepsThroughOneLine()
{
    DatachunkHandler store(20000);
    appendOnLines(store, {1, 2, 1, 2, 1});
    CAN::CanRxMessage out;
    for (const quint32 number : {0u, 2u, 4u}) {
        QVERIFY(store.nextMessageForLine(out, 1));
        QCOMPARE(out.messageNumber, number);
    }
    QVERIFY(!store.nextMessageForLine(out, 1));
    QVERIFY(!store.nextMessageForLine(out, 1));
    appendOnLines(store, {1});
    QVERIFY(store.nextMessageForLine(out, 1));
    QCOMPARE(out.messageNumber, 5u);
    store.resetLinePositions();
    QVERIFY(store.nextMessageForLine(out, 1));
    QCOMPARE(out.messageNumber, 0u);
    QCOMPARE(store.messageCountForLine(1), 4u);
    QCOMPARE(store.getMessagesOfLine(2, 2).size(), 1);
}

void TestAccess::newLineIsTold()
{
    DatachunkHandler store(20000);
    QSignalSpy lines(&store, &DatachunkHandler::newLine);
    appendOnLines(store, {7, 7, 255, 263});
    QCOMPARE(lines.count(), 2);
    QCOMPARE(store.messageCountForLine(7), 2u); // 263 belongs to no line
    store.clearLines();
    QVERIFY(store.getLines().isEmpty());
    store.updateLines();
    QCOMPARE(lines.count(), 4);
    QCOMPARE(store.getLines(), (QSet<unsigned char>{7, 255}));
}

void TestAccess::bookmarksEndWithTheirHandler()
{
    DatachunkHandler store(20000);
    QVERIFY(!store.bookmarkAt(5).isValid());
    {
        BookmarkHandler handler;
        store.setBookmarkhandler(&handler);
        QVERIFY(!handler.addBookmark(5, QString()));
        QVERIFY(handler.addBookmark(5, QStringLiteral("X")));
        QCOMPARE(store.bookmarkAt(5).text(), QStringLiteral("X"));
    }
    QVERIFY(!store.bookmarkAt(5).isValid());
}

void TestAccess::bookmarkStreamStopsAtForeignForms()
{
    const CanMessageBookmark before(9, QStringLiteral("before"));
    const QByteArray rest = QByteArray::fromHex("00000005 00000002 0058");
    const auto bytesLeft = [&](const QByteArray &form) {
        QDataStream stream(QByteArray::fromHex(form) + rest);
        CanMessageBookmark bookmark = before;
        stream >> bookmark;
        return bookmark == before ? int(stream.device()->bytesAvailable()) : -1;
    };
    QCOMPARE(bytesLeft("0000b00b 01"), 11); // another magic number
    QCOMPARE(bytesLeft("0000b00a 02"), 10); // a newer form
}

QTEST_GUILESS_MAIN(TestAccess)
#include "tst_access.moc"
