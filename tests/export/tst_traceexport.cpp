#include "canframe.h"
#include "messages.h"
#include "readback.h"

#include <QRandomGenerator>
#include <QtTest>

#include <array>

// What is written of a trace is what is read of it, or named and counted.
class TestTraceExport : public QObject
{
    Q_OBJECT
private slots:
    void whatDiffersIsCounted_data();
    void whatDiffersIsCounted();
    void lines_data();
    void lines();
    void emptyTraces_data();
    void emptyTraces();
    void datesCountFromTheFirstMessage();
    void theLatestTimeStays();
    void noteIsCutAtACharacter();
    void names_data();
    void names();
};

namespace {

using Losses = std::array<quint64, TraceExport::lossCount + 1>;

// Of what kinds the records of a trace are.
enum Records {
    WithDates,  // in order but for some, since 1970
    FromZero,   // as those of a device that counts from its start
    AnyRecords, // every field is any value
};

constexpr qint64 million = 1000000;

qint64 randomTime(QRandomGenerator &random, Records records, int index)
{
    const qint64 first = records == WithDates ? 1700000000 * million + 123456 : 0;
    const qint64 step = random.bounded(10) == 0 ? -random.bounded(3000) : random.bounded(100);
    return qMax(qint64(0), first + index * Q_INT64_C(100) + step);
}

void setKind(CAN::CanRxMessage &message, QRandomGenerator &random)
{
    const auto isSet = [&random](int oneIn) { return random.bounded(oneIn) == 0; };
    message.extended = isSet(2);
    message.id = random.generate() >> (message.extended ? 3 : 21);
    if (isSet(20))
        message.id = 0x800 + random.bounded(1000);
    if (isSet(20))
        message.id = 0x20000000;
    message.fdFrame = isSet(3);
    message.remote = !message.fdFrame && isSet(5);
    constexpr int lengths[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 12, 16, 20, 24, 32, 48, 64};
    message.length = qint8(lengths[random.bounded(message.fdFrame ? 16 : 9)]);
    message.flagB = message.fdFrame && isSet(2);
    message.flagC = message.fdFrame && isSet(2);
    if (isSet(15)) {
        message.id = CAN::errorFrameId;
        message.extended = message.fdFrame = message.remote = message.flagB = message.flagC = false;
        message.length = qint8(random.bounded(9));
    }
}

ReadBack::Message randomRecord(QRandomGenerator &random, Records records, int index)
{
    ReadBack::Message item;
    CAN::CanRxMessage &message = item.message;
    setKind(message, random);
    const qint64 time = randomTime(random, records, index);
    message.seconds = qint32(time / million);
    message.microseconds = qint32(time % million);
    message.line = quint16(random.bounded(4) == 0 ? random.bounded(0x10000) : 0);
    message.transmitted = random.bounded(4) == 0;
    if (records == AnyRecords) {
        const auto isSet = [&random] { return random.bounded(3) == 0; };
        message.seconds = qint32(random.generate()) >> random.bounded(32);
        message.microseconds = qint32(random.generate()) >> random.bounded(32);
        message.length = qint8(random.generate());
        message.extended = isSet();
        message.fdFrame = isSet();
        message.remote = isSet();
        message.flagB = isSet();
        message.flagC = isSet();
        message.flagD = isSet();
    }
    // Bytes behind the payload mean nothing.
    for (quint8 &byte : message.data)
        byte = message.remote && records != AnyRecords ? 0 : quint8(random.generate());
    const QStringList notes{"plain", "two, \"quoted\"\r\nlines", u8"\u00fcber \U0001F697"};
    if (random.bounded(8) == 0)
        item.note = notes.at(random.bounded(notes.size()));
    return item;
}

// The time of each message with that of those before, where each tells the time since the last.
QVector<ReadTime> timesOf(const ReadBack &back, TraceExport::Format format, bool isDelta,
                          const CAN::CanRxMessage &first)
{
    QVector<ReadTime> times;
    ReadTime time;
    time.unit = format == TraceExport::PeakTrc11 ? 100 : 1;
    time.start = back.start;
    if (format == TraceExport::CandumpScreen && isDelta)
        time.start =
            qBound(qint64(0), first.seconds * million + first.microseconds, 0x7FFFFFFF * million);
    qint64 before = time.start;
    for (const ReadBack::Message &item : back.messages) {
        time.read = before + item.message.seconds * million + item.message.microseconds;
        before = isDelta ? time.read : before;
        times.append(time);
    }
    return times;
}

CAN::CanRxMessage at(CAN::CanRxMessage message, qint32 seconds, qint32 microseconds)
{
    message.seconds = seconds;
    message.microseconds = microseconds;
    return message;
}

// One message of each kind.
QVector<CAN::CanRxMessage> fewMessages()
{
    QVector<CAN::CanRxMessage> messages{
        makeMessage(0x123, "1122"), makeMessage(0x18EBFF00, "", 1), makeMessage(0x123, "", 1),
        makeMessage(CAN::errorFrameId, "01", 1), makeMessage(0x7FF, "112233445566778899AABBCC", 2)};
    messages[0].transmitted = true;
    messages[1].extended = true;
    messages[2].remote = true;
    messages[2].length = 5;
    messages[3].extended = false;
    messages[4].fdFrame = messages[4].flagC = true;
    for (int i = 0; i < messages.size(); ++i)
        messages[i] = at(messages[i], 1 + i, 234567);
    return messages;
}

QByteArray exported(TraceExport &trace, const QVector<CAN::CanRxMessage> &messages)
{
    QByteArray bytes;
    for (const CAN::CanRxMessage &message : messages)
        trace.append(message, message.id == 0x18EBFF00 ? QString("a, \"b\"") : QString(), bytes);
    trace.finish(bytes);
    return bytes;
}

} // namespace

