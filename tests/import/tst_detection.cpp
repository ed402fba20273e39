#include "datachunkhelper.h"
#include "storefixture.h"

#include <QMetaEnum>
#include <QtTest>

#include <sys/stat.h>

class TestDetection : public QObject
{
    Q_OBJECT
private slots:
    void tellsTheType_data();
    void tellsTheType();
    void looksAtTheFirstMiBOnly();
    void fileThatCannotBeReadIsUnknown();

private:
    QTemporaryDir folder;
};

void TestDetection::tellsTheType_data()
{
    using H = DatachunkHelper;
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("type");
    // Name, file, content with \\n and \\r, and the type, with tabs in between.
    const auto types = QMetaEnum::fromType<H::ImportFileType>();
    const QByteArray cases = readFile(QStringLiteral(TESTDATA "/detection.tsv"));
    for (const QByteArray &line : cases.chopped(1).split('\n')) {
        QByteArrayList fields = line.split('\t');
        QCOMPARE(fields.size(), 4);
        fields[2].replace("\\n", "\n").replace("\\r", "\r");
        QTest::newRow(fields[0]) << QString(fields[1]) << fields[2] << types.keyToValue(fields[3]);
    }
    QTest::newRow("UTF-16 is decoded") << QStringLiteral("a.asc")
                                       << QByteArray("\xff\xfe"
                                                     "d\0\n\0"
                                                     "B\0i\0t\0C\0o\0u\0n\0t\0",
                                                     22)
                                       << int(H::VectorAsc);
}

void TestDetection::tellsTheType()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    const QString file = folder.filePath(name);
    writeFile(file, content);
    QTEST(int(DatachunkHelper().getImportFileType(file)), "type");
}

void TestDetection::looksAtTheFirstMiBOnly()
{
    const QString file = folder.filePath(QStringLiteral("big.asc"));
    const QByteArray lines = QByteArray("some line\n").repeated(104858);
    writeFile(file, lines.left(1048576 - 8) + "BitCount");
    QCOMPARE(DatachunkHelper().getImportFileType(file), DatachunkHelper::VectorAsc);
    writeFile(file, lines.left(1048576 - 7) + "BitCount");
    QCOMPARE(DatachunkHelper().getImportFileType(file), DatachunkHelper::Unknown);
}

void TestDetection::fileThatCannotBeReadIsUnknown()
{
    const QString pipe = folder.filePath(QStringLiteral("pipe.log"));
    QCOMPARE(mkfifo(qPrintable(pipe), 0600), 0);
    for (const QString &file : {pipe, folder.path(), folder.filePath(QStringLiteral("none.log"))}) {
        QCOMPARE(DatachunkHelper().checkTxtFile(file), DatachunkHelper::Unknown);
        QCOMPARE(DatachunkHelper().checkPeakVersion(file), DatachunkHelper::Unknown);
    }
}

QTEST_APPLESS_MAIN(TestDetection)
#include "tst_detection.moc"
