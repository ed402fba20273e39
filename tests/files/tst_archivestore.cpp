#include "archives.h"
#include "datachunkhandler.h"
#include "messages.h"
#include "storefixture.h"

#include <QtTest>

namespace {

// The smallest limit above which a store rotates, after this many messages.
constexpr unsigned int rotationLimit = 5100;
constexpr int chunkSize = 100;

void record(DatachunkHandler &store, quint32 count)
{
    for (quint32 seed = 0; seed < count; ++seed)
        store.appendCanMessage(makeMessage(seed, 8));
}

QMap<QString, QByteArray> entriesOf(const QString &zipName)
{
    QMap<QString, QByteArray> entries;
    for (const TestEntry &entry : archiveEntries(zipName))
        entries.insert(entry.name, entry.content);
    return entries;
}

} // namespace

class TestArchiveStore : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void archiveThatCannotBeBegunIsPassedOver();
    void completionsDecideAboutPacking_data();
    void completionsDecideAboutPacking();
    void aFailedExportTakesTheWishAlong();
    void rotationsDoNotSwallowTheArchive();
    void laterWishesWinOverAMerge_data();
    void laterWishesWinOverAMerge();
    void badArchivesLeadBackToLive_data();
    void badArchivesLeadBackToLive();
    void damageIsToldUpToANumber();
    void chunksAreUnpackedInTheBackground();
    void storeEndsWhilePacking();

private:
    QString path(const char *name) const { return folder->filePath(QString(name)); }

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<DatachunkHandler> store;
};

void TestArchiveStore::init()
{
    store.reset();
    folder = std::make_unique<QTemporaryDir>();
    store = std::make_unique<DatachunkHandler>(rotationLimit);
    store->setZipFileName(path("trace.zip"));
}

void TestArchiveStore::archiveThatCannotBeBegunIsPassedOver()
{
    QSignalSpy errors(store.get(), &DatachunkHandler::newErrorMessage);
    store->setZipFileName(path("missing/trace.zip"));
    store->saveDatachunksToZip();
    store->setZipFileName(folder->path());
    store->saveDatachunksToZip();
    QCOMPARE(errors.count(), 0);
    QVERIFY(QDir(folder->path()).isEmpty());
}

void TestArchiveStore::completionsDecideAboutPacking_data()
{
    QTest::addColumn<QString>("calls");
    QTest::addColumn<bool>("packed");
    QTest::newRow("a save that ended well") << "wish success" << true;
    QTest::newRow("a save that failed takes the wish along") << "wish failure success" << false;
    QTest::newRow("a save that nobody wants packed") << "success" << false;
    QTest::newRow("a wish that was taken back") << "wish none success" << false;
    QTest::newRow("a chunk takes the wish along") << "wish chunk success" << false;
    QTest::newRow("an import's chunk takes the wish along") << "wish partial success" << false;
}

void TestArchiveStore::completionsDecideAboutPacking()
{
    QFETCH(QString, calls);
    QFETCH(bool, packed);
    for (const QString &call : calls.split(' ')) {
        if (call == "wish" || call == "none")
            store->setZipAfterSaving(call == "wish");
        else if (call == "chunk")
            store->newDataFileSaved("0.0 - 1.0");
        else if (call == "partial")
            store->newPartialDataFileSaved("a.dck", "0.0 - 1.0");
        else
            QMetaObject::invokeMethod(store.get(), "savingFinished",
                                      Q_ARG(bool, call == "success"));
    }
    if (packed)
        QTRY_VERIFY(QFileInfo::exists(path("trace.zip")));
    // Archive jobs run in order, so that nothing is packed any more once this one has ended.
    QSignalSpy loaded(store.get(), &DatachunkHandler::zipFileLoaded);
    store->importMessages(path("none.zip"), DatachunkHelper::ZipArchive);
    QTRY_COMPARE(loaded.count(), 1);
    QCOMPARE(QFileInfo::exists(path("trace.zip")), packed);
}

