#include "datachunkhandler.h"
#include "messagemodel.h"
#include "showntrace.h"
#include "temporarysettings.h"
#include "tracetable.h"
#include "traceview.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

namespace {

constexpr int manyMessages = 250000; // more than the model's window has

CAN::CanRxMessage message(quint32 number)
{
    CAN::CanRxMessage made;
    made.id = number % 2 == 0 ? 0x100 : 0x18ff0001;
    made.extended = number % 2 != 0;
    made.length = 2;
    made.data[0] = quint8(number);
    made.data[1] = quint8('A');
    made.seconds = 10 + qint32(number / 1000);
    made.microseconds = qint32(number % 1000) * 1000;
    return made;
}

// What is received and what has been received.
class LiveTrace : public ShownTrace
{
public:
    explicit LiveTrace(DatachunkHandler &store) : ShownTrace(store.timeline(), QStringLiteral("x"))
    {
    }
    bool isGrowing() const override { return isRunning; }

    bool isRunning = false;
};

} // namespace

class TestTraceView : public QObject
{
    Q_OBJECT
private:
    const TemporarySettings settings;
    std::unique_ptr<DatachunkHandler> store;
    std::unique_ptr<LiveTrace> trace;
    std::unique_ptr<TraceView> view;
    TraceTable *table = nullptr;
    QScrollBar *bar = nullptr;

    void append(int count);
    void show(int count, bool isRunning = false);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void trigger(const QKeySequence &keys);
    bool isInSight(quint64 position) const;
    quint64 lastPosition() const { return view->model()->total() - 1; }

private slots:
    void cleanup();

    void keysGoThroughAllMessages();
    void selectionCrossesTheWindow();
    void selectionStaysWithItsMessages();
    void barGoesThroughAllMessages();
    void followsTheEnd();
    void clickEndsFollowing();
    void jumps_data();
    void jumps();
    void copies();
    void copiesNoMoreThanItSays();
    void copiesAsCandump();
    void notesAreWrittenInPlace();
    void menuFilters();
    void filterKeepsTheMessageInSight();
    void countsFromAMark();
    void choicesAreKept();
    void tellsWhatIsInSight();
};

void TestTraceView::append(int count)
{
    const quint32 begin = quint32(store->timeline().count());
    for (quint32 i = 0; i < quint32(count); ++i)
        store->appendCanMessage(message(begin + i));
}

void TestTraceView::show(int count, bool isRunning)
{
    store = std::make_unique<DatachunkHandler>(1000000);
    append(count);
    trace = std::make_unique<LiveTrace>(*store);
    trace->isRunning = isRunning;
    view = std::make_unique<TraceView>(trace.get());
    view->resize(1000, 500);
    view->show();
    view->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(view.get()));
    table = view->findChild<TraceTable *>();
    bar = nullptr;
    for (QScrollBar *candidate : view->findChildren<QScrollBar *>())
        bar = candidate->inherits("AllRowsBar") ? candidate : bar;
    QVERIFY(table && bar);
    table->setFocus();
}

void TestTraceView::cleanup()
{
    view.reset();
    trace.reset();
    store.reset();
}

void TestTraceView::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(table, key, modifiers);
}

void TestTraceView::trigger(const QKeySequence &keys)
{
    for (QAction *action : view->editActions()) {
        if (action->shortcut() == keys)
            action->trigger();
    }
}

bool TestTraceView::isInSight(quint64 position) const
{
    return table->isInSight(position);
}

