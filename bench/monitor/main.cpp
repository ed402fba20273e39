// Measures the monitor as its user has it: a window with traffic, or one that opens a long trace.
//     datachunk-bench-monitor traffic SECONDS MESSAGES_A_SECOND
//     datachunk-bench-monitor open PATH
// Needs a display.

#include "buschoice.h"
#include "busdesk.h"
#include "buslines.h"
#include "loopmeter.h"
#include "mainwindow.h"
#include "recording.h"
#include "tracetab.h"
#include "tracetablemodel.h"
#include "traceview.h"

#include <QApplication>
#include <QFile>
#include <QScrollBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTimer>

#include <algorithm>
#include <random>

namespace {

QTextStream &out()
{
    static QTextStream stream(stdout);
    return stream;
}

// In KiB, as the system counts it.
qint64 memoryUsed()
{
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (line.startsWith("VmRSS:"))
            return line.mid(6).trimmed().split(' ').first().toLongLong();
    }
    return 0;
}

void waitFor(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

void tell(const LoopMeter &meter)
{
    out() << "events " << meter.count() << ", waited less than 16 ms " << meter.percentBelow(16)
          << " %, median " << meter.quantile(50) << " ms, 99 % " << meter.quantile(99)
          << " ms, longest " << meter.longest() << " ms, memory " << memoryUsed() / 1024
          << " MiB\n";
    out().flush();
}

int traffic(MainWindow &window, int seconds, int rate)
{
    BusDesk &desk = *window.findChild<BusDesk *>();
    BusChoice choice;
    choice.kind = BusChoice::Generator;
    choice.generator.rate = rate;
    BusLine *line = desk.lines()->add(choice);
    LoopMeter meter;
    constexpr int settling = 60; // seconds until memory should stay as it is
    qint64 settled = 0;
    qint64 most = 0;
    for (int second = 1; second <= seconds; ++second) {
        waitFor(1000);
        if (second == std::min(settling, seconds / 2))
            settled = memoryUsed();
        if (settled != 0)
            most = std::max(most, memoryUsed());
        if (second % settling == 0)
            tell(meter);
    }
    tell(meter);
    line->stop();
    waitFor(1000);
    const RecordingCounts counts = desk.recording()->counts();
    out() << "generated " << line->taken() << ", taken " << counts.taken << ", stored "
          << counts.stored << ", dropped " << counts.dropped << ", in the trace "
          << desk.recording()->timeline().count() << "\n";
    out() << "memory " << settled / 1024 << " MiB settled, " << most / 1024 << " MiB at most\n";
    return line->taken() == counts.stored && counts.dropped == 0 ? 0 : 1;
}

// Until the table shows what was asked for, painted.
int open(MainWindow &window, const QString &path)
{
    QElapsedTimer time;
    time.start();
    window.open({path});
    auto *tabs = window.findChild<QTabWidget *>(QStringLiteral("traces"));
    const auto model = [tabs] {
        return static_cast<TraceTab *>(tabs->currentWidget())->view()->model();
    };
    while (tabs->count() < 2 || model()->total() == 0)
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QApplication::processEvents();
    out() << "first rows after " << time.elapsed() << " ms, " << model()->total() << " messages\n";
    auto *view = static_cast<TraceTab *>(tabs->currentWidget())->view();
    waitFor(2000);
    std::mt19937_64 random(1);
    std::vector<double> jumps;
    for (int i = 0; i < 500; ++i) {
        time.restart();
        view->showPosition(random() % model()->total());
        view->repaint();
        QApplication::processEvents();
        jumps.push_back(double(time.nsecsElapsed()) / 1e6);
    }
    std::sort(jumps.begin(), jumps.end());
    out() << "a jump to any row, painted: median " << jumps[jumps.size() / 2] << " ms, 99 % "
          << jumps[jumps.size() * 99 / 100] << " ms, longest " << jumps.back() << " ms\n";
    out() << "memory " << memoryUsed() / 1024 << " MiB\n";
    return 0;
}

} // namespace

int main(int argc, char *argv[])
{
    QElapsedTimer start;
    start.start();
    // The event dispatcher of GLib tells that it wakes up when it has done everything already.
    qputenv("QT_NO_GLIB", "1");
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    QCoreApplication::setOrganizationName(QStringLiteral("datachunk"));
    QCoreApplication::setApplicationName(QStringLiteral("datachunk-bench-monitor"));
    int status = 2;
    MainWindow window;
    window.show();
    QApplication::processEvents();
    out() << "window painted after " << start.elapsed() << " ms\n";
    if (arguments.value(1) == QLatin1String("traffic") && arguments.size() == 4)
        status = traffic(window, arguments.at(2).toInt(), arguments.at(3).toInt());
    else if (arguments.value(1) == QLatin1String("open") && arguments.size() == 3)
        status = open(window, arguments.at(2));
    out().flush();
    return status;
}
