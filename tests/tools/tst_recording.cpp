#include "chunkdirectory.h"
#include "program.h"

#include <QProcess>
#include <QtTest>

#include <algorithm>
#include <csignal>

// Recordings into the folder "rec".
class TestRecording : public FolderTest
{
    Q_OBJECT
private slots:
    void everyMessageIsInOneChunk_data();
    void everyMessageIsInOneChunk();
    void aSignalEndsARecording_data();
    void aSignalEndsARecording();
    void oneRecorderOwnsAFolder();
    void leftOversOfAKilledRunGo();
    void aFullDiskIsCounted_data();
    void aFullDiskIsCounted();
    void theBudgetIsKept_data();
    void theBudgetIsKept();
    void theReserveStaysFree();
    void anOccupiedFolderIsLeftAlone();
    void linesWithoutFrameAreCounted();
    void linesWithoutTimeGetTheTimeOfDay();
    void framesComeFromAPlugin_data();
    void framesComeFromAPlugin();
    void aPluginThatCannotStartIsTold();
};

namespace {

QByteArray totals(int taken, int stored)
{
    return QStringLiteral("messages taken:   %1\nmessages stored:  %2\nmessages dropped: %3\n")
        .arg(taken)
        .arg(stored)
        .arg(taken - stored)
        .toLatin1();
}

// Its input stays open: a live one has no end.
void startRecording(QProcess &process)
{
    process.start(programPath(), {"record", "--into", "rec", "--limit", "5100"});
    process.write(candumpLines(0, 350));
    QTRY_VERIFY(QFile::exists("rec/tmpData2.dck"));
}

void removeChunksBelow(const QString &folder)
{
    QDirIterator files(folder, {"*.dck"}, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext())
        QVERIFY(QFile::remove(files.next()));
}

// Of all chunks in the order of their numbers, the last messages behind.
QList<int> secondsRecorded()
{
    QList<int> seconds;
    for (int i = 0; QFile::exists(QStringLiteral("rec/tmpData%1.dck").arg(i)); ++i)
        seconds += secondsInChunk(QStringLiteral("rec/tmpData%1.dck").arg(i));
    if (QFile::exists("rec/zlastChunk.dck"))
        seconds += secondsInChunk("rec/zlastChunk.dck");
    return seconds;
}

// Those that the directory of the recording describes as they are.
QSet<QString> knownChunks()
{
    QSet<QString> names;
    for (const DirectoryEntry &entry : ChunkDirectory::read("rec")) {
        const auto now = FileIdentity::of("rec/" + entry.name);
        if (now && describes(entry, *now))
            names.insert(entry.name);
    }
    return names;
}

} // namespace

void TestRecording::everyMessageIsInOneChunk_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("perChunk");
    QTest::addColumn<int>("files");
    QTest::newRow("nothing") << 0 << 10 << 0;
    QTest::newRow("less than a chunk") << 9 << 10 << 1;
    QTest::newRow("one chunk, not rotated yet") << 10 << 10 << 1;
    QTest::newRow("one chunk and a message") << 11 << 10 << 2;
    QTest::newRow("input faster than the disk") << 500 << 1 << 500;
    QTest::newRow("many messages") << 200000 << 20000 << 10;
}

void TestRecording::everyMessageIsInOneChunk()
{
    QFETCH(int, count);
    QFETCH(int, perChunk);
    const QString limit = QString::number(5000 + perChunk);
    const ProgramResult result = run("record --into rec --limit " + limit, candumpLines(0, count));
    QCOMPARE(result.errors, "");
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output, totals(count, count));
    QTEST(namesIn("rec").size(), "files");
    QCOMPARE(secondsRecorded(), numbersFrom(0, count));
    const QStringList rotated = QDir("rec").entryList({"tmpData*"});
    QCOMPARE(knownChunks(), QSet<QString>(rotated.begin(), rotated.end()));
}

void TestRecording::aSignalEndsARecording_data()
{
    QTest::addColumn<int>("signal");
    QTest::addColumn<int>("recorded");
    QTest::newRow("cleanly: SIGINT") << SIGINT << 350;
    QTest::newRow("cleanly: SIGTERM") << SIGTERM << 350;
    QTest::newRow("cleanly: SIGQUIT") << SIGQUIT << 350;
    QTest::newRow("cleanly: SIGXFSZ") << SIGXFSZ << 350;
    QTest::newRow("but for the announced chunks: SIGKILL") << SIGKILL << 300;
}

