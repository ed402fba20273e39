#include "archives.h"
#include "datachunkhandler.h"
#include "messages.h"
#include "storefixture.h"
#include "ziparchive.h"

#include <QtTest>

namespace {

// The smallest limit above which a store rotates, after this many messages.
constexpr unsigned int rotationLimit = 5100;
constexpr int chunkSize = 100;

void record(DatachunkHandler &store, int count, quint32 first = 0)
{
    for (quint32 seed = first; seed < first + quint32(count); ++seed)
        store.appendCanMessage(makeMessage(seed, 8));
}

// Names and contents of the files of a folder, or of the entries of an archive.
using Files = QMap<QString, QByteArray>;

Files filesIn(const QString &path)
{
    Files files;
    const QStringList names = QDir(path).entryList(QDir::Files);
    for (const QString &name : names)
        files.insert(name, readFile(QDir(path).filePath(name)));
    return files;
}

Files entriesOf(const QString &zipName)
{
    Files entries;
    const Zip::Reader reader(zipName);
    for (const Zip::Entry &entry : reader.entries()) {
        const auto content = reader.open(entry, [] { return true; });
        entries.insert(entry.name, content->readAll());
    }
    return entries;
}

} // namespace

class TestArchiveStore : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void entriesAreTheFiles();
    void archiveThatCannotBeBegunIsPassedOver();
    void completionsDecideAboutPacking_data();
    void completionsDecideAboutPacking();
    void rotationsDoNotSwallowTheArchive();
    void laterWishesWinOverAMerge_data();
    void laterWishesWinOverAMerge();
    void badArchivesLeadBackToLive_data();
    void badArchivesLeadBackToLive();
    void chunksAreUnpackedInTheBackground();
    void storeEndsWhilePacking();

private:
    QString path(const char *name) const { return folder->filePath(QString(name)); }
    void newStore(unsigned int limit = rotationLimit);

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<BookmarkHandler> bookmarks;
    std::unique_ptr<DatachunkHandler> store;
};

void TestArchiveStore::init()
{
    folder = std::make_unique<QTemporaryDir>();
    bookmarks = std::make_unique<BookmarkHandler>();
    newStore();
}

void TestArchiveStore::cleanup()
{
    store.reset();
}

void TestArchiveStore::newStore(unsigned int limit)
{
    store = std::make_unique<DatachunkHandler>(limit);
    store->setBookmarkhandler(bookmarks.get());
    store->setZipFileName(path("trace.zip"));
}

void TestArchiveStore::entriesAreTheFiles()
{
    record(*store, 2 * chunkSize + 1);
    writeFile(store->chunkFolderPath() + "/other.bin", QByteArray(300000, 'x'));
    writeFile(store->chunkFolderPath() + "/empty", {});
    const QString umlaut = QStringLiteral("\u00e4.txt");
    writeFile(store->chunkFolderPath() + "/" + umlaut, "x");
    store->saveDatachunksToZip();
    const Files entries = entriesOf(path("trace.zip"));
    QCOMPARE(entries.keys(),
             QStringList({"empty", "other.bin", "tmpData0.dck", "tmpData1.dck", umlaut}));
    QCOMPARE(entries, filesIn(store->chunkFolderPath()));
    const QString unzip = QStandardPaths::findExecutable("unzip");
    if (!unzip.isEmpty())
        QCOMPARE(QProcess::execute(unzip, {"-tqq", path("trace.zip")}), 0);
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
    QTest::addColumn<QStringList>("calls");
    QTest::addColumn<bool>("packed");
    QTest::newRow("a save that ended well") << QStringList{"wish", "success"} << true;
    QTest::newRow("a save that failed takes the wish along")
        << QStringList{"wish", "failure", "success"} << false;
    QTest::newRow("a save that nobody wants packed") << QStringList{"success"} << false;
    QTest::newRow("a wish that was taken back")
        << QStringList{"wish", "no wish", "success"} << false;
    QTest::newRow("a chunk takes the wish along")
        << QStringList{"wish", "chunk", "success"} << false;
    QTest::newRow("an import's chunk takes the wish along")
        << QStringList{"wish", "partial chunk", "success"} << false;
}