void TestTraceView::keysGoThroughAllMessages()
{
    show(manyMessages);
    QSignalSpy current(view.get(), &TraceView::currentPositionChanged);
    const auto page = quint64(table->rowsInSight() - 1);
    const auto at = [&](quint64 position) {
        return view->currentPosition() == position && isInSight(position)
            && view->selectedPositions() == QVector<quint64>{position};
    };
    press(Qt::Key_Down);
    QVERIFY(at(0));
    press(Qt::Key_Down);
    QVERIFY(at(1));
    press(Qt::Key_PageDown);
    QVERIFY(at(1 + page));
    press(Qt::Key_End, Qt::ControlModifier);
    QVERIFY(at(manyMessages - 1));
    press(Qt::Key_Down);
    QVERIFY(at(manyMessages - 1));
    press(Qt::Key_PageUp);
    QVERIFY(at(manyMessages - 1 - page));
    press(Qt::Key_Home);
    QVERIFY(at(0));
    press(Qt::Key_Up);
    QVERIFY(at(0));
    QCOMPARE(current.count(), 6);
    QCOMPARE(current.last().first().toULongLong(), quint64(0));
    view->showPosition(100000);
    QVERIFY(at(100000));
    for (int i = 0; i < 100; ++i)
        press(Qt::Key_Down);
    QVERIFY(at(100100));
}

void TestTraceView::selectionCrossesTheWindow()
{
    show(manyMessages);
    view->showPosition(0);
    constexpr quint64 begin = TraceTableModel::mostRows - 10005; // 5 rows in front of the margin
    while (*view->currentPosition() < begin)
        view->showPosition(begin);
    const quint64 origin = view->model()->origin();
    for (int i = 0; i < 10; ++i)
        press(Qt::Key_Down, Qt::ShiftModifier);
    QVERIFY(view->model()->origin() != origin || origin > 0);
    const QVector<quint64> selected = view->selectedPositions();
    QCOMPARE(selected.size(), 11);
    QCOMPARE(selected.first(), begin);
    QCOMPARE(selected.last(), begin + 10);
    press(Qt::Key_End, Qt::ShiftModifier | Qt::ControlModifier);
    QVERIFY(view->selectedPositions().size() <= TraceTableModel::mostRows);
    QCOMPARE(view->selectedPositions().last(), lastPosition());
}

void TestTraceView::selectionStaysWithItsMessages()
{
    show(manyMessages);
    press(Qt::Key_Down);
    press(Qt::Key_Down, Qt::ShiftModifier);
    bar->setSliderPosition(bar->maximum());
    bar->triggerAction(QAbstractSlider::SliderToMaximum);
    QVERIFY(isInSight(lastPosition()));
    QCOMPARE(view->currentPosition(), std::optional<quint64>(1));
    bar->triggerAction(QAbstractSlider::SliderToMinimum);
    QVERIFY(isInSight(1));
    QCOMPARE(view->selectedPositions(), (QVector<quint64>{0, 1}));
    QCOMPARE(table->currentIndex().data(TraceTableModel::PositionRole).toULongLong(), quint64(1));
}

void TestTraceView::barGoesThroughAllMessages()
{
    show(manyMessages);
    bar->setSliderDown(true);
    bar->setSliderPosition(bar->maximum() / 2);
    QVERIFY(isInSight(manyMessages / 2));
    bar->setSliderDown(false);
    const quint64 top = table->topRow();
    bar->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    QCOMPARE(table->topRow(), top + 1);
    bar->triggerAction(QAbstractSlider::SliderPageStepSub);
    QCOMPARE(table->topRow(), top + 1 - quint64(table->rowsInSight()));
    view->showPosition(lastPosition());
    QCOMPARE(bar->value(), bar->maximum());
}

void TestTraceView::followsTheEnd()
{
    show(0, true);
    QVERIFY(view->model()->isFollowing());
    append(1000);
    QTRY_VERIFY(view->model()->total() == 1000 && isInSight(999));
    press(Qt::Key_PageUp);
    press(Qt::Key_PageUp);
    QVERIFY(!view->model()->isFollowing());
    const quint64 top = table->topRow();
    append(manyMessages);
    QTRY_COMPARE(view->model()->total(), quint64(manyMessages + 1000));
    QCOMPARE(table->topRow(), top);
    press(Qt::Key_End);
    QVERIFY(view->model()->isFollowing());
    append(10);
    QTRY_VERIFY(view->model()->total() == manyMessages + 1010 && isInSight(lastPosition()));
}

