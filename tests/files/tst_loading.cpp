#include "archives.h"
#include "atturn.h"
#include "chunkreading.h"
#include "datachunkhandler.h"
#include "memorylimit.h"
#include "messages.h"
#include "peakmemory.h"
#include "savefileworker.h"
#include "storefixture.h"

#include <QBuffer>
#include <QtTest>

/// Paging chunks in, opening, appending and splitting chunk files.
class TestLoading : public QObject
{
    Q_OBJECT
private slots:
    void versionText();
    void cutRecordIsKeptAsFarAsItGoes();
    void recordsLieAcrossBlockBorders();
    void damageIsTold_data();
    void damageIsTold();
    void memoryIsBounded();
    void memoryOfControlGroupsCounts();
    void longReadingTurnsTheEventLoop_data();
    void longReadingTurnsTheEventLoop();
    void missingChunkChangesNothing();
    void splitsIntoParts();

private:
    QString path(const char *name) const { return folder.filePath(QLatin1String(name)); }

    QTemporaryDir folder;
};

void TestLoading::versionText()
{
    const auto versionOf = [](const QString &text) {
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        out << QStringLiteral("1.0 - 2.0") << text;
        return streamedChunk(bytes).preamble.version;
    };
    QCOMPARE(versionOf("1.03"), 103u);
    QCOMPARE(versionOf("new"), 0u); // an old file
    QCOMPARE(versionOf(QString()), 0u);
    QCOMPARE(versionOf("65640"), 65640u); // 104 in 16 bits
}

void TestLoading::cutRecordIsKeptAsFarAsItGoes()
{
    char record[ChunkFormat::maxRecordSize];
    const CAN::CanRxMessage written = makeMessage(0x12345678, "aabb", 0x0102);
    const QByteArray whole(record, ChunkFormat::encodeRecord(record, written, 104));
    for (int size = 1; size < whole.size(); ++size) {
        QBuffer buffer;
        buffer.setData(whole + whole.left(size));
        buffer.open(QIODevice::ReadOnly);
        ChunkFormat::RecordReader reader(buffer, 104);
        CAN::CanRxMessage message;
        QVERIFY(reader.next(message) && reader.next(message));
        // The record is read over the one before: what is cut off its payload stays, the
        // fields behind the end become 0.
        QCOMPARE(message.data[1], quint8(0xbb));
        QCOMPARE(message.extended, size > 3);
        QCOMPARE(message.id, size > 7 ? 0x12345678u : 0u);
        QCOMPARE(message.line, quint16(0));
        QVERIFY(!reader.next(message));
    }
}

void TestLoading::recordsLieAcrossBlockBorders()
{
    constexpr int blockSize = 256 * 1024;
    constexpr int recordSize = ChunkFormat::maxRecordSize;
    const auto record = [](quint32 number, int payload) {
        char bytes[recordSize];
        return QByteArray(bytes,
                          ChunkFormat::encodeRecord(bytes, makeMessage(number, payload), 104));
    };
    QByteArray rest;
    for (quint32 number = 2; rest.size() < blockSize; ++number)
        rest += record(number, 64);
    for (int shift = 0; shift < recordSize; ++shift) {
        const QByteArray front = record(0, qMin(shift, 64)) + record(1, shift - qMin(shift, 64));
        for (const QByteArray &all : {front + rest, (front + rest).left(blockSize)}) {
            QBuffer buffer;
            buffer.setData(all);
            buffer.open(QIODevice::ReadOnly);
            ChunkFormat::RecordReader reader(buffer, 104);
            CAN::CanRxMessage message;
            quint32 number = 0;
            for (; reader.next(message) && !reader.lastIsCut(); ++number)
                QVERIFY(sameInChunk(message, makeMessage(number, message.length)));
            const int whole = (all.size() - front.size()) / recordSize;
            const bool isCut = (all.size() - front.size()) % recordSize != 0;
            QCOMPARE(number, quint32(whole + 2));
            QCOMPARE(reader.lastIsCut(), isCut);
            QCOMPARE(reader.end().offset, qint64(front.size() + whole * recordSize));
        }
    }
}