void TestArchiveStore::completionsDecideAboutPacking()
{
    QFETCH(QStringList, calls);
    QFETCH(bool, packed);
    for (const QString &call : calls) {
        if (call.endsWith("wish"))
            store->setZipAfterSaving(call == "wish");
        else if (call == "chunk")
            store->newDataFileSaved("0.0 - 1.0");
        else if (call == "partial chunk")
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

void TestArchiveStore::rotationsDoNotSwallowTheArchive()
{
    QSignalSpy chunks(store.get(), &DatachunkHandler::newDataFile);
    record(*store, chunkSize + 1);
    store->setZipAfterSaving(true);
    store->exportAllMessages(QStringLiteral("x.dck"), {});
    // The completion of the rotation is delivered first, whichever thread was faster.
    store->newDataFileSaved(QString());
    QTRY_VERIFY(QFileInfo::exists(path("trace.zip")));
    QTRY_COMPARE(chunks.count(), 2);
    QCOMPARE(entriesOf(path("trace.zip")).keys(), QStringList({"tmpData0.dck", "zlastChunk.dck"}));
}

void TestArchiveStore::laterWishesWinOverAMerge_data()
{
    QTest::addColumn<QString>("wish");
    QTest::addColumn<unsigned int>("shown");
    QTest::newRow("goLive") << "goLive" << 10u;
    QTest::newRow("clearing") << "clear" << 0u;
    QTest::newRow("loading a chunk") << "load" << 5u;
    QTest::newRow("another merge") << "merge" << 4u;
}

void TestArchiveStore::laterWishesWinOverAMerge()
{
    QFETCH(QString, wish);
    writeFile(path("a.dck"), chunkBytes("1.0", 0, 5));
    QVERIFY(writeArchive(path("a.zip"), {{"a.dck", chunkBytes("1.0", 0, 3)}}));
    QVERIFY(writeArchive(path("b.zip"), {{"b.dck", chunkBytes("1.0", 0, 4)}}));
    record(*store, 10);
    QSignalSpy loaded(store.get(), &DatachunkHandler::zipFileLoaded);
    store->importZipAndMerge(path("a.zip"));
    if (wish == "goLive")
        store->goLive();
    else if (wish == "clear")
        store->clearAllMessages();
    else if (wish == "merge")
        QVERIFY(store->loadZipMerged(path("b.zip")));
    else
        store->importMessages(path("a.dck"), DatachunkHelper::ChunkFile);
    QTRY_COMPARE(loaded.count(), wish == "merge" ? 2 : 1);
    QCOMPARE(store->getIsLive(), wish == "goLive" || wish == "clear");
    QTEST(store->getMessageCount(), "shown");
}

void TestArchiveStore::badArchivesLeadBackToLive_data()
{
    QTest::addColumn<QByteArray>("archive");
    QTest::addColumn<QString>("error");
    QTest::addColumn<int>("loaded");
    QTemporaryDir scratch;
    const auto archiveOf = [&](const QByteArray &content) {
        writeArchive(scratch.filePath("a.zip"), {{"a.dck", content}});
        return readFile(scratch.filePath("a.zip"));
    };
    QByteArray newer = chunkBytes("1.0", 0, 3);
    newer[newer.indexOf(QByteArray::fromHex("003100300034")) + 5] = '5';
    const QString nothing = "File seems to be empty or broken, nothing imported.";
    QTest::newRow("no archive") << QByteArray("no archive") << nothing << 0;
    QTest::newRow("no messages") << archiveOf(chunkBytes("1.0", 0, 0)) << nothing << 1;
    QTest::newRow("a newer version") << archiveOf(newer) << "This import file was created" << 0;
    QTest::newRow("too much") << archiveOf(QByteArray(70 << 20, '\0'))
                              << "The file contains more messages" << 1;
}

void TestArchiveStore::badArchivesLeadBackToLive()
{
    QFETCH(QByteArray, archive);
    QFETCH(QString, error);
    writeFile(path("bad.zip"), archive);
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

void TestArchiveStore::chunksAreUnpackedInTheBackground()
{
    const QByteArray first = chunkBytes("1.000000", 0, 3);
    const QByteArray second = chunkBytes("2.000000", 3, 3);
    QVERIFY(writeArchive(path("my.zip"), {{"b.dck", second}, {"a.dck", first}, {"c.txt", {}}}));
    QSignalSpy chunks(store.get(), &DatachunkHandler::newZippedFile);
    QSignalSpy loaded(store.get(), &DatachunkHandler::zipFileLoaded);
    store->importMessages(path("my.zip"), DatachunkHelper::ZipArchive);
    QCOMPARE(chunks.count() + loaded.count(), 0);
    QTRY_COMPARE(loaded.count(), 1);
    QCOMPARE(loaded.at(0).at(0).toString(), "my");
    QCOMPARE(chunks.count(), 2);
    QCOMPARE(chunks.at(0).mid(0, 2), QVariantList({"a.dck", "my"}));
    QCOMPARE(chunks.at(1).mid(0, 2), QVariantList({"b.dck", "my"}));
    QCOMPARE(chunks.at(0).at(3).toString(), "1.000000 - 99.000000");
    QCOMPARE(filesIn(store->chunkFolderPath() + "/my"),
             Files({{"a.dck", first}, {"b.dck", second}}));
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
    QCOMPARE(filesIn(folder->path()), Files({{"trace.zip", "old"}}));
}

QTEST_GUILESS_MAIN(TestArchiveStore)
#include "tst_archivestore.moc"
