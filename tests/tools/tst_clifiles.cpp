#include "datachunkhandler.h"
#include "program.h"

#include <QDataStream>
#include <QProcess>
#include <QtTest>

// The commands that export traces, and those that write and read archives.
class TestCliFiles : public FolderTest
{
    Q_OBJECT
private slots:
    void exportTakesWhatIsAskedFor_data();
    void exportTakesWhatIsAskedFor();
    void notesGoWithTheirMessages();
    void bookmarksGoIntoChunks();
    void aLongTraceIsExportedToItsEnd();
    void aFullDiskLeavesNothingBehind_data();
    void aFullDiskLeavesNothingBehind();
    void nothingIsOverwritten_data();
    void nothingIsOverwritten();
    void packedChunksComeBackAsTheyWere();
    void otherProgramsUnpackArchives();
    void packTakesFilesAndReplacesAnArchive();
    void archivesAreReadAsOneTrace();
    void failures_data();
    void failures();
};

namespace {

QByteArray contentOf(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QList<int> secondsInText(const QByteArray &text)
{
    QList<int> seconds;
    for (const QByteArray &line : text.split('\n')) {
        if (line.startsWith(' '))
            seconds.append(line.trimmed().split('.').first().toInt());
    }
    return seconds;
}

bool succeeds(const char *arguments)
{
    const ProgramResult result = runProgram(words(QString::fromLatin1(arguments)));
    if (result.status != 0)
        qWarning() << arguments << result.errors;
    return result.status == 0;
}

// Folder "day" with a trace of 250 messages in three chunks, and the same packed.
void makeTrace()
{
    writeFile(QStringLiteral("day.log"), candumpLines(0, 250));
    QVERIFY(succeeds("import day.log --into day --messages 100"));
    QVERIFY(succeeds("pack day --to day.zip"));
}

void compareWithDay(const QString &folderName)
{
    const QDir day(QStringLiteral("day"));
    const QStringList names = day.entryList(QDir::Files);
    QCOMPARE(names.size(), 3);
    QCOMPARE(QDir(folderName).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             names);
    for (const QString &name : names)
        QCOMPARE(contentOf(QDir(folderName).filePath(name)), contentOf(day.filePath(name)));
}

} // namespace

void TestCliFiles::exportTakesWhatIsAskedFor_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<QList<int>>("seconds");
    const auto row = [](const char *name, const char *options, const QList<int> &seconds) {
        QTest::newRow(name) << QString::fromLatin1(options) << seconds;
    };
    row("everything", "", {100, 101, 102, 103, 104});
    row("both ends of a range", "--range 1:3", {101, 102, 103});
    row("one message", "--range 4:4", {104});
    row("a range ends with the trace", "--range 3:18446744073709551615", {103, 104});
    row("positions once each, in order", "--select 4,0,17,4", {100, 104});
}

void TestCliFiles::exportTakesWhatIsAskedFor()
{
    QFETCH(QString, options);
    QFETCH(QList<int>, seconds);
    writeKinds(QStringLiteral("kinds.dck"));
    const QString arguments = QStringLiteral("export kinds.dck %1 --to ").arg(options);
    const ProgramResult text = runProgram(words(arguments + QLatin1String("out.txt")));
    QCOMPARE(text.status, 0);
    QCOMPARE(text.output, QByteArray("out.txt\n"));
    const QByteArray lines = contentOf(QStringLiteral("out.txt"));
    QVERIFY(lines.startsWith("# timestamp id (dlc): data;flags;notes\n"));
    QCOMPARE(lines.count('\n'), seconds.size() + 1);
    QCOMPARE(secondsInText(lines), seconds);
    QCOMPARE(runProgram(words(arguments + QLatin1String("out.dck"))).status, 0);
    QCOMPARE(secondsInChunk(QStringLiteral("out.dck")), seconds);
    QDataStream chunk(contentOf(QStringLiteral("out.dck")));
    QString time;
    chunk >> time;
    QCOMPARE(time,
             QStringLiteral("%1.000042 - %2.000042").arg(seconds.first()).arg(seconds.last()));
}

