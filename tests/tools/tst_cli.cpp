#include "archives.h"
#include "program.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

// What the commands refuse, and the commands that read files.
class TestCli : public FolderTest
{
    Q_OBJECT
private slots:
    void wrongUse_data();
    void wrongUse();
    void failures_data();
    void failures();
    void helpIsNoFailure();
    void theLanguageIsThatOfTheUser_data();
    void theLanguageIsThatOfTheUser();
    void detectNamesTheTypeOfEachFile();
    void infoCountsWhatATraceHolds();
    void dumpSelects_data();
    void dumpSelects();
    void dumpPrintsTheTextForm_data();
    void dumpPrintsTheTextForm();
    void jsonHoldsEveryField();
    void aLongTraceIsReadToItsEnd();
    void readingStopsWhereNothingMoreIsWanted();
    void controlCharactersAreShown();
    void lossIsTold();
    void debugLinesOnlyWhenAskedFor();
};

namespace {

// Arguments, a tab and how the error begins.
void readCases(const QString &name)
{
    QTest::addColumn<QByteArray>("text");
    const QByteArray cases = readFile(QStringLiteral(TESTDATA "/program/") + name);
    for (const QByteArray &line : cases.chopped(1).split('\n'))
        QTest::newRow(line.left(line.indexOf('\t'))) << line.mid(line.indexOf('\t') + 1);
}

} // namespace

void TestCli::wrongUse_data()
{
    readCases(QStringLiteral("wrong_use.tsv"));
}

void TestCli::wrongUse()
{
    QFETCH(QByteArray, text);
    const ProgramResult result = run(QTest::currentDataTag());
    QCOMPARE(result.status, 2);
    QVERIFY2(result.errors.startsWith("datachunk: " + text), result.errors);
    QVERIFY(result.output.isEmpty());
    QCOMPARE(namesIn("."), QStringList());
}

void TestCli::failures_data()
{
    readCases(QStringLiteral("failures.tsv"));
}

void TestCli::failures()
{
    QFETCH(QByteArray, text);
    QVERIFY(QDir().mkdir("none") && QDir().mkdir("folder"));
    writeFile("a.log", candumpLines(0, 1));
    writeFile("odd.txt", "nothing that is known\n");
    writeFile("empty.txt", {});
    writeFile("empty.dck", {});
    writeFile("broken.zip", "PK no archive at all");
    writeFile("newer.dck", newerChunkBytes());
    writeKinds("kinds.dck");
    writeKinds("folder/kinds.dck");
    QVERIFY(QFile::link("kinds.dck", "soft.zip") && link("kinds.dck", "hard.zip") == 0);
    QVERIFY(writeArchive("newer.zip", {{"newer.dck", newerChunkBytes()}}));
    const auto before = filesBelow(".");
    QCOMPARE(mkfifo("pipe", 0600), 0);
    const QByteArray errors = errorsOf(QTest::currentDataTag());
    QVERIFY2(errors.startsWith("datachunk: " + text), errors);
    QVERIFY(QFile::remove("pipe"));
    QCOMPARE(filesBelow("."), before);
}

void TestCli::helpIsNoFailure()
{
    QVERIFY(outputOf("--help").contains("  record "));
    QVERIFY(outputOf("dump --help").contains("  --json "));
}

void TestCli::theLanguageIsThatOfTheUser_data()
{
    QTest::addColumn<QString>("environment");
    QTest::addColumn<QByteArray>("start");
    QTest::newRow("a locale") << "LC_ALL=de_DE.UTF-8" << QByteArray("Aufruf: datachunk BEFEHL");
    QTest::newRow("a list of languages") << "LANGUAGE=it:fr:de" << QByteArray("Usage : datachunk");
    QTest::newRow("none") << "LC_ALL=C LANGUAGE=de" << QByteArray("Usage: datachunk");
    QTest::newRow("English before others") << "LANGUAGE=en:de" << QByteArray("Usage: datachunk");
}

void TestCli::theLanguageIsThatOfTheUser()
{
    QFETCH(QString, environment);
    QFETCH(QByteArray, start);
    const ProgramResult help = run("--help", {}, "export " + environment + ';');
    QVERIFY2(help.output.startsWith(start), help.output);
    writeFile("a.log", candumpLines(0, 1) + "no frame\n");
    const ProgramResult json = run("dump a.log --report json", {}, "export " + environment + ';');
    QVERIFY2(json.errors.contains("\"what\":\"not the shape of a frame\""), json.errors);
}

void TestCli::detectNamesTheTypeOfEachFile()
{
    writeFile("a.log", candumpLines(0, 1));
    writeFile("b.txt", "nothing that is known\n");
    const ProgramResult result = run("detect a.log gone.log b.txt");
    QCOMPARE(result.output, "SocketCanDump a.log\nUnknown b.txt\n");
    QCOMPARE(result.errors, "datachunk: gone.log: The file at gone.log does not exists.\n");
    QCOMPARE(result.status, 1);
}

