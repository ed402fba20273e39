#include "datachunkhandler.h"
#include "messages.h"
#include "savefileworker.h"
#include "storefixture.h"
#include "tracetimeline.h"

#include <QtTest>

#include <csignal>

#include <sys/resource.h>
#include <utime.h>

/// One save from the worker's side, and what the store makes of it.
class TestSaving : public QObject
{
    Q_OBJECT
private slots:
    void workerReports();
    void budgetRemovesTheOldestChunk();
    void workerGoesByTheCurrentVersion();
    void textsOfMessages();
    void aDiskThatFillsUpIsTold();
    void aDiskThatFillsUpLeavesNoHalfMessage();
    void fullDiskIsToldOncePerContinuousOutput();
};

namespace {

using Type = DatachunkHelper::SavedMessageType;

CAN::CanRxMessage withTime(CAN::CanRxMessage message, qint32 seconds, qint32 microseconds)
{
    message.seconds = seconds;
    message.microseconds = microseconds;
    return message;
}

} // namespace

void TestSaving::workerReports()
{
    const auto reports = [](const QString &name, int type, unsigned end) {
        QTemporaryDir folder;
        QList<CAN::CanRxMessage> list;
        const QString file = folder.filePath(name);
        SaveFileWorker worker(file, &list, Type(type), 1000, end, {}, {}, 0, {});
        // It counts what is there when the saving starts.
        list = {makeMessage(0, 0), makeMessage(1, 1), makeMessage(2, 2)};
        QStringList seen;
        connect(&worker, &SaveFileWorker::ready, [&] { seen += "ready"; });
        connect(&worker, &SaveFileWorker::savingFinished,
                [&](bool success) { seen += QStringLiteral("finished %1").arg(success); });
        connect(&worker, &SaveFileWorker::newDataFile,
                [&](const QString &time) { seen += "chunk " + time; });
        connect(&worker, &SaveFileWorker::newPartialDataFile,
                [&](const QString &partial, const QString &time) {
                    seen += (partial == file ? "partial " : "wrong ") + time;
                });
        worker.saveToFile();
        if (!worker.errorText().isEmpty())
            seen += "error";
        if (QFile::exists(file))
            seen += holds(file, 0, 2) ? "chunk file" : "other file";
        return seen.join(", ");
    };
    QCOMPARE(reports("a.dck", 0, 3), "finished 1, ready, chunk file");
    QCOMPARE(reports("a.dck", 1, 3), "chunk 0.000007 - 0.002007, ready, chunk file");
    QCOMPARE(reports("a.dck", 1, 4000000000), "chunk 0.000007 - 0.000000, ready, chunk file");
    QCOMPARE(reports("a.dck", 2, 3), "partial 0.000007 - 0.002007, ready, chunk file");
    QCOMPARE(reports("a.dck", 1, 0), "ready");
    QCOMPARE(reports("a.txt", 0, 3), "ready, other file");
    QCOMPARE(reports("a.DCK", 1, 3), "ready, other file");
    QCOMPARE(reports("none/a.dck", 1, 3), "finished 0, ready, error");
    QCOMPARE(reports("none/a.txt", 0, 3), "ready, error");
}

void TestSaving::budgetRemovesTheOldestChunk()
{
    // Of files from the oldest to the youngest, of which "=" has the age of the one before.
    const auto removed = [](const QStringList &files, int kibibytesEach, unsigned budget) {
        QTemporaryDir folder;
        time_t age = 1000000;
        for (QString file : files) {
            age += file.startsWith(QLatin1Char('=')) ? 0 : 10;
            file = folder.filePath(file.remove(QLatin1Char('=')));
            writeFile(file, QByteArray(kibibytesEach * 1024, 'x'));
            const utimbuf times{age, age};
            utime(qPrintable(file), &times);
        }
        QStringList gone = QDir(folder.path()).entryList(QDir::Files);
        SaveFileWorker worker(QString(), nullptr, Type::FullBuffer, budget, 0, {}, {}, 0, {});
        QSignalSpy spy(&worker, &SaveFileWorker::dataFileRemoved);
        worker.checkUsedSpace(folder.filePath("any"));
        for (const QString &file : QDir(folder.path()).entryList(QDir::Files))
            gone.removeOne(file);
        return gone + (spy.count() == gone.size() ? QStringList() : QStringList("told wrongly"));
    };
    QCOMPARE(removed({"b.dck", "a.dck", "c.dck"}, 1024, 2), QStringList("b.dck"));
    QCOMPARE(removed({"b.dck", "a.dck", "c.dck"}, 1024, 3), QStringList());
    QCOMPARE(removed({"a.txt", "b.dck"}, 1024, 0), QStringList());
    QCOMPARE(removed({"tmpData10.dck", "=tmpData9.dck", "=tmpData11.dck"}, 1024, 1),
             QStringList("tmpData9.dck"));
}

void TestSaving::workerGoesByTheCurrentVersion()
{
    SaveFileWorker worker;
    for (const quint16 version : {0, 102, 103}) {
        SaveFileWorker::dataChunkVersion = version;
        CAN::CanRxMessage expected = makeMessage(9, 2);
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        worker.msgToStream(out, expected);
        QCOMPARE(bytes.size(), version < 103 ? 25 : 27);
        QDataStream in(bytes + char(65));
        CAN::CanRxMessage message;
        expected.line = version < 103 ? 0 : expected.line;
        worker.msgFromStream(in, message);
        QVERIFY(sameInChunk(message, expected));
        worker.msgFromStream(in, message);
        QCOMPARE(in.status(), QDataStream::ReadCorruptData);
        QVERIFY(sameInChunk(message, expected));
    }
}

