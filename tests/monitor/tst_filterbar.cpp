#include "datachunkhandler.h"
#include "filterbar.h"
#include "filterdialog.h"
#include "filterfield.h"
#include "savedfilters.h"
#include "temporarysettings.h"
#include "tracetablemodel.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QCompleter>
#include <QInputDialog>
#include <QLabel>
#include <QMenu>
#include <QSettings>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>
#include <QVBoxLayout>

namespace {

constexpr int messages = 100;

} // namespace

class TestFilterBar : public QObject
{
    Q_OBJECT
private:
    const TemporarySettings settings;
    std::unique_ptr<DatachunkHandler> store;
    std::unique_ptr<TraceTableModel> model;
    std::unique_ptr<QWidget> window;
    FilterBar *bar = nullptr;
    FilterField *field = nullptr;

    QAction *actionOf(const QString &keys) const;
    QMenu *savedMenu() const;
    QString status() const;
    QLabel *error() const { return window->findChild<QLabel *>(QStringLiteral("filterError")); }
    void write(const QString &text);

private slots:
    void init();
    void cleanup();

    void appliesAfterAPauseOrByEnter();
    void tellsErrorsWhereTheyAre_data();
    void tellsErrorsWhereTheyAre();
    void escapeClears();
    void finds();
    void findOnlyKeepsAllMessages();
    void remembersWhatWasEntered();
    void keepsFiltersUnderNames();
    void completesWords_data();
    void completesWords();
    void showsAllWordsWhereNoneFits();
};

void TestFilterBar::init()
{
    QSettings().clear();
    store = std::make_unique<DatachunkHandler>(1000);
    for (int i = 0; i < messages; ++i) {
        CAN::CanRxMessage message;
        message.id = quint32(i % 10);
        store->appendCanMessage(message);
    }
    model = std::make_unique<TraceTableModel>(store->timeline());
    window = std::make_unique<QWidget>();
    bar = new FilterBar(model.get());
    auto *layout = new QVBoxLayout(window.get());
    layout->addWidget(bar);
    layout->addStretch(1);
    connect(bar, &FilterBar::filterChanged, model.get(), &TraceTableModel::setFilter);
    window->resize(900, 200);
    window->show();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    field = bar->findChild<FilterField *>();
    actionOf(QStringLiteral("Ctrl+F"))->trigger();
    QTRY_VERIFY(field->hasFocus());
}

void TestFilterBar::cleanup()
{
    window.reset();
    model.reset();
    store.reset();
}

QAction *TestFilterBar::actionOf(const QString &keys) const
{
    for (QAction *action : bar->actions()) {
        if (action->shortcut() == QKeySequence(keys))
            return action;
    }
    return nullptr;
}

QMenu *TestFilterBar::savedMenu() const
{
    QMenu *menu = bar->actions().last()->menu();
    emit menu->aboutToShow();
    return menu;
}

QString TestFilterBar::status() const
{
    return bar->findChild<QLabel *>(QStringLiteral("filterStatus"))->text();
}

// As a user does who leaves the completer alone.
void TestFilterBar::write(const QString &text)
{
    field->selectAll();
    field->insert(text);
}

void TestFilterBar::appliesAfterAPauseOrByEnter()
{
    QSignalSpy changes(bar, &FilterBar::filterChanged);
    write(QStringLiteral("id==3"));
    QCOMPARE(changes.count(), 0);
    QTRY_COMPARE(model->total(), quint64(messages / 10));
    QVERIFY(status().startsWith(QStringLiteral("10 ")));
    write(QStringLiteral("id in 3,4"));
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(model->total(), quint64(messages / 5));
    QCOMPARE(changes.count(), 2);
    write(QStringLiteral("  "));
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(model->total(), quint64(messages));
    QCOMPARE(status(), QString());
}

