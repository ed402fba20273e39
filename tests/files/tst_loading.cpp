#include "bookmarkhandler.h"
#include "datachunkhandler.h"
#include "messages.h"
#include "savefileworker.h"
#include "storefixture.h"

#include <QtTest>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

/// Paging chunks in, opening, appending and splitting chunk files.
class Loading : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void versionDecidesWhatIsRead_data();
    void versionDecidesWhatIsRead();
    void newerVersionLeadsBackToLiveMode();
    void absurdSizesAreNotBelieved_data();
    void absurdSizesAreNotBelieved();
    void appendingTakesBookmarksForRecords();
    void goingLiveFromASlotEndsTheLoad();
    void missingChunkChangesNothing();
    void splitsIntoParts();
    void splitIsRefused_data();
    void splitIsRefused();
    void part256OverwritesPart0();

private:
    QTemporaryDir folder;
    QString file;
};

namespace {

QByteArray chunkBytes(const QString &version, const QVector<CAN::CanRxMessage> &messages)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    const quint32 number = QString(version).remove(QLatin1Char('.')).toUInt();
    stream << QStringLiteral("0.0 - 1.0") << version;
    if (number >= ChunkFormat::notesSince)
        stream << ChunkFormat::Notes{{1, QStringLiteral("note")}};
    if (number >= ChunkFormat::bookmarksSince)
        stream << ChunkFormat::Bookmarks{{2, CanMessageBookmark(2, QStringLiteral("mark"))}};
    for (const CAN::CanRxMessage &message : messages)
        ChunkFormat::writeRecord(stream, message, number);
    return bytes;
}

QVector<CAN::CanRxMessage> someMessages(int count)
{
    QVector<CAN::CanRxMessage> messages;
    for (int i = 0; i < count; ++i)
        messages.append(makeMessage(quint32(i), i % 9));
    return messages;
}

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool underSanitizer = true; // shadow memory takes more than any limit
#else
constexpr bool underSanitizer = false;
#endif

rlim_t addressSpaceInUse()
{
    const QList<QByteArray> pages = readFile(QStringLiteral("/proc/self/statm")).split(' ');
    return pages.first().toULong() * rlim_t(sysconf(_SC_PAGESIZE));
}

} // namespace

void Loading::init()
{
    file = folder.filePath(QStringLiteral("a.dck"));
}

void Loading::versionDecidesWhatIsRead_data()
{
    QTest::addColumn<QString>("version");
    QTest::addColumn<QString>("note");
    QTest::addColumn<bool>("bookmarksReplaced");
    QTest::addColumn<bool>("withLine");
    QTest::newRow("0") << ""
                       << "live note" << false << false;
    QTest::newRow("100") << "100"
                         << "live note" << false << false;
    QTest::newRow("101") << "101"
                         << "note" << false << false;
    QTest::newRow("1.02") << "1.02"
                          << "note" << false << false;
    QTest::newRow("103") << "103"
                         << "note" << false << true;
    QTest::newRow("104") << "104"
                         << "note" << true << true;
}

void Loading::versionDecidesWhatIsRead()
{
    QFETCH(QString, version);
    QFETCH(bool, bookmarksReplaced);
    QFETCH(bool, withLine);
    const QVector<CAN::CanRxMessage> messages = someMessages(5);
    writeFile(file, chunkBytes(version, messages));
    BookmarkHandler bookmarks;
    DatachunkHandler store(20000);
    store.setBookmarkhandler(&bookmarks);
    store.setMessageNote(1, QStringLiteral("live note"));
    bookmarks.addBookmark(1, QStringLiteral("live mark"));
    QVERIFY(store.loadDckFile(file));
    QTEST(store.getMessageNote(1), "note");
    QCOMPARE(bookmarks.bookmarks().keys(), QList<unsigned>{bookmarksReplaced ? 2u : 1u});
    QCOMPARE(SaveFileWorker::dataChunkVersion, quint16(QString(version).remove('.').toUInt()));
    QVERIFY(store.getIsLive());
    store.loadDataFromFile(file, DatachunkHelper::CurrentMessages);
    QCOMPARE(store.getMessageCount(), 5u);
    for (int i = 0; i < 5; ++i) {
        CAN::CanRxMessage expected = messages.at(i);
        expected.line = withLine ? expected.line : 0;
        QVERIFY(sameInChunk(store.messageAt(i), expected));
    }
}

