#include "canframe.h"
#include "errorframes.h"
#include "framebits.h"
#include "jsontext.h"
#include "periods.h"
#include "traceexport.h"

#include <QJsonObject>
#include <QRandomGenerator>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <vector>

// What the program works out of single messages.
class TestMessageValues : public QObject
{
    Q_OBJECT
private slots:
    void jsonIsThatOfADocument();
    void framesHaveTheirBits_data();
    void framesHaveTheirBits();
    void periodsAreWithinOnePercent_data();
    void periodsAreWithinOnePercent();
};

namespace {

CAN::CanRxMessage randomMessage(QRandomGenerator &random)
{
    CAN::CanRxMessage message;
    const auto isSet = [&random] { return random.bounded(2) == 1; };
    message.seconds = qint32(random.generate());
    message.microseconds = qint32(random.generate());
    message.id = random.bounded(4) == 0 ? CAN::errorFrameId : random.generate();
    message.length = qint8(random.generate());
    for (quint8 &byte : message.data)
        byte = quint8(random.bounded(10));
    message.remote = isSet();
    message.extended = isSet();
    message.fdFrame = isSet();
    message.flagB = isSet();
    message.flagC = isSet();
    message.flagD = isSet();
    message.messageNumber = random.generate();
    message.line = quint16(random.generate());
    message.transmitted = isSet();
    return message;
}

// Every character that needs an escape, and surrogates alone and in pairs.
QString randomNote(QRandomGenerator &random)
{
    QString note;
    for (int i = random.bounded(8); i > 0; --i) {
        const ushort ranges[][2] = {{0, 0x90}, {0xd7f0, 0xe010}, {0, 0xffff}};
        const auto &range = ranges[random.bounded(3)];
        note += QChar(range[0] + random.bounded(range[1] - range[0] + 1));
    }
    return random.bounded(4) == 0 ? note + QString::fromUtf8("\xf0\x9f\x9a\x97") : note;
}

QByteArray documentOf(const CAN::CanRxMessage &message, const QString &note,
                      const TraceExport::Place *place)
{
    const char *payload = reinterpret_cast<const char *>(message.data);
    const QByteArray data = QByteArray(payload, CAN::payloadSize(message)).toHex();
    QJsonObject object{{"number", qint64(message.messageNumber)},
                       {"seconds", message.seconds},
                       {"microseconds", message.microseconds},
                       {"id", qint64(message.id)},
                       {"line", message.line},
                       {"length", message.length},
                       {"data", QString::fromLatin1(data)},
                       {"extended", message.extended},
                       {"remote", message.remote},
                       {"fd", message.fdFrame},
                       {"error", message.id == CAN::errorFrameId},
                       {"flagB", message.flagB},
                       {"flagC", message.flagC},
                       {"flagD", message.flagD}};
    if (!note.isEmpty())
        object.insert("note", note);
    if (!errorTypeName(message).isEmpty())
        object.insert("errorType", errorTypeName(message));
    if (message.transmitted)
        object.insert("transmitted", true);
    if (place)
        object.insert("position", qint64(place->position));
    if (place && place->isContext)
        object.insert("context", true);
    return jsonText(QJsonDocument(object)) + '\n';
}

} // namespace

void TestMessageValues::jsonIsThatOfADocument()
{
    QRandomGenerator random(14);
    for (int i = 0; i < 20000; ++i) {
        const CAN::CanRxMessage message = randomMessage(random);
        const QString note = randomNote(random);
        const TraceExport::Place place{random.generate64() >> 12, i % 2 == 0};
        const TraceExport::Place *shown = i % 3 == 0 ? nullptr : &place;
        QByteArray text("before");
        TraceExport::appendJson(text, message, note, shown);
        QCOMPARE(text, "before" + documentOf(message, note, shown));
    }
}

