#include "buschoice.h"
#include "busclock.h"
#include "buslines.h"
#include "canframe.h"
#include "deskwindow.h"
#include "pacer.h"
#include "temporarysettings.h"
#include "virtualbus.h"

#include <QCanBus>

class TestBusLines : public QObject
{
    Q_OBJECT
private:
    const TemporarySettings settings;

    static BusChoice device(const QString &plugin, const QString &interface);
    static BusChoice replay(const QString &path);
    static BusChoice generator(int rate, int number);

private slots:
    void initTestCase();
    void init() { QSettings().clear(); }
    void bringsTimesToTheClock_data();
    void bringsTimesToTheClock();
    void waitsForTheTimesOfTraces_data();
    void waitsForTheTimesOfTraces();
    void makesTraffic();
    void generates();
    void replaysTogether();
    void replaysFolder();
    void pausesAndLoops();
    void tellsBadReplays_data();
    void tellsBadReplays();
    void connectsPlugin();
    void connectsVirtualCan();
    void tellsBadDevices_data();
    void tellsBadDevices();
    void bringsBackLostDevice();
};

BusChoice TestBusLines::device(const QString &plugin, const QString &interface)
{
    BusChoice choice;
    choice.kind = BusChoice::Device;
    choice.device.plugin = plugin;
    choice.device.interface = interface;
    return choice;
}

BusChoice TestBusLines::replay(const QString &path)
{
    BusChoice choice;
    choice.kind = BusChoice::Replay;
    choice.replay.path = path;
    choice.replay.speed = 0;
    return choice;
}

BusChoice TestBusLines::generator(int rate, int number)
{
    BusChoice choice;
    choice.number = number;
    choice.generator.rate = rate;
    return choice;
}

void TestBusLines::initTestCase()
{
    QCoreApplication::addLibraryPath(QStringLiteral(TEST_PLUGINS));
    QVERIFY(QCanBus::instance()->plugins().contains(QStringLiteral("testcan")));
}

void TestBusLines::bringsTimesToTheClock_data()
{
    constexpr qint64 second = 1000000;
    constexpr qint64 now = 1700000000 * second;
    QTest::addColumn<qint64>("first");
    QTest::addColumn<qint64>("expected"); // of a frame a second later
    QTest::newRow("time of the system") << now - second << now;
    QTest::newRow("since the driver was loaded") << 5 * second << now + second;
    QTest::newRow("none") << qint64(0) << now;
}

void TestBusLines::bringsTimesToTheClock()
{
    constexpr qint64 second = 1000000;
    constexpr qint64 now = 1700000000 * second;
    QFETCH(const qint64, first);
    BusClock clock;
    CAN::CanRxMessage message;
    setTime(message, first);
    clock.set(message, now);
    setTime(message, first == 0 ? 0 : first + second);
    clock.set(message, now);
    QTEST(CAN::timeOf(message), "expected");
}

void TestBusLines::waitsForTheTimesOfTraces_data()
{
    constexpr qint64 hour = 3600LL * 1000000;
    QTest::addColumn<double>("speed");
    QTest::addColumn<qint64>("next"); // behind a message at an hour
    QTest::addColumn<bool>("isDue");
    QTest::newRow("at once") << 1.0 << hour << true;
    QTest::newRow("later") << 1.0 << 2 * hour << false;
    QTest::newRow("faster, still later") << 100.0 << 2 * hour << false;
    QTest::newRow("faster than anything") << 0.0 << 2 * hour << true;
    QTest::newRow("times fall a little") << 1.0 << hour - 1 << true;
    QTest::newRow("times begin anew") << 1.0 << qint64(0) << true;
}

void TestBusLines::waitsForTheTimesOfTraces()
{
    constexpr qint64 hour = 3600LL * 1000000;
    QFETCH(const double, speed);
    QFETCH(const qint64, next);
    Pacer pacer;
    pacer.reset();
    pacer.setSpeed(speed);
    QVERIFY(pacer.waitFor(hour));
    QTEST(pacer.isDue(next), "isDue");
    pacer.setPaused(true);
    QVERIFY(!pacer.isDue(next));
    pacer.stop();
    QVERIFY(!pacer.waitFor(next));
}

