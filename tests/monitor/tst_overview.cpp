#include "bookmarkhandler.h"
#include "canframe.h"
#include "datachunkhandler.h"
#include "overviewstrip.h"
#include "showntrace.h"
#include "temporarysettings.h"
#include "timeaxis.h"

#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

namespace {

constexpr qint64 second = 1000000;
constexpr qint64 start = 1700000000 * second;

/// A hundred messages on each of ten seconds, every second of them on line 1, in a window.
struct Strip
{
    DatachunkHandler store{100000};
    BookmarkHandler bookmarks{&store};
    ShownTrace trace{store.timeline(), QStringLiteral("trace")};
    OverviewStrip strip{&trace};

    Strip()
    {
        store.setBookmarkhandler(&bookmarks);
        for (int i = 0; i < 1000; ++i)
            append(i * second / 100, i % 2);
        strip.resize(500, strip.sizeHint().height());
        strip.show();
    }

    void append(qint64 time, int line, quint32 id = 0x100)
    {
        CAN::CanRxMessage message;
        message.seconds = qint32((start + time) / second);
        message.microseconds = qint32((start + time) % second);
        message.id = id;
        message.line = quint16(line);
        store.appendCanMessage(message);
    }

    bool isDrawn(quint64 messages = 1000)
    {
        constexpr int mostMilliseconds = 30000;
        const auto isThere = [this, messages] { return strip.picture().messages == messages; };
        return QTest::qWaitForWindowExposed(&strip) && QTest::qWaitFor(isThere, mostMilliseconds);
    }
    /// Seconds since the start of what was chosen.
    static double secondOf(QSignalSpy &chosen)
    {
        return chosen.isEmpty() ? -1
                                : double(chosen.last().at(0).toLongLong() - start) / double(second);
    }
};

bool isNear(double a, double b)
{
    return std::abs(a - b) < 0.1;
}

} // namespace

class TestOverview : public QObject
{
    Q_OBJECT
private:
    const TemporarySettings settings;

private slots:
    void init() { QLocale::setDefault(QLocale::c()); }
    void counts();
    void followsWhatGrows();
    void marks();
    void mouse();
    void keys_data();
    void keys();
    void zooms();
    void labels_data();
    void labels();
};

void TestOverview::counts()
{
    Strip shown;
    shown.append(9999000, 0, CAN::errorFrameId);
    QVERIFY(shown.isDrawn(1001));
    const OverviewPicture &picture = shown.strip.picture();
    QCOMPARE(picture.rate.lines, (QVector<quint8>{0, 1}));
    QVector<quint64> sums(2);
    for (const QVector<quint64> &counts : picture.rate.messages) {
        sums[0] += counts.at(0);
        sums[1] += counts.at(1);
        QVERIFY(counts.at(0) + counts.at(1) <= 4);
    }
    QCOMPARE(sums, (QVector<quint64>{501, 500}));
    QCOMPARE(picture.rate.errors.last(), quint64(1));
    QCOMPARE(std::count(picture.rate.errors.begin(), picture.rate.errors.end(), quint64(0)),
             std::ptrdiff_t(picture.rate.errors.size() - 1));
}

void TestOverview::followsWhatGrows()
{
    Strip shown;
    QVERIFY(shown.isDrawn());
    shown.append(20 * second, 5);
    QTRY_COMPARE(shown.strip.picture().rate.lines, (QVector<quint8>{0, 1, 5}));
    QVERIFY(isNear(shown.strip.xOf(start + 10 * second), 250));
    shown.store.clearAllMessages();
    QTRY_COMPARE(shown.strip.picture().messages, quint64(0));
    QVERIFY(!shown.strip.grab().isNull());
}

void TestOverview::marks()
{
    Strip shown;
    QVERIFY(shown.isDrawn());
    QTRY_VERIFY(shown.strip.picture().marks.isEmpty());
    shown.store.appendMessageNote(shown.store.messageAt(700).messageNumber, QStringLiteral("door"));
    shown.bookmarks.addBookmark(shown.store.messageAt(300).messageNumber, QStringLiteral("here"));
    shown.strip.readMarks();
    QTRY_COMPARE(shown.strip.picture().marks.size(), 2);
    const QVector<OverviewMark> marks = shown.strip.picture().marks;
    QCOMPARE(marks.at(0).position, quint64(300));
    QVERIFY(marks.at(0).isBookmark);
    QCOMPARE(marks.at(0).time, start + 3 * second);
    QCOMPARE(marks.at(1).position, quint64(700));
    QVERIFY(!marks.at(1).isBookmark);
    QCOMPARE(marks.at(1).text, QStringLiteral("door"));
}