void TestCliFiles::notesGoWithTheirMessages()
{
    writeKinds(QStringLiteral("kinds.dck"));
    QVERIFY(succeeds("export kinds.dck --to plain.txt"));
    QVERIFY(!contentOf(QStringLiteral("plain.txt")).contains("look here"));
    QVERIFY(succeeds("export kinds.dck --to notes.txt --notes"));
    QCOMPARE(contentOf(QStringLiteral("notes.txt")).split('\n').at(2),
             QByteArray(" 101.000042 0x121/289  (0): Remote Transmission Request;0;look here"));
    QVERIFY(succeeds("export kinds.dck --to with.dck --range 1:1"));
    QVERIFY(runProgram(words(QStringLiteral("dump with.dck"))).output.contains(";look here\n"));
    QVERIFY(succeeds("export kinds.dck --to without.dck --range 2:4"));
    QVERIFY(contentOf(QStringLiteral("with.dck")).contains(QByteArray("l\0o\0o\0k", 7)));
    QVERIFY(!contentOf(QStringLiteral("without.dck")).contains(QByteArray("l\0o\0o\0k", 7)));
}

void TestCliFiles::bookmarksGoIntoChunks()
{
    writeKinds(QStringLiteral("kinds.dck"));
    QVERIFY(succeeds("export kinds.dck --to out.dck"));
    QVERIFY(succeeds("pack out.dck --to out.zip"));
    QVERIFY(succeeds("merge out.zip --to merged.dck"));
    for (const char *name : {"out.dck", "merged.dck"}) {
        BookmarkHandler bookmarks;
        DatachunkHandler store(0);
        store.setBookmarkhandler(&bookmarks);
        QVERIFY(store.loadDckFile(QLatin1String(name)));
        QCOMPARE(bookmarks.bookmarks().size(), 1);
        QCOMPARE(bookmarks.bookmarkAt(12).text(), QStringLiteral("mark"));
    }
}

void TestCliFiles::aLongTraceIsExportedToItsEnd()
{
    constexpr int count = 260000; // more than the program holds in memory at once
    writeFile(QStringLiteral("long.log"), candumpLines(0, count));
    QVERIFY(succeeds("export long.log --to all.dck"));
    QCOMPARE(secondsInChunk(QStringLiteral("all.dck")), numbersFrom(0, count));
    QVERIFY(succeeds("export long.log --to all.txt"));
    QCOMPARE(secondsInText(contentOf(QStringLiteral("all.txt"))), numbersFrom(0, count));
    QVERIFY(succeeds("export long.log --to across.txt --range 249999:250000"));
    QCOMPARE(secondsInText(contentOf(QStringLiteral("across.txt"))), numbersFrom(249999, 2));
}

void TestCliFiles::aFullDiskLeavesNothingBehind_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("target");
    QTest::newRow("chunk") << "export day_0.dck --to out.dck"
                           << "out.dck";
    QTest::newRow("text") << "export day_0.dck --to out.txt"
                          << "out.txt";
    QTest::newRow("archive") << "pack day_0.dck --to out.zip"
                             << "out.zip";
    QTest::newRow("unpacked chunks") << "unpack small.zip --into out"
                                     << "out";
}

void TestCliFiles::aFullDiskLeavesNothingBehind()
{
    QFETCH(QString, arguments);
    QFETCH(QString, target);
    writeFile(QStringLiteral("day.log"), candumpLines(0, 20000));
    QVERIFY(succeeds("import day.log --into ."));
    QVERIFY(succeeds("pack day_0.dck --to small.zip"));
    // A limit on the size of files fails as a full disk does.
    QProcess shell;
    shell.start(QStringLiteral("/bin/sh"),
                QStringList{QStringLiteral("-c"),
                            QStringLiteral("trap '' XFSZ; ulimit -f 32; exec \"$0\" \"$@\""),
                            programPath()}
                    + words(arguments));
    QVERIFY(shell.waitForFinished());
    QCOMPARE(shell.exitCode(), 1);
    QVERIFY(shell.readAllStandardError().startsWith("datachunk: "));
    QCOMPARE(shell.readAllStandardOutput(), QByteArray());
    QVERIFY(!QFileInfo::exists(target));
}