void TestLoading::damageIsTold_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<unsigned int>("messages");
    QTest::addColumn<QString>("told");
    const QByteArray chunk = chunkBytes("1.0", 0, 2);
    const QByteArray rest(300, '\0');
    const auto row = [size = chunk.size()](const char *what, const QByteArray &bytes,
                                           unsigned int messages, const QString &told) {
        QTest::newRow(what) << bytes << messages
                            << QString(told)
                                   .replace("END", QString::number(size))
                                   .replace("LAST", QString::number(size - 33));
    };
    row("a whole chunk", chunk, 2, {});
    row("a cut record", chunk.chopped(1), 2,
        "The chunk %1 ends in the middle of record 2, which begins at byte LAST; messages read: "
        "2.");
    row("a length of 65", chunk + '\x41' + rest, 2,
        "The chunk %1 is damaged at byte END, where record 3 claims a length of 65; "
        "messages read: 2.");
    row("a length below 0", chunk + '\x80' + rest, 2,
        "The chunk %1 is damaged at byte END, where record 3 claims a length of -128; "
        "messages read: 2.");
    row("cut notes", chunkBytes("1.0", 0, 0, {{1, "note"}}).chopped(5), 0,
        "The notes or bookmarks of the chunk %1, which begin at byte 44, are damaged or cut short; "
        "messages read: 0.");
    row("a header of half characters", QByteArray(3, '\0') + "\1" + rest, 13,
        "The header of the chunk %1 is damaged; messages read: 13.");
}

void TestLoading::damageIsTold()
{
    QFETCH(QByteArray, bytes);
    QFETCH(unsigned int, messages);
    QFETCH(QString, told);
    const QString file = path("a.dck");
    writeFile(file, bytes);
    QStringList expected;
    if (!told.isEmpty())
        expected.append(told.replace("%1", file));
    for (const bool split : {false, true}) {
        DatachunkHandler store(20000);
        SaveFileWorker::dataChunkVersion = 7;
        QStringList errors;
        connect(&store, &DatachunkHandler::newErrorMessage, this,
                [&](const QString &text) { errors.append(text); });
        QVERIFY(split ? store.splitFile(file, 100) : store.loadDckFile(file));
        QCOMPARE(errors, expected);
        const quint32 version = streamedChunk(bytes).preamble.version;
        QVERIFY(split || SaveFileWorker::dataChunkVersion == version);
        store.loadDataFromFile(file, DatachunkHelper::CurrentMessages);
        QCOMPARE(store.getMessageCount(), messages);
    }
}

void TestLoading::memoryIsBounded()
{
    constexpr qint64 memory = 1024 * 1024;
    const QByteArray head = chunkBytes("1.0", 0, 0).chopped(8);
    const QByteArray entries = QByteArray("\0\0\0\1\xff\xff\xff\xff", 8).repeated(1 << 17);
    for (const QByteArray &map :
         {QByteArray("\0\2\0\0", 4) + entries,
          QByteArray("\0\0\0\1\0\0\0\1\0\xff\0\0", 12) + entries.repeated(16),
          QByteArray(4, '\0') + QByteArray("\0\2\0\0", 4) + entries}) {
        QBuffer buffer;
        buffer.setData(head + map);
        buffer.open(QIODevice::ReadOnly);
        ChunkReading::Front front;
        resetHeapPeak();
        QCOMPARE(ChunkReading::readFront(buffer, ChunkFormat::BookmarkMap::Read,
                                         {memory, [] { return true; }}, front),
                 Outcome::TooLarge);
        QVERIFY2(heapPeak() < 5 * memory, QByteArray::number(heapPeak()));
    }
    QBuffer buffer;
    buffer.setData(QByteArray(23 * 1000, '\0'));
    buffer.open(QIODevice::ReadOnly);
    ChunkFormat::RecordReader reader(buffer, 0);
    ChunkReading::Records records;
    bool hasFdFrame = false;
    QCOMPARE(ChunkReading::readRecords(reader,
                                       {999 * int(sizeof(CAN::CanRxMessage)), [] { return true; }},
                                       records, hasFdFrame),
             Outcome::TooLarge);
    QCOMPARE(records.messages.size(), 999);
}

