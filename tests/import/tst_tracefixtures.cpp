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
    void detectsTheTypeThatTheFolderIsNamedAfter();
};

namespace {

QString firstDifference(const QString &actual, const QString &expected)
{
    const QStringList a = actual.split(QLatin1Char('\n'));
    const QStringList e = expected.split(QLatin1Char('\n'));
    for (int i = 0; i < qMax(a.size(), e.size()); ++i) {
        if (a.value(i) != e.value(i))
            return QStringLiteral("line %1\n  actual   '%2'\n  expected '%3'\n")
                .arg(i + 1)
                .arg(a.value(i), e.value(i));
    }
    return {};
}

} // namespace

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
    QVERIFY2(dump == fixture.expected, qPrintable(firstDifference(dump, fixture.expected)));
}

void TraceFixtures::detectsTheTypeThatTheFolderIsNamedAfter()
{
    const auto types = QMetaEnum::fromType<DatachunkHelper::ImportFileType>();
    for (const TraceFixture &fixture : traceFixtures()) {
        if (!fixture.isDetected)
            continue;
        const char *found = types.valueToKey(fixture.type);
        QVERIFY2(fixture.name.startsWith(QLatin1String(found).left(7), Qt::CaseInsensitive),
                 qPrintable(fixture.name + QLatin1String(" is taken for ") + QLatin1String(found)));
    }
}

QTEST_GUILESS_MAIN(TraceFixtures)
#include "tst_tracefixtures.moc"
