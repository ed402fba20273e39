#include "canrxmessage.h"
#include "program.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

// The commands that read files.
class TestCli : public FolderTest
{
    Q_OBJECT
private slots:
    void wrongUse_data();
    void wrongUse();
    void helpIsNoFailure();
    void detectNamesTheTypeOfEachFile();
    void failures_data();
    void failures();
    void infoCountsWhatATraceHolds();
    void dumpSelects_data();
    void dumpSelects();
    void theTypeCanBeGiven_data();
    void theTypeCanBeGiven();
    void dumpPrintsNotes();
    void jsonHoldsEveryField();
    void aLongTraceIsReadToItsEnd();
    void aReaderThatGoesAwayLeavesNothingBehind();
    void importMakesNumberedChunks();
    void importOverwritesNothing();
    void splitMakesParts();
    void splitRefusesMoreThan256Parts();
    void debugLinesOnlyWhenAskedFor();
};

void TestCli::wrongUse_data()
{
    QTest::addColumn<QString>("arguments");
    const auto row = [](const char *name, const char *arguments) {
        QTest::newRow(name) << QString::fromLatin1(arguments);
    };
    row("no command", "");
    row("unknown command", "explode a.log");
    row("unknown option", "info a.log --nonsense");
    row("no file", "info");
    row("two files where one is taken", "dump a.log b.log");
    row("unknown type", "info a.log --type Nonsense");
    row("described layout with another type", "info a.log --type VectorAsc --format x");
    row("type GenericFormat without a layout", "info a.log --type GenericFormat");
    row("count that is no number", "dump a.log --count many");
    row("negative position to begin at", "dump a.log --from -1");
    row("line beyond 255", "dump a.log --line 256");
    row("identifier beyond 32 bits", "dump a.log --id 100000000");
    row("import without a folder", "import a.log");
    row("export without a target", "export a.log --range 0:1");
    row("range that runs backwards", "export a.log --to r --range 5:4");
    row("range without an end", "export a.log --to r --range 5:");
    row("range of three", "export a.log --to r --range 1:2:3");
    row("negative position", "export a.log --to r --select 1,-1");
    row("empty position", "export a.log --to r --select 1,,2");
    row("range and single positions", "export a.log --to r --range 0:1 --select 0");
    row("pack without a target", "pack a.dck");
    row("unpack without a folder", "unpack a.zip");
    row("merge without a target", "merge a.zip --notes");
    row("parts of nothing", "split a.dck --messages 0");
    row("split without a size", "split a.dck");
    row("record without a folder", "record");
    row("plug-in without an interface", "record --into r --plugin virtualcan");
    row("limit at which no chunk is ever full", "record --into r --limit 5000");
    row("budget of nothing", "record --into r --budget 0");
}

void TestCli::wrongUse()
{
    QFETCH(QString, arguments);
    const ProgramResult result = runProgram(words(arguments));
    QCOMPARE(result.status, 2);
    QVERIFY(result.errors.startsWith("datachunk: "));
    QVERIFY(result.output.isEmpty());
    QVERIFY(!QFile::exists(QStringLiteral("r")));
}

void TestCli::helpIsNoFailure()
{
    const ProgramResult general = runProgram({QStringLiteral("--help")});
    QCOMPARE(general.status, 0);
    QVERIFY(general.output.contains("record"));
    const ProgramResult ofCommand = runProgram(words(QStringLiteral("dump --help")));
    QCOMPARE(ofCommand.status, 0);
    QVERIFY(ofCommand.output.contains("--json"));
}

void TestCli::detectNamesTheTypeOfEachFile()
{
    writeFile(QStringLiteral("a.log"), candumpLines(0, 1));
    writeFile(QStringLiteral("b.txt"), "nothing that is known\n");
    const ProgramResult result = runProgram(words(QStringLiteral("detect a.log gone.log b.txt")));
    QCOMPARE(result.output, QByteArray("SocketCanDump a.log\nUnknown b.txt\n"));
    QCOMPARE(result.errors,
             QByteArray("datachunk: gone.log: The file at gone.log does not exists.\n"));
    QCOMPARE(result.status, 1);
}

