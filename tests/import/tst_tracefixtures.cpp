#include "datachunkhandler.h"
#include "loadertable.h"
#include "recordingsink.h"
#include "tracedump.h"
#include "tracefixtures.h"
#include "tracestream.h"

#include <QMetaEnum>
#include <QtTest>

/// Imports every trace below data/traces and compares what comes out with what is expected.
class TestTraceFixtures : public QObject
{
    Q_OBJECT
private slots:
    void import_data();
    void import();
    void aStreamGivesTheSame_data();
    void aStreamGivesTheSame();
    void everyLoaderReadsItsOwnType();
};

void TestTraceFixtures::import_data()
{
    QTest::addColumn<int>("index");
    int index = 0;
    for (const TraceFixture &fixture : traceFixtures())
        QTest::newRow(qPrintable(fixture.name)) << index++;
}

void TestTraceFixtures::import()
{
    QFETCH(int, index);
    const TraceFixture fixture = traceFixtures().at(index);
    const QString dump = traceDump(fixture.fileName, fixture.type, fixture.description);
    QCOMPARE(dump.split(QLatin1Char('\n')), fixture.expected.split(QLatin1Char('\n')));
    // What is detected is what the folder is named after.
    const auto types = QMetaEnum::fromType<DatachunkHelper::ImportFileType>();
    const QString found = QString(types.valueToKey(fixture.type)).toLower();
    const QString folder = fixture.name.section('/', 0, 0);
    QCOMPARE(fixture.isDetected ? found : folder, folder);
}

void TestTraceFixtures::aStreamGivesTheSame_data()
{
    import_data();
}

void TestTraceFixtures::aStreamGivesTheSame()
{
    QFETCH(int, index);
    const TraceFixture fixture = traceFixtures().at(index);
    TraceStream stream(fixture.fileName, fixture.type, fixture.description);
    QStringList messages;
    QStringList notes;
    const auto take = [&](const TraceItem &item) {
        messages.append(messageDump(item.message));
        if (!item.note.isEmpty())
            notes.append(QString::number(item.message.messageNumber) + ": " + item.note);
        return true;
    };
    if (stream.read(take, [] { return true; }) == TraceStream::Failed) {
        messages.clear();
        notes.clear();
    }
    for (QString error : stream.errorTexts())
        notes.append("error: " + error.replace(fixture.fileName, QLatin1String("%1")));
    const QStringList expected = fixture.expected.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    const QRegularExpression notAboutFd(QStringLiteral("^(?!fd: )"));
    QCOMPARE(messages + notes, expected.filter(notAboutFd));
}

void TestTraceFixtures::everyLoaderReadsItsOwnType()
{
    using H = DatachunkHandler;
    using Types = DatachunkHelper;
    const QHash<int, bool (H::*)(QString)> loaders{
        {Types::SocketCanDump, &H::loadSocketCanDump},
        {Types::VectorAsc, &H::loadVectorAscLog},
        {Types::VectorAscWithoutBitcount, &H::loadVectorAscLogWithoutBitcount},
        {Types::KvaserCanKingLog, &H::loadKvaserCanKingLog},
        {Types::KvaserTxtLog, &H::loadKvaserTxtLog},
        {Types::KolvarTxt, &H::loadKolvarTxtFile},
        {Types::PcanExplorerTxt, &H::importMessagesFromTxt},
        {Types::WiresharkCsv, &H::loadWiresharkCSV},
        {Types::IxxatTrace, &H::loadIxxatFile},
        {Types::CoCTTLog, &H::loadCoCTTFile}};
    QSet<int> read;
    for (const TraceFixture &fixture : traceFixtures()) {
        RecordingSink sink;
        const Outcome result = readTraceFile({fixture.fileName, fixture.type, {}}, sink);
        if (!loaders.contains(fixture.type) || sink.messages.isEmpty())
            continue;
        const bool needsWhole = traceReaderFor(fixture.type).delivery == TraceReader::WhenWhole;
        if (needsWhole && !result.isDone())
            sink.messages.clear();
        QSet<unsigned char> lines;
        for (const CAN::CanRxMessage &message : qAsConst(sink.messages))
            lines.insert(static_cast<unsigned char>(message.line));
        H store(100000);
        (store.*loaders.value(fixture.type))(fixture.fileName);
        QVERIFY2(store.getLines() == lines, qPrintable(fixture.name));
        read.insert(fixture.type);
    }
    QCOMPARE(read.size(), loaders.size());
}

QTEST_GUILESS_MAIN(TestTraceFixtures)
#include "tst_tracefixtures.moc"
