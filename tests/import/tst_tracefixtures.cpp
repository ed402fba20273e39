#include "tracedump.h"
#include "tracefixtures.h"

#include <QMetaEnum>
#include <QtTest>

/// Imports every trace below data/traces and compares what comes out with what is expected.
class TraceFixtures : public QObject
{
    Q_OBJECT
private slots:
    void import_data();
    void import();
};

void TraceFixtures::import_data()
{
    QTest::addColumn<int>("index");
    int index = 0;
    for (const TraceFixture &fixture : traceFixtures())
        QTest::newRow(qPrintable(fixture.name)) << index++;
}

void TraceFixtures::import()
{
    QFETCH(int, index);
    const TraceFixture fixture = traceFixtures().at(index);
    const QString dump = traceDump(fixture.fileName, fixture.type, fixture.description);
    QCOMPARE(dump.split(QLatin1Char('\n')), fixture.expected.split(QLatin1Char('\n')));
    // What is detected is what the folder is named after.
    const auto types = QMetaEnum::fromType<DatachunkHelper::ImportFileType>();
    const QLatin1String found(types.valueToKey(fixture.type));
    QVERIFY2(!fixture.isDetected || fixture.name.startsWith(found.left(7), Qt::CaseInsensitive),
             found.data());
}

QTEST_GUILESS_MAIN(TraceFixtures)
#include "tst_tracefixtures.moc"