void TestTraceView::clickEndsFollowing()
{
    show(1000, true);
    QTRY_VERIFY(isInSight(999));
    QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
    QVERIFY(!view->model()->isFollowing());
    const quint64 chosen = *view->currentPosition();
    append(1000);
    QTRY_COMPARE(view->model()->total(), quint64(2000));
    QVERIFY(isInSight(chosen));
    QCOMPARE(view->selectedPositions(), QVector<quint64>{chosen});
}

void TestTraceView::jumps_data()
{
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("position"); // -1 for an error
    QTest::newRow("to a number") << "Ctrl+G"
                                 << "123456" << 123456;
    QTest::newRow("to a number that is not there") << "Ctrl+G"
                                                   << "250000" << -1;
    QTest::newRow("to no number") << "Ctrl+G"
                                  << "x" << -1;
    QTest::newRow("to a time since the start") << "Ctrl+T"
                                               << "123.456" << 123456;
    QTest::newRow("to a time behind the end") << "Ctrl+T"
                                              << "1000" << -1;
    QTest::newRow("on from the current message") << "Ctrl+T"
                                                 << "+0.5" << 500;
}

void TestTraceView::jumps()
{
    QFETCH(QString, keys);
    QFETCH(QString, text);
    QFETCH(int, position);
    show(manyMessages);
    press(Qt::Key_Home);
    trigger(QKeySequence(keys));
    auto *field = view->findChild<QLineEdit *>(QStringLiteral("jumpField"));
    QVERIFY(field && field->isVisible());
    QTRY_VERIFY(field->hasFocus());
    QTest::keyClicks(field, text);
    auto *below = view->findChild<QLabel *>(QStringLiteral("jumpError"));
    const QString hint = below->text();
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(field->isVisible(), position < 0);
    QCOMPARE(below->text() == hint, position >= 0);
    QCOMPARE(*view->currentPosition(), quint64(qMax(0, position)));
    QVERIFY(isInSight(*view->currentPosition()));
    if (position < 0)
        QTest::keyClick(field, Qt::Key_Escape);
    QVERIFY(!field->isVisible());
}

void TestTraceView::copies()
{
    show(10);
    press(Qt::Key_Down);
    press(Qt::Key_Down, Qt::ShiftModifier);
    trigger(QKeySequence::Copy);
    const QStringList lines = QApplication::clipboard()->text().split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), 4);
    QVERIFY(lines.at(0).startsWith(QStringLiteral("Number\tTime\t")));
    QCOMPARE(lines.at(1), QStringLiteral("0\t0.000000\t0\tRx\t100\t\t2\t00 41\t"));
    QCOMPARE(lines.at(2), QStringLiteral("1\t0.001000\t0\tRx\t18FF0001\tEXT\t2\t01 41\t"));
}

void TestTraceView::copiesNoMoreThanItSays()
{
    show(manyMessages);
    QSignalSpy notices(trace.get(), &ShownTrace::notice);
    press(Qt::Key_Down);
    trigger(QKeySequence::SelectAll);
    QCOMPARE(view->selectedPositions().size(), int(TraceTableModel::mostRows));
    trigger(QKeySequence::Copy);
    QCOMPARE(QApplication::clipboard()->text().count(QLatin1Char('\n')), 10001);
    QCOMPARE(notices.count(), 1);
}

void TestTraceView::copiesAsCandump()
{
    show(10);
    press(Qt::Key_Down);
    trigger(QKeySequence(QStringLiteral("Ctrl+Shift+C")));
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("(10.000000) can0 100#0041\n"));
}

void TestTraceView::notesAreWrittenInPlace()
{
    show(100, true);
    QSignalSpy written(view->model(), SIGNAL(noteWritten(quint64, QString)));
    press(Qt::Key_Up);
    const quint64 position = *view->currentPosition();
    trigger(QKeySequence(Qt::Key_F2));
    auto *editor = table->viewport()->findChild<QLineEdit *>();
    QVERIFY(editor);
    // What comes meanwhile neither moves nor closes it.
    append(1000);
    view->model()->setFollowing(false);
    QTest::keyClicks(editor, QStringLiteral("door"));
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_COMPARE(written.count(), 1);
    QCOMPARE(written.first().at(0).toULongLong(), position);
    QCOMPARE(written.first().at(1).toString(), QStringLiteral("door"));
    QTRY_COMPARE(view->model()->total(), quint64(1100));
    trigger(QKeySequence(Qt::Key_F2));
    editor = table->viewport()->findChild<QLineEdit *>();
    QTest::keyClick(editor, Qt::Key_Escape);
    QCOMPARE(written.count(), 1);
}

