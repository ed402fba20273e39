#include "program.h"

#include <QProcess>
#include <QtTest>

#include <array>
#include <csignal>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

// Recordings that nobody looks after.
class TestUnattended : public FolderTest
{
    Q_OBJECT
private slots:
    void initTestCase();
    void chunkFilesAreCutBySize();
    void chunkFilesAreCutByTheClock();
    void hangUps_data();
    void hangUps();
    void aClosedTerminalEndsARecording();
    void everyStartHasAFolder();
    void gapsAreNoted_data();
    void gapsAreNoted();
    void aStalledDiskIsCounted_data();
    void aStalledDiskIsCounted();
    void theServiceManagerIsTold();
};

namespace {

// Of all chunks in the order of their numbers, the last messages behind.
ReadChunk recorded()
{
    ReadChunk all;
    QStringList names;
    for (int i = 0; QFile::exists(QStringLiteral("rec/tmpData%1.dck").arg(i)); ++i)
        names.append(QStringLiteral("rec/tmpData%1.dck").arg(i));
    if (QFile::exists("rec/zlastChunk.dck"))
        names.append("rec/zlastChunk.dck");
    for (const QString &name : qAsConst(names)) {
        const ReadChunk chunk = readChunkFile(name);
        all.messages += chunk.messages;
        for (auto note = chunk.notes.begin(); note != chunk.notes.end(); ++note)
            all.notes.insert(note.key(), note.value());
    }
    return all;
}

QVector<int> secondsOf(const ReadChunk &chunk)
{
    QVector<int> seconds;
    for (const CAN::CanRxMessage &message : chunk.messages)
        seconds.append(message.seconds);
    return seconds;
}

QVector<int> secondsFrom(int first, int count)
{
    return numbersFrom(first, count).toVector();
}

// Of a line such as "messages taken:   5".
int totalOf(const QByteArray &output, const QByteArray &name)
{
    for (const QByteArray &line : output.split('\n')) {
        if (line.startsWith(name))
            return line.mid(line.indexOf(':') + 1).trimmed().toInt();
    }
    return -1;
}

class DetachedProcess : public QProcess
{
protected:
    void setupChildProcess() override { setsid(); }
};

void end(QProcess &process)
{
    process.terminate();
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
}

// The datagrams that have come to a service manager's socket.
class Manager
{
public:
    Manager() : socket(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0))
    {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        qstrcpy(address.sun_path, "notify");
        bound = bind(socket, reinterpret_cast<sockaddr *>(&address), sizeof(address)) == 0;
    }
    ~Manager() { close(socket); }

    bool isBound() const { return bound; }
    QByteArray received()
    {
        std::array<char, 4096> datagram;
        for (ssize_t size = 0; (size = recv(socket, datagram.data(), datagram.size(), 0)) > 0;)
            all += QByteArray(datagram.data(), int(size)) + '\n';
        return all;
    }

private:
    const int socket;
    bool bound = false;
    QByteArray all;
};

} // namespace

void TestUnattended::initTestCase()
{
    qputenv("QT_PLUGIN_PATH", TEST_PLUGINS);
    std::signal(SIGHUP, SIG_DFL); // "nohup" would have it ignored
}

void TestUnattended::chunkFilesAreCutBySize()
{
    constexpr int count = 5000; // 27 bytes each
    const ProgramResult result = run("record --into rec --size 16KiB", candumpLines(0, count));
    QCOMPARE(result.errors, "");
    QCOMPARE(totalOf(result.output, "messages stored"), count);
    QCOMPARE(secondsOf(recorded()), secondsFrom(0, count));
    const QMap<QString, QByteArray> files = filesBelow("rec");
    QVERIFY(files.contains("rec/tmpData7.dck") && !files.contains("rec/tmpData9.dck"));
    for (auto file = files.begin(); file != files.end(); ++file)
        QVERIFY(file.key().contains("chunk-directory") || file.value().size() <= 16 * 1024);
}

void TestUnattended::chunkFilesAreCutByTheClock()
{
    QProcess process;
    process.start(programPath(), {"record", "--into", "rec", "--every", "1s"});
    for (int i = 0; i < 3; ++i) {
        process.write(candumpLines(i * 10, 10));
        QTRY_VERIFY(QFile::exists(QStringLiteral("rec/tmpData%1.dck").arg(i)));
    }
    end(process);
    QCOMPARE(secondsOf(recorded()), secondsFrom(0, 30));
    // A second in which nothing came has no file.
    QVERIFY(namesIn("rec").size() <= 4);
}

