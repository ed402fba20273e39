#include "bitrates.h"
#include "canframe.h"
#include "datachunkhandler.h"
#include "digesttext.h"
#include "identifiertable.h"
#include "identifierview.h"
#include "linetable.h"
#include "showntrace.h"
#include "statisticsdock.h"
#include "temporarysettings.h"
#include "tracedigest.h"
#include "traceexpression.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>

namespace {

constexpr int mostMilliseconds = 30000;
constexpr qint64 start = Q_INT64_C(1700000000000000); // microseconds

CAN::CanRxMessage message(qint64 time, quint32 id, const QByteArray &payload = {}, int line = 0)
{
    CAN::CanRxMessage message;
    message.seconds = qint32((start + time) / 1000000);
    message.microseconds = qint32((start + time) % 1000000);
    message.id = id;
    message.extended = id > 0x7FF;
    message.line = quint16(line);
    message.length = qint8(payload.size());
    std::copy(payload.begin(), payload.end(), message.data);
    return message;
}

/// A trace that messages may still come to.
class GrowingTrace : public ShownTrace
{
public:
    using ShownTrace::ShownTrace;
    bool isGrowing() const override { return true; }
};

/// A store with its trace, and somebody who watches it.
struct Recorded
{
    DatachunkHandler store{100000};
    GrowingTrace trace{store.timeline(), QStringLiteral("trace")};
    QWidget watcher;

    TraceDigest &digest() { return *TraceDigest::of(&trace); }
    void watch() { digest().setWatched(&watcher, true); }
    bool hasDone(quint64 count)
    {
        const auto isDone = [this, count] {
            return digest().summary().done == count && digest().isUpToDate();
        };
        return QTest::qWaitFor(isDone, mostMilliseconds);
    }
};

} // namespace

class TestStatistics : public QObject
{
    Q_OBJECT
private:
    const TemporarySettings settings;

private slots:
    void init() { QLocale::setDefault(QLocale::c()); }
    void addsUp();
    void beginsAnew_data();
    void beginsAnew();
    void keepsItsPlace();
    void boundsIdentifiers();
    void boundsCurves();
    void load();
    void editsBitRates_data();
    void editsBitRates();
    void chooses();
    void filters_data();
    void filters();
    void searchesWhatIsTyped();
    void keepsTheRow();
    void noticesSilence();
    void showsNoneAfterTheTrace();
};

void TestStatistics::addsUp()
{
    Recorded recorded;
    recorded.store.appendCanMessage(message(0, 0x100, "ab"));
    recorded.store.appendCanMessage(message(1000, 0x200, "x", 3));
    recorded.store.appendCanMessage(message(10000, 0x100, "ac"));
    recorded.store.appendCanMessage(message(40000, 0x100, "acd"));
    recorded.store.appendCanMessage(message(50000, CAN::errorFrameId, "", 3));
    recorded.watch();
    QVERIFY(recorded.hasDone(5));
    const IdentifierDigest first = recorded.digest().identifiers().at(0);
    QCOMPARE(first.count, quint64(3));
    QCOMPARE(first.position, quint64(3));
    QCOMPARE(first.leastPeriod, qint64(10000));
    QCOMPARE(first.mostPeriod, qint64(30000));
    QCOMPARE(first.recentPeriod, 20000.0);
    QCOMPARE(first.changes,
             (QVector<qint64>{IdentifierDigest::never, start + 10000, start + 40000}));
    const QVector<LineDigest> lines = recorded.digest().summary().lines;
    QCOMPARE(lines.size(), 2);
    QCOMPARE(lines.at(1).line, quint8(3));
    QCOMPARE(lines.at(1).count, quint64(2));
    QCOMPARE(lines.at(1).errorFrames, quint64(1));
}

void TestStatistics::beginsAnew_data()
{
    QTest::addColumn<int>("more");
    QTest::newRow("with fewer messages") << 1;
    QTest::newRow("with as many") << 3;
    QTest::newRow("with more") << 50;
}

void TestStatistics::beginsAnew()
{
    QFETCH(const int, more);
    Recorded recorded;
    for (int i = 0; i < 3; ++i)
        recorded.store.appendCanMessage(message(i, 0x100));
    recorded.watch();
    QVERIFY(recorded.hasDone(3));
    recorded.digest().setWatched(&recorded.watcher, false);
    recorded.store.clearAllMessages();
    for (int i = 0; i < more; ++i)
        recorded.store.appendCanMessage(message(5000 + i, 0x200));
    QSignalSpy cleared(&recorded.digest(), &TraceDigest::cleared);
    recorded.watch();
    QVERIFY(cleared.wait());
    QVERIFY(recorded.hasDone(quint64(more)));
    QCOMPARE(recorded.digest().identifiers().size(), 1);
    QCOMPARE(recorded.digest().identifiers().at(0).count, quint64(more));
    QCOMPARE(recorded.digest().identifiers().at(0).last.id, 0x200u);
}