void TestBusLines::makesTraffic()
{
    GeneratorOptions options;
    options.rate = 5000;
    options.lines = 3;
    options.fdFrames = true;
    options.errorFrames = true;
    TrafficMix mix(options, 4);
    TrafficMix again(options, 4);
    int messages = 0;
    QSet<int> lines;
    QMap<quint32, QSet<QByteArray>> payloads;
    bool hasFd = false;
    while (mix.nextTime() < 10000000) {
        const CAN::CanRxMessage message = mix.next();
        const QByteArray payload(reinterpret_cast<const char *>(message.data), message.length);
        const CAN::CanRxMessage same = again.next();
        QCOMPARE(same.id, message.id);
        QCOMPARE(QByteArray(reinterpret_cast<const char *>(same.data), same.length), payload);
        payloads[message.id].insert(payload);
        lines.insert(message.line);
        hasFd = hasFd || (message.fdFrame && message.length > 8);
        ++messages;
    }
    QVERIFY(qAbs(messages - 50000) < 200);
    QCOMPARE(lines, QSet<int>({4, 5, 6}));
    QVERIFY(hasFd);
    QVERIFY(payloads.contains(CAN::errorFrameId));
    for (const QSet<QByteArray> &seen : qAsConst(payloads))
        QVERIFY(seen.size() > 1);
}

void TestBusLines::generates()
{
    DeskWindow window;
    BusLines *lines = window.desk->lines();
    lines->add(generator(50000, 3));
    lines->add(generator(20000, 7));
    QTRY_VERIFY(window.recorded() > 20000);
    QVERIFY(window.desk->recording()->isGrowing());
    lines->stopAll();
    QVERIFY(!window.desk->recording()->isGrowing());
    const RecordingCounts counts = window.desk->recording()->counts();
    QCOMPARE(counts.taken, lines->at(0)->taken() + lines->at(1)->taken());
    QCOMPARE(counts.dropped, quint64(0));
    QCOMPARE(counts.stored, counts.taken);
    QCOMPARE(window.recorded(), counts.taken);
    QCOMPARE(window.desk->recording()->store().getLines(), QSet<unsigned char>({3, 4, 7, 8}));
}

void TestBusLines::replaysTogether()
{
    DeskWindow window;
    BusChoice choice = replay(QStringLiteral(TESTDATA "/../../examples/traces/engine_start.log"));
    const qint64 before = wallTimeNow();
    choice.replay.keepsLines = false;
    choice.number = 9;
    const BusLine *line = window.desk->lines()->add(choice);
    QTRY_COMPARE(line->state(), BusLine::Stopped);
    QVERIFY(line->taken() > 10);
    QCOMPARE(window.recorded(), line->taken());
    QCOMPARE(window.message(0).line, quint16(9));
    constexpr qint64 millisecond = 1000;
    QVERIFY(CAN::timeOf(window.message(0)) >= before - millisecond);
    QVERIFY(window.notices.empty());
}

void TestBusLines::replaysFolder()
{
    const QTemporaryDir folder;
    DatachunkHandler store(10000);
    for (int i = 0; i < 100; ++i)
        store.addnewtestmessage();
    store.exportMessages(folder.filePath(QStringLiteral("a.dck")));
    QVERIFY(store.waitForSaves());
    DeskWindow window;
    const BusLine *line = window.desk->lines()->add(replay(folder.path()));
    QTRY_COMPARE(line->state(), BusLine::Stopped);
    QCOMPARE(window.recorded(), quint64(100));
}

void TestBusLines::pausesAndLoops()
{
    DeskWindow window;
    BusChoice choice = replay(QStringLiteral(TESTDATA "/../../examples/traces/engine_start.log"));
    choice.replay.loops = true;
    BusLine *line = window.desk->lines()->add(choice);
    QTRY_VERIFY(line->taken() > 2000);
    line->setPaused(true);
    QCOMPARE(line->state(), BusLine::Paused);
    // Paused within the pause between two rounds or within one, at most a batch still comes.
    const quint64 paused = line->taken();
    QTest::qWait(50);
    QVERIFY(line->taken() <= paused + 1000);
    line->setPaused(false);
    QTRY_VERIFY(line->taken() > paused + 2000);
    line->stop();
    line->start();
    QTRY_COMPARE(line->state(), BusLine::Running);
}

void TestBusLines::tellsBadReplays_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("text");
    QTest::newRow("none of a kind")
        << QByteArray("this is no trace\nat all\n") << "cannot be replayed";
    QTest::newRow("empty") << QByteArray() << "cannot be replayed";
    QTest::newRow("gone") << QByteArray("-") << "is not there";
}

