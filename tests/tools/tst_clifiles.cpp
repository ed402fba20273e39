#include "archives.h"
#include "compressed.h"
#include "program.h"

#include <QProcess>
#include <QtTest>

// The commands that write chunks, texts and archives.
class TestCliFiles : public FolderTest
{
    Q_OBJECT
private slots:
    void importMakesNumberedChunks();
    void splitMakesParts();
    void exportTakesWhatIsAskedFor_data();
    void exportTakesWhatIsAskedFor();
    void notesAndBookmarksGoWithTheirMessages();
    void aFullDiskLeavesNothingBehind_data();
    void aFullDiskLeavesNothingBehind();
    void nothingIsOverwritten_data();
    void nothingIsOverwritten();
    void packedChunksComeBackAsTheyWere();
    void packTakesFilesAndReplacesAnArchive();
    void archivesAreReadAsOneTrace();
    void everyChunkOfAnArchiveIsRead();
    void whatIsLeftOfADamagedTraceIsDelivered();
    void compressedTracesAreReadAsTheyAre();
};

namespace {

// Folder "day" with a trace of 250 messages in three chunks, and the same packed.
void makeTrace()
{
    writeFile("day.log", candumpLines(0, 250));
    QCOMPARE(outputOf("import day.log --into day --messages 100").count('\n'), 3);
    QCOMPARE(outputOf("pack day --to day.zip"), "day.zip\n");
}

void compareWithDay(const QString &folder)
{
    QCOMPARE(namesIn(folder), (QStringList{"day_0.dck", "day_1.dck", "day_2.dck"}));
    for (const QString &name : namesIn(folder))
        QCOMPARE(readFile(folder + '/' + name), readFile("day/" + name));
}

} // namespace

void TestCliFiles::importMakesNumberedChunks()
{
    writeFile("day.1.log", candumpLines(0, 250));
    QCOMPARE(outputOf("import day.1.log --into new/place --messages 100"),
             "new/place/day.1_0.dck\nnew/place/day.1_1.dck\nnew/place/day.1_2.dck\n");
    QCOMPARE(secondsInChunk("new/place/day.1_0.dck"), numbersFrom(0, 100));
    QCOMPARE(secondsInChunk("new/place/day.1_1.dck"), numbersFrom(100, 100));
    QCOMPARE(secondsInChunk("new/place/day.1_2.dck"), numbersFrom(200, 50));
    QCOMPARE(namesIn("new/place").size(), 3);
    QVERIFY(QFile::exists("new/place/.chunk-directory"));
}

void TestCliFiles::splitMakesParts()
{
    writeFile("a.dck", chunkBytes("1.0", 0, 257));
    QVERIFY(errorsOf("split a.dck --messages 1").contains("take --messages 2"));
    QVERIFY(!QFile::exists("a_splitted"));
    QCOMPARE(outputOf("split a.dck --messages 100"),
             "./a_splitted/a_0.dck\n./a_splitted/a_1.dck\n./a_splitted/a_2.dck\n");
    QVERIFY(holds("a_splitted/a_0.dck", 0, 99) && holds("a_splitted/a_2.dck", 200, 256));
    QVERIFY(errorsOf("split a.dck --messages 2").startsWith("datachunk: ./a_splitted: "));
}

void TestCliFiles::exportTakesWhatIsAskedFor_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<QList<int>>("seconds");
    QTest::newRow("everything") << "" << QList<int>{100, 101, 102, 103, 104};
    QTest::newRow("both ends of a range") << "--range 1:3" << QList<int>{101, 102, 103};
    QTest::newRow("one message") << "--range 4:4" << QList<int>{104};
    QTest::newRow("a range ends with the trace")
        << "--range 3:18446744073709551615" << QList<int>{103, 104};
    QTest::newRow("positions once each, in order") << "--select 4,0,17,4" << QList<int>{100, 104};
}