void TestStatistics::keepsItsPlace()
{
    Recorded recorded;
    StatisticsDock dock;
    dock.setTrace(&recorded.trace);
    dock.show();
    recorded.store.appendCanMessage(message(0, 0x100));
    QVERIFY(recorded.hasDone(1));
    dock.hide();
    QSignalSpy updated(&recorded.digest(), &TraceDigest::updated);
    recorded.store.appendCanMessage(message(1, 0x100));
    QVERIFY(!updated.wait(3 * TraceDigest::millisecondsPerUpdate));
    QSignalSpy cleared(&recorded.digest(), &TraceDigest::cleared);
    dock.show();
    QVERIFY(recorded.hasDone(2));
    QVERIFY(cleared.isEmpty());
}

void TestStatistics::boundsIdentifiers()
{
    constexpr int tooMany = int(TraceStatistics::mostIdentifiers) + 10;
    Recorded recorded;
    for (int i = 0; i < tooMany; ++i)
        recorded.store.appendCanMessage(message(i, 0x800u + quint32(i)));
    recorded.watch();
    QVERIFY(recorded.hasDone(tooMany));
    QTRY_COMPARE(recorded.digest().identifiers().size(), int(TraceStatistics::mostIdentifiers));
    QCOMPARE(recorded.digest().summary().notToldApart, quint64(10));
    QVERIFY(DigestText::progress(recorded.digest().summary()).contains(QLatin1String("10")));
}

void TestStatistics::boundsCurves()
{
    TimeCurve curve(4, start);
    curve.add(start - 5, 1);
    curve.add(start + curve.width(), 2);
    curve.add(start + 7 * curve.width(), 4);
    curve.add(start + Q_INT64_C(1000000000000), 8);
    QVERIFY(curve.size() <= 4);
    quint64 sum = 0;
    for (int i = 0; i < curve.size(); ++i)
        sum += curve.at(i);
    QCOMPARE(sum, quint64(15));
    QCOMPARE(curve.at(0), quint64(7));
    QVERIFY(curve.start() + curve.size() * curve.width() > start + Q_INT64_C(1000000000000));
}

// Two seconds of a hundred frames each, then one of ten.
void TestStatistics::load()
{
    DigestSums sums;
    for (int i = 0; i < 210; ++i)
        sums.add(message(i < 200 ? i * 10000 : 2000000 + (i - 200) * 100000, 0x555), quint64(i));
    sums.add(message(3000000, 0x555), 210);
    const LineDigest line = sums.summary().lines.at(0);
    const double perFrame = double(line.bits.nominal) / 211;
    QVERIFY(perFrame >= 47 && perFrame < 60);
    const BitRates rates{100000, 400000};
    QCOMPARE(line.latest.messages, quint64(10));
    QCOMPARE(line.busiest.messages, quint64(100));
    QCOMPARE(rates.load(line.busiest.bits), 100 * perFrame / 100000);
    QCOMPARE(rates.load({1000, 4000}), 0.02);
}

void TestStatistics::editsBitRates_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("nominal");
    QTest::newRow("kbit/s") << "250" << 250000;
    QTest::newRow("with a fraction") << "83.333" << 83333;
    QTest::newRow("nothing") << "" << 500000;
    QTest::newRow("a word") << "fast" << 500000;
    QTest::newRow("zero") << "0" << 500000;
    QTest::newRow("negative") << "-5" << 500000;
    QTest::newRow("beyond all") << "1e300" << 500000;
    QTest::newRow("no number") << "nan" << 500000;
}

void TestStatistics::editsBitRates()
{
    QFETCH(const QString, text);
    QFETCH(const int, nominal);
    QSettings().clear();
    Recorded recorded;
    recorded.store.appendCanMessage(message(0, 0x100, "", 2));
    StatisticsDock dock;
    dock.setTrace(&recorded.trace);
    dock.show();
    auto *table = dock.findChild<QTableView *>(QStringLiteral("lines"));
    QTRY_COMPARE(table->model()->rowCount(), 1);
    table->setCurrentIndex(table->model()->index(0, LineTable::BitRateColumn));
    table->edit(table->currentIndex());
    auto *editor = table->findChild<QLineEdit *>();
    QVERIFY(editor);
    editor->setText(text);
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_COMPARE(BitRates::ofLine(2).nominal, nominal);
    QCOMPARE(BitRates::ofLine(1).nominal, 500000);
}

void TestStatistics::chooses()
{
    Recorded recorded;
    for (const quint32 id : {0x300u, 0x100u, 0x300u, 0x200u})
        recorded.store.appendCanMessage(message(0, id));
    IdentifierView view(&recorded.trace);
    QSignalSpy chosen(&view, &IdentifierView::positionChosen);
    view.show();
    auto *table = view.findChild<QTableView *>(QStringLiteral("identifiers"));
    QTRY_COMPARE(table->model()->rowCount(), 3);
    QCOMPARE(table->model()->index(2, 0).data().toString(), QStringLiteral("300"));
    view.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&view));
    table->setFocus();
    table->selectRow(2);
    QTest::keyClick(table, Qt::Key_Return);
    QCOMPARE(chosen.size(), 1);
    QCOMPARE(chosen.takeFirst().at(0).value<quint64>(), quint64(2));
    QTest::keyClick(table, Qt::Key_C, Qt::ControlModifier);
    QVERIFY(QApplication::clipboard()->text().contains(QLatin1String("300\t0\t")));
}