void TestTraceExport::whatDiffersIsCounted_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("times");
    QTest::addColumn<int>("records");
    const QMap<int, QByteArray> kinds{
        {WithDates, "dates"}, {FromZero, "times from 0"}, {AnyRecords, "any values"}};
    const QStringList names = TraceExport::formatNames();
    for (int format = 0; format < names.size(); ++format) {
        for (const int times : {TraceExport::Absolute, TraceExport::Delta}) {
            for (auto kind = kinds.begin(); kind != kinds.end(); ++kind)
                QTest::newRow(names.at(format).toLatin1() + (times ? ", delta, " : ", ")
                              + kind.value())
                    << format << times << kind.key();
        }
    }
}

void TestTraceExport::whatDiffersIsCounted()
{
    QFETCH(int, format);
    QFETCH(int, times);
    QFETCH(int, records);
    QRandomGenerator random(quint32(15 + records));
    const auto as = TraceExport::Format(format);
    TraceExport trace(as, TraceExport::Times(times));
    QVector<ReadBack::Message> written;
    QByteArray bytes;
    Losses expected{};
    for (int i = 0; i < 3000; ++i) {
        const ReadBack::Message item = randomRecord(random, Records(records), i);
        const int size = bytes.size();
        if (trace.append(item.message, item.note, bytes)) {
            written.append(item);
            continue;
        }
        QCOMPARE(bytes.size(), size);
        const bool isTooLarge = item.message.id > 0x1FFFFFFF;
        ++expected[isTooLarge ? TraceExport::Identifier : TraceExport::FdFrame];
    }
    trace.finish(bytes);
    QCOMPARE(trace.written(), quint64(written.size()));
    QCOMPARE(trace.leftOut(), 3000 - trace.written());

    const ReadBack back = readBack(as, bytes);
    QVERIFY(back.isWhole);
    QCOMPARE(back.messages.size(), written.size());
    const bool isDelta = times == TraceExport::Delta
        && (as == TraceExport::CandumpScreen || as == TraceExport::VectorAsc);
    const QVector<ReadTime> readTimes = timesOf(back, as, isDelta, written.first().message);
    for (int i = 0; i < written.size(); ++i) {
        for (const TraceExport::Loss loss :
             differences(written.at(i), back.messages.at(i), readTimes.at(i)))
            ++expected[loss];
    }
    Losses counted{};
    for (const TraceExport::LossCount &loss : trace.losses())
        counted[loss.loss] = loss.messages;
    for (int loss = 0; loss <= TraceExport::lossCount; ++loss)
        QVERIFY2(counted[std::size_t(loss)] == expected[std::size_t(loss)],
                 qPrintable(QStringLiteral("loss %1: counted %2, found %3")
                                .arg(loss)
                                .arg(counted[std::size_t(loss)])
                                .arg(expected[std::size_t(loss)])));
}

void TestTraceExport::lines_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("times");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("candump") << QByteArray("candump") << 0
                             << QByteArray("(1.234567) can0 123#1122\n"
                                           "(2.234567) can1 18EBFF00#\n"
                                           "(3.234567) can1 123#R5\n"
                                           "(4.234567) can1 20000080#01\n"
                                           "(5.234567) can2 7FF##1112233445566778899AABBCC\n");
    QTest::newRow("candump's screen, with the time that has passed")
        << QByteArray("candump-screen") << 1
        << QByteArray(" (000.000000)  can0  TX - -  123   [2]  11 22\n"
                      " (001.000000)  can1  RX - -  18EBFF00   [0] \n"
                      " (001.000000)  can1  RX - -  123   [5]  remote request\n"
                      " (001.000000)  can1  RX - -  20000080   [1]  01   ERRORFRAME\n"
                      " (001.000000)  can2  RX B -  7FF  [12]  11 22 33 44 55 66 77 88 99 AA BB "
                      "CC\n");
    QTest::newRow("values") << QByteArray("csv") << 0
                            << QByteArray(
                                   "time,line,direction,id,extended,fd,brs,esi,remote,error,length,"
                                   "data,note\n"
                                   "1.234567,0,Tx,123,0,0,0,0,0,0,2,1122,\n"
                                   "2.234567,1,Rx,18EBFF00,1,0,0,0,0,0,0,,\"a, \"\"b\"\"\"\n"
                                   "3.234567,1,Rx,123,0,0,0,0,1,0,5,0000000000,\n"
                                   "4.234567,1,Rx,,0,0,0,0,0,1,1,01,\n"
                                   "5.234567,2,Rx,7FF,0,1,1,0,0,0,12,112233445566778899AABBCC,\n");
    const QByteArray ascLines(
        "internal events logged\n"
        "// version 9.0.0\n"
        "Begin Triggerblock Thu Jan 1 12:00:00.000 am 1970\n"
        "   1.234567 0  123             Tx   d 2 11 22  ID = 291\n"
        "   1.000000 1  18EBFF00x       Rx   d 0  ID = 418119424x\n"
        "   1.000000 1  123             Rx   r 5  ID = 291\n"
        "   1.000000 1  ErrorFrame\n"
        "   1.000000 CANFD   2 Rx        7FF  1 0 9 12 11 22 33 44 55 66 77 88 99 AA BB CC"
        "        0    0     3000        0        0        0        0        0\n"
        "End TriggerBlock\n");
    QTest::newRow("Vector ASC, with the time that has passed")
        << QByteArray("asc") << 1
        << "date Thu Jan 1 12:00:00.000 am 1970\nbase hex  timestamps relative\n" + ascLines;
}

