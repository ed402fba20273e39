#include "jumptarget.h"
#include "messagetext.h"
#include "traceexpression.h"

#include <QDateTime>
#include <QTest>

namespace {

CAN::CanRxMessage message(quint32 id, const QByteArray &payload, bool extended = false)
{
    CAN::CanRxMessage made;
    made.id = id;
    made.extended = extended;
    made.length = qint8(payload.size());
    std::copy(payload.begin(), payload.end(), made.data);
    return made;
}

// 2024-05-31 08:15:00.5 of this computer's place.
qint64 someDay()
{
    return QDateTime(QDate(2024, 5, 31), QTime(8, 15)).toMSecsSinceEpoch() * 1000 + 500000;
}

} // namespace

class TestTraceTexts : public QObject
{
    Q_OBJECT
private slots:
    void times_data();
    void times();
    void timesAreReadAsTheyAreWritten();
    void numbers_data();
    void numbers();
    void data_data();
    void data();
    void filtersOfAMessage_data();
    void filtersOfAMessage();
    void filtersGrow_data();
    void filtersGrow();
};

void TestTraceTexts::times_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("shown");
    QTest::addColumn<qint64>("start");
    QTest::addColumn<qint64>("time"); // -1 for an error
    const qint64 second = 1000000;
    const qint64 day = someDay();
    const auto row = [](const char *name, const char *text, TraceLook::Time shown, qint64 start,
                        qint64 time) {
        QTest::newRow(name) << QString(text) << int(shown) << start << time;
    };
    row("counts from the start", "1.5", TraceLook::SinceStart, 2 * second, 3500000);
    row("a comma and a unit are read", "1,5 s", TraceLook::SinceStart, 0, 1500000);
    row("counts from the mark", "1", TraceLook::SinceMark, 0, 101 * second);
    row("is as recorded", "1.000002", TraceLook::Seconds, 5 * second, 1000002);
    row("a plus counts from the current message", "+2", TraceLook::Seconds, 0, 52 * second);
    row("a minus counts back", "-0.25", TraceLook::SinceRowBefore, 0, 49750000);
    row("hours are from the start without dates", "1:00:02", TraceLook::SinceStart, second,
        3603 * second);
    row("a time of day is of the current day", "08:15:01.5", TraceLook::SinceStart, day,
        day + second);
    row("a date stands in front", "2024-06-01 8:15:00.500000", TraceLook::DateAndTime, day,
        day + 24 * 3600 * second);
    row("words are an error", "noon", TraceLook::SinceStart, 0, -1);
    row("no text is an error", "", TraceLook::SinceStart, 0, -1);
    row("there is no hour 25", "25:00", TraceLook::DateAndTime, day, -1);
    row("there is no minute 60", "1:60", TraceLook::SinceStart, 0, -1);
    row("there is no 30th of February", "2024-02-30 8:00", TraceLook::DateAndTime, day, -1);
    row("more digits than a time has are an error", "99999999999999999999", TraceLook::Seconds, 0,
        -1);
}

void TestTraceTexts::times()
{
    QFETCH(QString, text);
    QFETCH(int, shown);
    QFETCH(qint64, start);
    JumpTarget::Times times;
    times.shown = TraceLook::Time(shown);
    times.start = start;
    times.marked = 100000000;
    times.current = MessageText::isDate(start) ? start : 50000000;
    QString error;
    QTEST(JumpTarget::time(text, times, &error).value_or(-1), "time");
}

void TestTraceTexts::timesAreReadAsTheyAreWritten()
{
    for (int shown = 0; shown < TraceLook::timeCount; ++shown) {
        for (const qint64 start : {Q_INT64_C(1500000), Q_INT64_C(1717229701000123)}) {
            const qint64 moment = start + Q_INT64_C(86400000007);
            QString error;
            const JumpTarget::Times times{TraceLook::Time(shown), start, start + 1, start + 2};
            QCOMPARE(JumpTarget::time(JumpTarget::timeText(moment, times), times, &error), moment);
        }
    }
}

