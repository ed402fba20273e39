#include "flagnumber.h"
#include "loadertable.h"
#include "recordingsink.h"
#include "storefixture.h"
#include "textexport.h"
#include "tracerecognition.h"
#include "tracestream.h"

#include <QDirIterator>
#include <QFile>
#include <QRandomGenerator>
#include <QtTest>

namespace {

constexpr quint32 errorFrame = 0xFFFF00EF;

// The folders of traces and how their files are read; the longest name that fits counts.
const QMap<QString, DatachunkHelper::ImportFileType> &typesByFolder()
{
    static const QMap<QString, DatachunkHelper::ImportFileType> types{
        {"busmaster", DatachunkHelper::BusmasterLog},
        {"candump", DatachunkHelper::SocketCanDump},
        {"canhacker", DatachunkHelper::CanHackerTrace},
        {"coctt", DatachunkHelper::CoCTTLog},
        {"gvret", DatachunkHelper::GvretCsv},
        {"ixxat", DatachunkHelper::IxxatTrace},
        {"kolvar", DatachunkHelper::KolvarTxt},
        {"kvaser-canking", DatachunkHelper::KvaserCanKingLog},
        {"kvaser-txt", DatachunkHelper::KvaserTxtLog},
        {"peak-trc", DatachunkHelper::PeakTrc21},
        {"python-can-csv", DatachunkHelper::PythonCanCsv},
        {"python-can-text", DatachunkHelper::PythonCanText},
        {"vector-asc", DatachunkHelper::VectorAsc},
        {"wireshark", DatachunkHelper::WiresharkCsv}};
    return types;
}

DatachunkHelper::ImportFileType typeOf(const QString &trace)
{
    const QString folder = QFileInfo(trace).dir().dirName();
    DatachunkHelper::ImportFileType type = DatachunkHelper::Unknown;
    for (auto entry = typesByFolder().begin(); entry != typesByFolder().end(); ++entry) {
        if (folder.startsWith(entry.key()))
            type = entry.value();
    }
    return type;
}

QString channelName(const ImportReport &report, quint16 line)
{
    for (const ImportReport::Channel &channel : report.channels) {
        if (channel.line == line)
            return channel.name;
    }
    return QStringLiteral("-");
}

QString lettersOf(const CAN::CanRxMessage &message)
{
    if (message.id == errorFrame)
        return QStringLiteral("-");
    QString letters;
    if (message.extended)
        letters += 'x';
    if (message.remote)
        letters += 'r';
    if (message.fdFrame)
        letters += 'f';
    if (message.flagC)
        letters += 'b';
    if (message.flagB)
        letters += 'e';
    return letters.isEmpty() ? QStringLiteral("-") : letters;
}

// "file-line time id letters length data channel direction", where the file tells no time and no
// direction as for 0 and for one that was received.
QString rowOf(quint64 lineNumber, const CAN::CanRxMessage &message, const ImportReport &report)
{
    const qint64 time = message.seconds * qint64(1000000) + message.microseconds;
    const QString id = message.id == errorFrame ? "error" : QString::number(message.id, 16);
    const int bytes = message.remote ? 0 : qBound(0, int(message.length), 64);
    const QByteArray data(reinterpret_cast<const char *>(message.data), bytes);
    return QStringLiteral("%1 %2 %3 %4 %5 %6 %7 %8")
        .arg(lineNumber)
        .arg(time)
        .arg(id, lettersOf(message))
        .arg(message.length)
        .arg(data.isEmpty() ? QStringLiteral("-") : QString::fromLatin1(data.toHex()),
             channelName(report, message.line), message.transmitted ? "Tx" : "Rx");
}

// A row of a file as rowOf() writes it.
QString asWritten(const QString &row)
{
    QStringList fields = row.simplified().split(' ');
    if (fields.size() != 8)
        return row;
    if (fields[1] == "-")
        fields[1] = "0";
    if (fields[7] == "-")
        fields[7] = "Rx";
    return fields.join(' ');
}

// Keeps each message as a row, with the number of the line that brought it.
class RowSink : public RecordingSink
{
public:
    explicit RowSink(const LineSource &lines) : lines(lines) { }
    bool message(const CAN::CanRxMessage &message) override
    {
        numbers.append(lines.number());
        return RecordingSink::message(message);
    }
    QVector<quint64> numbers;

private:
    const LineSource &lines;
};

} // namespace

