#include "archives.h"
#include "chunkdirectory.h"
#include "chunkrecovery.h"
#include "program.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

#include <functional>

// What "verify" finds in files that were damaged on purpose, and what "recover" saves of them.
class TestVerify : public FolderTest
{
    Q_OBJECT
private slots:
    void damagedChunks_data();
    void damagedChunks();
    void manyFindingsAreCounted();
    void folders_data();
    void folders();
    void archives_data();
    void archives();
    void nothingElseIsVerified();
    void everyCutIsRecovered();
    void zerosFromALossOfPowerAreTrimmed();
    void severalFoldersAreRecovered();
    void namesWithPlacesForTextsStay();
    void anEarlierExportIsSetAside();
    void nothingIsOverwritten();
};

namespace {

// In the chunk of writeKinds().
constexpr int sizeOfKinds = 247;
constexpr int recordsOfKinds[] = {119, 146, 171, 196, 222, sizeOfKinds};

// Rows are made before a test has its folder.
QByteArray kinds()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("kinds.dck");
    writeKinds(path);
    return readFile(path);
}

QByteArray with(QByteArray bytes, int offset, const QByteArray &hex)
{
    const QByteArray put = QByteArray::fromHex(hex);
    return bytes.replace(offset, put.size(), put);
}

// Each finding in a word, as in "error record-cut 4/222".
QStringList findingsOf(const QString &paths)
{
    QStringList all;
    const ProgramResult result = run("verify --json " + paths);
    bool hasError = false;
    for (const QByteArray &line : result.output.trimmed().split('\n')) {
        if (line.isEmpty())
            continue;
        const QJsonObject finding = QJsonDocument::fromJson(line).object();
        const QString severity = finding.value("severity").toString();
        hasError = hasError || severity == "error";
        const auto number = [&finding](const char *key) {
            const int value = finding.value(QLatin1String(key)).toInt(-1);
            return value < 0 ? QStringLiteral("-") : QString::number(value);
        };
        all += severity + ' ' + finding.value("kind").toString() + ' ' + number("position") + '/'
            + number("byte");
    }
    if (result.status != (hasError ? 1 : 0) || !result.errors.isEmpty())
        all += QStringLiteral("status %1: ").arg(result.status) + result.errors;
    return all;
}

void makeRecording()
{
    QCOMPARE(run("record --into rec --limit 5010", candumpLines(0, 35)).status, 0);
}

} // namespace

void TestVerify::damagedChunks_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("findings");
    const QByteArray good = kinds();
    const auto row = [](const char *name, const QByteArray &bytes, const QStringList &findings) {
        QTest::newRow(name) << bytes << findings;
    };
    QCOMPARE(good.size(), sizeOfKinds);
    row("nothing in a good one", good, {});
    row("an empty file", "", {"error empty -/0"});
    row("a cut header", good.left(30), {"error header-damaged -/0"});
    row("a version that is no number", with(good, 54, "0078"), {"error version-unknown -/0"});
    row("a newer version", with(good, 54, "0039"), {"error version-newer -/0"});
    row("a header with other times", with(good, 4, "0039"), {"remark time-range -/0"});
    row("a header without times", with(good, 4, "0078"), {"remark time-range -/0"});
    row("too many notes for the file", with(good, 60, "00ffffff"), {"error map-damaged -/60"});
    row("cut bookmarks", good.left(110), {"error map-damaged -/90"});
    row("a bookmark on another message", with(good, 103, "0000000d"),
        {"error bookmark-damaged -/-"});
    row("a flag that is neither 0 nor 1", with(good, 147, "02"), {"error value 1/146"});
    row("the last flag", with(good, 155, "80"), {"error value 1/146"});
    row("a second of microseconds", with(good, 157, "000f4240"), {"remark value 1/146"});
    row("an identifier of 30 bits", with(good, 148, "20000000"), {"remark value 1/146"});
    row("a length of 65", with(good, 146, "41"), {"error record-length 1/146"});
    row("a negative length", with(good, 146, "ff"), {"error record-length 1/146"});
    row("a cut record", good.left(246), {"error record-cut 4/222"});
    row("no records", good.left(119), {"remark no-messages -/-"});
    row("a number too high", with(good, 190, "0000000e"),
        {"remark number-gap 2/171", "remark number-repeat 3/196"});
    row("a number that comes twice", with(good, 190, "0000000b"),
        {"remark number-repeat 2/171", "remark number-gap 3/196"});
    row("a time that falls", with(good, 212, "00000001"), {"remark time-falls 3/196"});
    row("zeros behind", good + QByteArray(60, 0), {"error zeros 5/247", "error record-cut 7/297"});
    row("zeros in between", good.left(146) + QByteArray(50, 0) + good.mid(196),
        {"error zeros 1/146", "remark number-gap 3/196"});
}

