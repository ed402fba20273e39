#include "datachunkhandler.h"
#include "leftchunkfolder.h"

#include <QFileInfo>
#include <QTest>

class TestLeftChunks : public QObject
{
    Q_OBJECT
private:
    static QString makeFolder(const QString &name, const QStringList &files);

private slots:
    void leavesOutWhatIsUsed();
    void finds();
    void keepsOthersAway();
    void removesAll();
};

// Beside the folder of a store that goes at once.
QString TestLeftChunks::makeFolder(const QString &name, const QStringList &files)
{
    const DatachunkHandler store(10000);
    const QString path = QFileInfo(store.chunkFolderPath()).path() + QLatin1Char('/') + name;
    QDir().mkpath(path);
    for (const QString &file : files) {
        QFile chunk(QDir(path).filePath(file));
        if (!chunk.open(QIODevice::WriteOnly) || chunk.write("12345") != 5)
            return {};
    }
    return path;
}

void TestLeftChunks::leavesOutWhatIsUsed()
{
    DatachunkHandler store(10000);
    for (int i = 0; i < 6000; ++i)
        store.addnewtestmessage();
    QVERIFY(store.waitForSaves());
    QCOMPARE(QDir(store.chunkFolderPath()).entryList({QStringLiteral("*.dck")}).size(), 1);
    const QString empty = makeFolder(QStringLiteral("1"), {});
    const QString other = makeFolder(QStringLiteral("2"), {QStringLiteral("notes.txt")});
    QVERIFY(LeftChunkFolder::find().empty());
    QDir(empty).removeRecursively();
    QDir(other).removeRecursively();
}

void TestLeftChunks::finds()
{
    const QString path =
        makeFolder(QStringLiteral("3"),
                   {QStringLiteral("zlastChunk.dck"), QStringLiteral("tmpData10.dck"),
                    QStringLiteral("tmpData9.dck"), QStringLiteral("notes.txt")});
    std::vector<LeftChunkFolder> found = LeftChunkFolder::find();
    QCOMPARE(found.size(), std::size_t(1));
    QCOMPARE(found[0].path(), path);
    QCOMPARE(found[0].bytes(), qint64(15));
    QVERIFY(found[0].lastWritten().isValid());
    QStringList names;
    const QStringList chunks = found[0].chunks();
    for (const QString &chunk : chunks)
        names << QFileInfo(chunk).fileName();
    QCOMPARE(names,
             QStringList({QStringLiteral("tmpData9.dck"), QStringLiteral("tmpData10.dck"),
                          QStringLiteral("zlastChunk.dck")}));
    QVERIFY(found[0].remove());
}

void TestLeftChunks::keepsOthersAway()
{
    makeFolder(QStringLiteral("4"), {QStringLiteral("tmpData0.dck")});
    std::vector<LeftChunkFolder> found = LeftChunkFolder::find();
    QVERIFY(LeftChunkFolder::find().empty());
    found.clear();
    found = LeftChunkFolder::find();
    QCOMPARE(found.size(), std::size_t(1));
    QVERIFY(found[0].remove());
}

void TestLeftChunks::removesAll()
{
    const QString path = makeFolder(QStringLiteral("5"), {QStringLiteral("tmpData0.dck")});
    QFile beside(path + QStringLiteral("\\import\\0.dck"));
    QVERIFY(beside.open(QIODevice::WriteOnly));
    std::vector<LeftChunkFolder> found = LeftChunkFolder::find();
    QCOMPARE(found.size(), std::size_t(1));
    QVERIFY(found[0].remove());
    QVERIFY(!QFileInfo::exists(path));
    QVERIFY(!beside.exists());
}

QTEST_GUILESS_MAIN(TestLeftChunks)
#include "tst_leftchunks.moc"
