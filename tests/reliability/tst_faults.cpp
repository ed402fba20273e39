#include "faults.h"
#include "messages.h"
#include "scene.h"
#include "storefixture.h"

#include <QtTest>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <thread>

using Faults::Call;
using Faults::Fault;

/// Every call of the system fails in every operation, once and from then on: the starts of threads
/// with the argument "threads", all others without. The process has to end as usual then.
class TestFaults : public QObject
{
    Q_OBJECT
public:
    explicit TestFaults(bool threads) : threads(threads) { }

private slots:
    void everyFaultIsSurvived_data();
    void everyFaultIsSurvived();
    void everyCallWasMet();
    void storeMayBeDeletedByAJobOfItsOwnThread();
    void lackOfMemoryForATraceIsToldOnce();
    void aDiskThatDoesNotAnswerHoldsUpNobody();
    void clearingTakesTheOldTraceAndNoMore();

private:
    bool survives(Scene &scene, const Operation &operation, const Fault &fault);

    const bool threads;
    QSet<int> callsMet;
    int cases = 0;
    qint64 slowest = 0; // in milliseconds
};

namespace {

struct CallRow
{
    const char *name;
    Call call;
    QVector<int> effects; // the most telling one first
};

QVector<CallRow> callRows(bool threads)
{
    using namespace Faults;
    if (threads)
        return {{"thread", Thread, {EAGAIN}}};
    // No EINTR for close: whoever tries again closes somebody else's file.
    QVector<CallRow> rows{{"open", Open, {EACCES, EMFILE, EIO, ENOSPC, EINTR, delay}},
                          {"read", Read, {EIO, end, EINTR, shortCount, delay}},
                          {"write", Write, {ENOSPC, EIO, EINTR, shortCount, delay}},
                          {"close", Close, {ENOSPC, EIO, delay}},
                          {"rename", Rename, {EACCES, ENOSPC, EIO, delay}},
                          {"unlink", Unlink, {EACCES, EIO, delay}},
                          {"mkdir", Mkdir, {ENOSPC, EACCES, delay}},
                          {"list", List, {EMFILE, EACCES, delay}},
                          {"entry", Entry, {EIO, delay}},
                          {"stat", Stat, {EIO, EACCES, delay}},
                          {"mode", Mode, {EPERM}},
                          {"space", Space, {ENOSYS}},
                          {"handle", Handle, {EMFILE, ENFILE}},
                          {"sync", Sync, {EIO, ENOSPC, delay}}};
    if (allocationsFail)
        rows.append({"allocation", Allocate, {ENOMEM}});
    return rows;
}

bool isAnyOf(Call call, std::initializer_list<Call> calls)
{
    return std::find(calls.begin(), calls.end(), call) != calls.end();
}

bool isFullSweep()
{
    return qEnvironmentVariableIsSet("FAULTS_ALL");
}

// With these everything has to come out as if nothing had happened.
bool isHarmless(const Fault &fault)
{
    return fault.effect == Faults::shortCount || fault.effect == Faults::delay
        || fault.effect == EINTR || isAnyOf(fault.call, {Faults::Thread, Faults::Space});
}

QByteArray textOf(const Fault &fault)
{
    const char *const inPlaceOfErrors[] = {"", "short count", "delay", "end of file"};
    return QByteArray(QTest::currentDataTag()) + ' ' + QByteArray::number(fault.at)
        + (fault.forEver ? " and later, " : " alone, ")
        + (fault.effect < 0 ? inPlaceOfErrors[-fault.effect] : std::strerror(fault.effect));
}

// What one run of an operation has done wrong but for its aftermath.
void judge(Scene &scene, const Operation &operation, const Fault &fault, bool met)
{
    // What could not be closed may not have reached the disk.
    if (met && fault.call == Faults::Close && fault.effect > 0 && !operation.syncs
        && !scene.isTold())
        scene.complaints += QStringLiteral("nothing is told");
    if (!scene.store)
        return;
    if (operation.isDone(scene)) {
        if (met && fault.call == Faults::Sync && fault.at == 1 && !isHarmless(fault))
            scene.complaints += QStringLiteral("done, although it may not be on the disk");
        return;
    }
    const bool opensNothing =
        isAnyOf(fault.call, {Faults::Open, Faults::Mkdir, Faults::Stat, Faults::Handle});
    if (!met || isHarmless(fault))
        scene.complaints += QStringLiteral("not done for no reason: ") + scene.errors.join("; ");
    else if (!scene.isTold() && fault.effect != Faults::end
             && !(operation.failsSilently && opensNothing))
        scene.complaints += QStringLiteral("not done without a word");
}

} // namespace

