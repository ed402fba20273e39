#include "program.h"

#include <QCanBus>
#include <QProcess>
#include <QTcpServer>
#include <QtTest>

#include <csignal>

class TestRecording : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void everyMessageIsInOneChunk_data();
    void everyMessageIsInOneChunk();
    void aSignalEndsARecordingCleanly_data();
    void aSignalEndsARecordingCleanly();
    void announcedChunksSurviveAKill();
    void theBudgetKeepsTheNewestChunks();
    void anOccupiedFolderIsLeftAlone_data();
    void anOccupiedFolderIsLeftAlone();
    void linesWithoutFrameAreCounted();
    void aLineTooLongIsPassedOver();
    void linesWithoutTimeGetTheTimeOfDay();
    void framesComeFromAPlugin();

private:
    QStringList recordArguments(const QStringList &more = {}) const;
    QString chunk(const QString &name) const;
    QStringList filesOfRecording() const;
    QList<int> secondsRecorded() const;

    std::unique_ptr<QTemporaryDir> folder;
};

namespace {

QByteArray totals(int taken, int stored, int dropped)
{
    return QStringLiteral("messages taken:   %1\n"
                          "messages stored:  %2\n"
                          "messages dropped: %3\n")
        .arg(taken)
        .arg(stored)
        .arg(dropped)
        .toLatin1();
}

QStringList rotateEvery(int messages)
{
    return {QStringLiteral("--limit"), QString::number(5000 + messages)};
}

} // namespace

void TestRecording::init()
{
    folder = std::make_unique<QTemporaryDir>();
    QVERIFY(folder->isValid());
}

void TestRecording::cleanup()
{
    folder.reset();
}

QStringList TestRecording::recordArguments(const QStringList &more) const
{
    return QStringList{QStringLiteral("record"), QStringLiteral("--into"), folder->path()} + more;
}

QString TestRecording::chunk(const QString &name) const
{
    return folder->filePath(name + QLatin1String(".dck"));
}

QStringList TestRecording::filesOfRecording() const
{
    return QDir(folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

// Of all chunks in the order of their numbers, the last messages behind.
QList<int> TestRecording::secondsRecorded() const
{
    QList<int> seconds;
    for (int i = 0; QFile::exists(chunk(QStringLiteral("tmpData%1").arg(i))); ++i)
        seconds += secondsInChunk(chunk(QStringLiteral("tmpData%1").arg(i)));
    return seconds + secondsInChunk(chunk(QStringLiteral("zlastChunk")));
}

void TestRecording::everyMessageIsInOneChunk_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("perChunk");
    QTest::addColumn<int>("chunks");
    QTest::newRow("nothing") << 0 << 10 << 0;
    QTest::newRow("less than a chunk") << 9 << 10 << 0;
    QTest::newRow("one chunk, not rotated yet") << 10 << 10 << 0;
    QTest::newRow("one chunk and a message") << 11 << 10 << 1;
    QTest::newRow("input faster than the disk") << 500 << 1 << 499;
    QTest::newRow("many messages") << 200000 << 20000 << 9;
}

void TestRecording::everyMessageIsInOneChunk()
{
    QFETCH(int, count);
    QFETCH(int, perChunk);
    QFETCH(int, chunks);
    const ProgramResult result =
        runProgram(recordArguments(rotateEvery(perChunk)), candumpLines(0, count));
    QCOMPARE(result.errors, QByteArray());
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output, totals(count, count, 0));
    QCOMPARE(filesOfRecording().size(), chunks + (count > 0 ? 1 : 0));
    QCOMPARE(secondsRecorded(), numbersFrom(0, count));
}

void TestRecording::aSignalEndsARecordingCleanly_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGTERM") << SIGTERM;
}

void TestRecording::aSignalEndsARecordingCleanly()
{
    QFETCH(int, signal);
    QProcess process;
    process.start(programPath(), recordArguments(rotateEvery(100)));
    process.write(candumpLines(0, 350));
    QVERIFY(process.waitForBytesWritten());
    // The input stays open: a live one has no end.
    QTRY_VERIFY(QFile::exists(chunk(QStringLiteral("tmpData2"))));
    QCOMPARE(kill(pid_t(process.processId()), signal), 0);
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 0);
    QCOMPARE(process.readAllStandardOutput(), totals(350, 350, 0));
    QCOMPARE(filesOfRecording().size(), 4);
    QCOMPARE(secondsRecorded(), numbersFrom(0, 350));
}