void TestRecording::aSignalEndsARecording()
{
    QFETCH(int, signal);
    QFETCH(int, recorded);
    QProcess process;
    startRecording(process);
    QCOMPARE(kill(pid_t(process.processId()), signal), 0);
    QVERIFY(process.waitForFinished());
    QCOMPARE(secondsRecorded(), numbersFrom(0, recorded));
    if (signal == SIGKILL)
        return;
    QCOMPARE(process.exitCode(), 0);
    QCOMPARE(process.readAllStandardOutput(), totals(350, 350));
    QCOMPARE(namesIn("rec").size(), 4);
}

void TestRecording::oneRecorderOwnsAFolder()
{
    QProcess process;
    startRecording(process);
    QCOMPARE(errorsOf("record --into rec", candumpLines(0, 10)),
             "datachunk: rec: Somebody else records into this folder.\n");
    // What is planted meanwhile is neither followed nor replaced.
    writeFile("precious", "precious");
    QVERIFY(QFile::link("../precious", "rec/zlastChunk.dck"));
    process.closeWriteChannel();
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 1);
    QCOMPARE(process.readAllStandardOutput(), totals(350, 300));
    QCOMPARE(readFile("precious"), "precious");
    QVERIFY(QFile::remove("rec/zlastChunk.dck"));
    QCOMPARE(secondsRecorded(), numbersFrom(0, 300));
}

void TestRecording::leftOversOfAKilledRunGo()
{
    QProcess killed;
    startRecording(killed);
    killed.kill();
    QVERIFY(killed.waitForFinished());
    QVERIFY(namesIn("rec").size() > 3);
    writeFile("precious", "precious");
    QVERIFY(QFile::link("..", "rec/.datachunk-work-linked"));
    QVERIFY(QFile::remove("rec/.datachunk-lock"));
    const QStringList left = namesIn("rec");
    QVERIFY(run("record --into rec").errors.contains("holds a recording already"));
    QCOMPARE(namesIn("rec"), left);

    removeChunksBelow("rec");
    QVERIFY(QDir().mkpath("rec/.datachunk-work-abcdef/x"));
    writeFile("rec/.datachunk-work-abcdef/x/tmpData3.dck", "a chunk");
    QVERIFY(run("record --into rec").errors.contains("datachunk recover"));
    removeChunksBelow("rec");
    QCOMPARE(run("record --into rec").status, 0);
    QCOMPARE(namesIn("rec"), QStringList{".datachunk-work-linked"});
    QVERIFY(QFile::exists("precious"));
}

void TestRecording::aFullDiskIsCounted_data()
{
    QTest::addColumn<QString>("limits");
    QTest::newRow("in the first chunk") << "ulimit -f 64;";
    QTest::newRow("at once") << "ulimit -f 0;";
    QTest::newRow("with its signal ignored") << "trap '' XFSZ; ulimit -f 64;";
}

void TestRecording::aFullDiskIsCounted()
{
    QFETCH(QString, limits);
    constexpr int count = 20000;
    const ProgramResult result =
        run("record --into rec --limit 9000", candumpLines(0, count), limits);
    QCOMPARE(result.status, 1);
    QVERIFY2(result.errors.contains(": The file rec/tmpData0.dck could not be written"),
             result.errors);
    const int taken = result.output.split('\n').first().split(' ').last().toInt();
    QVERIFY(taken > 4000 && taken <= count);
    QCOMPARE(result.output, totals(taken, secondsRecorded().size()));
    for (const QByteArray &content : filesBelow("rec"))
        QVERIFY(!content.isEmpty());
}

void TestRecording::theBudgetIsKept_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<int>("status");
    QTest::newRow("by chunks that fit into it") << "" << 0;
    QTest::newRow("by one chunk and the last messages") << "--limit 25000" << 0;
    QTest::newRow("by an end where no chunk fits into it") << "--limit 105000" << 1;
}

void TestRecording::theBudgetIsKept()
{
    QFETCH(QString, options);
    constexpr int count = 90000; // 27 bytes each
    const ProgramResult result =
        run("record --into rec --budget 1 " + options, candumpLines(0, count));
    QTEST(result.status, "status");
    QVERIFY2(result.errors.contains("The budget of 1 MiB is used up")
                 != result.errors.contains("do not fit into the budget of 1 MiB"),
             result.errors);
    qint64 bytes = 0;
    QList<int> seconds;
    const QMap<QString, QByteArray> files = filesBelow("rec");
    for (auto file = files.cbegin(); file != files.cend(); ++file) {
        bytes += file.value().size();
        seconds += secondsInChunk(file.key());
    }
    std::sort(seconds.begin(), seconds.end());
    QVERIFY(bytes <= 1024 * 1024);
    QVERIFY(seconds.size() > 9000);
    QCOMPARE(seconds, numbersFrom(seconds.first(), seconds.size()));
    QVERIFY(result.status == 1 || seconds.last() == count - 1);
    const int taken = result.status == 0 ? count : result.output.mid(17, 6).trimmed().toInt();
    QCOMPARE(result.output, totals(taken, seconds.size()));
}