// Runs an operation once; whether it met the fault.
bool TestFaults::survives(Scene &scene, const Operation &operation, const Fault &fault)
{
    // A store may start its threads when it begins, and a pool keeps threads of the case before.
    if (threads) {
        QThreadPool::globalInstance()->waitForDone();
        Faults::arm(fault);
    }
    scene.begin();
    operation.prepare(scene);
    scene.waitForSaves();
    QElapsedTimer timer;
    timer.start();
    if (!threads)
        Faults::arm(fault);
    operation.run(scene);
    const bool met = Faults::disarm();
    slowest = std::max(slowest, timer.elapsed());
    judge(scene, operation, fault, met);
    if (!scene.store)
        scene.newStore();
    scene.checkAftermath(isAnyOf(
        fault.call, {Faults::Unlink, Faults::List, Faults::Entry, Faults::Stat, Faults::Handle}));
    if (Faults::openFiles() != 0)
        scene.complaints += QStringLiteral("files stay open");
    return met;
}

void TestFaults::everyFaultIsSurvived_data()
{
    QTest::addColumn<int>("operation");
    QTest::addColumn<int>("call");
    for (int operation = 0; operation < operations().size(); ++operation) {
        const QVector<CallRow> rows = callRows(threads);
        for (int call = 0; call < rows.size(); ++call)
            QTest::addRow("%s: %s", operations().at(operation).name, rows.at(call).name)
                << operation << call;
    }
}

void TestFaults::everyFaultIsSurvived()
{
    QFETCH(int, operation);
    QFETCH(int, call);
    constexpr int tooOften = 500;
    const CallRow row = callRows(threads).at(call);
    QTemporaryDir folder;
    Faults::watchBelow(folder.path().toStdString());
    Scene scene(folder.path(), row.call == Faults::Allocate);
    const int telling = row.call == Faults::Read ? 2 : 1;
    for (const int effect : isFullSweep() ? row.effects : row.effects.mid(0, telling)) {
        for (const bool forEver : {false, true}) {
            // Up to a call that there is not, by steps, and back to the last one that there is.
            int lastMet = 0;
            bool isPast = false;
            for (int at = 1; at > lastMet && at < tooOften;) {
                const Fault fault{row.call, effect, at, forEver};
                const QByteArray text = textOf(fault);
                std::fprintf(stderr, "%s\n", text.constData()); // for one that crashes or hangs
                const bool met = survives(scene, operations().at(operation), fault);
                ++cases;
                if (met)
                    callsMet.insert(call);
                QVERIFY2(scene.complaints.isEmpty(),
                         text + ": " + scene.complaints.join("; ").toUtf8());
                if (met && !isPast)
                    lastMet = at;
                else if (met)
                    break;
                isPast = isPast || !met;
                at += isPast ? -1 : isFullSweep() ? 1 : 1 + at / 4;
            }
        }
    }
}

void TestFaults::everyCallWasMet()
{
    QCOMPARE(callsMet.size(), callRows(threads).size());
    qInfo("%d cases, the slowest took %lld ms", cases, slowest);
    QVERIFY(slowest < 5000 || !isFullSweep());
}

void TestFaults::storeMayBeDeletedByAJobOfItsOwnThread()
{
    Faults::arm({Faults::Thread, EAGAIN, 1, true});
    const QPointer<DatachunkHandler> store(new DatachunkHandler(20000));
    connect(store, &DatachunkHandler::zipFileLoaded, this, [&store] {
        store->importZipAndMerge(QStringLiteral("none.zip")); // waits, and is never done
        delete store.data();
    });
    store->importMessages(QStringLiteral("none.zip"), DatachunkHelper::ZipArchive);
    QTRY_VERIFY(store.isNull());
    QVERIFY(Faults::disarm());
}