void TestSaving::textsOfMessages()
{
    const auto lineOf = [](const CAN::CanRxMessage &message) {
        const ChunkFormat::Notes notes{{0, QStringLiteral("a;b\n")}};
        SaveFileWorker worker(QString(), nullptr, Type::CurrentMessages, 0, 0, notes, {}, 0, {});
        return worker.getOldStyleTxtOutput(message);
    };
    CAN::CanRxMessage fdFrame = withTime(makeMessage(0x123, "01abff"), 5, 42);
    fdFrame.fdFrame = fdFrame.flagB = true;
    QCOMPARE(lineOf(fdFrame), "   5.000042 0x123/291  (3): 01 ab ff ;10;a;b\n\n");
    CAN::CanRxMessage remote = makeMessage(7, "1122");
    remote.remote = remote.flagC = true;
    QCOMPARE(lineOf(remote), "   0.000000 0x007/7    (2): Remote Transmission Request;4;a;b\n\n");
    CAN::CanRxMessage negativeLength;
    negativeLength.length = -3;
    QCOMPARE(lineOf(withTime(makeMessage(0x18FF50E5), 12345, 0)),
             " 12345.000000 0x18ff50e5/419385573 (0): ;1;a;b\n\n");
    QCOMPARE(lineOf(withTime(makeMessage(1), 1, -42)), "   1.-00042 0x001/1    (0): ;0;a;b\n\n");
    QCOMPARE(lineOf(withTime(makeMessage(0xFFFF00EF, "00"), -1, 0)),
             "  -1.000000 Error-frame (1): 00 ;1;a;b\n\n");
    QCOMPARE(ChunkFormat::timeText(withTime({}, -5, 4512), withTime({}, 98, 1234567)),
             "-5.004512 - 98.1234567");
    QCOMPARE(lineOf(negativeLength), "   0.000000 0x000/0    (-3): ;0;a;b\n\n");
}

void TestSaving::aDiskThatFillsUpIsTold()
{
    // A limit on the size of files lets a part of a write succeed, as an almost full disk does.
    QTemporaryDir folder;
    QList<CAN::CanRxMessage> list;
    for (quint32 i = 0; i < 2000; ++i)
        list.append(makeMessage(i, 64));
    rlimit before{};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit tight{100000, before.rlim_max};
    std::signal(SIGXFSZ, SIG_IGN);
    for (const char *name : {"a.dck", "a.txt"}) {
        SaveFileWorker worker(folder.filePath(name), &list, Type::CurrentMessages, 0, 2000, {}, {},
                              0, {});
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &tight), 0);
        worker.saveToFile();
        setrlimit(RLIMIT_FSIZE, &before);
        QVERIFY(!worker.errorText().isEmpty());
    }
}

// What shows through half a message has the time 0, from which the whole trace would count.
void TestSaving::aDiskThatFillsUpLeavesNoHalfMessage()
{
    rlimit before{};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, SIG_IGN);
    for (const rlim_t size : {30000, 30007, 60}) {
        DatachunkHandler store(20000);
        for (quint32 i = 0; i < 2000; ++i)
            store.appendCanMessage(withTime(makeMessage(i % 0x700, "11223344"), 1000, i));
        const rlimit tight{size, before.rlim_max};
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &tight), 0);
        store.rotate();
        const bool isSaved = store.waitForSaves();
        setrlimit(RLIMIT_FSIZE, &before);
        QVERIFY(isSaved);
        QCOMPARE(store.unwrittenMessageCount(), quint64(2000));
        TraceTimeline timeline = store.timeline();
        timeline.refresh();
        QVERIFY(timeline.count() < 2000);
        QCOMPARE(timeline.count() > 0, size > 60);
        QCOMPARE(timeline.firstTime(), qint64(size > 60 ? 1000000000 : 0));
        QCOMPARE(timeline.lastTime() > 0, size > 60);
    }
}

void TestSaving::fullDiskIsToldOncePerContinuousOutput()
{
    const QString fullDevice = QStringLiteral("/dev/full");
    if (!QFileInfo(fullDevice).isWritable())
        QSKIP("no /dev/full here");
    QTemporaryDir folder;
    DatachunkHandler store(20000);
    QSignalSpy errors(&store, &DatachunkHandler::newErrorMessage);
    const QString target = folder.filePath(QStringLiteral("full.dck"));
    QVERIFY(QFile::link(fullDevice, target));
    QVERIFY(store.createContinuousOutputFile(target));
    for (quint32 i = 0; i < 2000; ++i)
        store.appendToContinuousOutputFile(makeMessage(i, 64));
    store.finishContinousOutput();
    QCOMPARE(errors.count(), 1);
    QVERIFY(errors.first().first().toString().contains(target));
    // What ended badly says nothing about the next file.
    QVERIFY(store.createContinuousOutputFile(folder.filePath(QStringLiteral("good.dck"))));
    store.finishContinousOutput();
    QCOMPARE(errors.count(), 1);
}

QTEST_GUILESS_MAIN(TestSaving)
#include "tst_saving.moc"