void Loading::newerVersionLeadsBackToLiveMode()
{
    writeFile(file, chunkBytes(QStringLiteral("105"), someMessages(5)));
    DatachunkHandler store(20000);
    store.addnewtestmessage();
    QSignalSpy errors(&store, &DatachunkHandler::newErrorMessage);
    QSignalSpy imported(&store, &DatachunkHandler::messagesImported);
    QSignalSpy mode(&store, &DatachunkHandler::liveModeChanged);
    store.setMessageNote(1, QStringLiteral("live note"));
    store.importMessages(file, DatachunkHelper::ChunkFile);
    QCOMPARE(errors.count(), 1);
    QVERIFY(errors.first().first().toString().startsWith(
        QStringLiteral("This import file was created with a newer version")));
    QCOMPARE(imported.first().first().toString(), QString());
    QCOMPARE(mode.count(), 1);
    QVERIFY(store.getIsLive());
    QCOMPARE(store.getMessageCount(), 1u);
    QCOMPARE(store.getMessageNote(1), QStringLiteral("live note"));
    QVERIFY(!store.appendDckFile(file));
    QVERIFY(!store.splitFile(file, 2));
}

void Loading::absurdSizesAreNotBelieved_data()
{
    QTest::addColumn<QByteArray>("hex");
    const QByteArray head = "00000002"
                            "0031"
                            "00000006"
                            "003100300034";
    QTest::newRow("header text of 4 GB") << QByteArray("fffffffe"
                                                       "0031");
    QTest::newRow("4 billion notes") << head
            + "ffffffff"
              "00000001"
              "00000002"
              "0031";
    QTest::newRow("note of 2 GB") << head
            + "00000001"
              "00000001"
              "7ffffffe"
              "0031";
    QTest::newRow("4 billion bookmarks") << head
            + "00000000"
              "fffffffe"
              "00000001";
}

void Loading::absurdSizesAreNotBelieved()
{
    QFETCH(QByteArray, hex);
    writeFile(file, QByteArray::fromHex(hex));
    DatachunkHandler store(20000);
    // Room for what a sound program needs, far below what the file claims.
    rlimit before{};
    QCOMPARE(getrlimit(RLIMIT_AS, &before), 0);
    rlimit tight = before;
    tight.rlim_cur = addressSpaceInUse() + 64 * 1024 * 1024;
    if (!underSanitizer)
        QCOMPARE(setrlimit(RLIMIT_AS, &tight), 0);
    store.loadDataFromFile(file, DatachunkHelper::CurrentMessages);
    setrlimit(RLIMIT_AS, &before);
    QVERIFY(store.getMessageCount() <= 1);
}

void Loading::appendingTakesBookmarksForRecords()
{
    // Without a bookmark the map is a count of four zero bytes. Taken for a record it has no
    // payload, and the line of that record is the record's own bytes 17 and 18.
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    ChunkFormat::writeHeader(stream, QStringLiteral("0.0 - 0.0"), {}, {});
    CAN::CanRxMessage message = makeMessage(0x123, "", 9);
    message.messageNumber = 0x00420000;
    ChunkFormat::writeRecord(stream, message, ChunkFormat::currentVersion);
    writeFile(file, bytes);
    DatachunkHandler store(20000);
    QVERIFY(store.loadDckFile(file));
    QCOMPARE(store.getLines(), QSet<unsigned char>{9});
    store.clearLines();
    QVERIFY(store.appendDckFile(file));
    QVERIFY(!store.getLines().contains(9) || store.getLines().size() > 1);
    QVERIFY(!store.appendDckFile(folder.filePath(QStringLiteral("missing.dck"))));
}

void Loading::goingLiveFromASlotEndsTheLoad()
{
    writeFile(file, chunkBytes(QStringLiteral("104"), someMessages(3)));
    for (const bool beforeTheSwitch : {false, true}) {
        DatachunkHandler store(20000);
        store.addnewtestmessage();
        QSignalSpy errors(&store, &DatachunkHandler::newErrorMessage);
        int starts = 0;
        connect(&store, &DatachunkHandler::chunkContainsFdMessage, this, [&] {
            if (!beforeTheSwitch)
                store.goLive();
        });
        connect(&store, &DatachunkHandler::informAboutClearStart, this, [&] {
            if (beforeTheSwitch && ++starts == 2)
                store.goLive();
        });
        store.loadDataFromFile(file, DatachunkHelper::CurrentMessages);
        QVERIFY(store.getIsLive());
        QCOMPARE(store.getMessageCount(), 1u);
        QCOMPARE(errors.count(), 0);
    }
}