void TestFaults::lackOfMemoryForATraceIsToldOnce()
{
    QTemporaryDir folder;
    const QString trace = folder.filePath(QStringLiteral("a.trc"));
    writeFile(trace, QByteArray(8 << 20, 'x'));
    DatachunkHandler store(20000);
    QSignalSpy errors(&store, &DatachunkHandler::newErrorMessage);
    Faults::arm({Faults::Allocate, ENOMEM, 1, true});
    store.importMessages(trace, DatachunkHelper::PeakTrc11);
    Faults::disarm();
    QCOMPARE(errors.count(), 1);
    QVERIFY(!Faults::allocationsFail || errors.first().first().toString().contains(trace));
}

void TestFaults::aDiskThatDoesNotAnswerHoldsUpNobody()
{
    constexpr quint32 size = 1000;
    const QString where =
        QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) + "/datachunks";
    Faults::watchBelow(QFile::encodeName(where).toStdString());
    auto store = std::make_unique<DatachunkHandler>(5000 + size);
    QSignalSpy errors(store.get(), &DatachunkHandler::newErrorMessage);
    QSignalSpy chunks(store.get(), &DatachunkHandler::newDataFile);
    quint32 number = 0;
    const auto appendTo = [&](quint32 end) {
        for (; number < end; ++number)
            store->appendCanMessage(makeMessage(number, 1));
    };
    store->setMaximumWaitingMessages(2 * size);
    for (quint32 chunk = 1; chunk <= 4; ++chunk) {
        appendTo(chunk * size + 1);
        store->waitForSaves(); // and nothing waits any more
    }
    store->setMaximumWaitingMessages(1);
    appendTo(5 * size + 1);
    store->waitForSaves(); // the newest is written whatever its size
    QCOMPARE(store->givenUpMessageCount(), quint64(0));
    store->setMaximumWaitingMessages(2 * size);
    store->clearAllMessages();
    number = 0;
    Faults::arm({Faults::Write, Faults::held, 1, true});
    // One is being written, the next two are too old by the time that there are five.
    appendTo(size + 1);
    QTRY_VERIFY(Faults::isMet());
    appendTo(5 * size + 1);
    QTRY_COMPARE(errors.count(), 1);
    QCOMPARE(store->givenUpMessageCount(), quint64(2 * size));
    store->setMessageNote(5 * size, "live");
    store->loadDataFromFile(4);
    QCOMPARE(store->getMessageCount(), size);
    QCOMPARE(store->messageAt(0).messageNumber, 4 * size);
    store->goLive();
    QCOMPARE(store->getMessageNote(5 * size), QStringLiteral("live"));
    store->clearAllMessages();
    number = 0;
    appendTo(size + 1);
    store.reset();
    QVERIFY(Faults::disarm());
    QCOMPARE(chunks.count(), 0);
    QTRY_VERIFY(QDir(where).isEmpty());
}

void TestFaults::clearingTakesTheOldTraceAndNoMore()
{
    constexpr quint32 size = 1000;
    DatachunkHandler store(5000 + size);
    const auto append = [&store] {
        for (quint32 number = 0; number <= size; ++number)
            store.appendCanMessage(makeMessage(number, 1));
    };
    Faults::watchBelow(QFile::encodeName(store.chunkFolderPath()).toStdString());
    // A file of the old trace that is made only after the others are gone.
    Faults::arm({Faults::Open, Faults::held, 1, false});
    append();
    QTRY_VERIFY(Faults::isMet());
    store.clearAllMessages();
    Faults::disarm();
    QVERIFY(store.waitForSaves());
    QVERIFY(QDir(store.chunkFolderPath()).isEmpty());
    // A chunk of the new trace that is due while the old ones are being removed.
    append();
    QVERIFY(store.waitForSaves());
    Faults::arm({Faults::Unlink, Faults::held, 1, false});
    std::thread feeder([&] {
        while (!Faults::isMet())
            std::this_thread::yield();
        append();
        store.waitForSaves(200);
        Faults::disarm();
    });
    store.clearAllMessages();
    feeder.join();
    QVERIFY(store.waitForSaves());
    QVERIFY(holds(store.chunkFolderPath() + "/tmpData0.dck", 0, size - 1));
}

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    const bool threads = argc > 1 && QByteArray(argv[1]) == "threads";
    TestFaults test(threads);
    return QTest::qExec(&test, argc - threads, argv + threads);
}

#include "tst_faults.moc"