void TestCliFiles::exportTakesWhatIsAskedFor()
{
    QFETCH(QString, options);
    QFETCH(QList<int>, seconds);
    writeKinds("kinds.dck");
    QCOMPARE(outputOf("export kinds.dck --to out.txt " + options), "out.txt\n");
    const QByteArray lines = readFile("out.txt");
    QVERIFY(lines.startsWith("# timestamp id (dlc): data;flags;notes\n"));
    QCOMPARE(lines.count('\n'), seconds.size() + 1);
    QCOMPARE(secondsInText(lines), seconds);
    QCOMPARE(outputOf("export kinds.dck --to out.dck " + options), "out.dck\n");
    QCOMPARE(secondsInChunk("out.dck"), seconds);
    QCOMPARE(readChunkFile("out.dck").preamble.timeText,
             QStringLiteral("%1.000042 - %2.000042").arg(seconds.first()).arg(seconds.last()));
}

void TestCliFiles::notesAndBookmarksGoWithTheirMessages()
{
    writeKinds("kinds.dck");
    QCOMPARE(outputOf("export kinds.dck --to plain.txt"), "plain.txt\n");
    QVERIFY(!readFile("plain.txt").contains("look here"));
    QCOMPARE(outputOf("export kinds.dck --to notes.txt --notes"), "notes.txt\n");
    QCOMPARE(readFile("notes.txt").split('\n').at(2),
             " 101.000042 0x121/289  (0): Remote Transmission Request;0;look here");
    QCOMPARE(outputOf("export kinds.dck --to all.dck"), "all.dck\n");
    QCOMPARE(outputOf("pack all.dck --to all.zip"), "all.zip\n");
    QCOMPARE(outputOf("merge all.zip --to merged.dck"), "merged.dck\n");
    const ReadChunk kinds = readChunkFile("kinds.dck");
    for (const char *name : {"all.dck", "merged.dck"}) {
        QCOMPARE(readChunkFile(name).notes, kinds.notes);
        QVERIFY(readChunkFile(name).bookmarks == kinds.bookmarks);
    }
    QCOMPARE(outputOf("export kinds.dck --to with.dck --range 1:1"), "with.dck\n");
    QCOMPARE(readChunkFile("with.dck").notes, kinds.notes);
    QCOMPARE(outputOf("export kinds.dck --to without.dck --range 3:4"), "without.dck\n");
    QVERIFY(readChunkFile("without.dck").notes.isEmpty());
    QVERIFY(readChunkFile("without.dck").bookmarks.isEmpty());
}

void TestCliFiles::aFullDiskLeavesNothingBehind_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::newRow("a chunk") << "export day_0.dck --to out.dck";
    QTest::newRow("a text") << "export day_0.dck --to out.txt";
    QTest::newRow("an archive") << "pack day_0.dck --to out.zip";
    QTest::newRow("unpacked chunks") << "unpack small.zip --into out";
}

void TestCliFiles::aFullDiskLeavesNothingBehind()
{
    QFETCH(QString, arguments);
    writeFile("day_0.dck", chunkBytes("1.0", 0, 20000));
    QCOMPARE(outputOf("pack day_0.dck --to small.zip"), "small.zip\n");
    const auto before = filesBelow(".");
    // A limit on the size of files fails as a full disk does.
    const QByteArray errors = errorsOf(arguments, {}, "ulimit -f 32;");
    QVERIFY2(errors.startsWith("datachunk: "), errors);
    QCOMPARE(filesBelow("."), before);
}

void TestCliFiles::nothingIsOverwritten_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("taken");
    QTest::newRow("exported chunk") << "export day.log --to taken.dck"
                                    << "taken.dck";
    QTest::newRow("exported text") << "export day.log --to taken"
                                   << "taken";
    QTest::newRow("merged trace") << "merge day.zip --to taken.dck"
                                  << "taken.dck";
    QTest::newRow("one imported chunk") << "import day.log --into ."
                                        << "day_7.dck";
    QTest::newRow("one unpacked chunk") << "unpack day.zip --into place"
                                        << "place/day_2.dck";
}

