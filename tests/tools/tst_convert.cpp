#include "archives.h"
#include "program.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QtTest>

#include <csignal>

// Traces written in the formats of other tools.
class TestConvert : public FolderTest
{
    Q_OBJECT
private slots:
    void everyFormatThatWeReadComesBack_data();
    void everyFormatThatWeReadComesBack();
    void aChunkFileMayHaveAnyName();
    void inputsAreMergedByTime_data();
    void inputsAreMergedByTime();
    void numbersStayUniqueInAChunkFile();
    void differentTimeBasesAreToldOnce();
    void standardStreamsTakeTheirPlace_data();
    void standardStreamsTakeTheirPlace();
    void standardInputCannotBeReadTwice();
    void aKnownTypeIsNotWaitedFor();
    void aSignalIsToldOnce();
    void foldersAreConvertedFileByFile();
    void lossesAreTold();
    void whatFailsLeavesNothing_data();
    void whatFailsLeavesNothing();
};

namespace {

// One frame each \a step seconds; the payload tells the second.
QByteArray frames(int first, int count, int step = 1, const char *id = "123")
{
    QByteArray text;
    for (int i = first; i < first + count * step; i += step)
        text += QString::asprintf("(%d.250000) can0 %s#%02X\n", i, id, i & 255).toLatin1();
    return text;
}

} // namespace

void TestConvert::everyFormatThatWeReadComesBack_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<QString>("file");
    const auto row = [](const char *name, const char *options, const char *file) {
        QTest::newRow(name) << options << file;
    };
    row("candump", "", "out.log");
    row("what --as says, whatever the name", "--as candump", "out.asc");
    row("asc", "", "out.asc");
    row("asc, times from message to message", "--times delta", "out.asc");
    row("trc 1.1", "--as trc11", "out.trc");
    row("trc 2.1", "", "out.trc");
    row("a chunk file", "", "out.dck");
}

void TestConvert::everyFormatThatWeReadComesBack()
{
    QFETCH(QString, options);
    QFETCH(QString, file);
    // More than the blocks between the threads hold, and times that all formats can say.
    writeFile("day.log", frames(0, 20000));
    const QByteArray read = outputOf("dump day.log");
    for (const char *command :
         {"convert day.log %1 %2", "export day.log --to %1 %2", "convert --to %1 %2 day.log"}) {
        QCOMPARE(outputOf(QString(command).arg(file, options)), file.toLatin1() + '\n');
        const QByteArray back = outputOf("dump " + file);
        // Some formats count from the first message.
        QCOMPARE(back.count('\n'), 20000);
        QVERIFY(back.endsWith(read.right(20)));
        QVERIFY(QFile::remove(file));
    }
}

void TestConvert::aChunkFileMayHaveAnyName()
{
    writeFile("day.log", frames(0, 10));
    QCOMPARE(outputOf("convert day.log --as dck out.log"), "out.log\n");
    QCOMPARE(outputOf("dump --type ChunkFile out.log"), outputOf("dump day.log"));
    QCOMPARE(outputOf("convert day.log --as txt out.dck"), "out.dck\n");
    QCOMPARE(readFile("out.dck"), outputOf("convert day.log --as txt -"));
}

void TestConvert::inputsAreMergedByTime_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QList<int>>("seconds");
    const auto row = [](const char *name, const char *arguments, const QList<int> &seconds) {
        QTest::newRow(name) << arguments << seconds;
    };
    row("two", "odd.log even.log", numbersFrom(0, 3000));
    row("the other way", "even.log odd.log", numbersFrom(0, 3000));
    row("a folder and a text", "chunks odd.log", numbersFrom(0, 3000));
    row("one is shorter", "even.log five.log --until 5", {0, 2, 4, 5, 6, 6});
    row("of equal times the first named is first", "five.log even.log --select 4 --id 123", {6});
    row("one is out of order", "back.log five.log", {5, 6, 7, 8, 9, 4, 5, 9});
    row("positions are those of the merged trace", "odd.log even.log --range 7:9", {7, 8, 9});
    row("an expression in front of the merge", "odd.log even.log --time 99..102 --count 2",
        {99, 100});
    row("both", "odd.log even.log --id 123 --from 4 --count 2", {4, 6});
}

