#include "messages.h"
#include "parquettrace.h"
#include "peakmemory.h"
#include "readers.h"
#include "traceexport.h"
#include "tracefixtures.h"
#include "tracestream.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtEndian>
#include <QtTest>

#include <cstring>
#include <limits>

using Change = void (*)(CAN::CanRxMessage &message, QRandomGenerator &random);
Q_DECLARE_METATYPE(Change)

// What other programs read of a Parquet file is what was written.
class TestParquet : public QObject
{
    Q_OBJECT
private slots:
    void readersSeeWhatWasWritten_data();
    void readersSeeWhatWasWritten();
    void readersSeeEverySampleTrace();
    void endsOfColumnsAreTold();
    void theSourceIsTold();
    void memoryIsThatOfARowGroup_data();
    void memoryIsThatOfARowGroup();
    void smallFilesTakeFewerBytes();
    void longNotesAreCut();
    void otherTablesAreKnown_data();
    void otherTablesAreKnown();
    void damagedEndsAreNoFiles();
    void manyColumnsTakeNoMemory();
};

namespace {

constexpr int rowsOfAGroup = 131072;

// A file and beside it the same messages as JSON lines, which the readers are compared with.
class WrittenTwice
{
public:
    WrittenTwice(const QString &folder, const QString &name)
        : parquetFile(folder + '/' + name + ".parquet"), jsonFile(folder + '/' + name + ".jsonl")
    {
        if (!parquetFile.open(QIODevice::WriteOnly) || !jsonFile.open(QIODevice::WriteOnly))
            qFatal("%s: %s", qPrintable(name), qPrintable(parquetFile.errorString()));
    }
    ~WrittenTwice()
    {
        trace.finish(block);
        parquetFile.write(block);
    }
    void add(const CAN::CanRxMessage &message, const QString &note)
    {
        trace.append(message, note, block);
        parquetFile.write(block);
        block.clear();
        QByteArray line;
        TraceExport::appendJson(line, message, note);
        jsonFile.write(line);
    }

private:
    QFile parquetFile;
    QFile jsonFile;
    ParquetTrace trace;
    QByteArray block;
};

CAN::CanRxMessage ordinaryMessage(int index)
{
    CAN::CanRxMessage message = makeMessage(quint32(index), index % 9);
    message.id = 0x100 + index % 7;
    message.seconds = 1700000000 + index / 1000;
    message.microseconds = index % 1000 * 1000;
    message.messageNumber = quint32(index);
    return message;
}

QString randomNote(QRandomGenerator &random)
{
    const QStringList notes{"plain", QString::fromLatin1("two\r\nlines, a \0", 14),
                            u8"\u00fcber \U0001F697", QString(70000, QChar(0x20AC))};
    return notes.at(random.bounded(20) == 0 ? 3 : random.bounded(3));
}

void anyRecord(CAN::CanRxMessage &message, QRandomGenerator &random)
{
    const auto isSet = [&random] { return random.bounded(2) == 0; };
    message.seconds = qint32(random.generate());
    message.microseconds = qint32(random.generate());
    message.messageNumber = random.generate();
    message.id = random.bounded(9) == 0 ? 0xFFFF00EF : random.generate() >> random.bounded(32);
    message.line = quint16(random.generate() >> random.bounded(32));
    message.length = qint8(random.generate());
    for (quint8 &byte : message.data)
        byte = quint8(random.generate());
    message.extended = isSet();
    message.remote = isSet();
    message.fdFrame = isSet();
    message.flagB = isSet();
    message.flagC = isSet();
    message.flagD = isSet();
    message.transmitted = isSet();
}

void anyFrame(CAN::CanRxMessage &message, QRandomGenerator &random)
{
    constexpr int lengths[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 12, 16, 20, 24, 32, 48, 64};
    message.id = random.bounded(2048);
    message.microseconds = random.bounded(1000000);
    message.fdFrame = random.bounded(4) == 0;
    message.remote = !message.fdFrame && random.bounded(9) == 0;
    message.length = qint8(lengths[random.bounded(message.fdFrame ? 16 : 9)]);
    // Few different payloads, so that they have a dictionary.
    std::fill(std::begin(message.data), std::end(message.data),
              message.remote ? 0 : random.bounded(16));
}

void farthestTimes(CAN::CanRxMessage &message, QRandomGenerator &random)
{
    using Limits = std::numeric_limits<qint32>;
    message.seconds = random.bounded(2) == 0 ? Limits::min() : Limits::max();
    message.microseconds = message.seconds;
}

void manyIdentifiers(CAN::CanRxMessage &message, QRandomGenerator &)
{
    message.id = message.messageNumber;
}

void asItIs(CAN::CanRxMessage &, QRandomGenerator &) { }

} // namespace