void TestCliFiles::nothingIsOverwritten()
{
    QFETCH(QString, arguments);
    QFETCH(QString, taken);
    makeTrace();
    QVERIFY(QDir().mkdir("place"));
    writeFile(taken, "precious");
    const auto before = filesBelow(".");
    const QByteArray errors = errorsOf(arguments);
    QVERIFY2(errors.startsWith("datachunk: "), errors);
    QVERIFY2(errors.endsWith(taken.toUtf8() + ": The file exists already.\n"), errors);
    QCOMPARE(filesBelow("."), before);
}

void TestCliFiles::packedChunksComeBackAsTheyWere()
{
    makeTrace();
    QCOMPARE(outputOf("unpack day.zip --into some/where"),
             "some/where/day_0.dck\nsome/where/day_1.dck\nsome/where/day_2.dck\n");
    compareWithDay("some/where");
    const QString otherProgram = QStandardPaths::findExecutable("unzip");
    if (otherProgram.isEmpty())
        QSKIP("unzip is not installed.");
    QCOMPARE(QProcess::execute(otherProgram, {"-q", "day.zip", "-d", "out"}), 0);
    compareWithDay("out");
}

void TestCliFiles::packTakesFilesAndReplacesAnArchive()
{
    makeTrace();
    writeKinds("kinds.dck");
    QVERIFY(QDir().mkdir("single") && QFile::rename("day/day_0.dck", "single/first.dck"));
    QCOMPARE(outputOf("pack kinds.dck single day/day_2.dck --to day.zip"), "day.zip\n");
    QCOMPARE(outputOf("unpack day.zip --into out").count('\n'), 3);
    QCOMPARE(namesIn("out"), (QStringList{"day_2.dck", "first.dck", "kinds.dck"}));
}

void TestCliFiles::archivesAreReadAsOneTrace()
{
    writeFile("later.log", candumpLines(200, 5));
    QCOMPARE(outputOf("import later.log --into chunks").count('\n'), 1);
    writeKinds("chunks/zlastChunk.dck");
    QCOMPARE(outputOf("pack chunks --to both.zip"), "both.zip\n");
    const QList<int> seconds = numbersFrom(100, 5) + numbersFrom(200, 5);
    const QByteArray info = outputOf("info both.zip");
    QVERIFY2(info.contains("messages:       10\n") && info.contains("notes:          1\n"), info);
    QCOMPARE(secondsInText(outputOf("dump both.zip")), seconds);
    QCOMPARE(outputOf("merge both.zip --to merged.dck"), "merged.dck\n");
    QCOMPARE(secondsInChunk("merged.dck"), seconds);
    QCOMPARE(outputOf("merge both.zip --notes --to merged.txt"), "merged.txt\n");
    QCOMPARE(secondsInText(readFile("merged.txt")), seconds);
    QVERIFY(readFile("merged.txt").contains(";look here\n"));
    QCOMPARE(outputOf("export both.zip --range 4:5 --to part.txt"), "part.txt\n");
    QCOMPARE(secondsInText(readFile("part.txt")), (QList<int>{104, 200}));
}

void TestCliFiles::everyChunkOfAnArchiveIsRead()
{
    // Two traces that begin at the same time, and both have notes on a message with one number.
    QVERIFY(
        writeArchive("both.zip",
                     {{"a.dck", chunkBytes("1.0", 0, 3, {{1, QStringLiteral("first")}})},
                      {"folder/b.dck", chunkBytes("1.0", 0, 3, {{1, QStringLiteral("second")}})}}));
    const QByteArray info = outputOf("info both.zip");
    QVERIFY2(info.contains("messages:       6\n") && info.contains("notes:          2\n"), info);
    const QByteArray dump = outputOf("dump both.zip");
    QVERIFY2(dump.indexOf(";first\n") < dump.indexOf(";second\n"), dump);
    QCOMPARE(outputOf("merge both.zip --to merged.dck"), "merged.dck\n");
    const ReadChunk merged = readChunkFile("merged.dck");
    QCOMPARE(numbersOf(merged.messages), numbersFromTo(0, 5));
    QCOMPARE(merged.notes, (ChunkFormat::Notes{{1, "first"}, {4, "second"}}));
    QVERIFY(sameInChunk(merged.messages.at(5), [] {
        CAN::CanRxMessage last = makeMessage(2, 8);
        last.messageNumber = 5;
        return last;
    }()));
}