void TestMessageValues::framesHaveTheirBits_data()
{
    // Identifier, length, the byte that fills the payload, and a letter for each flag.
    QTest::addColumn<QByteArray>("frame");
    QTest::addColumn<int>("nominal");
    QTest::addColumn<int>("data");
    QTest::newRow("few stuff bits") << QByteArray("555 8 55") << 112 << 0;
    QTest::newRow("no payload") << QByteArray("0 0 0") << 53 << 0;
    QTest::newRow("nothing but zeros") << QByteArray("0 8 0") << 127 << 0;
    QTest::newRow("nothing but ones") << QByteArray("7ff 8 ff") << 126 << 0;
    QTest::newRow("runs that stuff bits make longer") << QByteArray("7e 8 3c") << 129 << 0;
    QTest::newRow("more than 8 bytes of a classic frame") << QByteArray("555 12 55") << 112 << 0;
    QTest::newRow("extended") << QByteArray("0 8 0 x") << 150 << 0;
    QTest::newRow("the payload of a remote frame is not sent")
        << QByteArray("123 4 99 r") << 47 << 0;
    QTest::newRow("FD without a switch") << QByteArray("123 8 55 f") << 126 << 0;
    QTest::newRow("FD with the most zeros") << QByteArray("0 64 0 fb") << 31 << 652;
    QTest::newRow("FD with the short checksum") << QByteArray("7ff 16 ff fbe") << 31 << 186;
    QTest::newRow("FD with the long checksum") << QByteArray("123 20 aa fb") << 29 << 198;
    QTest::newRow("FD of a length that is filled up")
        << QByteArray("12345678 10 aa xfb") << 48 << 132;
    QTest::newRow("FD with a fixed bit instead of a stuff bit")
        << QByteArray("123 1 1f fb") << 29 << 41;
    QTest::newRow("an error frame") << QByteArray("ffff00ef 1 1") << 23 << 0;
}

void TestMessageValues::framesHaveTheirBits()
{
    QFETCH(QByteArray, frame);
    QFETCH(int, nominal);
    QFETCH(int, data);
    const QList<QByteArray> parts = frame.split(' ');
    const QByteArray flags = parts.value(3);
    CAN::CanRxMessage message;
    message.id = parts.at(0).toUInt(nullptr, 16);
    message.extended = flags.contains('x');
    message.remote = flags.contains('r');
    message.fdFrame = flags.contains('f');
    message.flagC = flags.contains('b');
    message.flagB = flags.contains('e');
    message.length = qint8(parts.at(1).toInt());
    std::fill_n(message.data, message.length, quint8(parts.at(2).toInt(nullptr, 16)));
    const FrameBits bits = frameBits(message);
    QCOMPARE(bits.nominal, nominal);
    QCOMPARE(bits.data, data);
}

void TestMessageValues::periodsAreWithinOnePercent_data()
{
    QTest::addColumn<qint64>("least");
    QTest::addColumn<qint64>("most");
    QTest::newRow("always the same") << qint64(100000) << qint64(100000);
    QTest::newRow("short ones, which are exact") << qint64(0) << qint64(63);
    QTest::newRow("across powers of two") << qint64(60) << qint64(70000);
    QTest::newRow("days with little jitter") << qint64(86400000000) << qint64(86400000100);
    QTest::newRow("as long as times can be") << qint64(0) << qint64(0x7fffffff) * 2000000;
}

void TestMessageValues::periodsAreWithinOnePercent()
{
    QFETCH(qint64, least);
    QFETCH(qint64, most);
    constexpr int count = 10000;
    QRandomGenerator64 random(14);
    Periods periods;
    std::vector<qint64> all;
    long double sum = 0;
    for (int i = 0; i < count; ++i) {
        all.push_back(least + qint64(random.generate64() % quint64(most - least + 1)));
        periods.add(all.back());
        sum += all.back();
    }
    std::sort(all.begin(), all.end());
    const long double mean = sum / count;
    long double squares = 0;
    for (const qint64 period : all)
        squares += (period - mean) * (period - mean);
    const auto isNear = [](double a, long double b, double part) {
        return std::abs(a - double(b)) <= double(b) * part + 1e-3;
    };
    QCOMPARE(periods.least(), all.front());
    QCOMPARE(periods.most(), all.back());
    QVERIFY(isNear(periods.mean(), mean, 1e-9));
    QVERIFY(isNear(periods.deviation(), std::sqrt(squares / count), 1e-6));
    for (const int percent : {1, 50, 99, 100})
        QVERIFY(
            isNear(periods.percentile(percent), all[std::size_t(count * percent / 100 - 1)], 0.01));
}

QTEST_GUILESS_MAIN(TestMessageValues)
#include "tst_messagevalues.moc"
