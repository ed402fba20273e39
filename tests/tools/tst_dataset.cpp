#include "archives.h"
#include "program.h"
#include "readers.h"

#include <QCryptographicHash>
#include <QDirIterator>
#include <QProcess>
#include <QtTest>

#include <csignal>

// Parquet files and data sets of them, as the program writes them.
class TestDataset : public FolderTest
{
    Q_OBJECT
private slots:
    void everyTraceBecomesAParquetFile_data();
    void everyTraceBecomesAParquetFile();
    void theSourceIsTold();
    void filesAreDividedByTheKeys_data();
    void filesAreDividedByTheKeys();
    void timesMayGoBack();
    void badTracesAreLeftOut();
    void whatFailsLeavesNothing_data();
    void whatFailsLeavesNothing();
    void aSignalLeavesNothing();
    void halfADataSetIsTakenBack();
    void otherDataSetsAreRefused_data();
    void otherDataSetsAreRefused();
};

namespace {

constexpr int secondsPerDay = 86400;

// One frame of each of so many days, for so many rounds of all of them.
QByteArray daily(int days, int rounds)
{
    QByteArray text;
    for (int i = 0; i < days * rounds; ++i)
        text += QString::asprintf("(%d.250000) can0 123#%02X\n", i % days * secondsPerDay, i & 255)
                    .toLatin1();
    return text;
}

// Their places within the folder.
QStringList filesIn(const QString &folder)
{
    const QDir root(QDir(folder).absolutePath());
    QStringList files;
    QDirIterator all(root.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (all.hasNext())
        files.append(root.relativeFilePath(all.next()));
    files.sort();
    return files;
}

// How many files are in each folder, as "FOLDER N".
QStringList foldersBelow(const QString &folder)
{
    QMap<QString, int> counts;
    for (const QString &file : filesIn(folder))
        ++counts[file.section('/', 0, -2)];
    QStringList list;
    for (auto count = counts.begin(); count != counts.end(); ++count)
        list.append(count.key() + ' ' + QString::number(count.value()));
    return list;
}

} // namespace

void TestDataset::everyTraceBecomesAParquetFile_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::newRow("export of a text") << "export a.log --to out/trace.parquet";
    QTest::newRow("of a chunk file") << "export kinds.dck --to out/trace.parquet";
    QTest::newRow("of a folder") << "export chunks --to out/trace.parquet";
    QTest::newRow("of an archive") << "export chunks.zip --to out/trace.parquet";
    QTest::newRow("two of them merged") << "convert a.log kinds.dck out/trace.parquet";
    QTest::newRow("a file for each") << "convert a.log --into out --as parquet";
    QTest::newRow("some of the messages") << "export kinds.dck --range 1:2 --to out/trace.parquet";
    QTest::newRow("standard streams") << "convert - - --as parquet < a.log > out/trace.parquet";
}

void TestDataset::everyTraceBecomesAParquetFile()
{
    QFETCH(QString, arguments);
    if (!haveReaders())
        QSKIP(noReaders);
    QVERIFY(QDir().mkdir("out") && QDir().mkdir("chunks"));
    writeFile("a.log", daily(3, 7));
    writeKinds("kinds.dck");
    QVERIFY(QFile::copy("kinds.dck", "chunks/tmpData0.dck"));
    QCOMPARE(run("pack chunks --to chunks.zip").status, 0);
    QCOMPARE(run(arguments).status, 0);
    const QString other = QString(arguments).replace("parquet", "jsonl");
    QCOMPARE(run(other).status, 0);
    const QString answer = readByOthers({"compare", "out"});
    QVERIFY2(answer.endsWith(" rows, 0 differences"), qPrintable(answer));
    QVERIFY2(!answer.contains(" 0 rows"), qPrintable(answer));
}