/// Reads traces tolerantly and compares the frames with those that a careful engineer finds in
/// them,
/// "<trace>.faithful" beside each. DATACHUNK_TRACES names a folder of further ones.
class TestTolerant : public QObject
{
    Q_OBJECT
private slots:
    void everyFrameIsFound_data();
    void everyFrameIsFound();
    void linesAddUp_data();
    void linesAddUp();
    void writtenTextsComeBack();
    void describedLayoutsLeaveOutOtherLines();
    void contentTellsTheType_data();
    void contentTellsTheType();
    void strictFramesThatAreRightAreNotUnlikely_data();
    void strictFramesThatAreRightAreNotUnlikely();
    void strictReadersTellOfPhantoms_data();
    void strictReadersTellOfPhantoms();
    void refusalsOfADeviceAreThoseOfAFile();
};

void TestTolerant::everyFrameIsFound_data()
{
    QTest::addColumn<QString>("trace");
    for (const QString &folder :
         {QStringLiteral(TESTDATA "/tolerant"), qEnvironmentVariable("DATACHUNK_TRACES")}) {
        QDirIterator files(folder, {QStringLiteral("*.faithful")}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (!folder.isEmpty() && files.hasNext()) {
            const QString trace = files.next().chopped(int(qstrlen(".faithful")));
            QTest::newRow(qPrintable(trace.section('/', -2))) << trace;
        }
    }
}

void TestTolerant::everyFrameIsFound()
{
    QFETCH(QString, trace);
    const TraceRequest request{trace, typeOf(trace), {}, DatachunkHelper::Tolerant};
    QFile file(trace);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const TraceReader reader = traceReaderFor(request);
    LineSource lines(file, reader.carriageReturns);
    RowSink sink(lines);
    QVERIFY(reader.read(lines, sink, request).isDone());
    QStringList found;
    for (int i = 0; i < sink.messages.size(); ++i)
        found.append(rowOf(sink.numbers.at(i), sink.messages.at(i), lines.report()));
    QStringList expected;
    for (const QString &row : QString::fromUtf8(readFile(trace + ".faithful")).split('\n')) {
        if (!row.isEmpty())
            expected.append(asWritten(row));
    }
    QCOMPARE(found, expected);
}

void TestTolerant::linesAddUp_data()
{
    everyFrameIsFound_data();
}

void TestTolerant::linesAddUp()
{
    QFETCH(QString, trace);
    for (const auto mode : {DatachunkHelper::Strict, DatachunkHelper::Tolerant}) {
        ImportReport report;
        struct Sink : RecordingSink
        {
            explicit Sink(ImportReport &kept) : kept(kept) { }
            void report(const ImportReport &told) override { kept = told; }
            ImportReport &kept;
        } sink(report);
        const Outcome outcome = readTraceFile({trace, typeOf(trace), {}, mode}, sink);
        QCOMPARE(report.frames, quint64(sink.messages.size()));
        QCOMPARE(report.frames + report.linesLeftOut(), report.lines);
        QVERIFY(mode == DatachunkHelper::Strict || report.unlikely.count == 0);
        const QByteArray content = readFile(trace);
        if (outcome.isDone())
            QCOMPARE(report.lines, quint64(content.count('\n') + !content.endsWith('\n')));
    }
}

// Whatever the text export writes, but for what it has no place for.
void TestTolerant::writtenTextsComeBack()
{
    QRandomGenerator random(20);
    const QStringList notes{{}, "hot", "a;b ; c", " two  blanks", "Remote (8): 1.5", "\"#\" | ü"};
    QVector<CAN::CanRxMessage> written;
    QString text = TextExport::headerLine();
    for (int i = 0; i < 500; ++i) {
        CAN::CanRxMessage message;
        message.messageNumber = quint32(i);
        message.seconds = random.bounded(-5, 2000000000);
        message.microseconds = random.bounded(1000000);
        message.id = random.bounded(2) ? random.bounded(0x800) : random.bounded(0x20000000);
        CAN::setFlags(random.bounded(16u), message);
        message.extended |= message.id > 0x7FF;
        message.remote = random.bounded(8) == 0;
        message.length = qint8(random.bounded(65));
        for (int byte = 0; byte < message.length && !message.remote; ++byte)
            message.data[byte] = quint8(random.bounded(256));
        if (random.bounded(20) == 0) {
            message.id = errorFrame;
            message.extended = message.remote = false;
        }
        written.append(message);
        text += TextExport::messageLine(message, notes.at(i % notes.size()));
    }
    QTemporaryFile file;
    QVERIFY(file.open());
    file.write(text.toLocal8Bit());
    file.close();
    TraceStream stream(file.fileName(), DatachunkHelper::KolvarTxt);
    stream.setMode(DatachunkHelper::Tolerant);
    int count = 0;
    const auto take = [&](const TraceItem &item) {
        const QString note = notes.at(count % notes.size());
        CAN::CanRxMessage expected = written.at(count++);
        if (TextExport::messageLine(item.message, item.note)
                != TextExport::messageLine(expected, note)
            || item.message.seconds != expected.seconds)
            qWarning() << TextExport::messageLine(expected, note) << item.note;
        else
            return true;
        return false;
    };
    QCOMPARE(stream.read(take, [] { return true; }), TraceStream::Complete);
    QCOMPARE(count, written.size());
    QVERIFY(!stream.report().hasLoss());
}

void TestTolerant::describedLayoutsLeaveOutOtherLines()
{
    QByteArray trace = "# made by hand\n1.5 can0 0x123 2 11 22\n2 7 18FF00AA 0\n3 7 1x 0\n4 7\n"
                       "5 7 123 3 11 22\n6 7 7FF 1 11 22\n";
    QBuffer file(&trace);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const TraceRequest request{
        {}, DatachunkHelper::GenericFormat, "t n i l d", DatachunkHelper::Tolerant};
    LineSource lines(file, LineSource::CarriageReturns::Dropped);
    RowSink sink(lines);
    QVERIFY(traceReaderFor(request).read(lines, sink, request).isDone());
    const ImportReport report = lines.finishReport();
    QCOMPARE(sink.numbers, (QVector<quint64>{2, 3, 7}));
    QCOMPARE(rowOf(2, sink.messages.at(0), report), QString("2 1500000 123 - 2 1122 can0 Rx"));
    QCOMPARE(rowOf(3, sink.messages.at(1), report), QString("3 2000000 18ff00aa x 0 - 7 Rx"));
    QCOMPARE(report.leftOut[ImportReport::UnparsableNumber].first, (QVector<quint64>{4}));
    QCOMPARE(report.leftOut[ImportReport::TooFewFields].first, (QVector<quint64>{5, 6}));
    QCOMPARE(report.changed[ImportReport::ChangedPayload].first, (QVector<quint64>{7}));
}

void TestTolerant::contentTellsTheType_data()
{
    everyFrameIsFound_data();
}

void TestTolerant::contentTellsTheType()
{
    QFETCH(QString, trace);
    // The versions of a format share a reader.
    const auto readerOf = [](DatachunkHelper::ImportFileType type) {
        return traceReaderFor({{}, type, {}, DatachunkHelper::Tolerant}).read;
    };
    const TraceRecognition recognition = TraceRecognition::of(trace);
    if (readFile(trace + ".faithful").isEmpty())
        QCOMPARE(recognition.type, DatachunkHelper::Unknown);
    else
        QVERIFY2(readerOf(recognition.type) == readerOf(typeOf(trace)),
                 qPrintable(recognition.explanation));
}

void TestTolerant::strictFramesThatAreRightAreNotUnlikely_data()
{
    everyFrameIsFound_data();
}

void TestTolerant::strictFramesThatAreRightAreNotUnlikely()
{
    QFETCH(QString, trace);
    const TraceRequest request{trace, typeOf(trace), {}};
    QFile file(trace);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const TraceReader reader = traceReaderFor(request);
    LineSource lines(file, reader.carriageReturns);
    RowSink sink(lines);
    reader.read(lines, sink, request);
    // Strict readers name no channels, and few of them tell the direction.
    const auto frameOf = [](const QString &row) { return row.section(' ', 0, 5); };
    QSet<QString> right;
    for (const QString &row : QString::fromUtf8(readFile(trace + ".faithful")).split('\n'))
        right.insert(frameOf(asWritten(row)));
    for (const quint64 unlikely : lines.report().unlikely.first) {
        const int index = sink.numbers.indexOf(unlikely);
        const QString row = rowOf(unlikely, sink.messages.at(index), lines.report());
        QVERIFY2(!right.contains(frameOf(row)), qPrintable(row));
    }
}

void TestTolerant::strictReadersTellOfPhantoms_data()
{
    using H = DatachunkHelper;
    QTest::addColumn<int>("type");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QVector<quint64>>("unlikely");
    const auto row = [](const char *name, int type, const char *content,
                        const QVector<quint64> &unlikely) {
        QTest::newRow(name) << type << QByteArray(content) << unlikely;
    };
    row("comments and kinds of frames in a candump", H::SocketCanDump,
        "(1.5) can0 123#11FF\n# kept by the logger\n(1.5) can0 18FF0000#\n(2.5) can0 123##01122\n"
        "(2.5) can0 123#R\n can0  7FF  [2]  11 22\n candump of the test bench\n",
        {2, 4, 5, 7});
    row("statistics and an error frame in a Vector log", H::VectorAscWithoutBitcount,
        "date today\nBegin Triggerblock\n0.1 1 123 Rx d 2 11 22 Length = 8 BitCount = 9\n"
        "0.2 1 Statistic: D 4 R 0 XD 0 XR 0 E 0 O 0 B 0.00%\n0.3 1 1FFx Rx d 0\n"
        "0.4 2 ErrorFrame\n",
        {4, 6});
    row("a title in a CanKing log", H::KvaserCanKingLog,
        "Chn Identifier Flg Len D0 D1 Time Dir\n 0 123 2 11 22 1.5 R\n", {1});
    row("a payload of decimal bytes in a Kvaser log", H::KvaserTxtLog,
        "Trigger\n 1.5 1 123 Rx 2 11 22 1\n 1.6 1 123 Rx 2 119 220 2\n", {3});
    row("a payload cut short by a word in a PEAK trace", H::PeakTrc11,
        "1) 1.5 Rx 0123 2 11 22 end\n2) 2.5 Rx 0123 2 11 end\n3) 3.5 Rx 0123 2 RTR\n", {2});
    row("times without a fraction in an Ixxat trace", H::IxxatTrace,
        "\"Time\",\"ID\",\"DLC\",\"Data\",\"a\",\"b\"\n\"00:00:01.000.000\",\"1\",\"1\",\"11\",1,1,"
        "\n"
        "\"00:00:01\",\"1\",\"1\",\"11\",1,1,\n\"noon\",\"1\",\"1\",\"11\",1,1,\n",
        {4});
    row("remote frames in a Kolvar trace", H::KolvarTxt,
        "1.5 0x7ff/2047 (8): Remote Transmission Request;0;\n1.5 0x7ff/2047 (1): 01 ;0;a note\n"
        "1.5 0x7ff/2047 (1): ;0;a note\n1.5 all/2047 (1): 01\n",
        {3, 4});
}

void TestTolerant::strictReadersTellOfPhantoms()
{
    QFETCH(QByteArray, content);
    QFETCH(int, type);
    QTemporaryFile file;
    QVERIFY(file.open());
    file.write(content);
    file.close();
    TraceStream stream(file.fileName(), DatachunkHelper::ImportFileType(type));
    // Another trace that is read while the event loop is turned has lines of its own.
    const QString other = QStringLiteral(TESTDATA "/tolerant/candump/compact_kinds_of_frames.log");
    TraceStream nested(other, DatachunkHelper::SocketCanDump);
    const auto readOther = [&nested] {
        nested.read([](const TraceItem &) { return true; }, [] { return true; });
        return nested.report().unlikely.count > 0;
    };
    QVERIFY(stream.read([](const TraceItem &) { return true; }, readOther) != TraceStream::Failed);
    QTEST(stream.report().unlikely.first, "unlikely");
    QCOMPARE(stream.report().hasLoss(), stream.report().unlikely.count > 0);
}

void TestTolerant::refusalsOfADeviceAreThoseOfAFile()
{
    QBuffer device;
    device.setData(QByteArray(1000000, '\n')); // more than is read at once
    QVERIFY(device.open(QIODevice::ReadOnly));
    TraceStream stream(QStringLiteral("trace.trc"), DatachunkHelper::PeakTrc21);
    stream.setDevice(&device);
    const auto take = [](const TraceItem &) { return true; };
    QCOMPARE(stream.read(take, [] { return true; }), TraceStream::Failed);
    QCOMPARE(stream.errorTexts(),
             QStringList("Import error occured. No valid column description found."));
}

QTEST_GUILESS_MAIN(TestTolerant)
#include "tst_tolerant.moc"