void TestVerify::damagedChunks()
{
    QFETCH(QByteArray, bytes);
    writeFile("kinds.dck", bytes);
    QTEST(findingsOf("kinds.dck"), "findings");
    QCOMPARE(readFile("kinds.dck"), bytes);
}

void TestVerify::manyFindingsAreCounted()
{
    QByteArray bytes = chunkBytes("0.0", 0, 1);
    const QByteArray record = bytes.right(33);
    for (int i = 0; i < 1000; ++i)
        bytes += record;
    writeFile("same.dck", bytes);
    const QByteArray output = run("verify same.dck").output;
    QCOMPARE(output.count('\n'), 22);
    QVERIFY(output.contains("same.dck: remark: There are 980 more like that.\n"));
    QCOMPARE(output.split('\n').at(21), "1 chunks, 1001 messages: 0 errors, 21 remarks.");
}

using Change = std::function<void()>;
Q_DECLARE_METATYPE(Change)

void TestVerify::folders_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QStringList>("findings");
    const auto row = [](const char *name, const Change &change, const QStringList &findings) {
        QTest::newRow(name) << change << findings;
    };
    const auto directory = [](const std::function<void(QByteArray &)> &change) {
        return [change] {
            QByteArray bytes = readFile("rec/.chunk-directory");
            change(bytes);
            writeFile("rec/.chunk-directory", bytes);
        };
    };
    row("nothing in a recording", [] {}, {});
    row("nothing without a directory", [] { QFile::remove("rec/.chunk-directory"); }, {});
    row("a missing chunk", [] { QFile::remove("rec/tmpData1.dck"); }, {"error number-gap 0/64"});
    row("nothing where the oldest is deleted", [] { QFile::remove("rec/tmpData0.dck"); }, {});
    row("a chunk that comes again",
        [] {
            QFile::remove("rec/zlastChunk.dck");
            QFile::copy("rec/tmpData1.dck", "rec/zlastChunk.dck");
        },
        {"error number-repeat 0/64", "remark time-falls 0/64"});
    row("a missing chunk, whatever else there is",
        [] { QFile::rename("rec/tmpData1.dck", "rec/x.dck"); }, {"error number-gap 0/64"});
    row("no chunks", [] { QDir("rec").removeRecursively(), QDir().mkdir("rec"); },
        {"error no-chunks -/-"});
    row("a file that changed behind its entry",
        [] { writeFile("rec/tmpData1.dck", readFile("rec/tmpData1.dck")); },
        {"remark directory-stale -/-"});
    row("an entry that says something else",
        [] {
            DirectoryEntry entry = ChunkDirectory::read("rec").front();
            ++entry.index.notes;
            QVERIFY(ChunkDirectory::add("rec", entry));
        },
        {"error directory-wrong -/-"});
    row("a directory of somebody else",
        directory([](QByteArray &bytes) { bytes[30] = ~bytes[30]; }),
        {"remark directory-unused -/-"});
    row("an entry with a broken seal", directory([](QByteArray &bytes) { bytes[60] = ~bytes[60]; }),
        {"remark directory-damaged -/36"});
    row("a cut entry", directory([](QByteArray &bytes) { bytes.chop(1); }),
        {"remark directory-damaged -/450"});
}

void TestVerify::folders()
{
    QFETCH(Change, change);
    makeRecording();
    change();
    const QMap<QString, QByteArray> before = filesBelow("rec");
    QTEST(findingsOf("rec"), "findings");
    QCOMPARE(filesBelow("rec"), before);
}

