#include "program.h"
#include "storeprocess.h"

#include <QtTest>

#include <random>

/// Processes are killed while they record, and "datachunk recover" saves what they leave.
/// Everything that one has announced has to be there, whole and in order.
class TestRecovery : public FolderTest
{
    Q_OBJECT
private slots:
    void killedStoresAreRecovered();
    void killedRecordingsAreRecovered();
    void runningOnesAreLeftAlone();

private:
    int kills = int(numberFrom("KILLS", 8));
    quint32 firstSeed = quint32(numberFrom("KILLS_SEED", 1));
};

namespace {

const QString location = QStringLiteral("data/tst_recovery/datachunks");

// The bytes of all chunks below a folder, by their bare names; those of a name that comes twice,
// one behind the other.
QMap<QString, QByteArray> chunksBelow(const QString &folder)
{
    QMap<QString, QByteArray> chunks;
    const QMap<QString, QByteArray> files = filesBelow(folder);
    for (auto file = files.begin(); file != files.end(); ++file) {
        if (file.key().endsWith(".dck"))
            chunks[QFileInfo(file.key()).fileName()] += *file;
    }
    return chunks;
}

// Whether a folder has every one of the chunk files as it is, each once.
bool hasAll(const QMap<QString, QByteArray> &recovered, const QStringList &announced)
{
    return std::all_of(announced.begin(), announced.end(), [&](const QString &file) {
        return recovered.value(QFileInfo(file).fileName()) == readFile(file);
    });
}

// The seconds of all messages of a recording, which were numbered by them, in order.
QList<int> secondsIn(const QString &folder)
{
    QList<int> seconds;
    QStringList files;
    for (int i = 0; QFile::exists(QStringLiteral("%1/tmpData%2.dck").arg(folder).arg(i)); ++i)
        files += QStringLiteral("%1/tmpData%2.dck").arg(folder).arg(i);
    if (QFile::exists(folder + "/zlastChunk.dck"))
        files += folder + "/zlastChunk.dck";
    for (const QString &file : files)
        seconds += secondsInChunk(file);
    return seconds;
}

// An export may be written before the chunk in front of it, which was not announced then.
bool isClean(const QByteArray &verified)
{
    return verified.endsWith("nothing found.\n")
        || (verified.contains("zlastChunk.dck: 0/60: Behind message ")
            && verified.endsWith(" 1 errors, 0 remarks.\n"));
}

void removeAll(std::initializer_list<const char *> folders)
{
    for (const char *folder : folders)
        QDir(folder).removeRecursively();
}

} // namespace

void TestRecovery::killedStoresAreRecovered()
{
    QByteArray home = qgetenv("XDG_DATA_HOME");
    qputenv("XDG_DATA_HOME", QFile::encodeName(QDir::current().filePath("data")));
    writeFile("trace.log", candumpLines(0, StoreProcess::traceSize));
    QMap<QString, int> sum;
    for (int i = 0; i < kills; ++i) {
        const QByteArray complaint = "KILLS_SEED=" + QByteArray::number(firstSeed + quint32(i));
        std::mt19937 random(firstSeed + quint32(i));
        StoreProcess store("a.zip", "trace.log");
        QVERIFY2(store.waitForChunks(1 + int(random() % 20)), complaint);
        QThread::usleep(random() % 4000);
        store.kill();
        store.hasEnded();
        const QMap<QString, QByteArray> left = filesBelow("data");
        const ProgramResult result = run("recover " + location + " --into out");
        QVERIFY2(result.status == 0, complaint + result.errors + result.output);
        QVERIFY2(filesBelow("data") == left, complaint);
        const QMap<QString, QByteArray> recovered = chunksBelow("out");
        QVERIFY2(hasAll(recovered, store.told["chunk"]), complaint + result.output);
        QVERIFY2(hasAll(recovered, store.told["partial"]), complaint + result.output);
        const QString own = QFileInfo(store.folder()).fileName();
        const QString folder = QFile::exists("out/" + own) ? "out/" + own : QStringLiteral("out");
        const QByteArray verified = run("verify " + folder).output;
        QVERIFY2(isClean(verified), complaint + verified);
        for (const char *told : {"chunk", "partial"})
            sum[told] += store.told[told].size();
        removeAll({"data", "out"});
    }
    qInfo() << kills << "stores killed:" << sum;
    QFile::remove("a.zip");
    qputenv("XDG_DATA_HOME", home);
    QVERIFY(sum["chunk"] >= kills && (kills < 4 || sum["partial"] > 0));
}