void TestCliFiles::nothingIsOverwritten_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("taken");
    QTest::newRow("chunk of an export") << "export day.log --to taken.dck"
                                        << "taken.dck";
    QTest::newRow("text of an export") << "export day.log --to taken"
                                       << "taken";
    QTest::newRow("merged trace") << "merge day.zip --to taken.dck"
                                  << "taken.dck";
    QTest::newRow("unpacked chunk, and none is kept") << "unpack day.zip --into place"
                                                      << "place/day_2.dck";
}

void TestCliFiles::nothingIsOverwritten()
{
    QFETCH(QString, arguments);
    QFETCH(QString, taken);
    makeTrace();
    QVERIFY(QDir().mkdir(QStringLiteral("place")));
    writeFile(taken, "precious");
    const ProgramResult result = runProgram(words(arguments));
    QCOMPARE(result.status, 1);
    QCOMPARE(result.errors, "datachunk: " + taken.toLatin1() + ": The file exists already.\n");
    QCOMPARE(result.output, QByteArray());
    QCOMPARE(contentOf(taken), QByteArray("precious"));
    QVERIFY(!QFile::exists(QStringLiteral("place/day_0.dck")));
}

void TestCliFiles::packedChunksComeBackAsTheyWere()
{
    makeTrace();
    const ProgramResult result =
        runProgram(words(QStringLiteral("unpack day.zip --into some/where")));
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output,
             QByteArray("some/where/day_0.dck\n"
                        "some/where/day_1.dck\n"
                        "some/where/day_2.dck\n"));
    compareWithDay(QStringLiteral("some/where"));
}

void TestCliFiles::otherProgramsUnpackArchives()
{
    const QString unzip = QStandardPaths::findExecutable(QStringLiteral("unzip"));
    if (unzip.isEmpty())
        QSKIP("unzip is not installed.");
    makeTrace();
    QCOMPARE(QProcess::execute(unzip, words(QStringLiteral("-q day.zip -d out"))), 0);
    compareWithDay(QStringLiteral("out"));
}

void TestCliFiles::packTakesFilesAndReplacesAnArchive()
{
    makeTrace();
    writeKinds(QStringLiteral("kinds.dck"));
    QVERIFY(QDir().mkdir(QStringLiteral("single")));
    QVERIFY(QFile::rename(QStringLiteral("day/day_0.dck"), QStringLiteral("single/first.dck")));
    const ProgramResult result =
        runProgram(words(QStringLiteral("pack kinds.dck single day/day_2.dck --to day.zip")));
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output, QByteArray("day.zip\n"));
    QVERIFY(succeeds("unpack day.zip --into out"));
    QCOMPARE(QDir(QStringLiteral("out")).entryList(QDir::Files),
             words(QStringLiteral("day_2.dck first.dck kinds.dck")));
}

void TestCliFiles::archivesAreReadAsOneTrace()
{
    writeFile(QStringLiteral("later.log"), candumpLines(200, 5));
    QVERIFY(succeeds("import later.log --into chunks"));
    writeKinds(QStringLiteral("chunks/zlastChunk.dck"));
    QVERIFY(succeeds("pack chunks --to both.zip"));
    const QList<int> seconds = numbersFrom(100, 5) + numbersFrom(200, 5);
    const QByteArray info = runProgram(words(QStringLiteral("info both.zip"))).output;
    QVERIFY2(info.contains("messages:       10\n") && info.contains("notes:          1\n"), info);
    const QByteArray dump = runProgram(words(QStringLiteral("dump both.zip"))).output;
    QCOMPARE(secondsInText(dump), seconds);
    QVERIFY(succeeds("merge both.zip --to merged.dck"));
    QCOMPARE(secondsInChunk(QStringLiteral("merged.dck")), seconds);
    QVERIFY(succeeds("merge both.zip --notes --to merged.txt"));
    const QByteArray text = contentOf(QStringLiteral("merged.txt"));
    QCOMPARE(secondsInText(text), seconds);
    QVERIFY(text.contains(";look here\n"));
    QVERIFY(succeeds("export both.zip --range 4:5 --to part.txt"));
    QCOMPARE(secondsInText(contentOf(QStringLiteral("part.txt"))), (QList<int>{104, 200}));
}

