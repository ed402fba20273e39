#include "archives.h"
#include "chunkmerge.h"
#include "chunkunpack.h"
#include "datachunkhandler.h"
#include "storefixture.h"

#include <QtTest>

#include <algorithm>

/// How long work on archives tells its progress and is given up.
class TestArchiveWork : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void progressRisesToItsEnd_data();
    void progressRisesToItsEnd();
    void anUnpackingGivenUpLeavesNothing();
    void theStoreGivesWorkUp_data();
    void theStoreGivesWorkUp();

private:
    QString path(const char *name) const { return folder->filePath(QString(name)); }
    QDir chunks() const { return QDir(path("chunks")); }
    static void writeChunks(const QString &archive, int count, int messages);
    void begin(const QByteArray &work, DatachunkHandler &store) const;

    QTemporaryDir forAll;
    QString large; // takes long enough to be given up in the middle
    std::unique_ptr<QTemporaryDir> folder;
};

void TestArchiveWork::initTestCase()
{
    large = forAll.filePath(QStringLiteral("large.zip"));
    writeChunks(large, 20, 20000);
}

void TestArchiveWork::init()
{
    folder = std::make_unique<QTemporaryDir>();
    QDir(folder->path()).mkdir(QStringLiteral("chunks"));
}

void TestArchiveWork::writeChunks(const QString &archive, int count, int messages)
{
    QVector<TestEntry> entries;
    for (int i = 0; i < count; ++i)
        entries.append(
            {QStringLiteral("%1.dck").arg(i),
             chunkBytes(QStringLiteral("%1.0").arg(i), quint32(i * messages), messages)});
    QVERIFY(writeArchive(archive, entries));
}

void TestArchiveWork::progressRisesToItsEnd_data()
{
    QTest::addColumn<quint64>("messages");
    QTest::newRow("merge") << quint64(60000);
    QTest::newRow("unpack") << quint64(0);
    QTest::newRow("pack") << quint64(0);
}

void TestArchiveWork::progressRisesToItsEnd()
{
    const QByteArray kind = QTest::currentDataTag();
    writeChunks(path("trace.zip"), 3, 20000);
    qint64 size = 0;
    for (const TestEntry &entry : archiveEntries(path("trace.zip")))
        size += entry.content.size();
    QVector<qint64> seen;
    const WorkProgress *watched = nullptr;
    WorkProgress work([&] {
        if (watched->bytes() > 0)
            seen.append(watched->bytesDone());
        return true;
    });
    watched = &work;
    ChunkArchive::Merged merged;
    QStringList damage;
    const auto unpacked = [](const QString &, const QDir &, const QString &) {};
    if (kind == "merge")
        ChunkArchive::merge(path("trace.zip"), 1 << 30, work, merged);
    else if (kind == "unpack")
        ChunkArchive::unpack(path("trace.zip"), chunks(), work, unpacked, damage);
    else
        Zip::packFiles(path("packed.zip"), {QFileInfo(path("trace.zip"))}, work);
    QCOMPARE(work.bytes(), kind == "pack" ? QFileInfo(path("trace.zip")).size() : size);
    QVERIFY(std::is_sorted(seen.begin(), seen.end()));
    QVERIFY(QSet<qint64>(seen.begin(), seen.end()).size() >= 3);
    QCOMPARE(work.bytesDone(), work.bytes());
    QTEST(work.messages(), "messages");
}

// Wherever it is given up, even while the directory is read.
void TestArchiveWork::anUnpackingGivenUpLeavesNothing()
{
    writeChunks(path("trace.zip"), 3, 10000);
    bool done = false;
    int longest = 0;
    for (int questions = 0; !done; ++questions) {
        int asked = 0;
        WorkProgress work([&] { return asked++ < questions; });
        QStringList damage;
        const auto unpacked = [](const QString &, const QDir &, const QString &) {};
        const Outcome outcome =
            ChunkArchive::unpack(path("trace.zip"), chunks(), work, unpacked, damage);
        done = outcome.isDone();
        QVERIFY(done || outcome.kind == Outcome::GivenUp);
        QVERIFY(damage.isEmpty());
        QCOMPARE(chunks().isEmpty(), !done);
        longest = questions;
    }
    QVERIFY(longest > 10);
}

void TestArchiveWork::begin(const QByteArray &work, DatachunkHandler &store) const
{
    if (work == "merge")
        store.importZipAndMerge(large);
    else if (work == "unpack")
        store.importMessages(large, DatachunkHelper::ZipArchive);
    else
        QMetaObject::invokeMethod(&store, "savingFinished", Q_ARG(bool, true));
}

void TestArchiveWork::theStoreGivesWorkUp_data()
{
    QTest::addColumn<int>("signalsBehind");
    QTest::newRow("merge") << 1;
    QTest::newRow("unpack") << 1;
    QTest::newRow("pack") << 0;
}

void TestArchiveWork::theStoreGivesWorkUp()
{
    QVERIFY(writeArchive(path("small.zip"), {{"a.dck", chunkBytes("1.0", 0, 3)}}));
    writeFile(path("packed.zip"), "old");
    DatachunkHandler store(20000);
    store.addnewtestmessage();
    const QDir folderOfStore(store.chunkFolderPath());
    for (int i = 0; i < 10; ++i)
        writeFile(folderOfStore.filePath(QString::number(i)), QByteArray(10 << 20, char(i)));
    store.setZipFileName(path("packed.zip"));
    store.setZipAfterSaving(true);
    QVERIFY(store.loadZipMerged(path("small.zip")));
    const QSignalSpy loaded(&store, &DatachunkHandler::zipFileLoaded);
    const QSignalSpy errors(&store, &DatachunkHandler::newErrorMessage);
    begin(QTest::currentDataTag(), store);
    const QDeadlineTimer end(20000);
    while (store.importProgress().bytesRead == 0 && !end.hasExpired())
        QThread::yieldCurrentThread();
    const ImportProgress progress = store.importProgress();
    QVERIFY(progress.bytesRead > 0 && progress.bytesRead < progress.bytes);
    store.cancelImport();
    QTRY_COMPARE(store.importProgress().bytes, 0);
    QFETCH(int, signalsBehind);
    QTRY_COMPARE(loaded.count(), signalsBehind);
    const bool isMerge = qstrcmp(QTest::currentDataTag(), "merge") == 0;
    QTRY_COMPARE(store.getIsLive(), isMerge);
    QCOMPARE(store.getMessageCount(), isMerge ? 1u : 3u);
    QCOMPARE(errors.count(), 0);
    QVERIFY(folderOfStore.entryList(QDir::Dirs | QDir::NoDotAndDotDot).isEmpty());
    QCOMPARE(readFile(path("packed.zip")), "old");
    // What was given up does not stand in the way of the next.
    QVERIFY(store.loadZipMerged(path("small.zip")));
}

QTEST_GUILESS_MAIN(TestArchiveWork)
#include "tst_archivework.moc"