void TestStatistics::filters_data()
{
    QTest::addColumn<quint32>("id");
    QTest::addColumn<bool>("extended");
    QTest::addColumn<int>("lines");
    QTest::newRow("standard") << 0x123u << false << 1;
    QTest::newRow("extended, with a short number") << 0x123u << true << 1;
    QTest::newRow("one of several lines") << 0x123u << false << 2;
    QTest::newRow("error frame") << quint32(CAN::errorFrameId) << false << 2;
}

// The expression takes the messages of the row and none of the others.
void TestStatistics::filters()
{
    QFETCH(const quint32, id);
    QFETCH(const bool, extended);
    QFETCH(const int, lines);
    CAN::CanRxMessage wanted = message(0, id);
    wanted.extended = extended;
    CAN::CanRxMessage otherKind = wanted;
    otherKind.extended = !extended;
    CAN::CanRxMessage otherLine = wanted;
    otherLine.line = 1;
    const auto expression = TraceExpression::parse(DigestText::expression(wanted, lines > 1));
    QVERIFY(expression);
    QVERIFY(expression->matches(wanted));
    QCOMPARE(expression->matches(otherKind), id == CAN::errorFrameId);
    QCOMPARE(expression->matches(otherLine), lines == 1);
}

void TestStatistics::searchesWhatIsTyped()
{
    Recorded recorded;
    for (const quint32 id : {0x12Au, 0x2A1u, 0x7FFu})
        recorded.store.appendCanMessage(message(0, id));
    IdentifierView view(&recorded.trace);
    view.show();
    auto *table = view.findChild<QTableView *>(QStringLiteral("identifiers"));
    QTRY_COMPARE(table->model()->rowCount(), 3);
    QTest::keyClick(table, Qt::Key_2);
    auto *search = view.findChild<QLineEdit *>();
    QTest::keyClick(search, Qt::Key_A);
    QTRY_COMPARE(table->model()->rowCount(), 2);
    recorded.store.appendCanMessage(message(0, 0x32A));
    recorded.store.appendCanMessage(message(0, 0x333));
    QTRY_COMPARE(table->model()->rowCount(), 3);
    QTest::keyClick(search, Qt::Key_Escape);
    QTRY_COMPARE(table->model()->rowCount(), 5);
}

// What the user has selected stays the same identifier, wherever its row goes.
void TestStatistics::keepsTheRow()
{
    Recorded recorded;
    recorded.store.appendCanMessage(message(0, 0x200));
    recorded.store.appendCanMessage(message(0, 0x300));
    IdentifierView view(&recorded.trace);
    view.show();
    auto *table = view.findChild<QTableView *>(QStringLiteral("identifiers"));
    QTRY_COMPARE(table->model()->rowCount(), 2);
    table->selectRow(1);
    recorded.store.appendCanMessage(message(0, 0x250));
    QTRY_COMPARE(table->model()->rowCount(), 3);
    QTRY_COMPARE(table->currentIndex().row(), 2);
    QCOMPARE(table->currentIndex().siblingAtColumn(0).data().toString(), QStringLiteral("300"));
    table->sortByColumn(IdentifierTable::IdentifierColumn, Qt::DescendingOrder);
    QCOMPARE(table->currentIndex().row(), 0);
}

void TestStatistics::noticesSilence()
{
    Recorded recorded;
    int count = 0;
    const auto append = [&] { recorded.store.appendCanMessage(message(10000 * count++, 0x100)); };
    while (count <= 100)
        append();
    StatisticsDock dock;
    dock.setTrace(&recorded.trace);
    dock.show();
    auto *table = dock.findChild<QTableView *>(QStringLiteral("lines"));
    const auto rate = [table] {
        return table->model()->index(0, LineTable::RateColumn).data().toString();
    };
    // Messages come until it is seen, which may take longer than they may stay away.
    QTRY_COMPARE((append(), rate()), QStringLiteral("100"));
    QTRY_COMPARE(rate(), QStringLiteral("0"));
}

void TestStatistics::showsNoneAfterTheTrace()
{
    auto recorded = std::make_unique<Recorded>();
    recorded->store.appendCanMessage(message(0, 0x100));
    StatisticsDock dock;
    dock.setTrace(&recorded->trace);
    dock.show();
    auto *table = dock.findChild<QTableView *>(QStringLiteral("lines"));
    QTRY_COMPARE(table->model()->rowCount(), 1);
    recorded.reset();
    dock.setTrace(nullptr);
    QCOMPARE(table->model()->rowCount(), 0);
    QVERIFY(!dock.grab().isNull());
}

QTEST_MAIN(TestStatistics)
#include "tst_statistics.moc"