void TestParquet::readersSeeWhatWasWritten_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<Change>("change");
    QTest::addColumn<int>("oneNoteIn");
    const auto row = [](const char *name, int count, Change change, int oneNoteIn) {
        QTest::newRow(name) << count << change << oneNoteIn;
    };
    row("nothing", 0, asItIs, 0);
    row("one message", 1, asItIs, 1);
    row("a block of differences", 129, asItIs, 0);
    row("one more", 130, asItIs, 0);
    row("not a whole group of bits", 1003, asItIs, 3);
    row("a small file", 4096, anyFrame, 20);
    row("a small file of other payloads", 4096, anyRecord, 0);
    row("all kinds and lengths", 100000, anyFrame, 20);
    row("whatever a record may hold", 100000, anyRecord, 50);
    row("times as far apart as can be", 1000, farthestTimes, 0);
    row("an identifier for each message", 100000, manyIdentifiers, 0);
    row("three row groups", 2 * rowsOfAGroup + 1, asItIs, 1000);
}

void TestParquet::readersSeeWhatWasWritten()
{
    QFETCH(int, count);
    QFETCH(Change, change);
    QFETCH(int, oneNoteIn);
    if (!haveReaders())
        QSKIP(noReaders);
    QRandomGenerator random(42);
    QTemporaryDir folder;
    {
        WrittenTwice files(folder.path(), "trace");
        for (int i = 0; i < count; ++i) {
            CAN::CanRxMessage message = ordinaryMessage(i);
            change(message, random);
            const bool hasNote = oneNoteIn > 0 && random.bounded(oneNoteIn) == 0;
            files.add(message, hasNote ? randomNote(random) : QString());
        }
    }
    QCOMPARE(readByOthers({"compare", folder.path()}),
             QString("1 files, %1 rows, 0 differences").arg(count));
}

void TestParquet::readersSeeEverySampleTrace()
{
    if (!haveReaders())
        QSKIP(noReaders);
    QTemporaryDir folder;
    int files = 0;
    int rows = 0;
    const QVector<TraceFixture> fixtures = traceFixtures();
    for (const TraceFixture &fixture : fixtures) {
        TraceStream stream(fixture.fileName, fixture.type, fixture.description);
        WrittenTwice both(folder.path(), QString::number(files++));
        stream.read(
            [&](const TraceItem &item) {
                both.add(item.message, item.note);
                ++rows;
                return true;
            },
            [] { return true; });
    }
    QVERIFY(rows > files);
    QCOMPARE(readByOthers({"compare", folder.path()}),
             QString("%1 files, %2 rows, 0 differences").arg(files).arg(rows));
}