void TestArchiveStore::aFailedExportTakesTheWishAlong()
{
    QSignalSpy errors(store.get(), &DatachunkHandler::newErrorMessage);
    store->addnewtestmessage();
    writeFile(path("file"), "no folder");
    store->setZipAfterSaving(true);
    for (const char *name : {"file/a.dck", "b.dck"}) {
        store->exportMessages(path(name));
        store->waitForSaves(); // the first report takes the wish
    }
    QTRY_COMPARE(errors.count(), 1);
    QVERIFY(QFileInfo::exists(path("b.dck")));
    store->loadZipFile(QString()); // behind an archive that is being packed
    QVERIFY(!QFileInfo::exists(path("trace.zip")));
}

void TestArchiveStore::rotationsDoNotSwallowTheArchive()
{
    QSignalSpy chunks(store.get(), &DatachunkHandler::newDataFile);
    const QString umlaut = QStringLiteral("\u00e4.txt");
    writeFile(store->chunkFolderPath() + "/" + umlaut, {});
    record(*store, chunkSize + 1);
    store->setZipAfterSaving(true);
    store->exportAllMessages(QStringLiteral("x.dck"), {});
    // The completion of the rotation is delivered first, whichever thread was faster.
    store->newDataFileSaved(QString());
    QTRY_VERIFY(QFileInfo::exists(path("trace.zip")));
    QTRY_COMPARE(chunks.count(), 2);
    const QMap<QString, QByteArray> entries = entriesOf(path("trace.zip"));
    QCOMPARE(entries.keys(), QStringList({"tmpData0.dck", "zlastChunk.dck", umlaut}));
    for (const QString &name : entries.keys())
        QCOMPARE(entries.value(name), readFile(store->chunkFolderPath() + '/' + name));
}

void TestArchiveStore::laterWishesWinOverAMerge_data()
{
    QTest::addColumn<unsigned int>("shown");
    QTest::newRow("goLive while live is none") << 3u;
    QTest::newRow("clear") << 0u;
    QTest::newRow("load") << 5u;
    QTest::newRow("merge") << 4u;
}

void TestArchiveStore::laterWishesWinOverAMerge()
{
    const QByteArray wish = QTest::currentDataTag();
    writeFile(path("a.dck"), chunkBytes("1.0", 0, 5));
    QVERIFY(writeArchive(path("a.zip"), {{"a.dck", chunkBytes("1.0", 0, 3)}}));
    QVERIFY(writeArchive(path("b.zip"), {{"b.dck", chunkBytes("1.0", 0, 4)}}));
    record(*store, 10);
    QSignalSpy loaded(store.get(), &DatachunkHandler::zipFileLoaded);
    store->importZipAndMerge(path("a.zip"));
    if (wish.startsWith("goLive"))
        store->goLive();
    else if (wish == "clear")
        store->clearAllMessages();
    else if (wish == "merge")
        QVERIFY(store->loadZipMerged(path("b.zip")));
    else
        store->importMessages(path("a.dck"), DatachunkHelper::ChunkFile);
    QTRY_COMPARE(loaded.count(), wish == "merge" ? 2 : 1);
    QCOMPARE(store->getIsLive(), wish == "clear");
    QTEST(store->getMessageCount(), "shown");
}

void TestArchiveStore::badArchivesLeadBackToLive_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("error");
    QTest::addColumn<int>("loaded");
    const auto row = [](const char *what, const QByteArray &content, const char *error,
                        int loaded) { QTest::newRow(what) << content << QString(error) << loaded; };
    const char *const nothing = "File seems to be empty or broken, nothing imported.";
    row("no archive", {}, nothing, 0);
    row("no messages", chunkBytes("1.0", 0, 0), nothing, 1);
    row("a newer version", newerChunkBytes(), "This import file was created", 0);
    row("too much", QByteArray(70 << 20, '\0'), "The file contains more messages", 1);
}

