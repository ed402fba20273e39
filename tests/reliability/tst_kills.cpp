#include "archives.h"
#include "messages.h"
#include "storefixture.h"
#include "storeprocess.h"

#include <QtTest>

#include <random>

namespace {

bool isWholeArchive(const QString &fileName, const QString &chunkFolder)
{
    const QVector<TestEntry> entries = archiveEntries(fileName);
    // The last messages are exported again and again.
    return !entries.isEmpty()
        && std::all_of(entries.begin(), entries.end(), [&](const TestEntry &entry) {
               return entry.name.startsWith(QLatin1String("tmpData"))
                   ? entry.content == readFile(chunkFolder + QLatin1Char('/') + entry.name)
                   : !entry.content.isEmpty();
           });
}

} // namespace

/// Processes that share a data location and end as they please.
class TestKills : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void announcedChunksSurvive();
    void instancesShareNothing_data();
    void instancesShareNothing();

private:
    void clearLocation();
    QMap<QString, QByteArray> filesWithout(const QString &chunkFolder) const;
    QString path(const char *name) const { return folder->filePath(QLatin1String(name)); }

    std::unique_ptr<QTemporaryDir> folder;
};

void TestKills::init()
{
    folder = std::make_unique<QTemporaryDir>();
    qputenv("XDG_DATA_HOME", QFile::encodeName(path("data")));
    clearLocation();
    writeFile(path("trace.log"), candumpLines(0, StoreProcess::traceSize));
}

void TestKills::clearLocation()
{
    QDir(path("data")).removeRecursively();
    QDir().mkpath(path("data/tst_kills/datachunks"));
}

// What is left of a process is named after its chunk folder.
QMap<QString, QByteArray> TestKills::filesWithout(const QString &chunkFolder) const
{
    QMap<QString, QByteArray> files = filesBelow(path("data"));
    for (const QString &name : files.keys()) {
        if (name.startsWith(chunkFolder))
            files.remove(name);
    }
    return files;
}

void TestKills::announcedChunksSurvive()
{
    const int kills = int(numberFrom("KILLS", 30));
    const auto seed = quint32(numberFrom("KILLS_SEED", 1));
    QMap<QString, int> sum;
    writeFile(path("a.zip"), "the archive of yesterday");
    for (int i = 0; i < kills; ++i) {
        const QByteArray complaint = "KILLS_SEED=" + QByteArray::number(seed + quint32(i));
        std::mt19937 random(seed + quint32(i));
        const QByteArray oldArchive = readFile(path("a.zip"));
        const QMap<QString, QByteArray> others = filesBelow(path("data"));
        StoreProcess recorder(path("a.zip"), path("trace.log"));
        QVERIFY2(recorder.waitForChunks(int(random() % 25)), complaint);
        QThread::usleep(random() % 4000);
        recorder.kill();
        recorder.hasEnded();
        const QString own = recorder.folder();
        QVERIFY2(own.isEmpty() || recorder.isKept(), complaint);
        QVERIFY2(own.isEmpty() || filesWithout(own) == others, complaint);
        const bool isNew = readFile(path("a.zip")) != oldArchive;
        QVERIFY2(!isNew || isWholeArchive(path("a.zip"), own), complaint);
        for (const char *told : {"chunk", "partial"})
            sum[told] += recorder.told[told].size();
        sum["archive"] += isNew;
        // Between its naming and its putting in place an archive may be left under a name of its
        // own.
        for (const QString &name : QDir(folder->path()).entryList({QStringLiteral("a.zip.*")}))
            sum["torn"] += QFile::remove(folder->filePath(name));
        QCOMPARE(QDir(folder->path()).entryList(QDir::Files | QDir::Hidden),
                 (QStringList{"a.zip", "trace.log"}));
        if (i % 5 == 4)
            clearLocation();
    }
    qInfo() << sum;
    QVERIFY(sum["chunk"] > kills && sum["partial"] > 0 && sum["archive"] > 0);
}

void TestKills::instancesShareNothing_data()
{
    QTest::addColumn<bool>("together");
    QTest::addColumn<bool>("firstEndsFirst");
    QTest::newRow("the first to start ends first") << false << true;
    QTest::newRow("the last to start ends first") << false << false;
    QTest::newRow("both start at once") << true << true;
}

void TestKills::instancesShareNothing()
{
    QFETCH(bool, together);
    QFETCH(bool, firstEndsFirst);
    StoreProcess killed(path("killed.zip"), path("trace.log"));
    QVERIFY(killed.waitForChunks(3));
    killed.kill();
    QVERIFY(!killed.hasEnded());
    const QMap<QString, QByteArray> leftovers = filesBelow(path("data"));

    StoreProcess first(path("first.zip"), path("trace.log"));
    QVERIFY(together || first.waitForChunks(3));
    StoreProcess second(path("second.zip"), path("trace.log"));
    QVERIFY(first.waitForChunks(6) && second.waitForChunks(6));
    QCOMPARE(QSet<QString>({killed.folder(), first.folder(), second.folder()}).size(), 3);
    StoreProcess &one = firstEndsFirst ? first : second;
    StoreProcess &other = firstEndsFirst ? second : first;
    one.closeWriteChannel();
    QVERIFY(one.hasEnded());
    QVERIFY(other.waitForChunks(other.told["chunk"].size() + 6));
    QVERIFY(other.isKept());
    QCOMPARE(filesWithout(other.folder()), leftovers);
    QVERIFY(killed.isKept());
    other.closeWriteChannel();
    QVERIFY(other.hasEnded());
    QCOMPARE(filesBelow(path("data")), leftovers);
}

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    if (argc == 4 && QByteArray(argv[1]) == "record")
        return recordAndImport(QString::fromLocal8Bit(argv[2]), QString::fromLocal8Bit(argv[3]));
    TestKills test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_kills.moc"