void TestCli::infoCountsWhatATraceHolds()
{
    writeKinds("kinds.dck");
    QCOMPARE(outputOf("info kinds.dck"), R"(file:           kinds.dck
type:           ChunkFile
messages:       5
time:           100.000042 - 104.000042
line 1:         3
line 2:         2
identifiers:    4
FD frames:      1
remote frames:  1
error frames:   1
  Stuff error:  1
notes:          1
)");
}

void TestCli::dumpSelects_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<QList<int>>("seconds");
    QTest::newRow("everything") << "" << QList<int>{100, 101, 102, 103, 104};
    QTest::newRow("from a position") << "--from 3" << QList<int>{103, 104};
    QTest::newRow("from behind the end") << "--from 5" << QList<int>{};
    QTest::newRow("some messages") << "--from 1 --count 2" << QList<int>{101, 102};
    QTest::newRow("none") << "--count 0" << QList<int>{};
    QTest::newRow("a line") << "--line 2" << QList<int>{103, 104};
    QTest::newRow("an identifier, whatever its kind") << "--id 120" << QList<int>{100, 104};
    QTest::newRow("all at once") << "--id 0120 --from 1 --count 1" << QList<int>{104};
}

void TestCli::dumpSelects()
{
    QFETCH(QString, options);
    QFETCH(QList<int>, seconds);
    writeKinds("kinds.dck");
    const QByteArray output = outputOf("dump kinds.dck " + options);
    QCOMPARE(secondsInText(output), seconds);
    QCOMPARE(output.count('\n'), seconds.size());
}

void TestCli::dumpPrintsTheTextForm_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QByteArray>("output");
    const QByteArray line = "   0.000000 0x123/291  (2): 11 22 ;0;\n";
    QTest::newRow("of a type given by name") << "screen.xyz --type SocketCanDump" << line;
    QTest::newRow("of a described layout") << "odd.xyz --format 'i t l d'" << line;
    QTest::newRow("with notes")
        << "kinds.dck --count 2"
        << QByteArray(" 100.000042 0x120/288  (2): ab 00 ;0;\n"
                      " 101.000042 0x121/289  (0): Remote Transmission Request;0;look here\n");
}

void TestCli::dumpPrintsTheTextForm()
{
    QFETCH(QString, arguments);
    QFETCH(QByteArray, output);
    writeFile("screen.xyz", "  vcan0  123   [2]  11 22\n");
    writeFile("odd.xyz", "123 0.000000 2 11 22\n");
    writeKinds("kinds.dck");
    QCOMPARE(outputOf("dump " + arguments), output);
}

void TestCli::jsonHoldsEveryField()
{
    writeKinds("kinds.dck");
    const QList<QByteArray> lines = outputOf("dump kinds.dck --json").split('\n');
    // But for flags that are not set, and for what is compared by itself.
    const char *const expected[] = {
        R"({"data":"ab00","id":288,"length":2,"line":1})",
        R"({"data":"","id":289,"length":0,"line":1,"note":"look here","remote":true})",
        R"({"data":"","fd":true,"id":290,"length":0,"line":1})",
        R"({"data":"01","error":true,"errorType":"Stuff error","id":4294901999,"length":1,"line":2})",
        R"({"data":"","extended":true,"id":288,"length":0,"line":2})"};
    QCOMPARE(lines.size(), 6);
    for (int i = 0; i < 5; ++i) {
        QJsonObject message = QJsonDocument::fromJson(lines.at(i)).object();
        QCOMPARE(message.size(), i == 1 || i == 3 ? 15 : 14);
        QCOMPARE(message.take("number").toInt(), 10 + i);
        QCOMPARE(message.take("seconds").toInt(), 100 + i);
        QCOMPARE(message.take("microseconds").toInt(), 42);
        for (const QString &key : message.keys()) {
            if (message.value(key) == QJsonValue(false))
                message.remove(key);
        }
        QCOMPARE(QJsonDocument(message).toJson(QJsonDocument::Compact), expected[i]);
    }
}

