#include "chunkcopy.h"
#include "diskwatch.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

/// The disk that a recording is on, and is saved to.
class TestRecordingDisk : public QObject
{
    Q_OBJECT
private slots:
    void copiesChunksOrNothing_data();
    void copiesChunksOrNothing();
    void warnsBeforeFull_data();
    void warnsBeforeFull();
};

void TestRecordingDisk::copiesChunksOrNothing_data()
{
    QTest::addColumn<int>("most"); // chunks before it is cancelled
    QTest::addColumn<bool>("isTaken");
    QTest::addColumn<int>("copied");
    QTest::newRow("all") << 10 << false << 3;
    QTest::newRow("cancelled") << 1 << false << 0;
    QTest::newRow("taken") << 10 << true << 0;
}

void TestRecordingDisk::copiesChunksOrNothing()
{
    QFETCH(const int, most);
    QFETCH(const bool, isTaken);
    QFETCH(const int, copied);
    QTemporaryDir folder;
    const QString from = folder.filePath(QStringLiteral("from"));
    const QString to = folder.filePath(QStringLiteral("to"));
    QDir().mkdir(from);
    if (isTaken)
        QDir().mkdir(to);
    for (int i = 0; i < 3; ++i) {
        QFile chunk(QStringLiteral("%1/tmpData%2.dck").arg(from).arg(i));
        QVERIFY(chunk.open(QIODevice::WriteOnly));
    }
    int asked = 0;
    const QString failure = copyChunks(from, to, [&](int) { return asked++ < most; });
    QCOMPARE(QDir(to).entryList({QStringLiteral("*.dck")}).size(), copied);
    QCOMPARE(QDir(to).exists(), copied > 0 || isTaken);
    QCOMPARE(!failure.isEmpty(), isTaken);
    QCOMPARE(QDir(from).entryList(QDir::Files).size(), 3);
}

void TestRecordingDisk::warnsBeforeFull_data()
{
    QTest::addColumn<qint64>("size");
    QTest::addColumn<qint64>("free");
    QTest::addColumn<bool>("isNearlyFull");
    constexpr qint64 gibibyte = 1LL << 30;
    QTest::newRow("large, enough") << 500 * gibibyte << 2 * gibibyte << false;
    QTest::newRow("large, little") << 500 * gibibyte << gibibyte - 1 << true;
    QTest::newRow("small, enough") << gibibyte << gibibyte / 5 << false;
    QTest::newRow("small, little") << gibibyte << gibibyte / 20 << true;
    QTest::newRow("not known") << qint64(0) << qint64(0) << false;
}

void TestRecordingDisk::warnsBeforeFull()
{
    QFETCH(const qint64, size);
    QFETCH(const qint64, free);
    DiskState state;
    state.size = size;
    state.free = free;
    QTEST(state.isNearlyFull(), "isNearlyFull");
}

QTEST_GUILESS_MAIN(TestRecordingDisk)
#include "tst_recordingdisk.moc"