void TestFilterBar::tellsErrorsWhereTheyAre_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("column");
    QTest::newRow("at the beginning") << "what" << 1;
    QTest::newRow("in the middle") << "id==2a1 and b3==100" << 17;
    QTest::newRow("behind the end") << "(ext or fd" << 11;
    QTest::newRow("where the text is scrolled")
        << QStringLiteral("not ext and ").repeated(40) + QLatin1String("b3==100") << 485;
}

void TestFilterBar::tellsErrorsWhereTheyAre()
{
    QFETCH(QString, text);
    QFETCH(int, column);
    bar->setText(QStringLiteral("id==3"));
    write(text);
    QTest::keyClick(field, Qt::Key_Return);
    QVERIFY(error() && error()->isVisible());
    QVERIFY(error()->text().endsWith(QLatin1Char('.')));
    QCOMPARE(model->total(), quint64(messages / 10));
    const QPoint below = error()->mapTo(window.get(), QPoint(0, 0));
    QVERIFY(below.y() >= field->mapTo(window.get(), QPoint(0, field->height())).y());
    if (text.size() < 20) {
        const int before = field->fontMetrics().horizontalAdvance(text.left(column - 1));
        const int from = field->mapTo(window.get(), QPoint(0, 0)).x();
        QVERIFY(qAbs(below.x() - from - before) < 20);
    }
    QVERIFY(window->rect().contains(error()->geometry().topRight()));
    QTest::keyClick(field, Qt::Key_Backspace);
    QVERIFY(!error()->isVisible());
}

void TestFilterBar::escapeClears()
{
    bar->setText(QStringLiteral("id==3"));
    QTest::keyClick(field, Qt::Key_Escape);
    QCOMPARE(field->text(), QString());
    QCOMPARE(model->total(), quint64(messages));
}

void TestFilterBar::finds()
{
    QSignalSpy found(model.get(), &TraceTableModel::found);
    QSignalSpy notFound(model.get(), &TraceTableModel::notFound);
    actionOf(QStringLiteral("F3"))->trigger(); // nothing to look for
    write(QStringLiteral("number in 20,70"));
    actionOf(QStringLiteral("Ctrl+Shift+F"))->trigger();
    const auto press = [&](Qt::KeyboardModifiers modifiers, quint64 wanted) {
        const int before = found.count();
        QTest::keyClick(field, Qt::Key_F3, modifiers);
        QTRY_COMPARE(found.count(), before + 1);
        QCOMPARE(found.last().first().toULongLong(), wanted);
    };
    press(Qt::NoModifier, 20);
    press(Qt::NoModifier, 70);
    QTest::keyClick(field, Qt::Key_F3);
    QTRY_COMPARE(notFound.count(), 1);
    QVERIFY(status().contains(QStringLiteral("F3")));
    press(Qt::NoModifier, 20);
    press(Qt::NoModifier, 70);
    press(Qt::ShiftModifier, 20);
    field->clear(); // goes on with what was looked for
    press(Qt::NoModifier, 70);
}

void TestFilterBar::findOnlyKeepsAllMessages()
{
    bar->setText(QStringLiteral("id==3"));
    actionOf(QStringLiteral("Ctrl+Shift+F"))->trigger();
    QCOMPARE(model->total(), quint64(messages));
    QSignalSpy found(model.get(), &TraceTableModel::found);
    QTest::keyClick(field, Qt::Key_Return);
    QTRY_COMPARE(found.count(), 1);
    QCOMPARE(model->total(), quint64(messages));
    const FilterBar other(model.get());
    QVERIFY(other.actions().at(3)->isChecked());
    // Who asks for a filter gets one.
    bar->setText(QStringLiteral("id==4"));
    QCOMPARE(model->total(), quint64(messages / 10));
}