// What a query needs in order to pass over row groups, and whether it does so.
void TestParquet::endsOfColumnsAreTold()
{
    if (!haveReaders())
        QSKIP(noReaders);
    QTemporaryDir folder;
    {
        QRandomGenerator random(42);
        WrittenTwice files(folder.path(), "trace");
        for (int i = 0; i < 4 * rowsOfAGroup; ++i) {
            CAN::CanRxMessage message = ordinaryMessage(i);
            const quint64 bytes = random.generate64();
            std::memcpy(message.data, &bytes, sizeof bytes);
            files.add(message, i % rowsOfAGroup == 7 ? "note" : "");
        }
    }
    const QString file = folder.filePath("trace.parquet");
    const QString ends =
        "select path_in_schema, stats_min_value, stats_max_value, stats_null_count "
        "from parquet_metadata('%1') where row_group_id = 2 and "
        "path_in_schema in ('number', 'identifier', 'error', 'note')";
    const auto told = [](const char *name, const char *least, const char *greatest,
                         const char *nulls) {
        return QString(R"({"path_in_schema":"%1","stats_min_value":%2,"stats_max_value":%3,)"
                       R"("stats_null_count":"%4"})")
            .arg(name, least, greatest, nulls);
    };
    const QStringList rows{told("number", R"("262144")", R"("393215")", "0"),
                           told("identifier", R"("256")", R"("262")", "0"),
                           told("error", R"("false")", R"("false")", "0"),
                           told("note", "null", "null", "131071")};
    QCOMPARE(readByOthers({"query", ends.arg(file)}), '[' + rows.join(',') + ']');
    // Whoever reads the row groups behind the first comes upon damage.
    QFile damaged(file);
    QVERIFY(damaged.open(QIODevice::ReadWrite) && damaged.seek(damaged.size() / 2));
    QVERIFY(damaged.write(QByteArray(int(damaged.size() / 3), '\xFF')) > 0 && damaged.flush());
    const QString all = QString("select sum(octet_length(data)) n from '%1'").arg(file);
    QVERIFY(!readByOthers({"query", all}).startsWith('['));
    QCOMPARE(readByOthers({"query", all + " where time < '2023-11-14 22:13:30+00'"}),
             QString(R"([{"n":"39996"}])"));
}

void TestParquet::theSourceIsTold()
{
    if (!haveReaders())
        QSKIP(noReaders);
    QTemporaryDir folder;
    QByteArray block;
    ParquetTrace trace({"first", {}, {}});
    trace.append(ordinaryMessage(0), {}, block);
    trace.setSource({u8"d\u00e4y.log", "abc", R"({"lines":1})"});
    trace.finish(block);
    QFile file(folder.filePath("trace.parquet"));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(block) == block.size() && file.flush());
    const QString words = "select decode(key) k, decode(value) v from parquet_kv_metadata('%1') "
                          "where decode(key) <> 'datachunk.version'";
    QCOMPARE(readByOthers({"query", words.arg(file.fileName())}),
             QString(R"([{"k":"datachunk.source","v":"däy.log"},)"
                     R"({"k":"datachunk.sha256","v":"abc"},)"
                     R"({"k":"datachunk.report","v":"{\"lines\":1}"}])"));
}

void TestParquet::memoryIsThatOfARowGroup_data()
{
    QTest::addColumn<int>("payloadSize");
    QTest::addColumn<int>("noteSize");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("mebibytes");
    QTest::newRow("classic CAN") << 8 << 0 << 4 * rowsOfAGroup << 16;
    QTest::newRow("CAN FD") << 64 << 0 << 4 * rowsOfAGroup << 64;
    QTest::newRow("long notes") << 8 << 1000000 << 100 << 100;
}

void TestParquet::memoryIsThatOfARowGroup()
{
    QFETCH(int, payloadSize);
    QFETCH(int, noteSize);
    QFETCH(int, count);
    QFETCH(int, mebibytes);
    const QString note(noteSize, QChar(0x20AC));
    resetHeapPeak();
    ParquetTrace trace;
    for (int i = 0; i < count; ++i) {
        CAN::CanRxMessage message = makeMessage(quint32(i), payloadSize);
        qToLittleEndian(i, message.data);
        QByteArray block;
        trace.append(message, note, block);
    }
    QVERIFY2(heapPeak() < mebibytes * 1024LL * 1024, qPrintable(QString::number(heapPeak())));
}

void TestParquet::smallFilesTakeFewerBytes()
{
    const auto bytesOf = [](int messages, int noteSize) {
        ParquetTrace trace;
        QByteArray file;
        for (int i = 0; i < messages; ++i)
            trace.append(ordinaryMessage(i), QString(i == 0 ? noteSize : 0, 'n'), file);
        trace.finish(file);
        return file.size();
    };
    QVERIFY(bytesOf(4096, 0) < bytesOf(4097, 0) * 9 / 10);
    // Long notes would take long.
    QVERIFY(bytesOf(4096, 0) < bytesOf(4096, 4096 * 64) * 9 / 10);
}