void TestTraceView::menuFilters()
{
    show(100);
    QSignalSpy wanted(view.get(), &TraceView::filterWanted);
    press(Qt::Key_Down);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(10, 10));
    QApplication::sendEvent(table->viewport(), &event);
    auto *menu = table->findChild<QMenu *>(QStringLiteral("messageMenu"));
    QVERIFY(menu);
    menu->actions().first()->trigger();
    menu->actions().at(1)->trigger();
    menu->close();
    QCOMPARE(wanted.at(0).first().toString(), QStringLiteral("id==100 and not ext"));
    QCOMPARE(wanted.at(1).first().toString(), QStringLiteral("not (id==100 and not ext)"));
}

void TestTraceView::filterKeepsTheMessageInSight()
{
    show(manyMessages);
    view->showPosition(200000);
    view->setFilter(TraceExpression::parse(QStringLiteral("id==100 and b0>=0")));
    QTRY_COMPARE(view->model()->total(), quint64(manyMessages / 2));
    QTRY_VERIFY(isInSight(200000));
    QCOMPARE(view->selectedPositions(), QVector<quint64>{200000});
    view->setFilter(TraceExpression::parse(QStringLiteral("id==18ff0001")));
    QVERIFY(view->selectedPositions().isEmpty());
    view->setFilter({});
    QVERIFY(isInSight(200000));
    QCOMPARE(view->selectedPositions(), QVector<quint64>{200000});
}

void TestTraceView::countsFromAMark()
{
    show(10);
    view->showPosition(5);
    trigger(QKeySequence(QStringLiteral("Ctrl+Shift+T")));
    const auto time = [&](int row) {
        return view->model()->index(row, TraceTableModel::TimeColumn).data().toString();
    };
    QCOMPARE(time(5), QStringLiteral("0.000000"));
    QCOMPARE(time(3), QStringLiteral("-0.002000"));
}

void TestTraceView::choicesAreKept()
{
    show(10);
    QMenu *numbers = view->viewActions().at(2)->menu();
    numbers->actions().at(1)->trigger();
    QMenu *columns = view->viewActions().at(3)->menu();
    columns->actions().at(TraceTableModel::PositionColumn)->setChecked(false);
    columns->actions().at(TraceTableModel::PositionColumn)->trigger();
    table->horizontalHeader()->moveSection(0, 2);
    TraceView other(trace.get());
    auto *otherTable = other.findChild<TraceTable *>();
    QVERIFY(!otherTable->isColumnHidden(TraceTableModel::PositionColumn));
    QCOMPARE(otherTable->horizontalHeader()->logicalIndex(2), 0);
    QCOMPARE(other.model()->index(0, TraceTableModel::IdentifierColumn).data().toString(),
             QStringLiteral("256"));
    columns->actions().last()->trigger();
    numbers->actions().first()->trigger();
    other.show();
    QVERIFY(otherTable->isColumnHidden(TraceTableModel::PositionColumn));
    QCOMPARE(other.model()->index(0, TraceTableModel::IdentifierColumn).data().toString(),
             QStringLiteral("100"));
}

void TestTraceView::tellsWhatIsInSight()
{
    show(manyMessages);
    QSignalSpy shown(view.get(), &TraceView::shownTimesChanged);
    view->showTime(110000000);
    QTRY_VERIFY(!shown.isEmpty());
    QVERIFY(shown.last().at(0).toLongLong() < 110000000);
    QVERIFY(shown.last().at(1).toLongLong() > 110000000);
    QVERIFY(shown.last().at(1).toLongLong() < 111000000);
    QCOMPARE(*view->currentPosition(), quint64(100000));
}

QTEST_MAIN(TestTraceView)
#include "tst_traceview.moc"