void TestCliFiles::whatIsLeftOfADamagedTraceIsDelivered()
{
    QVERIFY(writeArchive("some.zip",
                         {{"a.dck", chunkBytes("1.0", 0, 3)}, {"new.dck", newerChunkBytes()}}));
    const QList<QPair<QString, QString>> commands = {{"info some.zip", ""},
                                                     {"dump some.zip", ""},
                                                     {"merge some.zip --to x.dck", "x.dck"},
                                                     {"export some.zip --to x.txt", "x.txt"}};
    for (const auto &[arguments, file] : commands) {
        const ProgramResult result = run(arguments);
        QCOMPARE(result.status, 1);
        QCOMPARE(result.errors.count("datachunk: some.zip: new.dck: "), 1);
        QVERIFY(!result.output.isEmpty());
        QVERIFY(file.isEmpty() || QFile::exists(file));
    }
    QVERIFY(holds("x.dck", 0, 2));
    writeFile("cut.dck", chunkBytes("1.0", 0, 3).chopped(10));
    const ProgramResult result = run("dump cut.dck");
    QCOMPARE(result.status, 1);
    QCOMPARE(result.output.count('\n'), 3);
    QVERIFY2(result.errors.contains("ends in the middle of record 3"), result.errors);
}

void TestCliFiles::compressedTracesAreReadAsTheyAre()
{
    const QByteArray log = candumpLines(0, 300);
    writeFile("a.log", log);
    writeFile("a.log.gz", compressed(Compression::Gzip, log));
    QVERIFY(writeArchive("a.zip", {{"a.log", log}}));
    const QByteArray lines = outputOf("dump a.log");
    for (const QString name : {"a.log.gz", "a.zip"}) {
        QCOMPARE(outputOf("detect " + name), ("SocketCanDump " + name + '\n').toUtf8());
        for (const QString mode : {"", " --strict"}) {
            QCOMPARE(run("dump " + name + mode, {}, "ulimit -f 0;").output, lines);
            QCOMPARE(run("import " + name + mode + " --into x").status, 0);
            QCOMPARE(secondsInChunk("x/" + QFileInfo(name).completeBaseName() + "_0.dck"),
                     numbersFrom(0, 300));
            QVERIFY(QDir("x").removeRecursively());
        }
        QCOMPARE(outputOf("find --count 'id>=0' " + name + " a.log"), "600\n");
    }
    QCOMPARE(outputOf("export a.log --to a.dck"), "a.dck\n");
    writeFile("b.dck.xz", compressed(Compression::Xz, readFile("a.dck")));
    QCOMPARE(outputOf("find --count 'id>=0' b.dck.xz a.dck"), "600\n");
    writeFile("cut.log.gz", readFile("a.log.gz").chopped(4));
    const ProgramResult cut = run("dump cut.log.gz");
    QCOMPARE(cut.status, 1);
    QCOMPARE(cut.output, lines);
    QVERIFY2(cut.errors.contains("its end is missing"), cut.errors);
    QVERIFY(writeArchive("two.zip", {{"a.log", log}, {"b.log", log}}));
    for (const QString mode : {"", " --strict"})
        QVERIFY(errorsOf("info two.zip" + mode).contains("several files and no chunk"));
}

QTEST_GUILESS_MAIN(TestCliFiles)
#include "tst_clifiles.moc"
