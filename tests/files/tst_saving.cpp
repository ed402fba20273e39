#include "datachunkhandler.h"
#include "messages.h"
#include "savefileworker.h"
#include "storefixture.h"

#include <QtTest>

#include <utime.h>

/// One save from the worker's side, and what the store makes of it.
class SavingTest : public QObject
{
    Q_OBJECT
private slots:
    void workerReports_data();
    void workerReports();
    void savesExactlyThePositionsAskedFor_data();
    void savesExactlyThePositionsAskedFor();
    void budgetRemovesTheOldestChunk_data();
    void budgetRemovesTheOldestChunk();
    void lineOfTheTextExport_data();
    void lineOfTheTextExport();
    void fullDiskIsToldOncePerContinuousOutput();
};

namespace {

using Type = DatachunkHelper::SavedMessageType;

QList<CAN::CanRxMessage> messages(int count)
{
    QList<CAN::CanRxMessage> list;
    for (int i = 0; i < count; ++i)
        list.append(makeMessage(quint32(i), i % 65));
    return list;
}

} // namespace

void SavingTest::workerReports_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("count");
    QTest::addColumn<QStringList>("signalNames");
    QTest::newRow("export") << "a.dck" << 0 << 3 << QStringList{"finished 1", "ready"};
    QTest::newRow("rotation") << "a.dck" << 1 << 3
                              << QStringList{"chunk 0.000007 - 0.002007", "ready"};
    QTest::newRow("import") << "a.dck" << 2 << 3
                            << QStringList{"partial a.dck 0.000007 - 0.002007", "ready"};
    QTest::newRow("other type") << "a.dck" << 3 << 3 << QStringList{"finished 1", "ready"};
    QTest::newRow("nothing to save") << "a.dck" << 1 << 0 << QStringList{"ready"};
    QTest::newRow("text") << "a.txt" << 0 << 3 << QStringList{"ready"};
    QTest::newRow("ending in capitals is text") << "a.DCK" << 1 << 3 << QStringList{"ready"};
    QTest::newRow("no such folder") << "none/a.dck" << 1 << 3 << QStringList{"finished 0", "ready"};
    QTest::newRow("text without folder") << "none/a.txt" << 0 << 3 << QStringList{"ready"};
}

void SavingTest::workerReports()
{
    QFETCH(QString, name);
    QFETCH(int, type);
    QFETCH(int, count);
    QTemporaryDir folder;
    QList<CAN::CanRxMessage> list = messages(count);
    SaveFileWorker worker(folder.filePath(name), &list, Type(type), 1000, unsigned(count), {}, {},
                          0, {});
    QStringList seen;
    connect(&worker, &SaveFileWorker::ready, this, [&] { seen += "ready"; });
    connect(&worker, &SaveFileWorker::savingFinished, this,
            [&](bool success) { seen += QStringLiteral("finished %1").arg(success); });
    connect(&worker, &SaveFileWorker::newDataFile, this,
            [&](const QString &time) { seen += "chunk " + time; });
    connect(&worker, &SaveFileWorker::newPartialDataFile, this,
            [&](const QString &file, const QString &time) {
                seen += "partial " + QFileInfo(file).fileName() + ' ' + time;
            });
    worker.saveToFile();
    QTEST(seen, "signalNames");
    const bool written = count != 0 && !name.startsWith(QStringLiteral("none"));
    QCOMPARE(QFile::exists(folder.filePath(name)), written);
    QCOMPARE(worker.errorText().isEmpty(), written || count == 0);
}

void SavingTest::savesExactlyThePositionsAskedFor_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<unsigned>("end");
    QTest::addColumn<QList<unsigned>>("selected");
    QTest::addColumn<QVector<quint32>>("saved");
    QTest::addColumn<QString>("time");
    const QList<unsigned> all;
    const QString whole = QStringLiteral("0.000007 - 0.009007");
    QTest::newRow("all") << 0 << 10u << all << numbersFromTo(0, 9) << whole;
    QTest::newRow("a range") << 3 << 6u << all << numbersFromTo(3, 5) << "0.003007 - 0.005007";
    QTest::newRow("start at the end")
        << 6 << 6u << all << QVector<quint32>() << "0.006007 - 0.005007";
    QTest::newRow("start behind the end")
        << 8 << 2u << all << QVector<quint32>() << "0.008007 - 0.001007";
    QTest::newRow("start below 0")
        << -4 << 2u << all << numbersFromTo(0, 1) << "0.000000 - 0.001007";
    QTest::newRow("end beyond the list")
        << 8 << 4000000000u << all << numbersFromTo(8, 9) << "0.008007 - 0.000000";
    QTest::newRow("selected in list order") << 2 << 10u << QList<unsigned>{7, 1, 7}
                                            << QVector<quint32>{7, 1, 7} << "0.002007 - 0.009007";
    QTest::newRow("selected beyond the list")
        << 0 << 10u << QList<unsigned>{99, 4, 0xFFFFFFFF} << QVector<quint32>{4} << whole;
}