void TestOverview::mouse()
{
    Strip shown;
    QVERIFY(shown.isDrawn());
    QSignalSpy chosen(&shown.strip, &OverviewStrip::timeChosen);
    const int y = shown.strip.height() / 2;
    QTest::mousePress(&shown.strip, Qt::LeftButton, {}, {250, y});
    QVERIFY(isNear(Strip::secondOf(chosen), 5));
    const QPoint there(400, y);
    QMouseEvent drag(QEvent::MouseMove, there, shown.strip.mapToGlobal(there), Qt::NoButton,
                     Qt::LeftButton, {});
    QCoreApplication::sendEvent(&shown.strip, &drag);
    QVERIFY(isNear(Strip::secondOf(chosen), 8));
    QTest::mouseRelease(&shown.strip, Qt::LeftButton, {}, {400, y});
    chosen.clear();
    QTest::mouseClick(&shown.strip, Qt::RightButton, {}, {100, y});
    QVERIFY(chosen.isEmpty());
}

void TestOverview::keys_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<double>("to");
    QTest::newRow("left") << int(Qt::Key_Left) << 3.9;
    QTest::newRow("right") << int(Qt::Key_Right) << 4.1;
    QTest::newRow("page up") << int(Qt::Key_PageUp) << 3.0;
    QTest::newRow("page down") << int(Qt::Key_PageDown) << 5.0;
    QTest::newRow("to the start") << int(Qt::Key_Home) << 0.0;
    QTest::newRow("to the end") << int(Qt::Key_End) << 9.99;
}

void TestOverview::keys()
{
    QFETCH(const int, key);
    QFETCH(const double, to);
    Strip shown;
    QVERIFY(shown.isDrawn());
    shown.strip.setShownTimes(start + 4 * second, start + 4 * second + 1000);
    QSignalSpy chosen(&shown.strip, &OverviewStrip::timeChosen);
    QTest::keyClick(&shown.strip, Qt::Key(key));
    QCOMPARE(chosen.size(), 1);
    QVERIFY(std::abs(Strip::secondOf(chosen) - to) < 0.01);
}

void TestOverview::zooms()
{
    Strip shown;
    QVERIFY(shown.isDrawn());
    const qint64 middle = start + 5 * second;
    shown.strip.zoom(4, middle);
    QTRY_VERIFY(shown.strip.picture().last - shown.strip.picture().first < 3 * second);
    QVERIFY(std::abs(shown.strip.xOf(middle) - 250) < 1);
    quint64 sum = 0;
    for (const QVector<quint64> &counts : shown.strip.picture().rate.messages)
        sum += counts.at(0) + counts.at(1);
    QVERIFY(sum >= 249 && sum <= 251);
    // The part that is shown goes along with the table.
    shown.strip.setShownTimes(start, start + 1000);
    QTRY_COMPARE(shown.strip.picture().first, start);
    shown.strip.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&shown.strip));
    shown.strip.setFocus();
    QTest::keyClick(&shown.strip, Qt::Key_0, Qt::ControlModifier);
    QVERIFY(!shown.strip.isZoomed());
    QTRY_VERIFY(std::abs(shown.strip.xOf(middle) - 250) < 1);
    shown.strip.zoom(1e12, middle);
    QTRY_COMPARE(shown.strip.picture().last - shown.strip.picture().first, qint64(1000));
    shown.strip.zoom(1e-12, middle);
    QVERIFY(!shown.strip.isZoomed());
}

void TestOverview::labels_data()
{
    QTest::addColumn<qint64>("length");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("parts of a second")
        << qint64(300000) << QStringList{"0.0 s", "0.1 s", "0.2 s", "0.3 s"};
    QTest::newRow("seconds") << 15 * second << QStringList{"0 s", "5 s", "10 s", "15 s"};
    QTest::newRow("minutes") << 400 * second << QStringList{"0 s", "0:02:00", "0:04:00", "0:06:00"};
    QTest::newRow("days") << 300000 * second
                          << QStringList{"0 s", "24:00:00", "48:00:00", "72:00:00"};
    QTest::newRow("microseconds") << qint64(
        3) << QStringList{"0.000000 s", "0.000001 s", "0.000002 s", "0.000003 s"};
}

void TestOverview::labels()
{
    QFETCH(const qint64, length);
    QStringList texts;
    for (const TimeAxis::Label &label : TimeAxis::labels(start, start + length, start, 4, false))
        texts += label.text;
    QTEST(texts, "texts");
}

QTEST_MAIN(TestOverview)
#include "tst_overview.moc"
