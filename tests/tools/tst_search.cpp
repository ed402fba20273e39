#include "archives.h"
#include "program.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

#include <fcntl.h>
#include <sys/stat.h>

// The commands that look at traces as a whole: chunk files, folders, archives and texts.
class TestSearch : public FolderTest
{
    Q_OBJECT
private slots:
    void everyKindOfTraceIsSearched_data();
    void everyKindOfTraceIsSearched();
    void contextIsPrintedOnce_data();
    void contextIsPrintedOnce();
    void objectsSayWhereTheyStand();
    void aWrongFilterIsShown();
    void severalTracesAreOne();
    void infoOfAFolderIsThatOfItsFiles();
    void everyCommandSelectsAlike_data();
    void everyCommandSelectsAlike();
    void dumpOfAFolderSelects_data();
    void dumpOfAFolderSelects();
    void damageIsToldEachTime();
    void aFullDiskIsTold();
    void statsTellPeriodsAndGaps();
    void statsTellTheLoad();
    void identifiersAreBounded();
};

namespace {

// Ten frames a second of three identifiers, the last one rare.
QByteArray log(int count)
{
    QByteArray text;
    for (int i = 0; i < count; ++i) {
        const int id = i % 50 == 7 ? 0x300 : 0x100 + i % 2;
        text += QString::asprintf("(%d.%d00000) can%d %03X#%02X11\n", i / 10, i % 10, i % 3, id,
                                  i & 255)
                    .toLatin1();
    }
    return text;
}

// The same 250 messages as a text, a folder of three chunks, an archive and a chunk file.
void makeTraces()
{
    writeFile("day.log", log(250));
    QCOMPARE(outputOf("import day.log --into day --messages 100").count('\n'), 3);
    QCOMPARE(outputOf("pack day --to day.zip"), "day.zip\n");
    QCOMPARE(outputOf("merge day.zip --to day.dck"), "day.dck\n");
}

// What stands in front of each line, without the message.
QByteArrayList marks(const QByteArray &output)
{
    QByteArrayList all;
    for (const QByteArray &line : output.chopped(1).split('\n'))
        all.append(line == "--" ? line : line.left(line.indexOf(' ')));
    return all;
}

// The times of the messages in tenths of a second.
QList<int> tenthsInText(const QByteArray &text)
{
    QList<int> all;
    for (const QByteArray &line : text.split('\n')) {
        if (!line.isEmpty() && !line.startsWith('#'))
            all.append(qRound(line.trimmed().split(' ').first().toDouble() * 10));
    }
    return all;
}

QJsonObject jsonOf(const QString &arguments)
{
    return QJsonDocument::fromJson(outputOf(arguments)).object();
}

} // namespace

void TestSearch::everyKindOfTraceIsSearched_data()
{
    QTest::addColumn<QString>("path");
    for (const char *path : {"day.log", "day", "day/", "day.zip", "day.dck", "day/*.dck"})
        QTest::newRow(path) << path;
}

void TestSearch::everyKindOfTraceIsSearched()
{
    QFETCH(QString, path);
    makeTraces();
    const QByteArray found = outputOf("find 'id==300' " + path);
    QCOMPARE(secondsInText(found), (QList<int>{0, 5, 10, 15, 20}));
    QVERIFY(found.startsWith("   0.700000 0x300/768  (2): 07 11 ;0;\n"));
    const struct
    {
        const char *arguments;
        const char *output;
        int status;
    } cases[] = {{"--count 'id==300'", "5\n", 0},
                 {"--count 'id==300' --from 7", "5\n", 0},
                 {"--count 'id==300' --from 8", "4\n", 0},
                 {"--count 'id==300' --from 8 --first 3", "3\n", 0},
                 {"--count 'b0==5' --from 6", "0\n", 1},
                 {"--count 'changed and id==300'", "5\n", 0},
                 {"'id==5'", "", 1},
                 {"'id==300' --first 0", "", 1},
                 {"'b0==5'", "   0.500000 0x101/257  (2): 05 11 ;0;\n", 0},
                 {"'id==300' --from 8 --first 1", "   5.700000 0x300/768  (2): 39 11 ;0;\n", 0},
                 {"'' --from 249", "  24.900000 0x101/257  (2): f9 11 ;0;\n", 0}};
    for (const auto &[arguments, output, status] : cases) {
        const ProgramResult result = run(QStringLiteral("find %1 %2").arg(arguments, path));
        QCOMPARE(result.output, output);
        QCOMPARE(result.status, status);
    }
}