void TestDataset::theSourceIsTold()
{
    if (!haveReaders())
        QSKIP(noReaders);
    const QByteArray text = daily(1, 3) + "no frame\n";
    writeFile("a.log", text);
    QCOMPARE(run("export a.log --to a.parquet").status, 0);
    const QString words = readByOthers(
        {"query", "select decode(key) k, decode(value) v from parquet_kv_metadata('a.parquet')"});
    QVERIFY2(words.contains(R"({"k":"datachunk.source","v":"a.log"})"), qPrintable(words));
    const QByteArray digest = QCryptographicHash::hash(text, QCryptographicHash::Sha256).toHex();
    QVERIFY2(words.contains(R"({"k":"datachunk.sha256","v":")" + digest), qPrintable(words));
    QVERIFY2(words.contains(R"(\"frames\":3,\"leftOut\":[{\"count\":1)"), qPrintable(words));
    QVERIFY2(words.contains(R"("datachunk.version")"), qPrintable(words));
}

void TestDataset::filesAreDividedByTheKeys_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<QStringList>("folders");
    const auto row = [](const char *options, const QStringList &folders) {
        QTest::newRow(options) << options << folders;
    };
    row("export --partition source,date",
        {"source=a/date=1970-01-01 1", "source=a/date=1970-01-02 1", "source=b/date=1970-01-01 1"});
    row("convert --partition date,source=car7",
        {"date=1970-01-01/source=car7 2", "date=1970-01-02/source=car7 1"});
    row("convert --partition source", {"source=a 1", "source=b 1"});
    row("export --partition source='../a b=c'", {"source=..%2Fa b%3Dc 2"});
    row("export --until 0 --partition date", {"date=1970-01-01 2"});
}

void TestDataset::filesAreDividedByTheKeys()
{
    QFETCH(QString, options);
    QFETCH(QStringList, folders);
    writeFile("a.log", daily(2, 3));
    writeFile("b.log", daily(1, 4));
    const QByteArray output = outputOf(options + " --into lake a.log b.log");
    QCOMPARE(foldersBelow("lake"), folders);
    for (const QString &file : filesIn("lake"))
        QVERIFY2(output.contains(file.toUtf8() + ": "), output);
    // What is there stays, and the new files stand beside it.
    const QStringList before = filesIn("lake");
    outputOf(options + " --into lake a.log b.log");
    QCOMPARE(filesIn("lake").size(), 2 * before.size());
    for (const QString &file : before)
        QVERIFY(filesIn("lake").contains(file));
}

// Of more days than files are open, each has all of its messages, in one file.
void TestDataset::timesMayGoBack()
{
    if (!haveReaders())
        QSKIP(noReaders);
    writeFile("a.log", "(0.000001) can0 123#\n" + daily(30, 5));
    const QByteArray output = outputOf("export --into lake --partition source=x,date a.log");
    QCOMPARE(output.count("messages"), 30);
    QCOMPARE(
        readByOthers({"query",
                      "select date, count(*) c, min(number) a, max(number) b, "
                      "count(distinct filename) f "
                      "from read_parquet('lake/**/*.parquet', filename = true) "
                      "where date in ('1970-01-01', '1970-01-30') group by date order by date"}),
        QString(R"([{"date":"1970-01-01","c":"6","a":"0","b":"121","f":"1"},)"
                R"({"date":"1970-01-30","c":"5","a":"30","b":"150","f":"1"}])"));
}

void TestDataset::badTracesAreLeftOut()
{
    writeFile("a.log", daily(2, 1));
    writeFile("broken.log", "nothing\n");
    writeFile("wild.log", daily(11, 1000));
    writeFile("cut.dck", chunkBytes("1.0", 0, 9).chopped(7));
    const ProgramResult result = run("export --into lake --partition source,date "
                                     "broken.log gone.log wild.log a.log cut.dck");
    QCOMPARE(result.status, 1);
    QCOMPARE(foldersBelow("lake"),
             (QStringList{"source=a/date=1970-01-01 1", "source=a/date=1970-01-02 1",
                          "source=cut/date=1970-01-01 1"}));
    for (const char *name : {"broken.log: ", "gone.log: ", "cut.dck: ",
                             "wild.log: Its times jump between too many days."})
        QVERIFY2(result.errors.contains(QByteArray("datachunk: ") + name), result.errors);
}

void TestDataset::whatFailsLeavesNothing_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QByteArray>("error");
    QTest::addColumn<int>("status");
    const auto row = [](const char *arguments, const char *error, int status) {
        QTest::newRow(arguments) << arguments << QByteArray(error) << status;
    };
    row("export a.log a.log --to x.parquet", "without --partition only one trace is taken", 2);
    row("export a.log --partition date", "--into is missing", 2);
    row("convert a.log x --partition date", "--into is missing", 2);
    row("export a.log --partition date --to x", "--partition goes with --into", 2);
    row("export a.log --partition '' --into x", "--partition takes source", 2);
    row("export a.log --partition date,date --into x", "--partition takes source", 2);
    row("export a.log --partition source= --into x", "--partition takes source", 2);
    row("convert a.log --partition date --as csv --into x", "--partition is for Parquet alone", 2);
    row("export gone.log --partition date --into x", "gone.log: ", 1);
    row("export a.log --id 5 --partition date --into x", "a.log: ", 1);
    row("export a.log --partition date --into a.log", "a.log: The folder could not be", 1);
    row("export a.log --partition source=$(printf %0300d 1) --into x", "x/source=0", 1);
    row("export a.log --to a.log --as parquet", "a.log: The file exists already.", 1);
}