void TestUnattended::hangUps_data()
{
    QTest::addColumn<bool>("ignored");
    QTest::newRow("without a terminal") << false;
    QTest::newRow("started with nohup") << true;
}

void TestUnattended::hangUps()
{
    QFETCH(bool, ignored);
    std::signal(SIGHUP, ignored ? SIG_IGN : SIG_DFL);
    DetachedProcess process;
    process.start(programPath(), {"record", "--into", "rec", "--limit", "5010"});
    std::signal(SIGHUP, SIG_DFL);
    process.write(candumpLines(0, 14));
    QTRY_VERIFY(QFile::exists("rec/tmpData0.dck"));
    QCOMPARE(kill(pid_t(process.processId()), SIGHUP), 0);
    QTRY_VERIFY(QFile::exists("rec/tmpData1.dck"));
    // Nothing has come since.
    QCOMPARE(kill(pid_t(process.processId()), SIGHUP), 0);
    process.write(candumpLines(14, 4));
    process.closeWriteChannel();
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 0);
    QCOMPARE(totalOf(process.readAllStandardOutput(), "messages stored"), 18);
    QCOMPARE(secondsOf(recorded()), secondsFrom(0, 18));
    QCOMPARE(namesIn("rec").size(), 3);
}

void TestUnattended::aClosedTerminalEndsARecording()
{
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    QVERIFY(grantpt(terminal) == 0 && unlockpt(terminal) == 0);
    class TerminalProcess : public QProcess
    {
    public:
        QByteArray name;

    protected:
        void setupChildProcess() override
        {
            setsid();
            ioctl(::open(name.constData(), O_RDWR), TIOCSCTTY, 0);
        }
    } process;
    process.name = ptsname(terminal);
    process.start(programPath(), {"record", "--into", "rec", "--limit", "5010"});
    process.write(candumpLines(0, 14));
    QTRY_VERIFY(QFile::exists("rec/tmpData0.dck"));
    close(terminal);
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 0);
    QCOMPARE(secondsOf(recorded()), secondsFrom(0, 14));
}

void TestUnattended::everyStartHasAFolder()
{
    for (int i = 0; i < 3; ++i)
        QCOMPARE(run("record --into rec --new-folder", candumpLines(i, 1)).status, 0);
    // One that cannot start leaves none.
    QCOMPARE(run("record --into rec --new-folder --plugin testcan --interface broken").status, 1);
    QCOMPARE(run("record --into rec --new-folder --plugin nothing --interface can0").status, 1);
    const QStringList folders = namesIn("rec");
    QCOMPARE(folders.size(), 3);
    QVector<int> seconds;
    for (const QString &folder : folders) {
        QVERIFY(QDateTime::fromString(folder.left(19), "yyyy-MM-ddTHH-mm-ss").isValid());
        seconds += secondsOf(readChunkFile("rec/" + folder + "/zlastChunk.dck"));
    }
    QCOMPARE(seconds, secondsFrom(0, 3));
}

void TestUnattended::gapsAreNoted_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<int>("place");
    QTest::addColumn<QString>("note");
    const QByteArray input = candumpLines(0, 2)
        + "DROPCOUNT: dropped 17 CAN frames on 'can0' socket (total drops 17)\n"
        + candumpLines(2, 3);
    QTest::newRow("candump dropped frames")
        << "" << input << 2 << "Gap: candump has dropped 17 frames.";
    QTest::newRow("the first message behind it is not asked for")
        << "--filter 'time>=3'" << input << 0 << "Gap: candump has dropped 17 frames.";
    QTest::newRow("the first message behind it waits for a trigger")
        << "--trigger 'time==4' --before 1" << input << 0
        << "Trigger \"time==4\" at 4.000000. ; Gap: candump has dropped 17 frames.";
    QTest::newRow("the controller had no room")
        << "--plugin testcan --interface full" << QByteArray() << 1
        << "Gap: The receive buffer of the CAN controller ran over.";
    QTest::newRow("the interface was lost")
        << "--plugin testcan --interface flaky --retry 20ms" << QByteArray() << 1
        << "Gap: The CAN interface was disconnected. The recording goes on when the interface is "
           "back.";
}