void TestSearch::contextIsPrintedOnce_data()
{
    QTest::addColumn<QByteArray>("options");
    QTest::addColumn<QByteArrayList>("lines");
    const auto row = [](const char *name, const char *options, const char *lines) {
        QTest::newRow(name) << QByteArray(options) << QByteArray(lines).split(' ');
    };
    row("in front", "'b0 in 5,9' --before 2", "3- 4- 5: -- 7- 8- 9:");
    row("behind", "'b0 in 5,9' --after 2", "5: 6- 7- -- 9: 10- 11-");
    row("groups that touch are one", "'b0 in 5,8' --before 1 --after 1", "4- 5: 6- 7- 8: 9-");
    row("groups that overlap are one", "'b0 in 5,7' --before 3 --after 3",
        "2- 3- 4- 5: 6- 7: 8- 9- 10-");
    row("hits in a row", "'b0 in 5..6' --before 1", "4- 5: 6:");
    row("at the start", "'b0==1' --before 5", "0- 1:");
    row("at the end, across chunks", "'b0==f9' --before 1 --after 5", "248- 249:");
    row("around the end of a chunk", "'b0==63' --before 1 --after 1", "98- 99: 100-");
    row("behind the last one that is wanted", "'b0 in 5..6' --first 1 --after 2", "5: 6- 7-");
    row("in front of where the search begins", "'b0 in 5..6' --from 6 --before 2", "4- 5- 6:");
}

void TestSearch::contextIsPrintedOnce()
{
    QFETCH(QByteArray, options);
    QFETCH(QByteArrayList, lines);
    makeTraces();
    for (const char *path : {"day", "day.log"})
        QCOMPARE(marks(outputOf(QStringLiteral("find %1 %2").arg(options, path))), lines);
}

void TestSearch::objectsSayWhereTheyStand()
{
    makeTraces();
    for (const char *path : {"day", "day.log"}) {
        const QList<QByteArray> lines =
            outputOf(QStringLiteral("find --json 'b0 in 5,9' --after 1 %1").arg(path)).split('\n');
        QCOMPARE(lines.size(), 5);
        const int positions[] = {5, 6, 9, 10};
        for (int i = 0; i < 4; ++i) {
            const QJsonObject object = QJsonDocument::fromJson(lines.at(i)).object();
            QCOMPARE(object.value("position").toInt(), positions[i]);
            QCOMPARE(object.contains("context"), i % 2 == 1);
            QCOMPARE(object.size(), i % 2 == 1 ? 16 : 15);
        }
    }
}

void TestSearch::aWrongFilterIsShown()
{
    writeFile("day.log", log(1));
    const ProgramResult result = run("find 'id==2a1 and\tb3==100' day.log");
    QCOMPARE(result.status, 2);
    QVERIFY2(result.errors.startsWith("datachunk: The filter is wrong in column 17: "),
             result.errors);
    QVERIFY2(result.errors.contains("\n  id==2a1 and b3==100\n                  ^\n"),
             result.errors);
}

void TestSearch::severalTracesAreOne()
{
    makeTraces();
    writeFile("later.log", candumpLines(100, 3));
    QCOMPARE(outputOf("import later.log --into later").count('\n'), 1);
    QCOMPARE(outputOf("find --count '' later day day.zip"), "503\n");
    // Chunks come in order of time, with a text among them as they are named.
    QCOMPARE(marks(outputOf("find 'time 24.9..101' later day --after 1")),
             (QByteArrayList{"249:", "250:", "251:", "252-"}));
    QCOMPARE(secondsInText(outputOf("find 'time 24.9..101' later day")),
             (QList<int>{24, 100, 101}));
    QCOMPARE(secondsInText(outputOf("find 'time 24.9..101' later.log day")),
             (QList<int>{100, 101, 24}));
    QCOMPARE(secondsInText(outputOf("dump --from 2 --count 2 later.log day")),
             (QList<int>{102, 0}));
    QVERIFY(outputOf("info later.log day day.dck").contains("\nmessages:       503\n"));
    QCOMPARE(jsonOf("stats --json later.log day").value("timesThatFall").toInt(), 1);
    QVERIFY(QDir().mkdir("none"));
    QCOMPARE(errorsOf("find '' none"), "datachunk: none: There are no messages.\n");
}