void TestTraceExport::lines()
{
    QFETCH(QByteArray, name);
    QFETCH(int, times);
    QFETCH(QByteArray, bytes);
    TraceExport trace(*TraceExport::formatNamed(name), TraceExport::Times(times));
    const QByteArray given = exported(trace, fewMessages());
    QCOMPARE(given, bytes);
}

void TestTraceExport::emptyTraces_data()
{
    QTest::addColumn<QByteArray>("name");
    for (const QString &name : TraceExport::formatNames())
        QTest::newRow(qPrintable(name)) << name.toLatin1();
}

void TestTraceExport::emptyTraces()
{
    QFETCH(QByteArray, name);
    const TraceExport::Format format = *TraceExport::formatNamed(name);
    TraceExport trace(format);
    const ReadBack back = readBack(format, exported(trace, {}));
    QVERIFY(back.isWhole);
    QVERIFY(back.messages.isEmpty());
    QVERIFY(trace.losses().isEmpty());
}

void TestTraceExport::datesCountFromTheFirstMessage()
{
    // 2015-07-10 18:17:32.249 UTC, in the second half of the day.
    const CAN::CanRxMessage message = at(makeMessage(1), 1436552252, 249713);
    TraceExport asc(TraceExport::VectorAsc);
    const QByteArray text = exported(asc, {message});
    QVERIFY(text.startsWith("date Fri Jul 10 06:17:32.249 pm 2015\n"));
    QVERIFY(text.contains("\n   0.000713 "));
    TraceExport trc(TraceExport::PeakTrc11);
    const QByteArray rows = exported(trc, {message});
    QVERIFY(rows.contains(";$STARTTIME=42195.7621788079\r\n"));
    QVERIFY(rows.contains("\r\n     1)         0.7  Rx "));
}

void TestTraceExport::theLatestTimeStays()
{
    CAN::CanRxMessage message;
    message.seconds = std::numeric_limits<qint32>::max();
    message.microseconds = 999999;
    TraceExport trace(TraceExport::Candump);
    QByteArray bytes;
    trace.append(message, {}, bytes);
    QCOMPARE(bytes, "(2147483647.999999) can0 000#\n");
    QVERIFY(trace.losses().isEmpty());
}

void TestTraceExport::noteIsCutAtACharacter()
{
    const QString note(40000, QChar(0xFC)); // of two bytes
    TraceExport trace(TraceExport::Pcapng);
    QByteArray bytes;
    QVERIFY(trace.append(makeMessage(1), note, bytes));
    const ReadBack back = readBack(TraceExport::Pcapng, bytes);
    QVERIFY(back.isWhole);
    QCOMPARE(back.messages.first().note, note.left(32767));
    QCOMPARE(trace.losses().first().loss, TraceExport::NoteCut);
}

void TestTraceExport::names_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("format");
    QTest::newRow("candump has its own end") << "drive.candump"
                                             << "candump";
    QTest::newRow("a log is candump's") << "a.b/drive.LOG"
                                        << "candump";
    QTest::newRow("PEAK traces are of version 2.1") << "drive.trc"
                                                    << "trc21";
    QTest::newRow("JSON is that of lines") << "drive.json"
                                           << "jsonl";
    QTest::newRow("our own text is none of them") << "drive.txt" << QString();
    QTest::newRow("only the end of the name counts") << "asc" << QString();
    QTest::newRow("a dot in the folder is no end") << "a.asc/drive" << QString();
}

void TestTraceExport::names()
{
    QFETCH(QString, file);
    QFETCH(QString, format);
    QCOMPARE(TraceExport::formatOfFile(file), TraceExport::formatNamed(format));
}

QTEST_GUILESS_MAIN(TestTraceExport)
#include "tst_traceexport.moc"
