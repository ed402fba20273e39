#include "buschoice.h"
#include "busdesk.h"
#include "buslines.h"
#include "deskwindow.h"
#include "mainwindow.h"
#include "recording.h"
#include "temporarysettings.h"
#include "tracetab.h"
#include "tracetablemodel.h"
#include "traceview.h"
#include "virtualbus.h"

#include <QCanBus>
#include <QDir>
#include <QLineEdit>
#include <QRadioButton>
#include <QSettings>
#include <QTableView>
#include <QTabWidget>
#include <QTemporaryDir>

/// What somebody does who comes to the monitor for the first time, from the first message to a
/// file. With DATACHUNK_PICTURES set to a folder it leaves the pictures of the documents there.
class TestSession : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void recordsFiltersJumpsNotesAndExports();
    void samplesOpen_data();
    void samplesOpen();
    void picturesAreTaken();

private:
    const TemporarySettings settings;
};

namespace {

constexpr quint64 frames = 24000; // of which 5000 at a time go to the disk

template <typename Widget = QWidget> Widget *find(const QWidget &window, const char *name)
{
    return window.findChild<Widget *>(QLatin1String(name));
}

TraceTab *currentTab(const MainWindow &window)
{
    return static_cast<TraceTab *>(find<QTabWidget>(window, "traces")->currentWidget());
}

quint64 messagesOf(const MainWindow &window)
{
    TraceTimeline timeline = currentTab(window)->trace()->timeline();
    timeline.refresh();
    return timeline.count();
}

void type(QWidget *field, const QString &text)
{
    field->setFocus();
    QTest::keyClicks(field, text);
    QTest::keyClick(field, Qt::Key_Return);
}

// From another program's side of the bus.
std::unique_ptr<QCanBusDevice> otherNode(const QString &bus)
{
    std::unique_ptr<QCanBusDevice> device(
        QCanBus::instance()->createDevice(QStringLiteral("virtualcan"), bus));
    device->connectDevice();
    return device;
}

void connectTo(MainWindow &window, const BusChoice &choice)
{
    window.findChild<BusDesk *>()->lines()->add(choice);
}

BusChoice virtualCan(const QString &bus)
{
    BusChoice choice;
    choice.kind = BusChoice::Device;
    choice.device.plugin = QStringLiteral("virtualcan");
    choice.device.interface = bus;
    return choice;
}

BusChoice generator(int number, int rate)
{
    BusChoice choice;
    choice.number = number;
    choice.generator.rate = rate;
    choice.generator.lines = 2;
    choice.generator.fdFrames = true;
    choice.generator.errorFrames = true;
    return choice;
}

void showIt(MainWindow &window)
{
    window.resize(1560, 900);
    window.show();
    QVERIFY(activate(window));
}

} // namespace

void TestSession::init()
{
    QSettings().clear();
    QSettings().setValue(QStringLiteral("recording/memory"), 10000);
}

void TestSession::recordsFiltersJumpsNotesAndExports()
{
    MainWindow window;
    showIt(window);
    const QString bus = ownVirtualBus();
    connectTo(window, virtualCan(bus));
    // The first to connect has the server of the virtual bus, on its thread.
    QTRY_COMPARE(window.findChild<BusDesk *>()->lines()->at(0)->state(), BusLine::Running);
    const auto node = otherNode(bus);
    QTRY_COMPARE(node->state(), QCanBusDevice::ConnectedState);
    for (quint64 i = 0; i < frames; ++i)
        node->writeFrame(QCanBusFrame(0x100 + i % 4, QByteArray::number(int(i))));
    QTRY_COMPARE_WITH_TIMEOUT(messagesOf(window), frames, 60000);
    TraceView *view = currentTab(window)->view();
    const RecordingCounts counts = window.findChild<BusDesk *>()->recording()->counts();
    QCOMPARE(counts.taken, frames);
    QCOMPARE(counts.stored, frames);

    type(find(window, "filter"), QStringLiteral("id==101 and len==1"));
    QTRY_COMPARE(view->model()->total(), 3u); // 1, 5 and 9
    QTest::keyClick(find(window, "filter"), Qt::Key_Escape);
    QTRY_COMPARE(view->model()->total(), frames);

    QTest::keyClick(&window, Qt::Key_G, Qt::ControlModifier);
    type(find(window, "jumpField"), QStringLiteral("7"));
    QTRY_COMPARE(view->currentPosition(), std::optional<quint64>(7));

    auto *table = find<QTableView>(window, "messages");
    table->setFocus();
    QTest::keyClick(table, Qt::Key_F2);
    QTRY_VERIFY(qobject_cast<QLineEdit *>(QApplication::focusWidget()));
    type(QApplication::focusWidget(), QStringLiteral("the seventh"));
    const TraceTimeline trace = currentTab(window)->trace()->timeline();
    QTRY_COMPARE(trace.row(7).note, QStringLiteral("the seventh"));

    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("part.dck"));
    window.findChild<QAction *>(QStringLiteral("exportTrace"))->trigger();
    auto *dialog = find<QDialog>(window, "export");
    QTRY_VERIFY(dialog->isVisible());
    find<QLineEdit>(*dialog, "file")->clear();
    type(find(*dialog, "file"), file);
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(file), 30000);
    window.open({file});
    QTRY_COMPARE(find<QTabWidget>(window, "traces")->count(), 2);
    QTRY_COMPARE(messagesOf(window), frames);
    QCOMPARE(currentTab(window)->trace()->timeline().row(7).note, QStringLiteral("the seventh"));
}

void TestSession::samplesOpen_data()
{
    QTest::addColumn<QString>("path");
    const QDir samples(QStringLiteral(TESTDATA "/../../examples/traces"));
    const QStringList names = samples.entryList(QDir::Files);
    QVERIFY(names.size() >= 4);
    for (const QString &name : names)
        QTest::newRow(qPrintable(name)) << samples.filePath(name);
}

void TestSession::samplesOpen()
{
    QFETCH(QString, path);
    MainWindow window;
    showIt(window);
    window.open({path});
    QTRY_COMPARE(find<QTabWidget>(window, "traces")->count(), 2);
    QTRY_VERIFY(messagesOf(window) > 0);
    QCOMPARE(currentTab(window)->trace()->paths(), QStringList{path});
}

void TestSession::picturesAreTaken()
{
    MainWindow window;
    showIt(window);
    connectTo(window, generator(0, 4000));
    connectTo(window, generator(2, 1500));
    QTRY_VERIFY_WITH_TIMEOUT(messagesOf(window) > 12000, 30000);
    ShownTrace *trace = currentTab(window)->trace();
    trace->setNote(4000, tr("Ignition on"));
    trace->setBookmark(8000, tr("First error frame"));
    trace->setNote(11990, tr("Door opens"));
    QTRY_COMPARE(trace->timeline().row(4000).note, QStringLiteral("Ignition on"));
    window.findChild<QDockWidget *>(QStringLiteral("statistics"))->show();
    QTRY_VERIFY_WITH_TIMEOUT(messagesOf(window) > 40000, 30000);
    const QPixmap picture = window.grab();
    QVERIFY(!picture.isNull());
    const QString folder = qEnvironmentVariable("DATACHUNK_PICTURES");
    if (!folder.isEmpty())
        QVERIFY(picture.save(folder + QStringLiteral("/monitor.png")));
}

QTEST_MAIN(TestSession)
#include "tst_session.moc"
