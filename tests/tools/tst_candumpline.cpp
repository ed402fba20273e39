#include "candumpline.h"
#include "canframe.h"

#include <QtTest>

class TestCandumpLine : public QObject
{
    Q_OBJECT
private slots:
    void frames_data();
    void frames();
};

namespace {

// "seconds.microseconds line id length flags: data" with x, r and f for extended, remote and FD.
QString describe(const char *text, int size)
{
    const auto line = readCandumpLine({text, std::size_t(size)});
    if (!line)
        return QStringLiteral("none");
    const CAN::CanRxMessage &m = line->message;
    const QByteArray data(reinterpret_cast<const char *>(m.data), CAN::payloadSize(m));
    return QStringLiteral("%1 %2 %3 %4%5%6%7: %8")
        .arg(line->hasTime ? QStringLiteral("%1.%2").arg(m.seconds).arg(m.microseconds)
                           : QStringLiteral("now"))
        .arg(m.line)
        .arg(m.id, 0, 16)
        .arg(m.length)
        .arg(QLatin1String(m.extended ? "x" : ""), QLatin1String(m.remote ? "r" : ""),
             QLatin1String(m.fdFrame ? "f" : ""), QLatin1String(data.toHex()));
}

} // namespace

void TestCandumpLine::frames_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const QByteArray &line, const char *expected = "none") {
        QTest::newRow(name) << line << QString::fromLatin1(expected);
    };
    row("log layout", "(12.345678) can0 123#1122", "12.345678 0 123 2: 1122");
    row("the interface's number is the line", "(1.000001) vcan12 001#AB", "1.1 12 1 1: ab");
    row("an interface without a number is line 0", "(1.5) slcan 001#AB", "1.500000 0 1 1: ab");
    row("eight digits are extended", "(1.0) can0 00000123#01", "1.0 0 123 1x: 01");
    row("seconds are decimal", "(0000000015.000000) can0 001#01", "15.0 0 1 1: 01");
    row("nanoseconds are cut", "(1.123456789) can0 001#01", "1.123456 0 1 1: 01");
    row("remote frame", "(1.0) can0 123#R", "1.0 0 123 0r: ");
    row("remote frame that asks for 4 bytes", "(1.0) can0 123#R4", "1.0 0 123 4r: 00000000");
    row("error frame", "(1.0) can0 20000004#0004000000000000",
        "1.0 0 ffff00ef 8: 0004000000000000");
    row("CAN FD frame", "(1.0) can3 14C##1556677", "1.0 3 14c 3f: 556677");
    row("a direction behind the frame", "(1.0) can0 123#11 T", "1.0 0 123 1: 11");
    row("screen layout", "  can1  123   [2]  11 22", "now 1 123 2: 1122");
    row("screen layout with a time", " (003.5)  can0  123   [1]  FF", "3.500000 0 123 1: ff");
    row("two digits of length are CAN FD", "can0  123  [02]  11 22", "now 0 123 2f: 1122");
    row("text behind the data", "can0 123 [1] 31   '1'", "now 0 123 1: 31");
    row("remote frame on the screen", "can0 123 [2] remote request", "now 0 123 2r: 0000");
    row("line end of another system", "(1.0) can0 123#11\r", "1.0 0 123 1: 11");
    row("empty", "");
    row("time without its end", "(1.0 can0 123#11");
    row("time beyond 31 bits", "(2147483648.0) can0 123#11");
    row("date in place of the time", "(2020-12-19 12:04:45.485261)  can1  123   [1]  31");
    row("identifier beyond 29 bits", "(1.0) can0 40000000#11");
    row("half a byte", "(1.0) can0 123#1");
    row("no number among the data", "(1.0) can0 123#1G");
    row("65 bytes", "(1.0) can0 123##0" + QByteArray(130, '1'));
    row("CAN FD frame without flags", "(1.0) can0 123##");
    row("remote frame that asks for 9 bytes", "(1.0) can0 123#R9");
    row("fewer bytes than the length says", "can0 123 [3] 11 22");
    row("length beyond 64", "can0 123 [65] 11");
    row("length without brackets", "can0 123 2 11 22");
}

void TestCandumpLine::frames()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, expected);
    QCOMPARE(describe(line, line.size()), expected);
    for (int size = 0; size < line.size(); ++size) {
        // A copy of its own, so that a sanitizer sees a read behind the end.
        const std::vector<char> cut(line.constData(), line.constData() + size);
        describe(cut.data(), size);
    }
}

QTEST_APPLESS_MAIN(TestCandumpLine)
#include "tst_candumpline.moc"