void TestBusLines::tellsBadReplays()
{
    QFETCH(const QByteArray, content);
    QFETCH(const QString, text);
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("a.txt")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
    file.close();
    if (content == "-")
        file.remove();
    DeskWindow window;
    const BusLine *line = window.desk->lines()->add(replay(file.fileName()));
    QTRY_COMPARE(line->state(), BusLine::Failed);
    QVERIFY2(window.allTexts().contains(text), qPrintable(window.allTexts()));
}

void TestBusLines::connectsPlugin()
{
    DeskWindow window;
    BusChoice choice = device(QStringLiteral("testcan"), QStringLiteral("can5"));
    choice.number = 5;
    choice.device.fd = true;
    choice.device.bitRate = 250000;
    choice.device.dataBitRate = 2000000;
    const BusLine *line = window.desk->lines()->add(choice);
    QTRY_COMPARE(window.recorded(), quint64(3));
    QTRY_COMPARE(line->state(), BusLine::Running);
    const CAN::CanRxMessage message = window.message(0);
    QCOMPARE(message.line, quint16(5));
    QVERIFY(message.fdFrame);
    QCOMPARE(QByteArray(reinterpret_cast<const char *>(message.data), message.length),
             QByteArray::fromHex("0100fa07d0"));
    QCOMPARE(window.message(2).id, CAN::errorFrameId);
    QVERIFY(CAN::timeOf(message) > 0);
}

void TestBusLines::connectsVirtualCan()
{
    DeskWindow window;
    const QString bus = ownVirtualBus();
    const BusLine *line = window.desk->lines()->add(device(QStringLiteral("virtualcan"), bus));
    QTRY_COMPARE(line->state(), BusLine::Running);
    const std::unique_ptr<QCanBusDevice> sender(
        QCanBus::instance()->createDevice(QStringLiteral("virtualcan"), bus));
    QVERIFY(sender->connectDevice());
    QTRY_COMPARE(sender->state(), QCanBusDevice::ConnectedState);
    // The server knows both only when both have told it their channel.
    QTRY_VERIFY(sender->writeFrame(QCanBusFrame(0x123, QByteArray(2, 'x'))) && line->taken() > 0);
    QVERIFY(window.recorded() > 0);
    QCOMPARE(window.message(0).id, quint32(0x123));
    sender->disconnectDevice();
    QTRY_COMPARE(sender->state(), QCanBusDevice::UnconnectedState);
}

void TestBusLines::tellsBadDevices_data()
{
    QTest::addColumn<QString>("plugin");
    QTest::addColumn<QString>("interface");
    QTest::addColumn<QString>("text");
    QTest::newRow("no such plug-in") << "nosuchcan"
                                     << "can0"
                                     << "There is no CAN bus plug-in";
    QTest::newRow("no such interface") << "socketcan"
                                       << "can77"
                                       << "There is no CAN interface can77";
    QTest::newRow("virtual one to be made") << "socketcan"
                                            << "vcan77"
                                            << "ip link add vcan77";
    QTest::newRow("fails") << "testcan"
                           << "broken"
                           << "It is broken.";
    QTest::newRow("wrong name") << "virtualcan"
                                << "can9"
                                << "one of these: can0, can1";
}

void TestBusLines::tellsBadDevices()
{
    QFETCH(const QString, plugin);
    QFETCH(const QString, interface);
    QFETCH(const QString, text);
    DeskWindow window;
    const BusLine *line = window.desk->lines()->add(device(plugin, interface));
    QTRY_COMPARE(line->state(), BusLine::Failed);
    QVERIFY2(window.allTexts().contains(text), qPrintable(window.allTexts()));
    QCOMPARE(window.notices.size(), std::size_t(1));
    QCOMPARE(window.desk->recording()->counts().taken, quint64(0));
}

void TestBusLines::bringsBackLostDevice()
{
    DeskWindow window;
    BusLine *line =
        window.desk->lines()->add(device(QStringLiteral("testcan"), QStringLiteral("flaky")));
    QTRY_COMPARE(line->state(), BusLine::Lost);
    QVERIFY(!line->errorText().isEmpty());
    QTRY_VERIFY(line->taken() > 1);
    QTRY_VERIFY(window.allTexts().contains(QStringLiteral("is back")));
    line->stop();
    QCOMPARE(line->state(), BusLine::Stopped);
}

QTEST_MAIN(TestBusLines)
#include "tst_buslines.moc"