void TestRecovery::killedRecordingsAreRecovered()
{
    int announced = 0;
    int beyond = 0;
    for (int i = 0; i < kills; ++i) {
        const QByteArray complaint = "KILLS_SEED=" + QByteArray::number(firstSeed + quint32(i));
        std::mt19937 random(firstSeed + quint32(i));
        QProcess process;
        process.start(programPath(), {"record", "--into", "rec", "--limit", "5050"});
        process.write(candumpLines(0, 200 + int(random() % 10000)));
        const QString awaited = QStringLiteral("rec/tmpData%1.dck").arg(random() % 4);
        QTRY_VERIFY2(QFile::exists(awaited), complaint);
        // Some ends come while the last messages are written.
        if (random() % 2 == 0)
            process.closeWriteChannel();
        QThread::usleep(random() % 8000);
        const QStringList seen = QDir("rec").entryList({"*.dck"});
        process.kill();
        QVERIFY2(process.waitForFinished(), complaint);
        const QMap<QString, QByteArray> left = filesBelow("rec");
        const ProgramResult result = run("recover rec --into out");
        QVERIFY2(result.status == 0, complaint + result.errors + result.output);
        QVERIFY2(filesBelow("rec") == left, complaint);
        const QMap<QString, QByteArray> recovered = chunksBelow("out");
        for (const QString &name : seen)
            QVERIFY2(recovered.value(name) == left.value("rec/" + name), complaint + name.toUtf8());
        const QList<int> seconds = secondsIn("out");
        QVERIFY2(seconds == numbersFrom(0, seconds.size()), complaint);
        const ProgramResult verified = run("verify out");
        QVERIFY2(verified.output.endsWith("nothing found.\n"), complaint + verified.output);
        announced += seen.size();
        beyond += recovered.size() - seen.size();
        removeAll({"rec", "out"});
    }
    qInfo() << kills << "recordings killed:" << announced << "announced chunks," << beyond
            << "more recovered";
    QVERIFY(announced >= kills);
}

void TestRecovery::runningOnesAreLeftAlone()
{
    QByteArray home = qgetenv("XDG_DATA_HOME");
    qputenv("XDG_DATA_HOME", QFile::encodeName(QDir::current().filePath("data")));
    writeFile("trace.log", candumpLines(0, StoreProcess::traceSize));
    StoreProcess store("a.zip", "trace.log");
    QVERIFY(store.waitForChunks(3));
    QProcess process;
    process.start(programPath(), {"record", "--into", "rec", "--limit", "5100"});
    process.write(candumpLines(0, 350));
    QTRY_VERIFY(QFile::exists("rec/tmpData2.dck"));
    writeKinds("alone.dck");

    const QByteArray own = QFile::encodeName(store.folder());
    const ProgramResult result = run("recover data rec alone.dck --into out");
    QCOMPARE(result.status, 1);
    QCOMPARE(result.errors.count("Somebody works in this folder"), 2);
    QVERIFY(result.errors.contains(QFileInfo(own).fileName().toUtf8()));
    QCOMPARE(result.output, "alone.dck: 5 messages kept\n");
    QCOMPARE(namesIn("out"), QStringList{"alone.dck"});
    QVERIFY(run("recover --list").output.contains(": in use\n"));

    process.closeWriteChannel();
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 0);
    store.closeWriteChannel();
    QVERIFY(store.hasEnded() && store.told["error"].isEmpty());
    QFile::remove("a.zip");
    QDir("data").removeRecursively();
    qputenv("XDG_DATA_HOME", home);
}

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    if (argc == 4 && QByteArray(argv[1]) == "record")
        return recordAndImport(QString::fromLocal8Bit(argv[2]), QString::fromLocal8Bit(argv[3]));
    TestRecovery test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_recovery.moc"
