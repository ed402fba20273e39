#include "messagemodel.h"
#include "temporarysettings.h"
#include "tracewindow.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>

namespace {

constexpr int manyMessages = 250000; // more than the model's window has

} // namespace

class TestTraceActions : public QObject
{
    Q_OBJECT
private:
    const TemporarySettings settings;

private slots:
    void jumps_data();
    void jumps();
    void copies();
    void copiesNoMoreThanItSays();
    void copiesAsCandump();
    void notesAreWrittenInPlace();
    void menuFilters();
    void countsFromAMark();
    void choicesAreKept();
};

void TestTraceActions::jumps_data()
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

void TestTraceActions::jumps()
{
    TraceWindow at;
    QFETCH(QString, keys);
    QFETCH(QString, text);
    QFETCH(int, position);
    QVERIFY(at.show(manyMessages));
    at.press(Qt::Key_Home);
    at.trigger(QKeySequence(keys));
    auto *field = at.view->findChild<QLineEdit *>(QStringLiteral("jumpField"));
    QVERIFY(field && field->isVisible());
    QTRY_VERIFY(field->hasFocus());
    QTest::keyClicks(field, text);
    auto *below = at.view->findChild<QLabel *>(QStringLiteral("jumpError"));
    const QString hint = below->text();
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(field->isVisible(), position < 0);
    QCOMPARE(below->text() == hint, position >= 0);
    QCOMPARE(*at.view->currentPosition(), quint64(qMax(0, position)));
    QVERIFY(at.isInSight(*at.view->currentPosition()));
    if (position < 0)
        QTest::keyClick(field, Qt::Key_Escape);
    QVERIFY(!field->isVisible());
}

void TestTraceActions::copies()
{
    TraceWindow at;
    QVERIFY(at.show(10));
    at.press(Qt::Key_Down);
    at.press(Qt::Key_Down, Qt::ShiftModifier);
    at.trigger(QKeySequence::Copy);
    const QStringList lines = QApplication::clipboard()->text().split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), 4);
    QVERIFY(lines.at(0).startsWith(QStringLiteral("Number\tTime\t")));
    QCOMPARE(lines.at(1), QStringLiteral("0\t0.000000\t0\tRx\t100\t\t2\t00 41\t"));
    QCOMPARE(lines.at(2), QStringLiteral("1\t0.001000\t0\tRx\t18FF0001\tEXT\t2\t01 41\t"));
}

void TestTraceActions::copiesNoMoreThanItSays()
{
    TraceWindow at;
    QVERIFY(at.show(manyMessages));
    QSignalSpy notices(at.trace.get(), &ShownTrace::notice);
    at.press(Qt::Key_Down);
    at.trigger(QKeySequence::SelectAll);
    QCOMPARE(at.view->selectedPositions().size(), int(TraceTableModel::mostRows));
    at.trigger(QKeySequence::Copy);
    QCOMPARE(QApplication::clipboard()->text().count(QLatin1Char('\n')), 10001);
    QCOMPARE(notices.count(), 1);
}

void TestTraceActions::copiesAsCandump()
{
    TraceWindow at;
    QVERIFY(at.show(10));
    at.press(Qt::Key_Down);
    at.trigger(QKeySequence(QStringLiteral("Ctrl+Shift+C")));
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("(10.000000) can0 100#0041\n"));
}

void TestTraceActions::notesAreWrittenInPlace()
{
    TraceWindow at;
    QVERIFY(at.show(100, true));
    QSignalSpy written(at.view->model(), SIGNAL(noteWritten(quint64, QString)));
    at.press(Qt::Key_Up);
    const quint64 position = *at.view->currentPosition();
    at.trigger(QKeySequence(Qt::Key_F2));
    auto *editor = at.table->viewport()->findChild<QLineEdit *>();
    QVERIFY(editor);
    // What comes meanwhile neither moves nor closes it.
    at.append(1000);
    at.view->model()->setFollowing(false);
    QTest::keyClicks(editor, QStringLiteral("door"));
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_COMPARE(written.count(), 1);
    QCOMPARE(written.first().at(0).toULongLong(), position);
    QCOMPARE(written.first().at(1).toString(), QStringLiteral("door"));
    QTRY_COMPARE(at.total(), quint64(1100));
    at.trigger(QKeySequence(Qt::Key_F2));
    editor = at.table->viewport()->findChild<QLineEdit *>();
    QTest::keyClick(editor, Qt::Key_Escape);
    QCOMPARE(written.count(), 1);
}

void TestTraceActions::menuFilters()
{
    TraceWindow at;
    QVERIFY(at.show(100));
    QSignalSpy wanted(at.view.get(), &TraceView::filterWanted);
    at.press(Qt::Key_Down);
    const QPoint point(10, 10);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, point,
                            at.table->viewport()->mapToGlobal(point));
    QApplication::sendEvent(at.table->viewport(), &event);
    auto *menu = at.table->findChild<QMenu *>(QStringLiteral("messageMenu"));
    QVERIFY(menu);
    menu->actions().first()->trigger();
    menu->actions().at(1)->trigger();
    menu->close();
    QCOMPARE(wanted.at(0).first().toString(), QStringLiteral("id==100 and not ext"));
    QCOMPARE(wanted.at(1).first().toString(), QStringLiteral("not (id==100 and not ext)"));
}

void TestTraceActions::countsFromAMark()
{
    TraceWindow at;
    QVERIFY(at.show(10));
    at.view->showPosition(5);
    at.trigger(QKeySequence(QStringLiteral("Ctrl+Shift+T")));
    const auto time = [&](int row) {
        return at.view->model()->index(row, TraceTableModel::TimeColumn).data().toString();
    };
    QCOMPARE(time(5), QStringLiteral("0.000000"));
    QCOMPARE(time(3), QStringLiteral("-0.002000"));
}

void TestTraceActions::choicesAreKept()
{
    TraceWindow at;
    QVERIFY(at.show(10));
    QMenu *numbers = at.view->viewActions().at(2)->menu();
    numbers->actions().at(1)->trigger();
    QMenu *columns = at.view->viewActions().at(3)->menu();
    columns->actions().at(TraceTableModel::PositionColumn)->setChecked(false);
    columns->actions().at(TraceTableModel::PositionColumn)->trigger();
    at.table->horizontalHeader()->moveSection(0, 2);
    TraceView other(at.trace.get());
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

QTEST_MAIN(TestTraceActions)
#include "tst_traceactions.moc"
