#include "temporarysettings.h"
#include "tracewindow.h"

#include <QSignalSpy>

namespace {

constexpr int manyMessages = 250000; // more than the model's window has

class LayoutCounter : public QObject
{
public:
    explicit LayoutCounter(QWidget &window) { window.installEventFilter(this); }

    int layouts = 0;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        layouts += event->type() == QEvent::LayoutRequest ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

class TestTraceView : public QObject
{
    Q_OBJECT
private:
    const TemporarySettings settings;

private slots:
    void keysGoThroughAllMessages();
    void movingLeavesTheLayout();
    void selectionCrossesTheWindow();
    void selectionStaysWithItsMessages();
    void barGoesThroughAllMessages();
    void followsTheEnd();
    void clickEndsFollowing();
    void filterKeepsTheMessageInSight();
    void anotherTraceBeginsAnew();
    void tellsWhatIsInSight();
};

void TestTraceView::keysGoThroughAllMessages()
{
    TraceWindow at;
    QVERIFY(at.show(manyMessages));
    QSignalSpy current(at.view.get(), &TraceView::currentPositionChanged);
    const auto page = quint64(at.table->rowsInSight() - 1);
    const auto isAt = [&](quint64 position) {
        return at.view->currentPosition() == position && at.isInSight(position)
            && at.view->selectedPositions() == QVector<quint64>{position};
    };
    at.press(Qt::Key_Down);
    QVERIFY(isAt(0));
    at.press(Qt::Key_Down);
    QVERIFY(isAt(1));
    at.press(Qt::Key_PageDown);
    QVERIFY(isAt(1 + page));
    at.press(Qt::Key_End, Qt::ControlModifier);
    QVERIFY(isAt(manyMessages - 1));
    at.press(Qt::Key_Down);
    QVERIFY(isAt(manyMessages - 1));
    at.press(Qt::Key_PageUp);
    QVERIFY(isAt(manyMessages - 1 - page));
    at.press(Qt::Key_Home);
    QVERIFY(isAt(0));
    at.press(Qt::Key_Up);
    QVERIFY(isAt(0));
    QCOMPARE(current.count(), 6);
    QCOMPARE(current.last().first().toULongLong(), quint64(0));
    at.view->showPosition(100000);
    QVERIFY(isAt(100000));
    for (int i = 0; i < 100; ++i)
        at.press(Qt::Key_Down);
    QVERIFY(isAt(100100));
}

void TestTraceView::movingLeavesTheLayout()
{
    TraceWindow at;
    QVERIFY(at.show(manyMessages));
    at.press(Qt::Key_End);
    QCoreApplication::processEvents();
    const LayoutCounter counter(*at.view);
    for (int i = 0; i < 3; ++i) {
        at.press(Qt::Key_PageUp);
        QCoreApplication::processEvents();
    }
    QCOMPARE(counter.layouts, 0);
}

void TestTraceView::selectionCrossesTheWindow()
{
    TraceWindow at;
    QVERIFY(at.show(manyMessages));
    at.view->showPosition(0);
    constexpr quint64 begin = TraceTableModel::mostRows - 10005; // 5 rows in front of the margin
    while (*at.view->currentPosition() < begin)
        at.view->showPosition(begin);
    const quint64 origin = at.view->model()->origin();
    for (int i = 0; i < 10; ++i)
        at.press(Qt::Key_Down, Qt::ShiftModifier);
    QVERIFY(at.view->model()->origin() != origin || origin > 0);
    const QVector<quint64> selected = at.view->selectedPositions();
    QCOMPARE(selected.size(), 11);
    QCOMPARE(selected.first(), begin);
    QCOMPARE(selected.last(), begin + 10);
    at.press(Qt::Key_End, Qt::ShiftModifier | Qt::ControlModifier);
    QVERIFY(at.view->selectedPositions().size() <= TraceTableModel::mostRows);
    QCOMPARE(at.view->selectedPositions().last(), at.total() - 1);
}

void TestTraceView::selectionStaysWithItsMessages()
{
    TraceWindow at;
    QVERIFY(at.show(manyMessages));
    at.press(Qt::Key_Down);
    at.press(Qt::Key_Down, Qt::ShiftModifier);
    at.bar->setSliderPosition(at.bar->maximum());
    at.bar->triggerAction(QAbstractSlider::SliderToMaximum);
    QVERIFY(at.isInSight(at.total() - 1));
    QCOMPARE(at.view->currentPosition(), std::optional<quint64>(1));
    at.bar->triggerAction(QAbstractSlider::SliderToMinimum);
    QVERIFY(at.isInSight(1));
    QCOMPARE(at.view->selectedPositions(), (QVector<quint64>{0, 1}));
    QCOMPARE(at.table->currentIndex().data(TraceTableModel::PositionRole).toULongLong(),
             quint64(1));
}

void TestTraceView::barGoesThroughAllMessages()
{
    TraceWindow at;
    QVERIFY(at.show(manyMessages));
    at.bar->setSliderDown(true);
    at.bar->setSliderPosition(at.bar->maximum() / 2);
    QVERIFY(at.isInSight(manyMessages / 2));
    at.bar->setSliderDown(false);
    const quint64 top = at.table->topRow();
    at.bar->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    QCOMPARE(at.table->topRow(), top + 1);
    at.bar->triggerAction(QAbstractSlider::SliderPageStepSub);
    QCOMPARE(at.table->topRow(), top + 1 - quint64(at.table->rowsInSight()));
    at.view->showPosition(at.total() - 1);
    QCOMPARE(at.bar->value(), at.bar->maximum());
}

void TestTraceView::followsTheEnd()
{
    TraceWindow at;
    QVERIFY(at.show(0, true));
    QVERIFY(at.view->model()->isFollowing());
    at.append(1000);
    QTRY_VERIFY(at.total() == 1000 && at.isInSight(999));
    at.press(Qt::Key_PageUp);
    at.press(Qt::Key_PageUp);
    QVERIFY(!at.view->model()->isFollowing());
    const quint64 top = at.table->topRow();
    at.append(manyMessages);
    QTRY_COMPARE(at.total(), quint64(manyMessages + 1000));
    QCOMPARE(at.table->topRow(), top);
    at.press(Qt::Key_End);
    QVERIFY(at.view->model()->isFollowing());
    at.append(10);
    QTRY_VERIFY(at.total() == manyMessages + 1010 && at.isInSight(at.total() - 1));
}

void TestTraceView::clickEndsFollowing()
{
    TraceWindow at;
    QVERIFY(at.show(1000, true));
    QTRY_VERIFY(at.isInSight(999));
    QTest::mouseClick(at.table->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 200));
    QVERIFY(!at.view->model()->isFollowing());
    const quint64 chosen = *at.view->currentPosition();
    at.append(1000);
    QTRY_COMPARE(at.total(), quint64(2000));
    QVERIFY(at.isInSight(chosen));
    QCOMPARE(at.view->selectedPositions(), QVector<quint64>{chosen});
}

void TestTraceView::filterKeepsTheMessageInSight()
{
    TraceWindow at;
    QVERIFY(at.show(manyMessages));
    at.view->showPosition(200000);
    at.view->setFilter(TraceExpression::parse(QStringLiteral("id==100 and b0>=0")));
    QTRY_COMPARE(at.total(), quint64(manyMessages / 2));
    QTRY_VERIFY(at.isInSight(200000));
    QCOMPARE(at.view->selectedPositions(), QVector<quint64>{200000});
    at.view->setFilter(TraceExpression::parse(QStringLiteral("id==18ff0001")));
    QVERIFY(at.view->selectedPositions().isEmpty());
    at.view->setFilter({});
    QVERIFY(at.isInSight(200000));
    QCOMPARE(at.view->selectedPositions(), QVector<quint64>{200000});
}

void TestTraceView::anotherTraceBeginsAnew()
{
    TraceWindow at;
    QVERIFY(at.show(manyMessages));
    at.view->showPosition(200000);
    at.press(Qt::Key_Down, Qt::ShiftModifier);
    at.clear();
    QTRY_COMPARE(at.total(), quint64(0));
    at.append(5);
    QTRY_COMPARE(at.total(), quint64(5));
    QVERIFY(at.isInSight(0));
    QVERIFY(at.view->selectedPositions().isEmpty());
    at.press(Qt::Key_Down);
    QCOMPARE(at.view->currentPosition(), std::optional<quint64>(0));
}

void TestTraceView::tellsWhatIsInSight()
{
    TraceWindow at;
    QVERIFY(at.show(manyMessages));
    QSignalSpy shown(at.view.get(), &TraceView::shownTimesChanged);
    at.view->showTime(110000000);
    QTRY_VERIFY(!shown.isEmpty());
    QVERIFY(shown.last().at(0).toLongLong() < 110000000);
    QVERIFY(shown.last().at(1).toLongLong() > 110000000);
    QVERIFY(shown.last().at(1).toLongLong() < 111000000);
    QCOMPARE(*at.view->currentPosition(), quint64(100000));
}

QTEST_MAIN(TestTraceView)
#include "tst_traceview.moc"