void TestUnattended::gapsAreNoted()
{
    QFETCH(QString, options);
    QFETCH(QByteArray, input);
    QFETCH(int, place);
    QProcess process;
    process.start("/bin/sh",
                  {"-c", "exec \"$0\" record --limit 5001 --into rec " + options, programPath()});
    process.write(input);
    if (input.isEmpty()) {
        QTRY_VERIFY(QFile::exists("rec/tmpData0.dck"));
        process.terminate();
    }
    process.closeWriteChannel();
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 1);
    const QByteArray output = process.readAllStandardOutput();
    QVERIFY2(totalOf(output, "gaps") > 0, output);
    const ReadChunk chunk = recorded();
    QCOMPARE(totalOf(output, "messages stored"), chunk.messages.size());
    QVERIFY(chunk.messages.size() > place);
    QTEST(QString(chunk.notes.value(quint32(place))), "note");
    QCOMPARE(chunk.notes.firstKey(), quint32(place));
}

void TestUnattended::aStalledDiskIsCounted_data()
{
    QTest::addColumn<bool>("goesOn");
    QTest::addColumn<bool>("moves");
    QTest::newRow("that comes back") << true << false;
    QTest::newRow("until the end") << false << false;
    QTest::newRow("with written chunks that cannot be moved") << true << true;
}

void TestUnattended::aStalledDiskIsCounted()
{
    QFETCH(bool, goesOn);
    QFETCH(bool, moves);
    writeFile("stall", {});
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LD_PRELOAD", TEST_DISK);
    environment.insert("STALL", QDir::current().absoluteFilePath("stall"));
    if (moves)
        environment.insert("STALL_MOVES", "1");
    environment.insert("ASAN_OPTIONS", "verify_asan_link_order=0");
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(programPath(),
                  {"record", "--into", "rec", "--limit", "5100", "--plugin", "testcan",
                   "--interface", "stream"});
    QByteArray errors;
    QTRY_VERIFY((errors += process.readAllStandardError()).contains("Messages are dropped"));
    QVERIFY(!QFile::exists("rec/tmpData0.dck"));
    if (!goesOn)
        process.terminate();
    QVERIFY(QFile::remove("stall"));
    if (goesOn) {
        QTRY_VERIFY(QFile::exists("rec/tmpData12.dck"));
        process.terminate();
    }
    QVERIFY(process.waitForFinished());
    const QByteArray output = process.readAllStandardOutput();
    const ReadChunk chunk = recorded();
    const int dropped = totalOf(output, "messages dropped");
    QVERIFY(dropped > 0);
    QCOMPARE(totalOf(output, "messages stored"), chunk.messages.size());
    QCOMPARE(totalOf(output, "messages taken"), chunk.messages.size() + dropped);
    // Messages are missing exactly where a note says so.
    quint32 expected = 0;
    for (int i = 0; i < chunk.messages.size(); ++i) {
        const QString note = chunk.notes.value(quint32(i));
        expected += note.section(' ', 1, 1).toUInt();
        QCOMPARE(qFromBigEndian<quint32>(chunk.messages.at(i).data), expected++);
    }
    // Where it ends, a few may have come between the disk's return and the signal.
    QVERIFY(!goesOn || !chunk.notes.isEmpty());
}

void TestUnattended::theServiceManagerIsTold()
{
    if (!SERVICE_MANAGER)
        QSKIP("built without the library of a service manager");
    Manager manager;
    QVERIFY(manager.isBound());
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("NOTIFY_SOCKET", QDir::current().absoluteFilePath("notify"));
    environment.insert("WATCHDOG_USEC", "100000");
    DetachedProcess process;
    process.setProcessEnvironment(environment);
    process.start(programPath(), {"record", "--into", "rec"});
    QTRY_VERIFY(manager.received().startsWith("READY=1\n"));
    process.write(candumpLines(0, 5));
    QTRY_VERIFY(manager.received().contains("WATCHDOG=1\nSTATUS=5 messages taken"));
    QCOMPARE(kill(pid_t(process.processId()), SIGHUP), 0);
    QTRY_VERIFY(manager.received().contains("RELOADING=1\nMONOTONIC_USEC="));
    QTRY_COMPARE(manager.received().count("READY=1\n"), 2);
    QVERIFY(!manager.received().contains("STOPPING=1"));
    end(process);
    QVERIFY(manager.received().contains("STOPPING=1\n"));
}

QTEST_GUILESS_MAIN(TestUnattended)
#include "tst_unattended.moc"