void Loading::missingChunkChangesNothing()
{
    DatachunkHandler store(20000);
    store.addnewtestmessage();
    QSignalSpy errors(&store, &DatachunkHandler::newErrorMessage);
    QVERIFY(store.loadDataFromFile(3));
    QVERIFY(store.getIsLive());
    QCOMPARE(store.getMessageCount(), 1u);
    QCOMPARE(errors.count(), 0);
    store.showFileLoadingError();
    QCOMPARE(errors.first().first().toString(),
             QStringLiteral("The file at %1/tmpData3.dck does not exists.")
                 .arg(store.chunkFolderPath()));
    const QString pipe = folder.filePath(QStringLiteral("pipe.dck"));
    QCOMPARE(mkfifo(qPrintable(pipe), 0600), 0);
    store.loadDataFromFile(pipe, DatachunkHelper::CurrentMessages);
    QVERIFY(!store.loadDckFile(pipe));
    QVERIFY(store.getIsLive());
}

void Loading::splitsIntoParts()
{
    const QVector<CAN::CanRxMessage> messages = someMessages(10);
    const QString source = folder.filePath(QStringLiteral("long.name.dck"));
    for (const QString version : {"100", "104"}) {
        writeFile(source, chunkBytes(version, messages));
        DatachunkHandler store(20000);
        QVERIFY(store.splitFile(source, 4));
        const QString part = folder.filePath(QStringLiteral("long_splitted/long_%1.dck"));
        QVector<quint32> numbers;
        for (int i = 0; i < 3; ++i) {
            const ReadChunk chunk = readChunkFile(part.arg(i));
            QCOMPARE(chunk.preamble.version, 104u);
            QCOMPARE(chunk.preamble.timeText, QStringLiteral("0.000000 - 0.000000"));
            QVERIFY(chunk.notes.isEmpty() && chunk.bookmarks.isEmpty());
            QCOMPARE(chunk.messages.size(), i < 2 ? 4 : 2);
            QCOMPARE(chunk.messages.first().id, messages.at(i * 4).id);
            numbers += numbersOf(chunk.messages);
        }
        QCOMPARE(numbers, numbersFromTo(0, 9));
        // The last part stays open as the continuous output.
        store.appendToContinuousOutputFile(makeMessage(1));
        store.finishContinousOutput();
        QCOMPARE(readChunkFile(part.arg(2)).messages.size(), 3);
    }
}

void Loading::splitIsRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<unsigned>("messagesPerFile");
    QTest::newRow("missing file") << "missing.dck" << 4u;
    QTest::newRow("parts without messages") << "b.dck" << 0u;
    QTest::newRow("folder cannot be created") << "blocked.dck" << 4u;
}

void Loading::splitIsRefused()
{
    QFETCH(QString, name);
    QFETCH(unsigned, messagesPerFile);
    const QString source = folder.filePath(name);
    if (!name.startsWith(QLatin1String("missing")))
        writeFile(source, chunkBytes(QStringLiteral("104"), someMessages(3)));
    const QString target = source.chopped(4) + QLatin1String("_splitted");
    if (name.startsWith(QLatin1String("blocked")))
        writeFile(target, "a file");
    DatachunkHandler store(20000);
    QVERIFY(!store.splitFile(source, messagesPerFile));
    QVERIFY(!QDir(target).exists());
}

void Loading::part256OverwritesPart0()
{
    const QString source = folder.filePath(QStringLiteral("many.dck"));
    writeFile(source, chunkBytes(QStringLiteral("104"), someMessages(258)));
    DatachunkHandler store(20000);
    QVERIFY(store.splitFile(source, 1));
    const QDir parts(folder.filePath(QStringLiteral("many_splitted")));
    QCOMPARE(parts.entryList(QDir::Files).size(), 256);
    QCOMPARE(readChunkFile(parts.filePath("many_0.dck")).messages.first().messageNumber, 256u);
    QCOMPARE(readChunkFile(parts.filePath("many_2.dck")).messages.first().messageNumber, 2u);
}

QTEST_GUILESS_MAIN(Loading)
#include "tst_loading.moc"