void TestRecording::theReserveStaysFree()
{
    // The disk has 16 MiB more, which others cannot take, and the input has no end.
    constexpr qint64 mebibyte = 1024 * 1024;
    const ProgramResult result =
        run("record --into rec --limit 9000 --reserve 100", {},
            QStringLiteral("export LD_PRELOAD='%1' ROOM=%2 ASAN_OPTIONS=verify_asan_link_order=0; "
                           "yes '(1.0) can0 123#1122' |")
                .arg(TEST_DISK)
                .arg(116 * mebibyte));
    QCOMPARE(result.status, 1);
    QVERIFY2(result.errors.contains("is left on the disk, so the recording ends"), result.errors);
    QVERIFY2(result.output.endsWith("messages dropped: 0\n"), result.output);
    qint64 bytes = 0;
    for (const QByteArray &content : filesBelow("rec"))
        bytes += content.size();
    QVERIFY(bytes > 15 * mebibyte && bytes <= 16 * mebibyte);
}

void TestRecording::anOccupiedFolderIsLeftAlone()
{
    for (const QString &name : {QStringLiteral("tmpData7.dck"), QStringLiteral("zlastChunk.dck")}) {
        QVERIFY(QDir().mkdir("rec"));
        writeFile("rec/" + name, "precious");
        QCOMPARE(errorsOf("record --into rec", candumpLines(0, 10)),
                 "datachunk: rec: The folder holds a recording already.\n");
        QCOMPARE(namesIn("rec"), QStringList(name));
        QVERIFY(QDir("rec").removeRecursively());
    }
}

void TestRecording::linesWithoutFrameAreCounted()
{
    const ProgramResult mixed = run("record --into rec",
                                    "noise\n\n" + candumpLines(0, 1) + QByteArray(300000, '1')
                                        + '\n' + candumpLines(1, 1) + "(1.0) can0 123#1");
    QCOMPARE(mixed.status, 0);
    QCOMPARE(mixed.output, totals(2, 2));
    QVERIFY(mixed.errors.contains("3 lines held no frame"));
    QCOMPARE(secondsRecorded(), numbersFrom(0, 2));
    QCOMPARE(run("record --into other", "nothing but noise\n").status, 1);
}

void TestRecording::linesWithoutTimeGetTheTimeOfDay()
{
    const int before = QTime::currentTime().msecsSinceStartOfDay() / 1000;
    run("record --into rec", "  can0  123   [1]  11\n");
    const int after = QTime::currentTime().msecsSinceStartOfDay() / 1000;
    const QList<int> seconds = secondsRecorded();
    QCOMPARE(seconds.size(), 1);
    QVERIFY(after < before || (seconds.first() >= before && seconds.first() <= after));
}

void TestRecording::framesComeFromAPlugin_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<QByteArray>("configuration");
    QTest::newRow("as it is") << "" << QByteArray("(5): 00 00 00 00 00 ;0;\n");
    QTest::newRow("as it is told to be") << "--fd --bitrate 500000 --data-bitrate 2000000"
                                         << QByteArray("(5): 01 01 f4 07 d0 ;2;\n");
}

void TestRecording::framesComeFromAPlugin()
{
    QFETCH(QString, options);
    QFETCH(QByteArray, configuration);
    qputenv("QT_PLUGIN_PATH", TEST_PLUGINS);
    QProcess process;
    process.start(programPath(),
                  QStringList{"record", "--into", "rec", "--limit", "5001", "--plugin", "testcan",
                              "--interface", "can7"}
                      + options.split(' ', Qt::SkipEmptyParts));
    QTRY_VERIFY(QFile::exists("rec/tmpData1.dck"));
    process.terminate();
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 0);
    const QByteArray data = outputOf("dump rec/tmpData0.dck --line 7 --id 123");
    QVERIFY2(data.endsWith(configuration), data);
    QVERIFY(outputOf("dump rec/tmpData1.dck").contains("0x124/292  (2): Remote"));
    QVERIFY(outputOf("info rec/zlastChunk.dck").contains("  Bit error:    1\n"));
}

// A device that failed may still have a thread, and deleting that ends the program.
void TestRecording::aPluginThatCannotStartIsTold()
{
    qputenv("QT_PLUGIN_PATH", TEST_PLUGINS);
    const ProgramResult result = run("record --into rec --plugin testcan --interface broken");
    QCOMPARE(result.status, 1);
    QCOMPARE(result.errors, "datachunk: broken: It is broken.\n");
}

QTEST_GUILESS_MAIN(TestRecording)
#include "tst_recording.moc"
