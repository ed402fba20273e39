#include "buslines.h"
#include "deskwindow.h"
#include "temporarysettings.h"

#include <QPushButton>
#include <QSettings>
#include <QSpinBox>
#include <QTest>
#include <QTreeView>
#include <QTreeWidget>

class TestConnecting : public QObject
{
    Q_OBJECT
private:
    const TemporarySettings settings;

    static void choose(QDialog *dialog, const QString &source);

private slots:
    void init() { QSettings().clear(); }
    void connectsByKeyboard();
    void remembersChoice();
    void startsWithoutHardware();
    void controlsLinesByKeyboard();
};

void TestConnecting::choose(QDialog *dialog, const QString &source)
{
    auto *sources = dialog->findChild<QTreeWidget *>(QStringLiteral("sources"));
    const auto find = [=] { return sources->findItems(source, Qt::MatchExactly); };
    QTRY_VERIFY(!find().isEmpty());
    sources->setCurrentItem(find().first());
}

void TestConnecting::connectsByKeyboard()
{
    DeskWindow window;
    QVERIFY(activate(window));
    window.desk->showConnect();
    auto *dialog = window.findChild<QDialog *>(QStringLiteral("connectDialog"));
    QVERIFY(activate(*dialog));
    auto *sources = dialog->findChild<QTreeWidget *>(QStringLiteral("sources"));
    choose(dialog, QStringLiteral("can1"));
    QCOMPARE(dialog->findChild<QSpinBox *>(QStringLiteral("number"))->value(), 1);
    QTest::keyClick(sources, Qt::Key_Return);
    QTRY_COMPARE(window.desk->lines()->count(), 1);
    const BusLine *line = window.desk->lines()->at(0);
    QCOMPARE(line->name(), QStringLiteral("can1 (virtualcan)"));
    QTRY_COMPARE(line->state(), BusLine::Running);
    auto *table = window.findChild<QTreeView *>(QStringLiteral("lineTable"));
    QVERIFY(activate(window));
    table->setFocus();
    QTest::keyClick(table, Qt::Key_Space);
    QTRY_COMPARE(line->state(), BusLine::Stopped);
    QTest::keyClick(table, Qt::Key_Space);
    QTRY_COMPARE(line->state(), BusLine::Running);
    QTest::keyClick(table, Qt::Key_Delete);
    QTRY_COMPARE(window.desk->lines()->count(), 0);
}

void TestConnecting::remembersChoice()
{
    DeskWindow window;
    const auto open = [&window] {
        window.desk->showConnect();
        return window.findChildren<QDialog *>(QStringLiteral("connectDialog")).last();
    };
    QDialog *dialog = open();
    choose(dialog, QStringLiteral("Generator"));
    dialog->findChild<QSpinBox *>(QStringLiteral("rate"))->setValue(1234);
    QVERIFY(activate(*dialog));
    QTest::keyClick(dialog, Qt::Key_Return);
    QTRY_COMPARE(window.desk->lines()->count(), 1);
    window.desk->lines()->stopAll();
    QTRY_VERIFY(!window.findChild<QDialog *>(QStringLiteral("connectDialog")));
    dialog = open();
    QCOMPARE(dialog->findChild<QSpinBox *>(QStringLiteral("rate"))->value(), 1234);
    QCOMPARE(dialog->findChild<QSpinBox *>(QStringLiteral("number"))->value(), 2);
    QVERIFY(activate(*dialog));
    QTest::keyClick(dialog, Qt::Key_Return);
    QTRY_COMPARE(window.desk->lines()->count(), 2);
    QCOMPARE(window.desk->lines()->at(1)->number(), quint8(2));
}

void TestConnecting::startsWithoutHardware()
{
    DeskWindow window;
    auto *button = window.findChild<QPushButton *>(QStringLiteral("tryButton"));
    QVERIFY(button->isVisible());
    QTest::mouseClick(button, Qt::LeftButton);
    QTRY_VERIFY(window.recorded() > 100);
    QVERIFY(!button->isVisible());
}

void TestConnecting::controlsLinesByKeyboard()
{
    DeskWindow window;
    window.action("try")->trigger();
    const BusLine *line = window.desk->lines()->at(0);
    auto *table = window.findChild<QTreeView *>(QStringLiteral("lineTable"));
    QVERIFY(activate(window));
    table->setFocus();
    QTest::keyClick(table, Qt::Key_P);
    QTRY_COMPARE(line->state(), BusLine::Paused);
    QTest::keyClick(table, Qt::Key_P);
    QTRY_COMPARE(line->state(), BusLine::Running);
    QTRY_VERIFY(line->taken() > 0);
    window.action("stopAll")->trigger();
    QCOMPARE(line->state(), BusLine::Stopped);
    const int messages = 3;
    const QModelIndex cell = table->model()->index(0, messages);
    QTRY_COMPARE(cell.data().toString(), QLocale().toString(line->taken()));
}

QTEST_MAIN(TestConnecting)
#include "tst_connecting.moc"
