#include "archives.h"
#include "datachunkhandler.h"
#include "messages.h"
#include "savefileworker.h"
#include "storefixture.h"

#include <QBuffer>
#include <QtTest>

/// Paging chunks in, opening, appending and splitting chunk files.
class Loading : public QObject
{
    Q_OBJECT
private slots:
    void versionText();
    void cutRecordIsKeptAsFarAsItGoes();
    void badLengthEndsTheReading();
    void appendingTakesBookmarksForRecords();
    void goingLiveFromASlotEndsTheLoad();
    void missingChunkChangesNothing();
    void splitsIntoParts();

private:
    QString path(const char *name) const { return folder.filePath(QLatin1String(name)); }

    QTemporaryDir folder;
};

void Loading::versionText()
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

void Loading::cutRecordIsKeptAsFarAsItGoes()
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

void Loading::badLengthEndsTheReading()
{
    for (const char length : {'\x41', '\x7f', '\x80', '\xff'}) {
        const QByteArray record = length + QByteArray(300, '\0');
        writeFile(path("a.dck"), chunkBytes("1.0", 0, 2) + record);
        DatachunkHandler store(20000);
        store.importMessages(path("a.dck"), DatachunkHelper::ChunkFile);
        QCOMPARE(store.getMessageCount(), 2u);
    }
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
    writeFile(path("a.dck"), bytes);
    DatachunkHandler store(20000);
    SaveFileWorker::dataChunkVersion = 0;
    QVERIFY(store.loadDckFile(path("a.dck")));
    QVERIFY(store.getIsLive());
    QCOMPARE(SaveFileWorker::dataChunkVersion, quint16(104));
    QCOMPARE(store.getLines(), QSet<unsigned char>{9});
    store.clearLines();
    QVERIFY(store.appendDckFile(path("a.dck")));
    QVERIFY(!store.getLines().contains(9) || store.getLines().size() > 1);
}

void Loading::goingLiveFromASlotEndsTheLoad()
{
    writeFile(path("a.dck"), chunkBytes("1.0", 0, 3));
    for (const bool beforeTheSwitch : {false, true}) {
        DatachunkHandler store(20000);
        store.addnewtestmessage();
        QSignalSpy errors(&store, &DatachunkHandler::newErrorMessage);
        int starts = 0;
        connect(&store, &DatachunkHandler::chunkContainsFdMessage, [&] {
            if (!beforeTheSwitch)
                store.goLive();
        });
        connect(&store, &DatachunkHandler::informAboutClearStart, [&] {
            if (beforeTheSwitch && ++starts == 2)
                store.goLive();
        });
        store.loadDataFromFile(path("a.dck"), DatachunkHelper::CurrentMessages);
        QVERIFY(store.getIsLive() && errors.isEmpty());
        QCOMPARE(store.getMessageCount(), 1u);
    }
}

void Loading::missingChunkChangesNothing()
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

void Loading::splitsIntoParts()
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

QTEST_GUILESS_MAIN(Loading)
#include "tst_loading.moc"
