#include "processstate.h"
#include "storedriver.h"
#include "storefixture.h"

#include <QtTest>

/// The store against its model: random commands by seed, and many messages.
///
/// DATACHUNK_SEED gives the seed of the last row, DATACHUNK_COMMANDS the number of commands and
/// DATACHUNK_MESSAGES the length of the recording.
class TestModel : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void storeIsWhatItsModelIs_data();
    void storeIsWhatItsModelIs();
    void storesEndAtAnyPoint();
    void everyRotatedMessageIsInOneChunk();
};

namespace {

// What went wrong.
QByteArray drive(StoreDriver::Weights weights, quint32 seed, int readers, int commands,
                 quint64 messages)
{
    StoreDriver driver(seed, weights, readers);
    const QByteArray failure = driver.run(commands, messages).toUtf8();
    return failure.isEmpty() ? failure
                             : "DATACHUNK_SEED=" + QByteArray::number(seed) + ' ' + failure;
}

} // namespace

void TestModel::initTestCase()
{
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false"));
    countObjects();
    // What is made once, at first use, is no loss.
    drive(StoreDriver::Everything, 1, 1, 300, 100000);
}

void TestModel::storeIsWhatItsModelIs_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 40; ++seed)
        QTest::addRow("seed %u", seed) << seed;
    const quint64 any = numberFrom("DATACHUNK_SEED", QRandomGenerator::global()->generate());
    QTest::newRow("any seed") << quint32(any);
}

void TestModel::storeIsWhatItsModelIs()
{
    QFETCH(quint32, seed);
    const ProcessState before = processState();
    const int commands = int(numberFrom("DATACHUNK_COMMANDS", 150));
    const auto failure = drive(StoreDriver::Everything, seed, int(seed % 2), commands, 1000000);
    QVERIFY2(failure.isEmpty(), failure);
    QCOMPARE(leftBehind(before), QString());
}

void TestModel::storesEndAtAnyPoint()
{
    const ProcessState before = processState();
    for (quint32 seed = 0; seed < 1000; ++seed) {
        const auto failure = drive(StoreDriver::EndingAtOnce, seed, 0, int(seed % 20), 1000000);
        QVERIFY2(failure.isEmpty(), failure);
    }
    QCOMPARE(leftBehind(before), QString());
}

void TestModel::everyRotatedMessageIsInOneChunk()
{
    const auto seed = quint32(numberFrom("DATACHUNK_SEED", 1));
    const quint64 messages = numberFrom("DATACHUNK_MESSAGES", 6000000);
    const ProcessState before = processState();
    const auto failure = drive(StoreDriver::Recording, seed, 1, INT_MAX, messages);
    QVERIFY2(failure.isEmpty(), failure);
    QCOMPARE(leftBehind(before), QString());
}

QTEST_GUILESS_MAIN(TestModel)
#include "tst_model.moc"
