#include "faults.h"
#include "scene.h"

#include <QThreadPool>
#include <QtTest>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

using Faults::Call;
using Faults::Fault;

namespace {

struct CallRow
{
    const char *name;
    Call call;
    QVector<int> effects; // the most telling one first
};

const QVector<CallRow> &callRows()
{
    using namespace Faults;
    // No EINTR for close: whoever tries again closes somebody else's file.
    static const QVector<CallRow> rows{{"open", Open, {EACCES, EMFILE, EIO, ENOSPC, EINTR, delay}},
                                       {"read", Read, {EIO, end, EINTR, shortCount, delay}},
                                       {"write", Write, {ENOSPC, EIO, EINTR, shortCount, delay}},
                                       {"close", Close, {ENOSPC, EIO, delay}},
                                       {"rename", Rename, {EACCES, ENOSPC, EIO, delay}},
                                       {"unlink", Unlink, {EACCES, EIO, delay}},
                                       {"mkdir", Mkdir, {ENOSPC, EACCES, delay}},
                                       {"list", List, {EMFILE, EACCES, delay}},
                                       {"sync", Sync, {EIO, ENOSPC, delay}},
                                       {"thread", Thread, {EAGAIN}},
                                       {"allocation", Allocate, {ENOMEM}}};
    return rows;
}

bool isFullSweep()
{
    return qEnvironmentVariableIsSet("FAULTS_ALL");
}

// With these everything has to come out as if nothing had happened.
bool isHarmless(const Fault &fault)
{
    return fault.effect == Faults::shortCount || fault.effect == Faults::delay
        || fault.effect == EINTR || fault.call == Faults::Thread;
}

QString textOf(const Operation &operation, const CallRow &row, const Fault &fault)
{
    const char *const inPlaceOfErrors[] = {"", "short count", "delay", "end of file"};
    const QString effect = QString::fromLocal8Bit(fault.effect < 0 ? inPlaceOfErrors[-fault.effect]
                                                                   : std::strerror(fault.effect));
    return QStringLiteral("%1: %2 %3 %4, %5")
        .arg(QLatin1String(operation.name), QLatin1String(row.name), QString::number(fault.at),
             fault.forEver ? QLatin1String("and all later ones") : QLatin1String("alone"), effect);
}

void tell(const char *what, const QString &text)
{
    std::printf("%s %s\n", what, qPrintable(text));
    std::fflush(stdout);
}

// Runs an operation once; whether it met the fault.
bool survives(Scene &scene, const Operation &operation, const Fault &fault)
{
    scene.begin();
    scene.newStore();
    operation.prepare(scene);
    scene.waitForSaves();
    QElapsedTimer timer;
    timer.start();
    Faults::arm(fault);
    operation.run(scene);
    const bool met = Faults::disarm();
    tell("time", QString::number(timer.elapsed()));
    // What could not be closed may not have reached the disk.
    if (met && fault.call == Faults::Close && fault.effect > 0 && !operation.syncs
        && !scene.isTold())
        scene.complaints += QStringLiteral("nothing is told");
    if (scene.store) {
        const QString missing = operation.missing(scene);
        const bool opensNothing = fault.call == Faults::Open || fault.call == Faults::Mkdir;
        if (!missing.isEmpty() && (!met || isHarmless(fault)))
            scene.complaints += missing + QStringLiteral(" missing for no reason; ")
                + scene.errors.join(QStringLiteral("; "));
        else if (!missing.isEmpty() && !scene.isTold() && fault.effect != Faults::end
                 && !(operation.failsSilently && opensNothing))
            scene.complaints += missing + QStringLiteral(" missing without a word");
    } else {
        scene.newStore();
    }
    scene.checkAftermath(fault.call == Faults::Unlink || fault.call == Faults::List);
    if (Faults::openFiles() != 0)
        scene.complaints += QStringLiteral("files stay open");
    return met;
}

void runFaults(const Operation &operation, const CallRow &row)
{
    constexpr int tooOften = 500;
    QTemporaryDir folder;
    Faults::watchBelow(folder.path().toStdString());
    Scene scene(folder.path(), row.call == Faults::Allocate);
    const int telling = row.call == Faults::Read ? 2 : 1;
    for (const int effect : isFullSweep() ? row.effects : row.effects.mid(0, telling)) {
        for (const bool forEver : {false, true}) {
            Fault fault{row.call, effect, 1, forEver};
            for (bool met = true; met && fault.at < tooOften;
                 fault.at += isFullSweep() ? 1 : 1 + fault.at / 4) {
                const QString text = textOf(operation, row, fault);
                tell("case", text);
                met = survives(scene, operation, fault);
                if (met)
                    tell("met", QLatin1String(row.name));
                for (const QString &complaint : qAsConst(scene.complaints))
                    tell("FAIL", text + QStringLiteral(": ") + complaint);
            }
        }
    }
}

// All faults of one operation, in a process of its own.
int runChild(const Operation &operation, bool threads)
{
    // A pool never gets the slot of a thread back that could not start.
    QThreadPool::globalInstance()->setMaxThreadCount(100000);
    for (const CallRow &row : callRows()) {
        if ((row.call == Faults::Thread) == threads)
            runFaults(operation, row);
    }
    // Nor does a pool with such a slot ever end.
    if (threads)
        std::_Exit(0);
    return 0;
}

} // namespace