void TestLoading::memoryOfControlGroupsCounts()
{
    const auto limit = [this](const char *groups, const QMap<QString, QByteArray> &limits) {
        const QDir root(path("root"));
        QDir(root).removeRecursively();
        root.mkpath("proc/self");
        writeFile(root.filePath("proc/self/cgroup"), groups);
        for (auto file = limits.begin(); file != limits.end(); ++file) {
            root.mkpath("sys/fs/cgroup/" + QFileInfo(file.key()).path());
            writeFile(root.filePath("sys/fs/cgroup/" + file.key()), file.value());
        }
        return MemoryLimit::ofControlGroups(root.path());
    };
    constexpr qint64 none = std::numeric_limits<qint64>::max();
    const char *const version2 = "0::/a/b\n";
    const char *const version1 = "3:cpu,memory:/a\n0::/c\n";
    QCOMPARE(limit(version2, {{"a/b/memory.max", "max\n"}}), none);
    QCOMPARE(limit(version2, {{"a/memory.max", "20\n"}, {"a/b/memory.max", "30\n"}}), qint64(20));
    QCOMPARE(limit("0::/outside\n", {{"memory.max", "40\n"}}), qint64(40));
    QCOMPARE(limit(version1, {{"memory/a/memory.limit_in_bytes", "50\n"}}), qint64(50));
    QCOMPARE(limit(version1, {{"memory/c/memory.limit_in_bytes", "50\n"}}), none);
}

void TestLoading::longReadingTurnsTheEventLoop_data()
{
    QTest::addColumn<QString>("act");
    QTest::newRow("nothing");
    for (const char *act : {"going live", "clearing", "deletion", "adding to the output"})
        QTest::newRow(act);
}

void TestLoading::longReadingTurnsTheEventLoop()
{
    constexpr quint32 count = 250000;
    const QByteArray act = QTest::currentDataTag();
    const bool goesOn = act == "nothing" || act == "adding to the output";
    writeFile(path("long.dck"), chunkBytes("1.0", 0, count));
    for (const bool split : {false, true}) {
        const QPointer<DatachunkHandler> store(new DatachunkHandler(20000));
        const AtTurn atTurn(1, [&] {
            if (act == "going live")
                store->goLive();
            else if (act == "clearing")
                store->clearAllMessages();
            else if (act == "deletion")
                delete store.data();
            else if (act == "adding to the output")
                store->appendToContinuousOutputFile(makeMessage(1));
        });
        if (split) {
            QCOMPARE(store->splitFile(path("long.dck"), count), goesOn);
        } else {
            store->loadDataFromFile(path("long.dck"), DatachunkHelper::CurrentMessages);
            QVERIFY(!store || store->getMessageCount() == (goesOn ? count : 0));
        }
        QVERIFY(atTurn.hasActed());
        QCOMPARE(!store, act == "deletion");
        delete store.data();
        if (split && goesOn)
            QVERIFY(holds(path("long_splitted/long_0.dck"), 0, count - 1));
    }
}

void TestLoading::missingChunkChangesNothing()
{
    DatachunkHandler store(20000);
    QSignalSpy errors(&store, &DatachunkHandler::newErrorMessage);
    QVERIFY(store.loadDataFromFile(3));
    QVERIFY(store.getIsLive() && errors.isEmpty());
    store.showFileLoadingError();
    QCOMPARE(errors.first().first().toString(),
             QStringLiteral("The file at %1/tmpData3.dck does not exists.")
                 .arg(store.chunkFolderPath()));
}

void TestLoading::splitsIntoParts()
{
    const CanMessageBookmark mark(1000, QStringLiteral("mark"));
    writeFile(path("many.name.dck"),
              chunkBytes("1.0", 1000, 258, {{1000, "note"}}, {{1000, mark}}));
    DatachunkHandler store(20000);
    QVERIFY(store.splitFile(path("many.name.dck"), 1));
    const QDir parts(path("many_splitted"));
    QCOMPARE(parts.entryList(QDir::Files).size(), 256);
    // Part 256 is part 0 again, and the last part stays open as the continuous output.
    store.appendToContinuousOutputFile(makeMessage(1));
    store.finishContinousOutput();
    const ReadChunk last = readChunkFile(parts.filePath("many_1.dck"));
    QCOMPARE(last.preamble.timeText, QStringLiteral("0.000000 - 0.000000"));
    QVERIFY(last.notes.isEmpty() && last.bookmarks.isEmpty());
    QCOMPARE(numbersOf(last.messages), (QVector<quint32>{257, 0}));
    QCOMPARE(numbersOf(readChunkFile(parts.filePath("many_2.dck")).messages), QVector<quint32>{2});
}

QTEST_GUILESS_MAIN(TestLoading)
#include "tst_loading.moc"