void TestFilterBar::remembersWhatWasEntered()
{
    for (const char *text : {"id==1", "id==2", "nonsense", "id==1"}) {
        write(QString::fromLatin1(text));
        QTest::keyClick(field, Qt::Key_Return);
    }
    write(QStringLiteral("draft"));
    QTest::keyClick(field, Qt::Key_Up);
    QCOMPARE(field->text(), QStringLiteral("id==1"));
    QTest::keyClick(field, Qt::Key_Up);
    QTest::keyClick(field, Qt::Key_Up);
    QCOMPARE(field->text(), QStringLiteral("id==2"));
    QTest::keyClick(field, Qt::Key_Down);
    QTest::keyClick(field, Qt::Key_Down);
    QCOMPARE(field->text(), QStringLiteral("draft"));
    for (int i = 0; i < 2 * SavedFilters::mostRecent; ++i)
        SavedFilters::addRecent(QString::number(i));
    QCOMPARE(SavedFilters::recent().size(), int(SavedFilters::mostRecent));
}

void TestFilterBar::keepsFiltersUnderNames()
{
    write(QStringLiteral("b0&f0==a0 or id==5"));
    const QList<QAction *> actions = savedMenu()->actions();
    actions.at(actions.size() - 2)->trigger();
    auto *name = bar->findChild<QInputDialog *>();
    QVERIFY(name);
    name->setTextValue(QStringLiteral("five"));
    name->accept();
    field->clear();
    QAction *five = savedMenu()->actions().first();
    QCOMPARE(five->text(), QStringLiteral("five"));
    five->trigger();
    QTRY_COMPARE(model->total(), quint64(messages / 10));

    savedMenu()->actions().last()->trigger();
    auto *dialog = bar->findChild<FilterDialog *>();
    auto *table = dialog->findChild<QTableWidget *>();
    table->item(0, 1)->setText(QStringLiteral("id=="));
    dialog->accept();
    QCOMPARE(SavedFilters::all().first().expression, QStringLiteral("b0&f0==a0 or id==5"));
    table->item(0, 1)->setText(QStringLiteral("id==6"));
    dialog->accept();
    QCOMPARE(SavedFilters::all().first().expression, QStringLiteral("id==6"));
}

void TestFilterBar::completesWords_data()
{
    QTest::addColumn<QString>("written");
    QTest::addColumn<QString>("completed");
    QTest::newRow("a word") << "ch"
                            << "changed";
    QTest::newRow("in any case, behind another") << "not CH"
                                                 << "not changed";
    QTest::newRow("the cursor goes between quotes") << "ext and data"
                                                    << "ext and data~\"!\"";
    QTest::newRow("a value is no word") << "id==e"
                                        << "id==e!";
    QTest::newRow("a note's text is none") << "note~\"ch"
                                           << "note~\"ch!";
    QTest::newRow("a whole word is left alone") << "changed"
                                                << "changed!";
}

// The sign stands for what is written next.
void TestFilterBar::completesWords()
{
    QFETCH(QString, written);
    QFETCH(QString, completed);
    QTest::keyClicks(field, written);
    auto *popup = field->findChild<QCompleter *>()->popup();
    if (popup->isVisible()) {
        QTest::keyClick(popup, Qt::Key_Down);
        QTest::keyClick(popup, Qt::Key_Return);
    }
    QVERIFY(!popup->isVisible());
    if (completed.contains(QLatin1Char('!')))
        QTest::keyClicks(field, QStringLiteral("!"));
    QCOMPARE(field->text(), completed);
}

void TestFilterBar::showsAllWordsWhereNoneFits()
{
    write(QStringLiteral("ext and identifier"));
    QTest::keyClick(field, Qt::Key_Space, Qt::ControlModifier);
    auto *popup = field->findChild<QCompleter *>()->popup();
    QVERIFY(popup->isVisible());
    QTest::keyClick(popup, Qt::Key_Down);
    QTest::keyClick(popup, Qt::Key_Return);
    QCOMPARE(field->text(), QStringLiteral("ext and id"));
}

QTEST_MAIN(TestFilterBar)
#include "tst_filterbar.moc"