void TestCli::failures_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QByteArray>("text");
    const auto row = [](const char *name, const char *arguments, const char *text) {
        QTest::newRow(name) << QString::fromLatin1(arguments) << QByteArray(text);
    };
    row("file that is not there", "info gone.log",
        "gone.log: The file at gone.log does not exists.");
    row("folder in place of a file", "dump folder.log", "folder.log: The file at folder.log");
    row("chunk that is not there", "split gone.dck --messages 1", "gone.dck: The file at gone.dck");
    row("unknown type", "info odd.txt", "odd.txt: The type of the file is unknown.");
    row("empty text", "dump empty.txt", "empty.txt: The file is empty.");
    row("chunk without messages", "info empty.dck",
        "empty.dck: File seems to be empty or broken, nothing imported.");
    row("chunk of a newer version", "dump newer.dck",
        "newer.dck: This import file was created with a newer version of this tool");
    row("trace without frames", "info a.log --type WiresharkCsv", "a.log: File seems to be empty");
    row("import of a chunk", "import empty.dck --into x",
        "empty.dck: The file is a chunk file already.");
    row("import into a file", "import a.log --into a.log",
        "a.log: The folder could not be created.");
    row("split of a text", "split a.log --messages 1", "a.log: The file is no chunk file.");
    row("recording into a file", "record --into a.log", "a.log: The folder could not be created.");
    row("unknown plug-in", "record --into x --plugin nonsense --interface can0",
        "can0: There is no CAN bus plug-in \"nonsense\".");
}

void TestCli::failures()
{
    QFETCH(QString, arguments);
    QFETCH(QByteArray, text);
    QVERIFY(QDir().mkdir(QStringLiteral("folder.log")));
    writeFile(QStringLiteral("a.log"), candumpLines(0, 1));
    writeFile(QStringLiteral("odd.txt"), "nothing that is known\n");
    writeFile(QStringLiteral("empty.txt"), {});
    writeFile(QStringLiteral("empty.dck"), {});
    QByteArray newer;
    QDataStream stream(&newer, QIODevice::WriteOnly);
    stream << QStringLiteral("0.0 - 1.0") << QStringLiteral("999");
    writeFile(QStringLiteral("newer.dck"), newer);
    const ProgramResult result = runProgram(words(arguments));
    QCOMPARE(result.status, 1);
    QVERIFY2(result.errors.contains("datachunk: " + text), result.errors);
    QVERIFY2(result.output.isEmpty(), result.output);
}

void TestCli::infoCountsWhatATraceHolds()
{
    writeKinds(QStringLiteral("kinds.dck"));
    const ProgramResult result = runProgram(words(QStringLiteral("info kinds.dck")));
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output,
             QByteArray("file:           kinds.dck\n"
                        "type:           ChunkFile\n"
                        "messages:       5\n"
                        "time:           100.000042 - 104.000042\n"
                        "line 1:         3\n"
                        "line 2:         2\n"
                        "identifiers:    4\n"
                        "FD frames:      1\n"
                        "remote frames:  1\n"
                        "error frames:   1\n"
                        "notes:          1\n"));
}

void TestCli::dumpSelects_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<QList<int>>("seconds");
    const auto row = [](const char *name, const char *options, const QList<int> &seconds) {
        QTest::newRow(name) << QString::fromLatin1(options) << seconds;
    };
    row("everything", "", {100, 101, 102, 103, 104});
    row("from a position", "--from 3", {103, 104});
    row("from behind the end", "--from 5", {});
    row("a number of messages", "--from 1 --count 2", {101, 102});
    row("none", "--count 0", {});
    row("a line", "--line 2", {103, 104});
    row("an identifier, whatever its kind", "--id 120", {100, 104});
    row("an identifier from a position", "--id 0120 --from 1 --count 1", {104});
}

void TestCli::dumpSelects()
{
    QFETCH(QString, options);
    QFETCH(QList<int>, seconds);
    writeKinds(QStringLiteral("kinds.dck"));
    const ProgramResult result = runProgram(words(QStringLiteral("dump kinds.dck ") + options));
    QCOMPARE(result.status, 0);
    QList<int> printed;
    for (const QByteArray &line : result.output.split('\n')) {
        if (!line.isEmpty())
            printed.append(int(line.trimmed().split('.').first().toInt()));
    }
    QCOMPARE(printed, seconds);
}

