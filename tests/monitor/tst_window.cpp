#include "appearance.h"
#include "backgroundjob.h"
#include "mainwindow.h"
#include "messagebar.h"
#include "showntrace.h"
#include "temporarysettings.h"
#include "tracetab.h"
#include "writingdesk.h"

#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QSettings>
#include <QTabWidget>
#include <QTest>
#include <QToolButton>

/// The window around the rooms of the monitor.
class TestWindow : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void everyActionIsInAMenu_data();
    void everyActionIsInAMenu();
    void noShortcutIsGivenTwice();
    void noticesAreToldOnceAndBounded();
    void aNoticeActsOnce();
    void aNoticeMayTellOthers();
    void droppedFilesOpenInTabsThatClose();
    void closingAsksBeforeMarksAreLost();
    void closingAsksBeforeFilesAreLeftOut();
    void coloursChangeAndAreKept();
    void docksAreKept();
    void statisticsLeaveTheTraceItsRoom_data();
    void statisticsLeaveTheTraceItsRoom();

private:
    const TemporarySettings settings;
};

namespace {

// Of the menu and those below it, as the user finds them.
QList<QAction *> actionsOf(const QWidget *menu)
{
    QList<QAction *> all;
    for (QAction *action : menu->actions()) {
        if (!action->menu()) {
            all.append(action);
            continue;
        }
        emit action->menu()->aboutToShow();
        all += actionsOf(action->menu());
    }
    return all;
}

QString textOf(QString text)
{
    return text.remove(QLatin1Char('&'));
}

void drop(QWidget &window, const QList<QUrl> &urls)
{
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &enter);
    QDropEvent event(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &event);
}

QStringList noticesOf(const QWidget &window)
{
    QStringList texts;
    for (const QLabel *label : window.findChildren<QLabel *>(QStringLiteral("notice"))) {
        if (label->isVisibleTo(&window))
            texts.append(label->text());
    }
    return texts;
}

void answer(const QWidget &window, QMessageBox::StandardButton button)
{
    // One that is answered already may not be deleted yet.
    for (auto *box : window.findChildren<QMessageBox *>(QStringLiteral("lossQuestion"))) {
        if (box->isVisible())
            box->button(button)->click();
    }
}

} // namespace

void TestWindow::init()
{
    QSettings().clear();
}

void TestWindow::everyActionIsInAMenu_data()
{
    QTest::addColumn<QString>("text");
    for (const char *text : {"By identifier", "Bus lines", "Notes and bookmarks", "Statistics",
                             "Dark", "Deutsch", "Close tab", "Quit"})
        QTest::newRow(text) << text;
}

void TestWindow::everyActionIsInAMenu()
{
    QFETCH(QString, text);
    const MainWindow window;
    const auto actions = actionsOf(window.menuBar());
    QVERIFY(std::any_of(actions.begin(), actions.end(),
                        [&](const QAction *action) { return textOf(action->text()) == text; }));
}

void TestWindow::noShortcutIsGivenTwice()
{
    const MainWindow window;
    QMap<QString, QString> owners;
    const auto actions = actionsOf(window.menuBar());
    for (const QAction *action : actions) {
        for (const QKeySequence &key : action->shortcuts()) {
            const QString before = owners.value(key.toString(), action->text());
            QCOMPARE(action->text(), before);
            owners.insert(key.toString(), action->text());
        }
    }
    QVERIFY(owners.size() > 20);
}

void TestWindow::noticesAreToldOnceAndBounded()
{
    MessageBar bar;
    for (int i = 0; i < 2; ++i)
        bar.add({Notice::Failure, QStringLiteral("The disk is full"), QStringLiteral("Empty it.")});
    QCOMPARE(noticesOf(bar), QStringList{QStringLiteral("The disk is full. Empty it.")});
    for (int i = 0; i < 100; ++i)
        bar.add({Notice::Warning, QStringLiteral("<b>%1</b>").arg(i), {}});
    const QStringList texts = noticesOf(bar);
    QVERIFY(texts.size() < 10);
    QCOMPARE(texts.last(), QStringLiteral("<b>99</b>"));
    QCOMPARE(texts.first(), QStringLiteral("The disk is full. Empty it."));
    QCOMPARE(bar.findChild<QLabel *>(QStringLiteral("notice"))->textFormat(), Qt::PlainText);
}

void TestWindow::aNoticeActsOnce()
{
    MessageBar bar;
    int acted = 0;
    bar.add(
        {Notice::Warning, QStringLiteral("Lines were lost."), {}, QStringLiteral("Report"), [&] {
             ++acted;
         }});
    QToolButton *button = nullptr;
    for (QToolButton *each : bar.findChildren<QToolButton *>()) {
        if (each->text() == QLatin1String("Report"))
            button = each;
    }
    QVERIFY(button);
    button->click();
    QCOMPARE(acted, 1);
    QTRY_VERIFY(noticesOf(bar).isEmpty());
}

