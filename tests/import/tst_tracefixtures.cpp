#include "tracedump.h"

#include <QDirIterator>
#include <QMetaEnum>
#include <QtTest>

/// Imports every trace below data/traces and compares what comes out with the hand-written
/// file "<trace>.expected" beside it. Lines of that file that begin with "#" say how to import:
/// "#type NAME" in place of detection, "#description TEXT" for the described layout.
class TraceFixtures : public QObject
{
    Q_OBJECT
private slots:
    void import_data();
    void import();
    void wideBlanksAtTheEndOfEveryLineChangeNothing_data();
    void wideBlanksAtTheEndOfEveryLineChangeNothing();
    void detectsTheTypeThatTheFolderIsNamedAfter();
};

namespace {

using Type = DatachunkHelper::ImportFileType;

QStringList fixtures()
{
    QStringList found;
    QDirIterator files(QStringLiteral(TESTDATA "/traces"), {QStringLiteral("*.expected")},
                       QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext())
        found.append(files.next());
    found.sort();
    return found;
}

struct Expectation
{
    QString dump;
    QString type;
    QString description;
};

Expectation readExpectation(const QString &fileName)
{
    Expectation expectation;
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(fileName));
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    QStringList rest;
    for (const QString &line : lines) {
        if (line.startsWith(QLatin1String("#type ")))
            expectation.type = line.mid(6);
        else if (line.startsWith(QLatin1String("#description ")))
            expectation.description = line.mid(13);
        else
            rest.append(line);
    }
    expectation.dump = rest.join(QLatin1Char('\n'));
    return expectation;
}

Type typeOf(const Expectation &expectation, const QString &trace)
{
    if (expectation.type.isEmpty())
        return DatachunkHelper().getImportFileType(trace);
    const auto types = QMetaEnum::fromType<Type>();
    return Type(types.keyToValue(expectation.type.toUtf8()));
}

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
    QTest::addColumn<QString>("expectedFile");
    for (const QString &file : fixtures())
        QTest::newRow(qPrintable(file.section(QLatin1Char('/'), -2))) << file;
    QVERIFY(!fixtures().isEmpty());
}

void TraceFixtures::import()
{
    QFETCH(QString, expectedFile);
    const QString trace = expectedFile.left(expectedFile.lastIndexOf(QLatin1String(".expected")));
    const Expectation expected = readExpectation(expectedFile);
    const QString dump = traceDump(trace, typeOf(expected, trace), expected.description);
    QVERIFY2(dump == expected.dump, qPrintable(firstDifference(dump, expected.dump)));
}

void TraceFixtures::wideBlanksAtTheEndOfEveryLineChangeNothing_data()
{
    import_data();
}

// Lines that are not ASCII are decoded first. Blanks at the end are lost to every grammar, and so
// what is read from decoded lines has to be what is read from plain ones.
void TraceFixtures::wideBlanksAtTheEndOfEveryLineChangeNothing()
{
    QFETCH(QString, expectedFile);
    if (expectedFile.contains(QLatin1String("/vectorasc")))
        QSKIP("the notes of these hold lines as they are");
    const QString trace = expectedFile.left(expectedFile.lastIndexOf(QLatin1String(".expected")));
    const Expectation expected = readExpectation(expectedFile);
    QFile file(trace);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QTemporaryDir folder;
    QFile copy(folder.filePath(QStringLiteral("trace")));
    QVERIFY(copy.open(QIODevice::WriteOnly));
    copy.write(file.readAll().replace('\n', "\u2003\n"));
    copy.close();
    const QString dump = traceDump(copy.fileName(), typeOf(expected, trace), expected.description);
    QVERIFY2(dump == expected.dump, qPrintable(firstDifference(dump, expected.dump)));
}

void TraceFixtures::detectsTheTypeThatTheFolderIsNamedAfter()
{
    const auto types = QMetaEnum::fromType<DatachunkHelper::ImportFileType>();
    for (const QString &file : fixtures()) {
        const QString trace = file.left(file.lastIndexOf(QLatin1String(".expected")));
        if (!readExpectation(file).type.isEmpty())
            continue;
        const QString folder = trace.section(QLatin1Char('/'), -2, -2);
        const char *found = types.valueToKey(DatachunkHelper().getImportFileType(trace));
        QVERIFY2(folder.startsWith(QLatin1String(found).left(7), Qt::CaseInsensitive),
                 qPrintable(trace + QLatin1String(" is taken for ") + QLatin1String(found)));
    }
}

QTEST_GUILESS_MAIN(TraceFixtures)
#include "tst_tracefixtures.moc"