void TestDataset::whatFailsLeavesNothing()
{
    QFETCH(QString, arguments);
    QFETCH(QByteArray, error);
    QFETCH(int, status);
    writeFile("a.log", daily(2, 9));
    const ProgramResult result = run(arguments + " --quiet");
    QCOMPARE(result.status, status);
    QVERIFY2(result.errors.contains("datachunk: " + error), result.errors);
    QVERIFY2(result.output.isEmpty(), result.output);
    QCOMPARE(namesIn("."), QStringList("a.log"));
}

void TestDataset::aSignalLeavesNothing()
{
    writeFile("a.log", daily(2, 9));
    QProcess process;
    process.start(programPath(),
                  {"export", "--into", "lake", "--partition", "date", "a.log", "-", "--type",
                   "SocketCanDump"});
    process.write(daily(2, 9));
    QTRY_VERIFY(filesIn("lake").size() >= 2);
    QCOMPARE(kill(pid_t(process.processId()), SIGTERM), 0);
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 1);
    QVERIFY(!QFile::exists("lake"));
}

void TestDataset::halfADataSetIsTakenBack()
{
    writeFile("a.log", daily(3, 9));
    QVERIFY(QDir().mkdir("lake"));
    // Where the folder of the second day should be.
    writeFile("lake/date=1970-01-02", "");
    QCOMPARE(run("export --into lake --partition date a.log").status, 1);
    QCOMPARE(filesIn("lake"), QStringList("date=1970-01-02"));
    QCOMPARE(namesIn("lake"), QStringList("date=1970-01-02"));
    const ProgramResult full = run("export --into full --partition date a.log", {}, "ulimit -f 2;");
    QCOMPARE(full.status, 1);
    QVERIFY2(!full.errors.isEmpty() && full.output.isEmpty(), full.output);
    QVERIFY(!QFile::exists("full"));
}

void TestDataset::otherDataSetsAreRefused_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QByteArray>("error");
    const auto row = [](const char *name, const char *file, const char *sql, const char *error) {
        QTest::newRow(name) << file << sql << QByteArray(error);
    };
    row("another column", "lake/date=1970-01-01/x.parquet", "select * exclude (line) from '%1'",
        "The column \"line\" is not in both");
    row("other keys", "lake/source=x/x.parquet", "select * from '%1'",
        "The data set is not divided by date.");
    row("no keys", "lake/x.parquet", "select * from '%1'", "The data set is not divided by date.");
    row("no Parquet file", "lake/date=1970-01-01/x.parquet", "", "The file is no Parquet file.");
    row("what readers pass over", "lake/_x/x.parquet", "", "");
    row("the same", "lake/date=1970-01-01/x.parquet", "select * from '%1'", "");
}

void TestDataset::otherDataSetsAreRefused()
{
    QFETCH(QString, file);
    QFETCH(QString, sql);
    QFETCH(QByteArray, error);
    if (!haveReaders())
        QSKIP(noReaders);
    writeFile("a.log", daily(2, 9));
    QVERIFY(QDir().mkpath(QFileInfo(file).path()));
    outputOf("export a.log --to ours.parquet");
    if (sql.isEmpty())
        writeFile(file, "PAR1 is no Parquet file");
    else
        readByOthers({"query", QString("copy (%1) to '%2'").arg(sql.arg("ours.parquet"), file)});
    QVERIFY(QFile::exists(file));
    const ProgramResult result = run("export --into lake --partition date a.log");
    QVERIFY2(result.errors.contains(error), result.errors);
    QCOMPARE(result.status, error.isEmpty() ? 0 : 1);
    QCOMPARE(filesIn("lake").size(), error.isEmpty() ? 3 : 1);
}

QTEST_GUILESS_MAIN(TestDataset)
#include "tst_dataset.moc"