void TestRecording::announcedChunksSurviveAKill()
{
    QProcess process;
    process.start(programPath(), recordArguments(rotateEvery(100)));
    process.write(candumpLines(0, 350));
    QTRY_VERIFY(QFile::exists(chunk(QStringLiteral("tmpData2"))));
    process.kill();
    QVERIFY(process.waitForFinished());
    QCOMPARE(secondsRecorded(), numbersFrom(0, 300));
}

void TestRecording::theBudgetKeepsTheNewestChunks()
{
    constexpr int perChunk = 20000; // 600 KiB and more
    constexpr int count = 10 * perChunk + 1;
    const ProgramResult result =
        runProgram(recordArguments(rotateEvery(perChunk)
                                   + QStringList{QStringLiteral("--budget"), QStringLiteral("1")}),
                   candumpLines(0, count));
    QCOMPARE(result.status, 0);
    qint64 bytes = 0;
    for (const QString &name : filesOfRecording())
        bytes += QFileInfo(folder->filePath(name)).size();
    QVERIFY(bytes < 2 * 1024 * 1024);
    const QList<int> newest = secondsInChunk(chunk(QStringLiteral("tmpData9")));
    QCOMPARE(newest, numbersFrom(9 * perChunk, perChunk));
    const int stored = (filesOfRecording().size() - 1) * perChunk + 1;
    QVERIFY(stored < count);
    QCOMPARE(result.output, totals(count, stored, count - stored));
}

void TestRecording::anOccupiedFolderIsLeftAlone_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("a chunk") << "tmpData7";
    QTest::newRow("the last messages") << "zlastChunk";
}

void TestRecording::anOccupiedFolderIsLeftAlone()
{
    QFETCH(QString, name);
    writeFile(chunk(name), "precious");
    const ProgramResult result = runProgram(recordArguments(), candumpLines(0, 10));
    QCOMPARE(result.status, 1);
    QVERIFY(result.errors.contains("The folder holds a recording already."));
    QCOMPARE(filesOfRecording(), QStringList(name + QLatin1String(".dck")));
}

void TestRecording::linesWithoutFrameAreCounted()
{
    const ProgramResult mixed =
        runProgram(recordArguments(), "noise\n\n" + candumpLines(0, 2) + "(1.0) can0 123#1");
    QCOMPARE(mixed.status, 0);
    QCOMPARE(mixed.output, totals(2, 2, 0));
    QVERIFY(mixed.errors.contains("2 lines held no frame"));
    QVERIFY(QFile::remove(chunk(QStringLiteral("zlastChunk"))));
    QCOMPARE(runProgram(recordArguments(), "nothing but noise\n").status, 1);
}

void TestRecording::aLineTooLongIsPassedOver()
{
    const ProgramResult result =
        runProgram(recordArguments(),
                   candumpLines(0, 1) + QByteArray(300000, '1') + '\n' + candumpLines(1, 1));
    QVERIFY(result.errors.contains("1 lines held no frame"));
    QCOMPARE(secondsRecorded(), numbersFrom(0, 2));
}

void TestRecording::linesWithoutTimeGetTheTimeOfDay()
{
    const int before = QTime::currentTime().msecsSinceStartOfDay() / 1000;
    runProgram(recordArguments(), "  can0  123   [1]  11\n");
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
                  recordArguments(rotateEvery(1)
                                  + QStringList{QStringLiteral("--plugin"), plugin,
                                                QStringLiteral("--interface"), interface}));
    // Nobody tells when the program listens, so that frames are sent until some arrive.
    const QCanBusFrame frame(0x123, QByteArray::fromHex("1122"));
    QTRY_VERIFY(bus->writeFrame(frame) && QFile::exists(chunk(QStringLiteral("tmpData2"))));
    process.terminate();
    QTRY_COMPARE(process.state(), QProcess::NotRunning);
    QCOMPARE(process.exitCode(), 0);
    const ProgramResult dump = runProgram(
        {QStringLiteral("dump"), chunk(QStringLiteral("tmpData0")), QStringLiteral("--line"),
         QStringLiteral("1"), QStringLiteral("--id"), QStringLiteral("123")});
    QVERIFY2(dump.output.contains("(2): 11 22 ;0;"), dump.output + dump.errors);
}

QTEST_GUILESS_MAIN(TestRecording)
#include "tst_recording.moc"