void TestCliFiles::failures_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QByteArray>("text");
    const auto row = [](const char *name, const char *arguments, const char *text) {
        QTest::newRow(name) << QString::fromLatin1(arguments) << QByteArray(text);
    };
    const char *const broken = "broken.zip: File seems to be empty or broken, nothing imported.";
    row("broken archive merged", "merge broken.zip --to x.dck", broken);
    row("broken archive unpacked", "unpack broken.zip --into x", broken);
    row("broken archive described", "info broken.zip", broken);
    row("broken archive printed", "dump broken.zip", broken);
    row("newer chunk in an archive", "merge newer.zip --to x.dck",
        "newer.zip: This import file was created with a newer version of this tool");
    row("archive that is not there", "unpack gone.zip --into x",
        "gone.zip: The file at gone.zip does not exists.");
    row("import of an archive", "import newer.zip --into x",
        "newer.zip: The file is an archive; unpack or merge it.");
    row("unpacking into a file", "unpack newer.zip --into kinds.dck",
        "kinds.dck: The folder could not be created.");
    row("export behind the end", "export kinds.dck --range 5:9 --to x.txt",
        "kinds.dck: Nothing to export.");
    row("export into no folder", "export kinds.dck --to x/out.txt", "x/out.txt: ");
    row("packing what is no chunk", "pack kinds.dck broken.zip --to x.zip",
        "broken.zip: The file is no chunk file.");
    row("packing two files of one name", "pack kinds.dck folder --to x.zip",
        "folder/kinds.dck: The archive would have two files of that name.");
    row("packing an empty folder", "pack empty --to x.zip",
        "empty: The folder holds no chunk files.");
    row("packing into no folder", "pack kinds.dck --to x/y.zip",
        "x/y.zip: The archive cannot be written there.");
    row("packing over a folder", "pack kinds.dck --to empty",
        "empty: The archive cannot be written there.");
    row("a failure leaves the earlier archive", "pack gone.dck --to newer.zip",
        "gone.dck: The file at gone.dck");
}

void TestCliFiles::failures()
{
    QFETCH(QString, arguments);
    QFETCH(QByteArray, text);
    writeFile(QStringLiteral("broken.zip"), "PK no archive at all");
    writeKinds(QStringLiteral("kinds.dck"));
    QVERIFY(QDir().mkdir(QStringLiteral("empty")) && QDir().mkdir(QStringLiteral("folder")));
    writeKinds(QStringLiteral("folder/kinds.dck"));
    QByteArray newer;
    QDataStream stream(&newer, QIODevice::WriteOnly);
    stream << QStringLiteral("0.0 - 1.0") << QStringLiteral("999");
    writeFile(QStringLiteral("newer.dck"), newer);
    QVERIFY(succeeds("pack newer.dck --to newer.zip"));
    const QByteArray archive = contentOf(QStringLiteral("newer.zip"));
    const ProgramResult result = runProgram(words(arguments));
    QCOMPARE(result.status, 1);
    QVERIFY2(result.errors.startsWith("datachunk: " + text), result.errors);
    QVERIFY2(result.output.isEmpty(), result.output);
    QVERIFY(QDir().entryList({QStringLiteral("x*")}).isEmpty());
    QCOMPARE(contentOf(QStringLiteral("newer.zip")), archive);
}

QTEST_GUILESS_MAIN(TestCliFiles)
#include "tst_clifiles.moc"