void TestSearch::infoOfAFolderIsThatOfItsFiles()
{
    QVERIFY(QDir().mkdir("folder"));
    writeKinds("folder/kinds.dck");
    const QByteArray ofFile = outputOf("info folder/kinds.dck");
    const QByteArray ofFolder = outputOf("info folder");
    QVERIFY(ofFolder.startsWith("file:           folder\ntype:           folder\n"));
    QCOMPARE(ofFolder.mid(ofFolder.indexOf("messages")), ofFile.mid(ofFile.indexOf("messages")));
}

void TestSearch::everyCommandSelectsAlike_data()
{
    QTest::addColumn<QList<int>>("positions");
    const auto row = [](const char *options, const QList<int> &positions) {
        QTest::newRow(options) << positions;
    };
    row("--from 98 --until 101", {98, 99, 100, 101});
    row("--until 1", {0, 1});
    row("--from 248", {248, 249});
    row("--from 5 --until 4", {});
    row("--time 9.8..10.1", {98, 99, 100, 101});
    row("--time ..0.100000", {0, 1});
    row("--time 24.85..", {249});
    row("--time 0:00:24.8..1970-01-01T00:00:24.9", {248, 249});
    row("--time '1970-01-01 00:00:24.800001Z..1970-01-02'", {249});
    row("--time -5..0", {0});
    row("--id 2ff,300 --from 8", {57, 107, 157, 207});
    row("--id 2ff..0x300 --line 0,2", {57, 107, 207});
    row("--id ffff00ef,300 --until 7", {7});
    row("--filter 'changed and id==300' --from 7 --until 60", {7, 57});
    row("--filter 'b0==5 or b0==9' --line 2", {5});
    row("--filter 'b0==5 or b0==9' --time 0.9..30 --id 101", {9});
}

void TestSearch::everyCommandSelectsAlike()
{
    QFETCH(QList<int>, positions);
    makeTraces();
    const QString options = QTest::currentDataTag();
    for (const QString path : {"day.log", "day", "day.dck", "day.zip"}) {
        QCOMPARE(tenthsInText(outputOf("dump " + path + ' ' + options)), positions);
        QCOMPARE(tenthsInText(run("find '' " + path + ' ' + options).output), positions);
        QCOMPARE(run("find --count '' " + path + ' ' + options).output,
                 QByteArray::number(positions.size()) + '\n');
        QCOMPARE(jsonOf("stats --json " + path + ' ' + options).value("messages").toInt(),
                 positions.size());
        if (path != "day")
            QCOMPARE(tenthsInText(run("export --to - " + path + ' ' + options).output), positions);
    }
}

void TestSearch::dumpOfAFolderSelects_data()
{
    QTest::addColumn<QString>("options");
    QTest::newRow("everything") << "";
    QTest::newRow("a stretch across chunks") << "--from 98 --count 4";
    QTest::newRow("an identifier") << "--id 300";
    QTest::newRow("an identifier of a line") << "--id 100 --line 2 --from 50 --count 7";
    QTest::newRow("an identifier that no filter can name") << "--id 20000000";
    QTest::newRow("as objects") << "--json --line 1";
}

void TestSearch::dumpOfAFolderSelects()
{
    QFETCH(QString, options);
    makeTraces();
    QCOMPARE(outputOf("dump day " + options), outputOf("dump day.log " + options));
}

void TestSearch::damageIsToldEachTime()
{
    makeTraces();
    QVERIFY(QFile::remove("day/day_2.dck"));
    writeFile("day/day_1.dck", readFile("day/day_1.dck").chopped(10));
    // What is known of a chunk is kept when it has rested, of the damaged one before the other.
    QCOMPARE(utimensat(AT_FDCWD, "day/day_0.dck", nullptr, 0), 0);
    QTRY_VERIFY((run("info day"), QFile::exists("day/.chunk-directory")));
    for (int i = 0; i < 2; ++i) {
        const ProgramResult result = run("find --count 'len>=0' day");
        QCOMPARE(result.output, "200\n");
        QCOMPARE(result.status, 1);
        QVERIFY2(result.errors.contains("ends in the middle of record 100"), result.errors);
    }
    QByteArray archive = readFile("day.zip");
    archive[archive.size() / 2] = char(~archive.at(archive.size() / 2));
    writeFile("day.zip", archive);
    const ProgramResult ofStream = run("dump day.zip");
    const ProgramResult ofTimeline = run("find '' day.zip");
    QCOMPARE(ofTimeline.status, 1);
    QCOMPARE(ofTimeline.output, ofStream.output);
    QCOMPARE(ofTimeline.errors, ofStream.errors);
}