void TestCli::theTypeCanBeGiven_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("options");
    QTest::newRow("by name") << QByteArray("  vcan0  123   [2]  11 22\n")
                             << QStringList{QStringLiteral("--type"),
                                            QStringLiteral("SocketCanDump")};
    QTest::newRow("by a described layout")
        << QByteArray("123 0.000000 2 11 22\n")
        << QStringList{QStringLiteral("--format"), QStringLiteral("i t l d")};
}

void TestCli::theTypeCanBeGiven()
{
    QFETCH(QByteArray, content);
    QFETCH(QStringList, options);
    writeFile(QStringLiteral("odd.xyz"), content);
    const ProgramResult result =
        runProgram(QStringList{QStringLiteral("dump"), QStringLiteral("odd.xyz")} + options);
    QCOMPARE(result.errors, QByteArray());
    QCOMPARE(result.output, QByteArray("   0.000000 0x123/291  (2): 11 22 ;0;\n"));
}

void TestCli::dumpPrintsNotes()
{
    writeKinds(QStringLiteral("kinds.dck"));
    const ProgramResult result = runProgram(words(QStringLiteral("dump kinds.dck --count 2")));
    QCOMPARE(result.output,
             QByteArray(" 100.000042 0x120/288  (2): ab 00 ;0;\n"
                        " 101.000042 0x121/289  (0): Remote Transmission Request;0;look here\n"));
}

void TestCli::jsonHoldsEveryField()
{
    writeKinds(QStringLiteral("kinds.dck"));
    const ProgramResult result = runProgram(words(QStringLiteral("dump kinds.dck --json")));
    const QList<QByteArray> lines = result.output.split('\n');
    QCOMPARE(lines.size(), 6);
    const QJsonObject first = QJsonDocument::fromJson(lines.at(0)).object();
    QCOMPARE(first.value(QStringLiteral("data")).toString(), QStringLiteral("ab00"));
    QCOMPARE(first.value(QStringLiteral("number")).toInt(), 10);
    QCOMPARE(first.value(QStringLiteral("seconds")).toInt(), 100);
    QCOMPARE(first.value(QStringLiteral("microseconds")).toInt(), 42);
    QCOMPARE(first.value(QStringLiteral("id")).toInt(), 0x120);
    QCOMPARE(first.value(QStringLiteral("line")).toInt(), 1);
    QVERIFY(!first.contains(QStringLiteral("note")));
    const char *const flags[] = {"", "remote", "fd", "error", "extended"};
    for (int i = 1; i < 5; ++i) {
        const QJsonObject message = QJsonDocument::fromJson(lines.at(i)).object();
        for (int flag = 1; flag < 5; ++flag)
            QCOMPARE(message.value(QLatin1String(flags[flag])).toBool(), i == flag);
        QCOMPARE(message.value(QStringLiteral("note")).toString(),
                 QLatin1String(i == 1 ? "look here" : ""));
    }
}

void TestCli::aLongTraceIsReadToItsEnd()
{
    constexpr int count = 260000; // more than the program holds in memory at once
    writeFile(QStringLiteral("long.log"), candumpLines(0, count));
    const ProgramResult info = runProgram(words(QStringLiteral("info long.log")));
    QVERIFY2(info.output.contains("messages:       260000\n"), info.output + info.errors);
    QVERIFY(info.output.contains("time:           0.000000 - 259999.000000\n"));
    const ProgramResult dump = runProgram(words(QStringLiteral("dump long.log")));
    QCOMPARE(dump.status, 0);
    const QList<QByteArray> lines = dump.output.split('\n');
    QCOMPARE(lines.size(), count + 1);
    for (int i = 0; i < count; ++i)
        QCOMPARE(lines.at(i).trimmed().split('.').first().toInt(), i);
    const ProgramResult across =
        runProgram(words(QStringLiteral("dump long.log --from 249999 --count 2")));
    QCOMPARE(across.output.count('\n'), 2);
    QVERIFY(across.output.startsWith(" 249999."));
}