void TestConvert::inputsAreMergedByTime()
{
    QFETCH(QString, arguments);
    QFETCH(QList<int>, seconds);
    writeFile("even.log", frames(0, 1500, 2));
    writeFile("odd.log", frames(1, 1500, 2, "321"));
    writeFile("five.log", frames(5, 5));
    writeFile("back.log", frames(9, 1) + frames(4, 2));
    QCOMPARE(outputOf("import even.log --into chunks --messages 400").count('\n'), 4);
    QCOMPARE(secondsInText(outputOf("convert --to - --as txt " + arguments)), seconds);
    QCOMPARE(outputOf("convert --to all.log " + arguments), "all.log\n");
    QCOMPARE(secondsInText(outputOf("dump all.log")), seconds);
}

void TestConvert::numbersStayUniqueInAChunkFile()
{
    writeKinds("a.dck");
    QVERIFY(QFile::copy("a.dck", "b.dck"));
    QCOMPARE(outputOf("convert a.dck b.dck both.dck"), "both.dck\n");
    const ReadChunk both = readChunkFile("both.dck");
    QCOMPARE(both.messages.size(), 10);
    QCOMPARE(both.notes.size(), 2);
    QCOMPARE(both.bookmarks.size(), 2);
    for (const CAN::CanRxMessage &message : both.messages)
        QCOMPARE(both.notes.contains(message.messageNumber), message.seconds == 101);
    QVERIFY(QDir().mkdir("folder"));
    QVERIFY(QFile::rename("a.dck", "folder/a.dck"));
    QCOMPARE(outputOf("convert folder one.dck"), "one.dck\n");
    QCOMPARE(readChunkFile("one.dck").notes, readChunkFile("b.dck").notes);
    QVERIFY(readChunkFile("one.dck").bookmarks == readChunkFile("b.dck").bookmarks);
}

void TestConvert::differentTimeBasesAreToldOnce()
{
    writeFile("a.log", frames(1436509052, 2));
    writeFile("b.log", frames(0, 2));
    for (const char *target : {"out.log", "out.dck"}) {
        const ProgramResult result = run(QString("convert a.log b.log ") + target);
        QCOMPARE(result.status, 0);
        QCOMPARE(result.errors.count("do not count from 1970"), 1);
    }
}

void TestConvert::standardStreamsTakeTheirPlace_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<int>("count");
    QTest::newRow("short") << "convert - -" << 3;
    QTest::newRow("longer than what is kept of it") << "convert - -" << 200000;
    QTest::newRow("merged with a file") << "convert - empty.log --to -" << 200000;
    QTest::newRow("of a type that is told") << "convert - - --type SocketCanDump" << 2000;
    QTest::newRow("read by export") << "export - --to -" << 2000;
    QTest::newRow("read strictly") << "convert - - --strict" << 2000;
}

void TestConvert::standardStreamsTakeTheirPlace()
{
    QFETCH(QString, arguments);
    QFETCH(int, count);
    const QByteArray input = frames(0, count);
    writeFile("empty.log", frames(0, 0) + "(1.000000) can0 7FF#\n");
    const QByteArray output = outputOf(arguments + " --as candump --id 123", input);
    QCOMPARE(output.size(), input.size());
    QVERIFY(output == input);
}

void TestConvert::standardInputCannotBeReadTwice()
{
    QCOMPARE(outputOf("convert - out.dck", frames(0, 9)), "out.dck\n");
    QVERIFY(errorsOf("convert - long.dck", frames(0, 200000)).contains("has to be read twice"));
    QVERIFY(errorsOf("convert - - out.log", frames(0, 9)).contains("only once"));
    QVERIFY(errorsOf("dump -", chunkBytes("1.0", 0, 3)).contains("Only plain texts"));
    QVERIFY(!QFile::exists("long.dck"));
}

void TestConvert::aKnownTypeIsNotWaitedFor()
{
    QProcess process;
    process.start(
        programPath(),
        {"convert", "-", "-", "--as", "candump", "--type", "SocketCanDump", "--count", "2"});
    process.write(frames(0, 200));
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.readAllStandardOutput(), frames(0, 2));
}

void TestConvert::aSignalIsToldOnce()
{
    writeFile("day.log", frames(0, 200000));
    QProcess process;
    process.start(programPath(), {"convert", "day.log", "-", "out.asc", "--type", "SocketCanDump"});
    process.write(frames(0, 9));
    QTRY_VERIFY(!namesIn(".").filter(".datachunk-work").isEmpty());
    QCOMPARE(kill(pid_t(process.processId()), SIGINT), 0);
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 1);
    const QByteArray errors = process.readAllStandardError();
    QCOMPARE(errors.count("Stopped by a signal"), 1);
    QCOMPARE(namesIn("."), QStringList("day.log"));
}

