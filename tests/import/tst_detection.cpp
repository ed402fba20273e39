#include "datachunkhelper.h"
#include "storefixture.h"

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
    const auto row = [](const char *what, const char *name, const QByteArray &content,
                        H::ImportFileType type) {
        QTest::newRow(what) << QString(name) << content << int(type);
    };
    row("chunk by its ending", "a.dck", "PCAN-Explorer", H::ChunkFile);
    row("archive by its ending", "azip", "", H::ZipArchive);
    row("capitals are no known ending", "a.ASC", "Begin Triggerblock", H::Unknown);
    row("PEAK 1.0", "a.trc", ";$FILEVERSION=1.0\n", H::PeakTrc10);
    row("PEAK 1.3 without a line end", "a.trc", ";$FILEVERSION=1.3", H::PeakTrc13);
    row("PEAK 2.1 behind the last =", "a.trc", "=9=FILEVERSION=2.1\n", H::PeakTrc21);
    row("PEAK 1.5 does not exist", "a.trc", ";$FILEVERSION=1.5\n", H::Unknown);
    row("266 is not 10", "a.trc", ";$FILEVERSION=266\n", H::Unknown);
    row("blank behind the version", "a.trc", ";$FILEVERSION=1.1 \n", H::Unknown);
    row("blank before the version", "a.trc", ";$FILEVERSION= 1.1\n", H::PeakTrc11);
    row("blank behind the last point", "a.trc", ";$FILEVERSION=11 .\n", H::Unknown);
    row("CR without a line feed", "a.trc", ";$FILEVERSION=1.1\r", H::Unknown);
    row("CR before the line end", "a.trc", ";$FILEVERSION=1.1\r\r\n", H::Unknown);
    row("CR within the version", "a.trc", ";$FILEVERSION=1.\r1\r\n", H::Unknown);
    row("version in the second line", "a.trc", ";\n;$FILEVERSION=1.1\n", H::Unknown);
    row("empty trace", "a.trc", "", H::Unknown);
    row("trace without a version", "a.trc", "1) 2.3 Rx 300 1 00\n", H::Unknown);
    const QByteArray kolvar = "# timestamp id (dlc): data;flags\n";
    row("only line feeds", "a.txt", "\n\n\n", H::EmptyTxtFile);
    row("PCAN-Explorer wins over Kvaser", "a.txt", "Kvaser\nPCAN-Explorer", H::PcanExplorerTxt);
    row("Kolvar after empty lines", "a.log", "\n\n" + kolvar, H::KolvarTxt);
    row("Kolvar wins over CoCTT", "a.log", kolvar + "Test CAN", H::KolvarTxt);
    row("Kolvar header in the second line", "a.log", "x\n" + kolvar, H::Unknown);
    row("CoCTT wins over Ixxat", "a.csv", "Bus,No\nTest CAN", H::CoCTTLog);
    row("Ixxat with quotes", "a.csv", "\"Bus\",\"No\"\n", H::IxxatTrace);
    row("Ixxat without quotes", "a.csv", "Bus,No,Time\n", H::IxxatTrace);
    row("Ixxat header must come first", "a.csv", "\nBus,No,Time\n", H::Unknown);
    row("ASC that mentions Kvaser", "a.asc", "Begin Triggerblock Kvaser", H::KvaserTxtLog);
    row("CanKing received", "a.txt", "0 1 2 1 2 3.5   R \r\n", H::KvaserCanKingLog);
    row("CanKing sent", "a.txt", "0 1 2 1 2 3.5 T", H::KvaserCanKingLog);
    row("candump with an interface", "a.log", "can12  123 [1] 00", H::SocketCanDump);
    row("interface in hexadecimal", "a.log", "can0x1f 123 [1] 00", H::SocketCanDump);
    row("interface without a number", "a.log", "can 123 [1] 00", H::Unknown);
    row("vcan0 is no interface", "a.log", "vcan0 123 [1] 00", H::Unknown);
    row("open parenthesis with can inside", "a.log", "(can0 1", H::Unknown);
    row("UTF-16 is decoded", "a.asc",
        QByteArray("\xff\xfe"
                   "d\0\n\0"
                   "B\0i\0t\0C\0o\0u\0n\0t\0",
                   22),
        H::VectorAsc);
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