void TestVerify::archives_data()
{
    QTest::addColumn<QByteArray>("archive");
    QTest::addColumn<QStringList>("findings");
    const QByteArray good = kinds();
    const auto row = [](const char *name, const QByteArray &archive, const QStringList &findings) {
        QTest::newRow(name) << archive << findings;
    };
    const QByteArray stored = archiveOf({{"tmpData0.dck", good, true}});
    const int content = stored.indexOf(good);
    row("nothing in a good one", stored, {});
    row("a wrong checksum", with(stored, content + 120, "ff"), {"error checksum -/-"});
    const QByteArray badLength = with(good, 146, "41");
    row("a wrong checksum behind damage",
        with(archiveOf({{"tmpData0.dck", badLength, true}}), content + 240, "ff"),
        {"error checksum -/-", "error record-length 1/146"});
    row("an entry that cannot be unpacked",
        with(archiveOf({{"tmpData0.dck", good + QByteArray(100, 'x')}}), 60, "ffffffffffff"),
        {"error entry-damaged -/0", "error header-damaged -/0"});
    row("a cut chunk that was packed so", archiveOf({{"tmpData0.dck", good.left(246), true}}),
        {"error record-cut 4/222"});
    row("a name that no file has", archiveOf({{"a/tmpData0.dck", good, true}}),
        {"remark entry-name -/-"});
    row("a chunk that comes again",
        archiveOf({{"tmpData0.dck", good, true}, {"tmpData1.dck", good, true}}),
        {"error number-repeat 0/119", "remark time-falls 0/119"});
    row("numbers that a store leaves out and repeats",
        archiveOf({{"a/tmpData0.dck", with(good, 190, "0000000e"), true}}),
        {"remark entry-name -/-", "error number-gap 2/171", "error number-repeat 3/196"});
    const QByteArray first = chunkBytes("0.0", 0, 1);
    const QByteArray highest = with(first, first.size() - 6, "ffffffff");
    row("numbers that begin at 0 behind the highest",
        archiveOf({{"tmpData8.dck", highest + first.right(33), true},
                   {"tmpData9.dck", chunkBytes("0.0", 1, 1), true},
                   {"x8.dck", highest, true},
                   {"x9.dck", first, true}}),
        {});
    row("files that hold one trace each",
        archiveOf({{"day1.dck", chunkBytes("0.0", 0, 2), true}, {"day2.dck", first, true}}),
        {"remark number-repeat 0/52", "remark time-falls 0/52"});
    row("no chunks", archiveOf({{"notes.txt", "hello", true}}), {"error no-chunks -/-"});
    row("no archive", "PK, but no archive", {"error unreadable -/-"});
    row("a cut directory", withClaimedEntries(stored, 3), {"error archive-directory -/-"});
    row("too many entries", withManyClaimedEntries(stored, 1000000), {"error archive-limit -/-"});
    row("more than can be in it", withClaimedSize(stored, 0x7fffffff), {"error archive-limit -/-"});
}

void TestVerify::archives()
{
    QFETCH(QByteArray, archive);
    writeFile("x.zip", archive);
    QTEST(findingsOf("x.zip"), "findings");
}

void TestVerify::nothingElseIsVerified()
{
    writeFile("trace.log", candumpLines(0, 3));
    QVERIFY(errorsOf("verify trace.log").contains("trace.log: Only chunk files"));
    QVERIFY(errorsOf("verify nothing.dck").contains("nothing.dck"));
    QCOMPARE(run("verify").status, 2);
    QCOMPARE(run("recover x").status, 2);
    QVERIFY(errorsOf("recover trace.log --into out").contains("The file is no chunk file."));
    QVERIFY(!QFile::exists("out"));
}

void TestVerify::everyCutIsRecovered()
{
    const QByteArray good = kinds();
    for (int size = 0; size < good.size(); ++size) {
        writeFile("cut.dck", good.left(size));
        int whole = 0;
        while (recordsOfKinds[whole + 1] <= size)
            ++whole;
        const RecoveredChunk chunk = recoverChunk("cut.dck", "saved.dck", [] { return true; });
        QCOMPARE(chunk.messages, qint64(whole));
        QCOMPARE(chunk.bytesTrimmed, size - (whole > 0 ? recordsOfKinds[whole] : 0));
        QCOMPARE(chunk.text.isEmpty(), whole > 0 && recordsOfKinds[whole] == size);
        QCOMPARE(QFile::exists("saved.dck"), whole > 0);
        if (whole == 0)
            continue;
        QCOMPARE(readFile("saved.dck"), good.left(recordsOfKinds[whole]));
        QCOMPARE(chunk.lastNumber, 9U + quint32(whole));
        QCOMPARE(QFile("saved.dck").permissions() & 0x0077, QFile::Permissions());
        QFile::remove("saved.dck");
    }
}

void TestVerify::zerosFromALossOfPowerAreTrimmed()
{
    constexpr int count = 300;
    const QByteArray good = chunkBytes("0.0", 1, count);
    const int size = 33;
    const int start = good.size() - count * size;
    for (int sector = 512; sector < good.size(); sector += 512) {
        writeFile("zeros.dck", good.left(sector) + QByteArray(8000, 0));
        const RecoveredChunk chunk = recoverChunk("zeros.dck", "saved.dck", [] { return true; });
        const int whole = (sector - start) / size;
        QCOMPARE(chunk.messages, qint64(whole));
        QCOMPARE(chunk.lastNumber, quint32(whole));
        QCOMPARE(readFile("saved.dck"), good.left(start + whole * size));
        QVERIFY(chunk.text.contains("zeros"));
        QFile::remove("saved.dck");
    }
    writeFile("first.dck", chunkBytes("0.0", 0, 0) + QByteArray(25, 0));
    QCOMPARE(recoverChunk("first.dck", "saved.dck", [] { return true; }).messages, 1);
    writeFile("none.dck", chunkBytes("0.0", 0, 0) + QByteArray(50, 0));
    QCOMPARE(recoverChunk("none.dck", "other.dck", [] { return true; }).result,
             RecoveredChunk::Nothing);
}