void TestParquet::longNotesAreCut()
{
    constexpr int most = 16 * 1024 * 1024;
    ParquetTrace trace;
    QByteArray block;
    trace.append(ordinaryMessage(0), QString(most, 'n'), block);
    QCOMPARE(trace.notesCut(), quint64(0));
    trace.append(ordinaryMessage(1), QString(most, 'n') + 'n', block);
    trace.append(ordinaryMessage(2), QString(most / 3, QChar(0x20AC)) + "nn", block);
    QCOMPARE(trace.notesCut(), quint64(2));
}

void TestParquet::otherTablesAreKnown_data()
{
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QString>("difference");
    const auto row = [](const char *name, const char *sql, const char *difference) {
        QTest::newRow(name) << sql << difference;
    };
    row("the same", "select * from '%1'", "");
    row("a column more", "select *, 1 as speed from '%1'",
        "The column \"speed\" is not in both, or of another type.");
    row("a column less", "select * exclude (note) from '%1'",
        "The column \"note\" is not in both, or of another type.");
    row("another type", "select * replace (line::bigint as line) from '%1'",
        "The column \"line\" is not in both, or of another type.");
    row("another meaning", "select * replace (epoch_us(time) as time) from '%1'",
        "The column \"time\" is not in both, or of another type.");
}

void TestParquet::otherTablesAreKnown()
{
    QFETCH(QString, sql);
    QFETCH(QString, difference);
    if (!haveReaders())
        QSKIP(noReaders);
    QTemporaryDir folder;
    WrittenTwice(folder.path(), "trace").add(ordinaryMessage(0), "note");
    const QString ours = folder.filePath("trace.parquet");
    const QString theirs = folder.filePath("other.parquet");
    QCOMPARE(ParquetTrace::differenceOf(ours), QString());
    readByOthers({"query", QString("copy (%1) to '%2'").arg(sql.arg(ours), theirs)});
    QCOMPARE(ParquetTrace::differenceOf(theirs), difference);
}

void TestParquet::damagedEndsAreNoFiles()
{
    QTemporaryDir folder;
    QByteArray whole;
    ParquetTrace trace;
    trace.append(ordinaryMessage(0), "note", whole);
    trace.finish(whole);
    const auto differenceOf = [&folder](const QByteArray &bytes) {
        QFile file(folder.filePath("trace.parquet"));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
            qFatal("%s", qPrintable(file.errorString()));
        return ParquetTrace::differenceOf(file.fileName());
    };
    QCOMPARE(differenceOf(whole), QString());
    for (int size = 0; size < whole.size(); size += 7)
        QVERIFY2(!differenceOf(whole.left(size)).isEmpty(), qPrintable(QString::number(size)));
    // Whatever is in it, it is read to its end.
    for (int at = whole.size() * 3 / 4; at < whole.size(); ++at) {
        for (const int byte : {0x00, 0x9C, 0xFF}) {
            QByteArray damaged = whole;
            damaged[at] = char(byte);
            differenceOf(damaged);
        }
    }
}

// A column of nothing takes one byte of the file.
void TestParquet::manyColumnsTakeNoMemory()
{
    constexpr int columns = 0x1000000;
    const QByteArray end =
        QByteArray::fromHex("29fc80808008").append(columns, '\0') + QByteArray::fromHex("00");
    QTemporaryDir folder;
    QFile file(folder.filePath("trace.parquet"));
    QByteArray size(4, '\0');
    qToLittleEndian(quint32(end.size()), size.data());
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("PAR1" + end + size + "PAR1") > columns
            && file.flush());
    resetHeapPeak();
    QVERIFY(!ParquetTrace::differenceOf(file.fileName()).isEmpty());
    QVERIFY2(heapPeak() < 2 * columns, qPrintable(QString::number(heapPeak())));
}

QTEST_GUILESS_MAIN(TestParquet)
#include "tst_parquet.moc"