/// Every call of the system fails in every operation, once and from then on.
class FaultsTest : public QObject
{
    Q_OBJECT
private slots:
    void everyFaultIsSurvived_data();
    void everyFaultIsSurvived();
    void everyCallWasMet();

private:
    QSet<QByteArray> callsMet;
    int cases = 0;
    int slowest = 0; // in milliseconds
};

void FaultsTest::everyFaultIsSurvived_data()
{
    QTest::addColumn<int>("operation");
    QTest::addColumn<bool>("threads");
    for (int operation = 0; operation < operations().size(); ++operation) {
        const char *name = operations().at(operation).name;
        QTest::addRow("%s with failing threads", name) << operation << true;
        QTest::addRow("%s with other failures", name) << operation << false;
    }
}

void FaultsTest::everyFaultIsSurvived()
{
    QFETCH(int, operation);
    QFETCH(bool, threads);
    constexpr int hangLimit = 30000;
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    child.start(QCoreApplication::applicationFilePath(),
                {"--faults", QString::number(operation), threads ? "threads" : "others"});
    QByteArray current;
    QByteArrayList failures;
    while (child.canReadLine() || child.waitForReadyRead(hangLimit)) {
        const QByteArray line = child.readLine().trimmed();
        if (line.startsWith("case")) {
            current = line;
            ++cases;
        }
        if (line.startsWith("time"))
            slowest = std::max(slowest, line.mid(5).toInt());
        if (line.startsWith("met"))
            callsMet.insert(line.mid(4));
        if (line.startsWith("FAIL"))
            failures += line;
    }
    if (child.state() != QProcess::NotRunning && !child.waitForFinished(hangLimit)) {
        child.kill();
        child.waitForFinished();
        failures += "hangs: " + current;
    } else if (child.exitStatus() != QProcess::NormalExit || child.exitCode() != 0) {
        failures += "crashes: " + current;
    }
    QVERIFY2(failures.isEmpty(), failures.join('\n').constData());
}

void FaultsTest::everyCallWasMet()
{
    for (const CallRow &row : callRows()) {
        if (Faults::allocationsFail || row.call != Faults::Allocate)
            QVERIFY2(callsMet.contains(row.name), row.name);
    }
    qInfo("%d cases, the slowest took %d ms", cases, slowest);
    QVERIFY(slowest < 5000 || !isFullSweep());
}

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    if (argc == 4 && QByteArray(argv[1]) == "--faults")
        return runChild(operations().at(QByteArray(argv[2]).toInt()),
                        QByteArray(argv[3]) == "threads");
    FaultsTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_faults.moc"