void TestSearch::aFullDiskIsTold()
{
    writeFile("long.log", candumpLines(0, 5000)); // more than waits to be printed
    for (const char *command : {"dump", "dump --json", "find ''", "stats"})
        QVERIFY(errorsOf(QStringLiteral("%1 long.log > /dev/full").arg(command))
                    .contains("datachunk: standard output: "));
}

void TestSearch::statsTellPeriodsAndGaps()
{
    // Every 100 ms with one period of 300 ms, and one of 2 s in the other line's pauses.
    writeFile("a.log",
              "(10.000000) can0 123#11\n(10.100000) can0 123#1122\n"
              "(10.400000) can0 123#\n(10.500000) can1 123#11\n"
              "(12.600000) can0 12345678#R\n(12.500000) can1 123#11\n");
    const QJsonObject stats = jsonOf("stats a.log --gap 0.25 --json");
    QCOMPARE(stats.value("messages").toInt(), 6);
    QCOMPARE(stats.value("timesThatFall").toInt(), 1);
    QCOMPARE(
        stats.value("gaps").toObject(),
        (QJsonObject{{"count", 2}, {"longest", 2100000}, {"position", 4}, {"time", 12600000}}));
    const QJsonObject line = stats.value("lines").toArray().at(1).toObject();
    QCOMPARE(line.value("line").toInt(), 1);
    QCOMPARE(
        line.value("gaps").toObject(),
        (QJsonObject{{"count", 1}, {"longest", 2000000}, {"position", 5}, {"time", 12500000}}));
    const QJsonArray identifiers = stats.value("identifiers").toArray();
    QCOMPARE(identifiers.size(), 3);
    const QJsonObject first = identifiers.at(0).toObject();
    QCOMPARE(first.value("count").toInt(), 3);
    QCOMPARE(first.value("leastLength").toInt(), 0);
    QCOMPARE(first.value("mostLength").toInt(), 2);
    QJsonObject period = first.value("period").toObject();
    QVERIFY(qAbs(period.take("p99").toDouble() - 300000) <= 3000);
    QCOMPARE(
        period,
        (QJsonObject{{"least", 100000}, {"most", 300000}, {"mean", 200000}, {"jitter", 100000}}));
    QVERIFY(identifiers.at(2).toObject().value("remote").toBool());
    QVERIFY(!identifiers.at(2).toObject().contains("period"));
    const QByteArray text = outputOf("stats a.log --gap 0.25");
    QVERIFY2(text.contains("12345678    0     ext rtr "), text);
}

void TestSearch::statsTellTheLoad()
{
    // 128 bits in 2 s at 1000 bit/s, as every checksum of zeros is zero.
    writeFile("a.log", "(1.000000) can0 000#\n(2.000000) can1 000#\n(3.000000) can0 000#\n");
    const QJsonObject stats = jsonOf("stats a.log --bitrate 1000 --json");
    const QJsonObject line = stats.value("lines").toArray().at(0).toObject();
    QCOMPARE(line.value("bits").toInt(), 2 * 53);
    QCOMPARE(line.value("load").toDouble(), 0.053);
    QVERIFY(outputOf("stats a.log --bitrate 1000").contains("error frames, load 5.30 %, "));
    QVERIFY(!outputOf("stats a.log").contains("load"));
}

void TestSearch::identifiersAreBounded()
{
    QByteArray lines;
    for (int i = 0; i < 20000; ++i)
        lines += QString::asprintf("(%d.000000) can0 %08X#\n", i, i + 0x10000).toLatin1();
    writeFile("a.log", lines);
    const QJsonObject stats = jsonOf("stats a.log --json");
    QCOMPARE(stats.value("identifiers").toArray().size(), 16384);
    QCOMPARE(stats.value("messagesNotToldApart").toInt(), 20000 - 16384);
    QVERIFY(outputOf("info a.log").contains("identifiers:    20000\n"));
}

QTEST_GUILESS_MAIN(TestSearch)
#include "tst_search.moc"