void TestCli::aReaderThatGoesAwayLeavesNothingBehind()
{
    writeFile(QStringLiteral("long.log"), candumpLines(0, 20000));
    QProcess shell;
    shell.start(
        QStringLiteral("/bin/sh"),
        {QStringLiteral("-c"), QStringLiteral("\"$0\" dump long.log | head -n 1"), programPath()});
    QVERIFY(shell.waitForFinished());
    QCOMPARE(shell.readAllStandardOutput().count('\n'), 1);
    QCOMPARE(shell.readAllStandardError(), QByteArray());
}

void TestCli::importMakesNumberedChunks()
{
    writeFile(QStringLiteral("day.1.log"), candumpLines(0, 250));
    const ProgramResult result =
        runProgram(words(QStringLiteral("import day.1.log --into new/place --messages 100")));
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output,
             QByteArray("new/place/day.1_0.dck\n"
                        "new/place/day.1_1.dck\n"
                        "new/place/day.1_2.dck\n"));
    QCOMPARE(secondsInChunk(QStringLiteral("new/place/day.1_0.dck")), numbersFrom(0, 100));
    QCOMPARE(secondsInChunk(QStringLiteral("new/place/day.1_1.dck")), numbersFrom(100, 100));
    QCOMPARE(secondsInChunk(QStringLiteral("new/place/day.1_2.dck")), numbersFrom(200, 50));
    QCOMPARE(QDir(QStringLiteral("new/place"))
                 .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot)
                 .size(),
             3);
}

void TestCli::importOverwritesNothing()
{
    writeFile(QStringLiteral("day.log"), candumpLines(0, 10));
    writeFile(QStringLiteral("day_7.dck"), "precious");
    const ProgramResult result = runProgram(words(QStringLiteral("import day.log --into .")));
    QCOMPARE(result.status, 1);
    QVERIFY(result.errors.contains("day_7.dck: The file exists already."));
    QVERIFY(!QFile::exists(QStringLiteral("day_0.dck")));
}

void TestCli::splitMakesParts()
{
    writeKinds(QStringLiteral("whole.dck"));
    const QStringList arguments = words(QStringLiteral("split whole.dck --messages 2"));
    const ProgramResult result = runProgram(arguments);
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output,
             QByteArray("./whole_splitted/whole_0.dck\n"
                        "./whole_splitted/whole_1.dck\n"
                        "./whole_splitted/whole_2.dck\n"));
    QCOMPARE(secondsInChunk(QStringLiteral("whole_splitted/whole_0.dck")), numbersFrom(100, 2));
    QCOMPARE(secondsInChunk(QStringLiteral("whole_splitted/whole_2.dck")), numbersFrom(104, 1));
    const ProgramResult again = runProgram(arguments);
    QCOMPARE(again.status, 1);
    QVERIFY(again.errors.contains("whole_splitted: "));
}

void TestCli::splitRefusesMoreThan256Parts()
{
    writeFile(QStringLiteral("many.log"), candumpLines(0, 257));
    QCOMPARE(runProgram(words(QStringLiteral("import many.log --into ."))).status, 0);
    const ProgramResult tooMany =
        runProgram(words(QStringLiteral("split many_0.dck --messages 1")));
    QCOMPARE(tooMany.status, 1);
    QVERIFY(tooMany.errors.contains("take --messages 2"));
    QVERIFY(!QFile::exists(QStringLiteral("many_0_splitted")));
    QCOMPARE(runProgram(words(QStringLiteral("split many_0.dck --messages 2"))).status, 0);
}

void TestCli::debugLinesOnlyWhenAskedFor()
{
    writeFile(QStringLiteral("a.log"), candumpLines(0, 1));
    QCOMPARE(runProgram(words(QStringLiteral("info a.log"))).errors, QByteArray());
    const ProgramResult verbose = runProgram(words(QStringLiteral("info a.log --verbose")));
    QVERIFY(verbose.errors.contains("void DatachunkHandler::importMessages"));
}

QTEST_GUILESS_MAIN(TestCli)
#include "tst_cli.moc"
