#include "faults.h"
#include "scene.h"

#include <QThreadPool>
#include <QtTest>

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
    Faults::arm(fault);
    operation.run(scene);
    const bool met = Faults::disarm();
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

// All faults of one call in one operation, in a process of its own.
int runFaults(const Operation &operation, const CallRow &row)
{
    constexpr int tooOften = 500;
    QTemporaryDir folder;
    Faults::watchBelow(folder.path().toStdString());
    Scene scene(folder.path(), row.call == Faults::Allocate);
    // A pool never gets the slot of a thread back that could not start.
    QThreadPool::globalInstance()->setMaxThreadCount(100000);
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
                    tell("met", text);
                for (const QString &complaint : qAsConst(scene.complaints))
                    tell("FAIL", text + QStringLiteral(": ") + complaint);
            }
        }
    }
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
};

void FaultsTest::everyFaultIsSurvived_data()
{
    QTest::addColumn<int>("operation");
    QTest::addColumn<int>("call");
    for (int operation = 0; operation < operations().size(); ++operation) {
        for (int call = 0; call < callRows().size(); ++call)
            QTest::addRow("%s: %s", operations().at(operation).name, callRows().at(call).name)
                << operation << call;
    }
}

void FaultsTest::everyFaultIsSurvived()
{
    QFETCH(int, operation);
    QFETCH(int, call);
    constexpr int hangLimit = 20000;
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    child.start(QCoreApplication::applicationFilePath(),
                {"--faults", QString::number(operation), QString::number(call)});
    QByteArray current;
    QByteArrayList failures;
    while (child.canReadLine() || child.waitForReadyRead(hangLimit)) {
        const QByteArray line = child.readLine().trimmed();
        if (line.startsWith("case")) {
            current = line;
            ++cases;
        }
        if (line.startsWith("met"))
            callsMet.insert(callRows().at(call).name);
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
    for (const CallRow &row : callRows())
        QVERIFY2(callsMet.contains(row.name), row.name);
    qInfo("%d cases", cases);
}

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    if (argc == 4 && QByteArray(argv[1]) == "--faults") {
        const CallRow &row = callRows().at(QByteArray(argv[3]).toInt());
        const int status = runFaults(operations().at(QByteArray(argv[2]).toInt()), row);
        // Nor does a pool with such a slot ever end.
        if (row.call == Faults::Thread)
            std::_Exit(status);
        return status;
    }
    FaultsTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_faults.moc"
