#include "program.h"

#include <QCanBus>
#include <QProcess>
#include <QTcpServer>
#include <QtTest>

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
    void theBudgetKeepsTheNewestChunks();
    void anOccupiedFolderIsLeftAlone();
    void linesWithoutFrameAreCounted();
    void linesWithoutTimeGetTheTimeOfDay();
    void framesComeFromAPlugin();
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
}

void TestRecording::aSignalEndsARecording_data()
{
    QTest::addColumn<int>("signal");
    QTest::addColumn<int>("recorded");
    QTest::newRow("cleanly: SIGINT") << SIGINT << 350;
    QTest::newRow("cleanly: SIGTERM") << SIGTERM << 350;
    QTest::newRow("but for the announced chunks: SIGKILL") << SIGKILL << 300;
}

void TestRecording::aSignalEndsARecording()
{
    QFETCH(int, signal);
    QFETCH(int, recorded);
    QProcess process;
    process.start(programPath(), {"record", "--into", "rec", "--limit", "5100"});
    process.write(candumpLines(0, 350));
    // The input stays open: a live one has no end.
    QTRY_VERIFY(QFile::exists("rec/tmpData2.dck"));
    QCOMPARE(kill(pid_t(process.processId()), signal), 0);
    QVERIFY(process.waitForFinished());
    QCOMPARE(secondsRecorded(), numbersFrom(0, recorded));
    if (signal == SIGKILL)
        return;
    QCOMPARE(process.exitCode(), 0);
    QCOMPARE(process.readAllStandardOutput(), totals(350, 350));
    QCOMPARE(namesIn("rec").size(), 4);
}

void TestRecording::theBudgetKeepsTheNewestChunks()
{
    constexpr int perChunk = 20000; // 600 KiB and more
    constexpr int count = 10 * perChunk + 1;
    const ProgramResult result =
        run("record --into rec --limit 25000 --budget 1", candumpLines(0, count));
    QCOMPARE(result.status, 0);
    qint64 bytes = 0;
    for (const QByteArray &content : filesBelow("rec"))
        bytes += content.size();
    QVERIFY(bytes < 2 * 1024 * 1024);
    QCOMPARE(secondsInChunk("rec/tmpData9.dck"), numbersFrom(9 * perChunk, perChunk));
    const int stored = (namesIn("rec").size() - 1) * perChunk + 1;
    QVERIFY(stored < count);
    QCOMPARE(result.output, totals(count, stored));
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

void TestRecording::framesComeFromAPlugin()
{
    const QString plugin = QStringLiteral("virtualcan");
    if (!QCanBus::instance()->plugins().contains(plugin))
        QSKIP("The virtual CAN plug-in is not installed.");
    QTcpServer freePort;
    QVERIFY(freePort.listen(QHostAddress::LocalHost));
    const QString interface = QStringLiteral("tcp://127.0.0.1:%1/can1").arg(freePort.serverPort());
    freePort.close();
    // The first device on a port serves the bus.
    const std::unique_ptr<QCanBusDevice> bus(QCanBus::instance()->createDevice(plugin, interface));
    QVERIFY(bus && bus->connectDevice());
    QTRY_COMPARE(bus->state(), QCanBusDevice::ConnectedState);

    QProcess process;
    process.start(programPath(),
                  {"record", "--into", "rec", "--limit", "5001", "--plugin", plugin, "--interface",
                   interface});
    // Nobody tells when the program listens, so that frames are sent until some arrive.
    const QCanBusFrame frame(0x123, QByteArray::fromHex("1122"));
    QTRY_VERIFY(bus->writeFrame(frame) && QFile::exists("rec/tmpData2.dck"));
    process.terminate();
    QTRY_COMPARE(process.state(), QProcess::NotRunning);
    QCOMPARE(process.exitCode(), 0);
    const QByteArray dump = outputOf("dump rec/tmpData0.dck --line 1 --id 123");
    QVERIFY2(dump.contains("(2): 11 22 ;0;"), dump);
}

QTEST_GUILESS_MAIN(TestRecording)
#include "tst_recording.moc"