void TestConvert::foldersAreConvertedFileByFile()
{
    QVERIFY(QDir().mkdir("b"));
    writeFile("a.log", frames(0, 3));
    writeFile("b/a.log", frames(0, 4) + "(5.000000) can0 123##0AA\n");
    writeFile("broken.log", "nothing\n");
    const ProgramResult result =
        run("convert --into out --as trc11 a.log b/a.log broken.log a.log");
    QCOMPARE(result.status, 1);
    QCOMPARE(result.output,
             "out/a.trc: 3 messages.\n"
             "out/a-2.trc: 4 messages, 1 left out. Left out: CAN FD frames (1).\n"
             "out/a-3.trc: 3 messages.\n");
    QVERIFY(result.errors.contains("datachunk: broken.log: "));
    QCOMPARE(namesIn("out"), (QStringList{"a-2.trc", "a-3.trc", "a.trc"}));
    QVERIFY(QDir().mkdir("chunks"));
    writeFile("chunks/tmpData0.dck", chunkBytes("1.0", 0, 3));
    QCOMPARE(outputOf("convert --into out --as jsonl chunks/. chunks/../chunks"),
             "out/chunks.jsonl: 3 messages.\nout/chunks-2.jsonl: 3 messages.\n");
    QCOMPARE(run("convert --into ../out --as jsonl .", {}, "cd chunks;").output,
             "../out/chunks-3.jsonl: 3 messages.\n");
}

void TestConvert::lossesAreTold()
{
    writeKinds("kinds.dck");
    const ProgramResult told = run("convert kinds.dck out.log");
    QCOMPARE(told.status, 0);
    QVERIFY2(told.errors.contains("Not written: notes (1)."), told.errors);
    QVERIFY2(told.errors.contains("Not written: bookmarks (1)."), told.errors);
    QCOMPARE(run("export kinds.dck --to b.log --fail-on-loss").status, 1);
    QCOMPARE(run("convert kinds.dck whole.dck --fail-on-loss").status, 0);
    const ProgramResult asJson =
        run("convert kinds.dck out.trc --as trc11 --report json", {}, "export LANGUAGE=de;");
    const QJsonObject report = QJsonDocument::fromJson(asJson.errors).object();
    QCOMPARE(report.value("format").toString(), QString("trc11"));
    QCOMPARE(report.value("written").toInt() + report.value("leftOut").toInt(), 5);
    QVERIFY2(asJson.errors.contains(R"({"count":1,"what":"note"})"), asJson.errors);
    const ProgramResult named = run("convert kinds.dck \u009b1m.trc --report json");
    QVERIFY2(named.errors.contains("\"file\":\"\\u009b1m.trc\""), named.errors);
}

void TestConvert::whatFailsLeavesNothing_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QByteArray>("error");
    QTest::addColumn<int>("status");
    const auto row = [](const char *arguments, const char *error, int status) {
        QTest::newRow(arguments) << arguments << QByteArray(error) << status;
    };
    row("convert a.log", "the name of the file to write is missing", 2);
    row("convert a.log ''", "the name of the file to write is missing", 2);
    row("convert a.log --as asc --into ''", "--into is missing", 2);
    row("convert a.log out.xyz", "\"out.xyz\" does not end in the name of a format", 2);
    row("convert a.log out --as xyz", "there is no format \"xyz\"", 2);
    row("convert a.log out.asc --times 5", "--times takes absolute or delta", 2);
    row("convert a.log --into out", "--into needs --as", 2);
    row("convert a.log - --as dck", "standard output: A chunk file is not written", 1);
    row("convert a.log a.log", "a.log: The file exists already.", 1);
    row("convert a.log none.log out.asc", "none.log: The file at none.log does not exists.", 1);
    row("convert a.log none/out.asc", "none/out.asc: ", 1);
    row("convert a.log out.asc --id 5", "a.log: ", 1);
    row("convert cut.dck a.log out.dck --id 5", "", 1);
}

void TestConvert::whatFailsLeavesNothing()
{
    QFETCH(QString, arguments);
    QFETCH(QByteArray, error);
    QFETCH(int, status);
    writeFile("a.log", frames(0, 9));
    writeFile("cut.dck", chunkBytes("1.0", 0, 9).chopped(7));
    const QStringList before = namesIn(".");
    const ProgramResult result = run(arguments);
    QCOMPARE(result.status, status);
    QVERIFY2(result.errors.startsWith("datachunk: " + error), result.errors);
    QVERIFY(result.output.isEmpty());
    QCOMPARE(namesIn("."), before);
}

QTEST_GUILESS_MAIN(TestConvert)
#include "tst_convert.moc"