void TestCli::aLongTraceIsReadToItsEnd()
{
    constexpr int count = 260000; // more than the program holds in memory at once
    writeFile("long.log", candumpLines(0, count));
    // Nothing of it is put on the disk.
    const QByteArray info = run("info long.log", {}, "ulimit -f 0;").output;
    QVERIFY2(info.contains("messages:       260000\n"), info);
    QVERIFY2(info.contains("time:           0.000000 - 259999.000000\n"), info);
    QCOMPARE(secondsInText(outputOf("dump long.log")), numbersFrom(0, count));
    QCOMPARE(secondsInText(outputOf("dump long.log --from 249999 --count 2")),
             numbersFrom(249999, 2));
    const ProgramResult cutShort = run("dump long.log | head -n 1");
    QCOMPARE(cutShort.output.count('\n'), 1);
    QCOMPARE(cutShort.errors, "");
    QCOMPARE(outputOf("export long.log --to all.dck"), "all.dck\n");
    QCOMPARE(secondsInChunk("all.dck"), numbersFrom(0, count));
    QCOMPARE(outputOf("export long.log --to all.txt"), "all.txt\n");
    QCOMPARE(secondsInText(readFile("all.txt")), numbersFrom(0, count));
    QCOMPARE(outputOf("export long.log --to across.txt --range 249999:250000"), "across.txt\n");
    QCOMPARE(secondsInText(readFile("across.txt")), numbersFrom(249999, 2));
}

void TestCli::readingStopsWhereNothingMoreIsWanted()
{
    writeFile("broken.trc", ";$FILEVERSION=1.1\n 1) 1.0 Rx 0123 1 11\n 2) 2.0 Rx\n");
    QCOMPARE(outputOf("dump broken.trc --count 1").count('\n'), 1);
    const ProgramResult whole = run("dump broken.trc --strict");
    QCOMPARE(whole.status, 1);
    QVERIFY2(whole.errors.contains("line 3 of file broken.trc"), whole.errors);
    QVERIFY(errorsOf("info broken.trc --strict").contains("line 3"));
    QVERIFY(errorsOf("export broken.trc --strict --to x.txt").contains("line 3"));
}

// Whoever made the file could otherwise steer the terminal.
void TestCli::controlCharactersAreShown()
{
    const QString escape = QStringLiteral("\x1b[2J");
    const QString note = escape + QStringLiteral("\r\n\x7f") + QChar(0x9b);
    const QByteArray chunk = chunkBytes("1.0", 0, 1, {{0, note}});
    writeFile(escape + ".dck", chunk);
    writeFile("a.dck", chunk);
    QVERIFY(outputOf("info *J.dck").startsWith("file:           \\x1b[2J.dck\n"));
    QCOMPARE(outputOf("detect *J.dck"), "ChunkFile \\x1b[2J.dck\n");
    QVERIFY(outputOf("dump a.dck").endsWith(";\\x1b[2J\\x0d\\x0a\\x7f\\x9b\n"));
    QVERIFY(outputOf("export a.dck --notes --to -").endsWith(";\\x1b[2J\\x0d\\x0a\\x7f\\x9b\n"));
    QCOMPARE(outputOf("export a.dck --notes --to a.txt"), "a.txt\n");
    QVERIFY(readFile("a.txt").endsWith((note + '\n').toUtf8()));
    QVERIFY(errorsOf("info " + escape).startsWith("datachunk: \\x1b[2J: "));
}

void TestCli::lossIsTold()
{
    writeFile("a.log", candumpLines(0, 2) + "(1.0) can0 123#11223\nno frame\n");
    const ProgramResult told = run("info a.log");
    QCOMPARE(told.status, 0);
    QVERIFY(told.output.contains("messages:       2\n"));
    QCOMPARE(told.errors.split('\n').size(), 4);
    QVERIFY(told.errors.contains("4 lines, 2 frames, 0 notes; not all of it could be kept:"));
    QVERIFY(told.errors.contains("(line 4)"));
    QCOMPARE(run("info a.log --fail-on-loss").status, 1);
    QCOMPARE(run("import a.log --into x --fail-on-loss").status, 1);
    const QJsonObject report =
        QJsonDocument::fromJson(run("dump a.log --report json").errors).object();
    QCOMPARE(report.value("lines").toInt(), 4);
    const ProgramResult strict = run("info --strict a.log");
    QVERIFY(strict.output.contains("messages:       3\n"));
    QVERIFY(strict.errors.contains("does not look like one: 1 (line 3)"));
    QVERIFY(outputOf("detect --explain a.log").startsWith("SocketCanDump a.log\n    50% Line 1 "));
    writeFile("a.blf", "LOGG...");
    QVERIFY(outputOf("detect --explain a.blf").contains("Export it as an ASC text"));
}

void TestCli::debugLinesOnlyWhenAskedFor()
{
    writeFile("a.log", candumpLines(0, 1));
    QCOMPARE(run("info a.log").errors,
             "datachunk: a.log: 1 lines, 1 frames, 0 notes; nothing was lost.\n");
    QVERIFY(run("import a.log --into x --verbose").errors.contains("DatachunkHandler::import"));
}

QTEST_GUILESS_MAIN(TestCli)
#include "tst_cli.moc"