void SavingTest::savesExactlyThePositionsAskedFor()
{
    QFETCH(int, start);
    QFETCH(unsigned, end);
    QFETCH(QList<unsigned>, selected);
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("a.dck"));
    QList<CAN::CanRxMessage> list = messages(10);
    const ChunkFormat::Notes notes{{4, QStringLiteral("four")}};
    SaveFileWorker worker(file, &list, Type::CurrentMessages, 1000, end, notes, {}, start,
                          selected);
    list.clear();
    worker.saveToFile();
    const ReadChunk chunk = readChunkFile(file);
    QTEST(numbersOf(chunk.messages), "saved");
    QTEST(chunk.preamble.timeText, "time");
    QCOMPARE(chunk.preamble.version, 104u);
    QCOMPARE(chunk.notes, notes);
}

void SavingTest::budgetRemovesTheOldestChunk_data()
{
    QTest::addColumn<QStringList>("files"); // oldest first; "=" has the age of the one before
    QTest::addColumn<int>("kibibytesEach");
    QTest::addColumn<unsigned>("budget");
    QTest::addColumn<QString>("removed");
    const QStringList three{"b.dck", "a.dck", "c.dck"};
    QTest::newRow("above the budget the oldest goes") << three << 1024 << 2u << "b.dck";
    QTest::newRow("at the budget nothing goes") << three << 1024 << 3u << "";
    QTest::newRow("a part of a MiB does not count") << three << 1000 << 2u << "";
    QTest::newRow("budget 0 with less than a MiB") << three << 100 << 0u << "";
    QTest::newRow("budget 0 with one file") << QStringList{"a.dck"} << 1024 << 0u << "a.dck";
    QTest::newRow("another kind of file stays")
        << QStringList{"a.txt", "b.dck"} << 1024 << 0u << "";
    QTest::newRow("of equal ages the lower number goes")
        << QStringList{"tmpData10.dck", "=tmpData9.dck", "=tmpData11.dck"} << 1024 << 1u
        << "tmpData9.dck";
}

void SavingTest::budgetRemovesTheOldestChunk()
{
    QFETCH(QStringList, files);
    QFETCH(int, kibibytesEach);
    QFETCH(unsigned, budget);
    QFETCH(QString, removed);
    QTemporaryDir folder;
    time_t age = 1000000;
    for (QString &file : files) {
        age += file.startsWith(QLatin1Char('=')) ? 0 : 10;
        file.remove(QLatin1Char('='));
        writeFile(folder.filePath(file), QByteArray(kibibytesEach * 1024, 'x'));
        const utimbuf times{age, age};
        QCOMPARE(utime(qPrintable(folder.filePath(file)), &times), 0);
    }
    SaveFileWorker worker(QString(), nullptr, Type::FullBuffer, budget, 0, {}, {}, 0, {});
    QSignalSpy spy(&worker, &SaveFileWorker::dataFileRemoved);
    worker.checkUsedSpace(folder.filePath(files.last()));
    for (const QString &file : qAsConst(files))
        QCOMPARE(QFile::exists(folder.filePath(file)), file != removed);
    QCOMPARE(spy.count(), removed.isEmpty() ? 0 : 1);
}

void SavingTest::lineOfTheTextExport_data()
{
    QTest::addColumn<CAN::CanRxMessage>("message");
    QTest::addColumn<QString>("line");
    CAN::CanRxMessage message = makeMessage(0x123, "01abff");
    message.seconds = 5;
    message.microseconds = 42;
    QTest::newRow("standard frame") << message << "   5.000042 0x123/291  (3): 01 ab ff ;0;\n";
    message = makeMessage(0x18FF50E5);
    message.seconds = 12345;
    message.fdFrame = message.flagB = true;
    QTest::newRow("wide values print in full")
        << message << " 12345.000000 0x18ff50e5/419385573 (0): ;11;\n";
    message = makeMessage(7, "1122");
    message.remote = message.flagC = true;
    message.messageNumber = 4;
    QTest::newRow("remote frame with a note")
        << message << "   0.000000 0x007/7    (2): Remote Transmission Request;4;a;b\n\n";
    message = makeMessage(0xFFFF00EF, "00");
    message.seconds = -1;
    message = makeMessage(1);
    message.seconds = 1;
    message.microseconds = -42;
    QTest::newRow("zeros stand behind a minus") << message << "   1.-00042 0x001/1    (0): ;0;\n";
    message = makeMessage(0xFFFF00EF, "00");
    message.seconds = -1;
    QTest::newRow("error frame") << message << "  -1.000000 Error-frame (1): 00 ;1;\n";
    message = makeMessage(1);
    message.length = -3;
    QTest::newRow("negative length") << message << "   0.000000 0x001/1    (0): ;0;\n";
}

void SavingTest::lineOfTheTextExport()
{
    QFETCH(CAN::CanRxMessage, message);
    const ChunkFormat::Notes notes{{4, QStringLiteral("a;b\n")}};
    SaveFileWorker worker(QString(), nullptr, Type::CurrentMessages, 0, 0, notes, {}, 0, {});
    QTEST(worker.getOldStyleTxtOutput(message), "line");
}

void SavingTest::fullDiskIsToldOncePerContinuousOutput()
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

QTEST_GUILESS_MAIN(SavingTest)
#include "tst_saving.moc"