void TestWindow::aNoticeMayTellOthers()
{
    MessageBar bar;
    const QString text = QStringLiteral("It was not saved.");
    Notice notice{Notice::Information, text, {}, QStringLiteral("Again"), {}};
    notice.action = [&bar, text, kept = QString(1000, QLatin1Char('x'))] {
        for (int i = 0; i < 9; ++i)
            bar.add({Notice::Failure, kept + QString::number(i), {}});
        bar.add({Notice::Failure, text, {}});
    };
    bar.add(notice);
    for (QToolButton *each : bar.findChildren<QToolButton *>()) {
        if (each->text() == notice.actionText)
            each->click();
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const QStringList texts = noticesOf(bar);
    QVERIFY(texts.size() > 1);
    QCOMPARE(texts.last(), text);
    QVERIFY(texts.first().startsWith(QLatin1String("xx")));
}

void TestWindow::droppedFilesOpenInTabsThatClose()
{
    MainWindow window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    auto *tabs = window.findChild<QTabWidget *>(QStringLiteral("traces"));
    drop(window, {QUrl(QStringLiteral("https://example.org/a.log"))});
    QTRY_COMPARE(noticesOf(window).size(), 1);
    QCOMPARE(tabs->count(), 1);
    drop(window,
         {QUrl::fromLocalFile(QStringLiteral(TESTDATA "/../../examples/traces/engine_start.log"))});
    QTRY_COMPARE(tabs->count(), 2);
    QCOMPARE(tabs->currentIndex(), 1);
    QCOMPARE(window.focusWidget()->objectName(), QStringLiteral("messages"));
    emit tabs->tabCloseRequested(1);
    QCOMPARE(tabs->count(), 1);
    emit tabs->tabCloseRequested(0);
    QCOMPARE(tabs->count(), 1);
}

void TestWindow::closingAsksBeforeMarksAreLost()
{
    MainWindow window;
    window.show();
    window.open({QStringLiteral(TESTDATA "/../../examples/traces/engine_start.log")});
    auto *tabs = window.findChild<QTabWidget *>(QStringLiteral("traces"));
    QTRY_COMPARE(tabs->count(), 2);
    ShownTrace *trace = static_cast<TraceTab *>(tabs->widget(1))->trace();
    trace->setNote(1, QStringLiteral("a note"));
    QVERIFY(!window.close());
    answer(window, QMessageBox::Cancel);
    emit tabs->tabCloseRequested(1);
    QCOMPARE(tabs->count(), 2);
    answer(window, QMessageBox::Discard);
    QTRY_COMPARE(tabs->count(), 1);
    QVERIFY(window.close());
}

void TestWindow::closingAsksBeforeFilesAreLeftOut()
{
    MainWindow window;
    window.show();
    BackgroundJob job(
        QStringLiteral("Writing a.asc"), [](JobControl &) { return Notice(); },
        window.findChild<WritingDesk *>());
    QVERIFY(!window.close());
    answer(window, QMessageBox::Cancel);
    QVERIFY(window.isVisible());
    QVERIFY(!window.close());
    answer(window, QMessageBox::Discard);
    QTRY_VERIFY(!window.isVisible());
}

void TestWindow::coloursChangeAndAreKept()
{
    Appearance::setTheme(Appearance::DarkTheme);
    QVERIFY(QApplication::palette().base().color().lightness() < 80);
    QCOMPARE(Appearance::theme(), Appearance::DarkTheme);
    Appearance::setTheme(Appearance::LightTheme);
    QVERIFY(QApplication::palette().base().color().lightness() > 200);
    Appearance::setTheme(Appearance::SystemTheme);
    QSettings().setValue(QStringLiteral("window/theme"), 77);
    QCOMPARE(Appearance::theme(), Appearance::SystemTheme);
}

void TestWindow::docksAreKept()
{
    const QString name = QStringLiteral("notes");
    {
        MainWindow window;
        window.show();
        window.findChild<QDockWidget *>(name)->hide();
        window.close();
    }
    const MainWindow window;
    QVERIFY(window.findChild<QDockWidget *>(name)->isHidden());
    QVERIFY(!window.findChild<QDockWidget *>(QStringLiteral("lines"))->isHidden());
}

void TestWindow::statisticsLeaveTheTraceItsRoom_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<Qt::DockWidgetArea>("area");
    QTest::newRow("behind the notes of a narrow window") << 1024 << Qt::LeftDockWidgetArea;
    QTest::newRow("beside the trace in a wide one") << 1800 << Qt::RightDockWidgetArea;
}

void TestWindow::statisticsLeaveTheTraceItsRoom()
{
    QFETCH(int, width);
    MainWindow window;
    window.resize(width, 768);
    window.show();
    auto *dock = window.findChild<QDockWidget *>(QStringLiteral("statistics"));
    QVERIFY(dock->isHidden());
    const auto actions = actionsOf(window.menuBar());
    const auto statistics = std::find_if(actions.begin(), actions.end(), [](QAction *action) {
        return textOf(action->text()) == QLatin1String("Statistics");
    });
    QVERIFY(statistics != actions.end());
    (*statistics)->trigger();
    QTRY_VERIFY(!dock->visibleRegion().isEmpty());
    QCOMPARE(window.width(), width);
    QTEST(window.dockWidgetArea(dock), "area");
    window.findChild<QDockWidget *>(QStringLiteral("notes"))->raise();
    QTRY_COMPARE(dock->visibleRegion().isEmpty(), width == 1024);
    // It is not put away by who looks for it.
    if (dock->visibleRegion().isEmpty())
        (*statistics)->trigger();
    QTRY_VERIFY(!dock->visibleRegion().isEmpty() && (*statistics)->isChecked());
    (*statistics)->trigger();
    QTRY_VERIFY(dock->isHidden());
}

QTEST_MAIN(TestWindow)
#include "tst_window.moc"