void TestVerify::severalFoldersAreRecovered()
{
    makeRecording();
    QVERIFY(QDir().mkpath("store/17/inner"));
    const QByteArray good = kinds();
    writeFile("store/17/tmpData0.dck", good);
    writeFile("store/17/inner/a.dck", good);
    writeFile("store/17/tmpData10.dck", good.left(200));
    writeFile("store/17/tmpData9.dck", "");
    writeFile("store/17/damaged.dck", with(good, 60, "00ffffff"));
    const QMap<QString, QByteArray> before = filesBelow("store");
    const ProgramResult result = run("recover store rec --into out");
    QCOMPARE(result.status, 1);
    QCOMPARE(result.errors, "");
    const QList<QByteArray> lines = result.output.trimmed().split('\n');
    QCOMPARE(lines.size(), 9);
    QVERIFY(lines.at(0).startsWith("store/17/damaged.dck: 0 messages kept, 247 bytes trimmed: "));
    QCOMPARE(lines.at(1), "store/17/tmpData0.dck: 5 messages kept");
    QCOMPARE(lines.at(2), "store/17/tmpData9.dck: 0 messages kept: It is empty.");
    QCOMPARE(lines.at(3),
             "store/17/tmpData10.dck: 3 messages kept, 4 bytes trimmed: It ends in the middle of a "
             "message.");
    QCOMPARE(namesIn("out"), (QStringList{"17", "inner", "rec"}));
    QCOMPARE(readChunkFile("out/17/tmpData0.dck").bookmarks.value(12).text(), "mark");
    QCOMPARE(outputOf("verify out/rec"), "4 chunks, 35 messages: nothing found.\n");
    QVERIFY(!ChunkDirectory::read("out/17").empty());
    QCOMPARE(filesBelow("store"), before);
}

void TestVerify::namesWithPlacesForTextsStay()
{
    QVERIFY(QDir().mkpath("%1/%3"));
    writeFile("%1/%3/%2_1.dck", chunkBytes("0.0", 3, 2));
    writeFile("%1/%3/%2_2.dck", chunkBytes("5.0", 4, 1));
    QVERIFY(run("verify %1/%3")
                .output.contains("The chunk begins with message 4, but %2_1.dck ends with message "
                                 "4.\n"));
    QVERIFY(outputOf("recover --list %1").startsWith("%1/%3: left behind, 2 chunk files, "));
    QCOMPARE(outputOf("recover %1 --into out"),
             "%1/%3/%2_1.dck: 2 messages kept\n%1/%3/%2_2.dck: 1 messages kept\n");
    QVERIFY(outputOf("detect --explain %1/%3/%2_1.dck")
                .startsWith("ChunkFile %1/%3/%2_1.dck\n    100% "));
}

void TestVerify::anEarlierExportIsSetAside()
{
    makeRecording();
    QVERIFY(QFile::remove("rec/zlastChunk.dck"));
    QVERIFY(QFile::copy("rec/tmpData1.dck", "rec/zlastChunk.dck"));
    const ProgramResult result = run("recover rec --into out");
    QCOMPARE(result.status, 0);
    QVERIFY(result.output.contains("earlier/zlastChunk.dck"));
    QCOMPARE(readFile("out/earlier/zlastChunk.dck"), readFile("rec/tmpData1.dck"));
    QCOMPARE(outputOf("verify out"), "3 chunks, 30 messages: nothing found.\n");
    QVERIFY(QFile::remove("rec/tmpData1.dck"));
    QVERIFY(outputOf("recover rec --into more").contains("kept: 10 messages in front of it are"));
}

void TestVerify::nothingIsOverwritten()
{
    makeRecording();
    const QMap<QString, QByteArray> before = filesBelow("rec");
    QVERIFY(errorsOf("recover rec --into rec").contains("is to be left as it is"));
    QVERIFY(errorsOf("recover rec --into rec/x").contains("is to be left as it is"));
    writeKinds("kinds.dck");
    QVERIFY(errorsOf("recover kinds.dck --into rec").contains("holds a recording already"));
    QCOMPARE(filesBelow("rec"), before);
}

QTEST_GUILESS_MAIN(TestVerify)
#include "tst_verify.moc"