void TestTraceTexts::numbers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qint64>("number");
    QTest::newRow("digits") << "12" << qint64(12);
    QTest::newRow("digits in groups") << " 1,000 000" << qint64(1000000);
    QTest::newRow("the highest") << "4294967295" << qint64(4294967295);
    QTest::newRow("too high") << "4294967296" << qint64(-1);
    QTest::newRow("negative") << "-1" << qint64(-1);
    QTest::newRow("nothing") << "" << qint64(-1);
}

void TestTraceTexts::numbers()
{
    QFETCH(QString, text);
    QString error;
    const auto number = JumpTarget::number(text, &error);
    QTEST(number ? qint64(*number) : -1, "number");
    QCOMPARE(error.isEmpty(), number.has_value());
}

void TestTraceTexts::data_data()
{
    QTest::addColumn<QByteArray>("payload");
    QTest::addColumn<int>("base");
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << QByteArray() << 16 << QString();
    QTest::newRow("hexadecimal") << QByteArray("\x0f\xa0") << 16 << "0F A0";
    QTest::newRow("decimal has columns") << QByteArray("\x0f\xa0\x01") << 10 << " 15 160   1";
    QTest::newRow("a gap behind eight")
        << QByteArray(9, 'A') << 16 << "41 41 41 41 41 41 41 41  41";
}

void TestTraceTexts::data()
{
    QFETCH(QByteArray, payload);
    QFETCH(int, base);
    QTEST(MessageText::data(message(1, payload), base), "text");
}

void TestTraceTexts::filtersOfAMessage_data()
{
    QTest::addColumn<quint32>("id");
    QTest::addColumn<bool>("extended");
    QTest::addColumn<QByteArray>("payload");
    QTest::newRow("standard") << 0x123u << false << QByteArray("\x01\x02");
    QTest::newRow("extended and small") << 0x123u << true << QByteArray("\x01\x02");
    QTest::newRow("extended") << 0x18ff1234u << true << QByteArray(64, '\xa5');
    QTest::newRow("without payload") << 0x7ffu << false << QByteArray();
}

void TestTraceTexts::filtersOfAMessage()
{
    QFETCH(quint32, id);
    QFETCH(bool, extended);
    QFETCH(QByteArray, payload);
    const CAN::CanRxMessage wanted = message(id, payload, extended);
    const auto identifier = TraceExpression::parse(MessageText::filterOfIdentifier(wanted));
    const auto same = TraceExpression::parse(MessageText::filterOfData(wanted));
    QVERIFY(identifier && same);
    QVERIFY(identifier->matches(wanted) && same->matches(wanted));
    const CAN::CanRxMessage longer = message(id, payload.left(63) + '\x02', extended);
    QVERIFY(identifier->matches(longer) && !same->matches(longer));
    QVERIFY(!identifier->matches(message(id + 1, payload, extended)));
    QVERIFY(id > 0x7ff || !identifier->matches(message(id, payload, !extended)));
}

void TestTraceTexts::filtersGrow_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<bool>("takesTwo");
    QTest::newRow("there is none") << "" << true;
    QTest::newRow("one after the other") << "not (id==1 and not ext)" << true;
    QTest::newRow("either is put in parentheses") << "id==3 or id==2" << true;
    QTest::newRow("with signs, too") << "id==3||id==1" << false;
}

// Without 1, 3 goes as well, and 2 stays if it was there.
void TestTraceTexts::filtersGrow()
{
    QFETCH(QString, filter);
    const QString text =
        MessageText::filterWithout(filter, MessageText::filterOfIdentifier(message(3, {})));
    const auto expression = TraceExpression::parse(text);
    QVERIFY2(expression, qPrintable(text));
    QVERIFY(!expression->matches(message(3, {})));
    QTEST(expression->matches(message(2, {})), "takesTwo");
}

QTEST_GUILESS_MAIN(TestTraceTexts)
#include "tst_tracetexts.moc"
