#include "processstate.h"
#include "storedriver.h"

#include <QtTest>

/// The store against its model: random commands by seed, and many messages.
///
/// DATACHUNK_SEED gives the seed of the last row, DATACHUNK_COMMANDS the number of commands and
/// DATACHUNK_MESSAGES the length of the recording.
class Model : public QObject
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

quint64 numberFrom(const char *variable, quint64 otherwise)
{
    bool ok = false;
    const quint64 number = qEnvironmentVariable(variable).toULongLong(&ok);
    return ok ? number : otherwise;
}

} // namespace

void Model::initTestCase()
{
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false"));
    countObjects();
    // What is made once, at first use, is no loss.
    StoreDriver(1, StoreDriver::Everything, 1).run(300, 100000);
}

void Model::storeIsWhatItsModelIs_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 40; ++seed)
        QTest::addRow("seed %u", seed) << seed;
    const auto any = quint32(numberFrom("DATACHUNK_SEED", QRandomGenerator::global()->generate()));
    QTest::addRow("DATACHUNK_SEED=%u", any) << any;
}

void Model::storeIsWhatItsModelIs()
{
    QFETCH(quint32, seed);
    const ProcessState before = processState();
    {
        StoreDriver driver(seed, StoreDriver::Everything, int(seed % 2));
        driver.run(int(numberFrom("DATACHUNK_COMMANDS", 150)), 1000000);
        if (!driver.failure().isEmpty())
            qWarning("Replay with DATACHUNK_SEED=%u:%s", seed, qPrintable(driver.log()));
        QCOMPARE(driver.failure(), QString());
        qInfo("seed %u: %s", seed, qPrintable(driver.figures()));
    }
    QCOMPARE(leftBehind(before), QString());
}

void Model::storesEndAtAnyPoint()
{
    const ProcessState before = processState();
    for (quint32 seed = 0; seed < 1000; ++seed) {
        StoreDriver driver(seed, StoreDriver::EndingAtOnce, 0);
        driver.run(int(seed % 20), 1000000);
        QVERIFY2(
            driver.failure().isEmpty(),
            qPrintable(
                QStringLiteral("seed %1: %2%3").arg(seed).arg(driver.failure(), driver.log())));
    }
    QCOMPARE(leftBehind(before), QString());
}

void Model::everyRotatedMessageIsInOneChunk()
{
    const auto seed = quint32(numberFrom("DATACHUNK_SEED", 1));
    const ProcessState before = processState();
    {
        StoreDriver driver(seed, StoreDriver::Recording, 1);
        driver.run(INT_MAX, numberFrom("DATACHUNK_MESSAGES", 6000000));
        if (!driver.failure().isEmpty())
            qWarning("The last commands:\n%s", qPrintable(driver.log()));
        QCOMPARE(driver.failure(), QString());
        qInfo("%s", qPrintable(driver.figures()));
    }
    QCOMPARE(leftBehind(before), QString());
}

QTEST_GUILESS_MAIN(Model)
#include "tst_model.moc"