void TestArchiveStore::badArchivesLeadBackToLive()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, error);
    writeFile(path("bad.zip"), "no archive");
    QVERIFY(content.isEmpty() || writeArchive(path("bad.zip"), {{"a.dck", content}}));
    QVERIFY(writeArchive(path("good.zip"), {{"a.dck", chunkBytes("1.0", 0, 3)}}));
    record(*store, 10);
    QVERIFY(store->loadZipMerged(path("good.zip")));
    QSignalSpy errors(store.get(), &DatachunkHandler::newErrorMessage);
    QSignalSpy loaded(store.get(), &DatachunkHandler::zipFileLoaded);
    QVERIFY(!store->loadZipMerged(path("bad.zip")));
    QVERIFY(store->getIsLive());
    QCOMPARE(store->getMessageCount(), 10u);
    QCOMPARE(errors.count(), 1);
    QVERIFY(errors.at(0).at(0).toString().startsWith(error));
    QTEST(loaded.count(), "loaded");
}

void TestArchiveStore::damageIsToldUpToANumber()
{
    QVector<TestEntry> entries{{"f/a.dck", chunkBytes("1.0", 0, 1)},
                               {"b.dck", chunkBytes("1.0", 1, 1)},
                               {"c.dck", "no chunk"}};
    for (int i = 0; i < 21; ++i)
        entries.append({QStringLiteral("d%1.dck").arg(i),
                        chunkBytes("2." + QString::number(i), 2, 1).chopped(1)});
    QVERIFY(writeArchive(path("a.zip"), entries));
    QMap<double, QString> order;
    store->sortZipFile(path("a.zip"), order);
    QCOMPARE(order.size(), 20); // 2.1 and 2.10, 2.2 and 2.20, 2.0 are the same
    QCOMPARE(order.first(), "b.dck");
    QStringList errors;
    connect(store.get(), &DatachunkHandler::newErrorMessage, this,
            [&](const QString &text) { errors.append(text); });
    QVERIFY(store->loadZipMerged(path("a.zip")));
    QCOMPARE(errors.size(), 21);
    QVERIFY(errors.first().endsWith("chunks left out: 3."));
    QVERIFY(errors.last().endsWith("entries not named: 1."));
}

void TestArchiveStore::chunksAreUnpackedInTheBackground()
{
    const QByteArray chunk = chunkBytes("1.000000", 0, 3);
    QVERIFY(writeArchive(path("my.zip"), {{"a.dck", chunk}}));
    QSignalSpy chunks(store.get(), &DatachunkHandler::newZippedFile);
    QSignalSpy loaded(store.get(), &DatachunkHandler::zipFileLoaded);
    store->importMessages(path("my.zip"), DatachunkHelper::ZipArchive);
    QCOMPARE(chunks.count() + loaded.count(), 0);
    QTRY_COMPARE(loaded.count(), 1);
    QCOMPARE(loaded.at(0).at(0).toString(), "my");
    QCOMPARE(chunks.count(), 1);
    QCOMPARE(chunks.at(0).mid(0, 2), QVariantList({"a.dck", "my"}));
    QCOMPARE(chunks.at(0).at(3).toString(), "1.000000 - 99.000000");
    const QString unpacked = store->chunkFolderPath() + "/my/a.dck";
    QCOMPARE(readFile(unpacked), chunk);
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther
        | QFile::WriteOther | QFile::ExeOther;
    QVERIFY(!(QFile::permissions(unpacked) & others));
    QVERIFY(!(QFile::permissions(QFileInfo(unpacked).path()) & others));
    QVERIFY(store->getIsLive());
    QVERIFY(!store->loadZipFile(path("none.zip")));
    QCOMPARE(loaded.count(), 2);
}

void TestArchiveStore::storeEndsWhilePacking()
{
    for (int i = 0; i < 20; ++i)
        writeFile(store->chunkFolderPath() + QStringLiteral("/large%1").arg(i),
                  QByteArray(10 << 20, char(i)));
    writeFile(path("trace.zip"), "old");
    store->setZipAfterSaving(true);
    QMetaObject::invokeMethod(store.get(), "savingFinished", Q_ARG(bool, true));
    store.reset();
    QCOMPARE(QDir(folder->path()).entryList(QDir::Files), QStringList("trace.zip"));
    QCOMPARE(readFile(path("trace.zip")), "old");
}

QTEST_GUILESS_MAIN(TestArchiveStore)
#include "tst_archivestore.moc"
