#include "archives.h"
#include "datachunkhandler.h"
#include "messages.h"
#include "storefixture.h"

#include <QtTest>

#include <cstdio>
#include <random>

namespace {

constexpr int hangLimit = 20000;
constexpr quint32 chunkSize = 200;
constexpr quint32 traceSize = 500;

// Another process with a store, and what it has announced.
class Recorder : public QProcess
{
public:
    Recorder(const QString &archive, const QString &trace)
    {
        setProcessChannelMode(ForwardedErrorChannel);
        start(QCoreApplication::applicationFilePath(), {"record", archive, trace});
    }

    // Reads on until this many chunks have been announced; false when that takes too long.
    bool waitForChunks(int count)
    {
        while (told["chunk"].size() < count) {
            if (!canReadLine() && !waitForReadyRead(hangLimit))
                return false;
            readLines();
        }
        return true;
    }

    // Waits for its end, which has been brought about; whether that came without a crash.
    bool hasEnded()
    {
        const bool ended = waitForFinished(hangLimit);
        readLines();
        return ended && exitStatus() == NormalExit && exitCode() == 0;
    }

    // Whether everything announced is there, whole and exact.
    bool isKept()
    {
        for (int i = 0; i < told["chunk"].size(); ++i) {
            const quint32 first = quint32(i) * chunkSize;
            if (!holds(told["chunk"].at(i), first, first + chunkSize - 1))
                return false;
        }
        for (int i = 0; i < told["partial"].size(); ++i) {
            const quint32 first = quint32(i) * chunkSize % (3 * chunkSize);
            const quint32 last = std::min(first + chunkSize, traceSize) - 1;
            if (numbersOf(readChunkFile(told["partial"].at(i)).messages)
                != numbersFromTo(first, last))
                return false;
        }
        return told["error"].isEmpty();
    }

    QString folder() { return told["folder"].value(0); }

    QMap<QString, QStringList> told;

private:
    void readLines()
    {
        while (canReadLine()) {
            const QString line = QString::fromUtf8(readLine()).trimmed();
            told[line.section(' ', 0, 0)] += line.section(' ', 1);
        }
    }
};

// What the other process does: it records, imports and packs without end. Writes a line for all
// that the store announces; ends cleanly when its standard input is closed.
int record(const QString &archive, const QString &trace)
{
    constexpr int messagesPerTurn = 37;
    const auto tell = [](const char *what) {
        return [what](const QString &argument) {
            std::printf("%s %s\n", what, qPrintable(argument));
            std::fflush(stdout);
        };
    };
    using H = DatachunkHandler;
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    H store(5000 + chunkSize);
    store.setZipFileName(archive);
    const QString chunk = store.chunkFolderPath() + "/tmpData%1.dck";
    QObject::connect(&store, &H::newDataFile, [=](quint32 i) { tell("chunk")(chunk.arg(i)); });
    QObject::connect(&store, &H::newPartialDataFile, tell("partial"));
    QObject::connect(&store, &H::newErrorMessage, tell("error"));
    tell("folder")(store.chunkFolderPath());

    QSocketNotifier input(fileno(stdin), QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &QCoreApplication::quit);
    QTimer timer;
    quint32 number = 0;
    int turn = 0;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        for (int i = 0; i < messagesPerTurn; ++i, ++number)
            store.appendCanMessage(makeMessage(number, 64));
        if (++turn % 20 == 5) {
            store.importMessages(trace, DatachunkHelper::SocketCanDump);
            store.goLive();
        } else if (turn % 20 == 15) {
            store.setZipAfterSaving(true);
            store.exportAllMessages(QStringLiteral("x.dck"), {});
        }
    });
    timer.start(0);
    return QCoreApplication::exec();
}

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
    writeFile(path("trace.log"), candumpLines(0, traceSize));
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
        Recorder recorder(path("a.zip"), path("trace.log"));
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
    Recorder killed(path("killed.zip"), path("trace.log"));
    QVERIFY(killed.waitForChunks(3));
    killed.kill();
    QVERIFY(!killed.hasEnded());
    const QMap<QString, QByteArray> leftovers = filesBelow(path("data"));

    Recorder first(path("first.zip"), path("trace.log"));
    QVERIFY(together || first.waitForChunks(3));
    Recorder second(path("second.zip"), path("trace.log"));
    QVERIFY(first.waitForChunks(6) && second.waitForChunks(6));
    QCOMPARE(QSet<QString>({killed.folder(), first.folder(), second.folder()}).size(), 3);
    Recorder &one = firstEndsFirst ? first : second;
    Recorder &other = firstEndsFirst ? second : first;
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
        return record(QString::fromLocal8Bit(argv[2]), QString::fromLocal8Bit(argv[3]));
    TestKills test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_kills.moc"
