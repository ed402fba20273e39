#include "loadertable.h"
#include "recordingsink.h"
#include "storefixture.h"
#include "tracerecognition.h"

#include <QDirIterator>
#include <QFile>
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
        {"gvret", DatachunkHelper::GvretCsv},
        {"ixxat", DatachunkHelper::IxxatTrace},
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
    void contentTellsTheType_data();
    void contentTellsTheType();
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
        const QByteArray content = readFile(trace);
        if (outcome.isDone())
            QCOMPARE(report.lines, quint64(content.count('\n') + !content.endsWith('\n')));
    }
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

QTEST_GUILESS_MAIN(TestTolerant)
#include "tst_tolerant.moc"
