#include "canframe.h"
#include "datachunkhandler.h"
#include "loadertable.h"
#include "messages.h"
#include "recordingsink.h"
#include "storefixture.h"
#include "textexport.h"

#include <QBuffer>
#include <QtTest>

class TestPlainText : public QObject
{
    Q_OBJECT
private slots:
    void linesOfEveryForm();
    void exportedMessagesComeBack();
    void turnsTheEventLoopOncePerLine();
    void readsFilesThatCanBeOpened();
};

namespace {

void readTrace(QByteArray text, TraceSink &sink)
{
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    const TraceReader &reader = traceReaderFor(DatachunkHelper::PcanExplorerTxt);
    LineSource lines(buffer, reader.carriageReturns);
    reader.read(lines, sink, {});
}

CAN::CanRxMessage exportedMessage(quint32 seed)
{
    CAN::CanRxMessage message = makeMessage(seed * 7919, int(seed % 65));
    message.messageNumber = seed;
    message.flagD = false;
    message.line = 0;
    if (seed % 9 == 0)
        message.id = CAN::errorFrameId;
    if (message.remote)
        std::fill_n(message.data, CAN::maxDataBytes, quint8(0));
    return message;
}

} // namespace

void TestPlainText::linesOfEveryForm()
{
    const QDir texts(QStringLiteral(TESTDATA "/plaintexts"));
    const QFileInfoList files = texts.entryInfoList({QStringLiteral("*.txt")});
    QCOMPARE(files.size(), 3);
    for (const QFileInfo &file : files) {
        RecordingSink sink;
        readTrace(readFile(file.filePath()), sink);
        const QString expected = QString::fromUtf8(readFile(file.filePath() + ".expected"));
        QCOMPARE(sink.events, expected.chopped(1).split(QLatin1Char('\n')));
    }
}

void TestPlainText::exportedMessagesComeBack()
{
    QString text = TextExport::headerLine();
    const auto noteOn = [](quint32 seed) {
        return seed % 3 ? QString() : QStringLiteral(" ;%1;  Remote (1): \u00E4; ").arg(seed);
    };
    for (quint32 seed = 0; seed < 200; ++seed)
        text += TextExport::messageLine(exportedMessage(seed), noteOn(seed));
    RecordingSink sink;
    readTrace(text.toUtf8(), sink);
    QCOMPARE(sink.messages.size(), 200);
    for (quint32 seed = 0; seed < 200; ++seed) {
        QVERIFY2(sameInChunk(sink.messages.at(int(seed)), exportedMessage(seed)),
                 qPrintable(messageDump(exportedMessage(seed))));
        const QString note = QStringLiteral("%1: ").arg(seed) + noteOn(seed);
        QCOMPARE(sink.events.contains(note), seed % 3 == 0);
    }
}

void TestPlainText::turnsTheEventLoopOncePerLine()
{
    RecordingSink sink;
    readTrace("a\n\n1.5;123;0;\n1.6 0x1/1 (0): ;0;\nb", sink);
    QCOMPARE(sink.turns, 5);
    QCOMPARE(sink.messages.size(), 2);
}

void TestPlainText::readsFilesThatCanBeOpened()
{
    const QTemporaryDir folder;
    writeFile(folder.filePath("trace.txt"), "no frame\n");
    DatachunkHandler store(10000);
    QVERIFY(store.importMessagesFromTxt(folder.filePath("trace.txt")));
    QVERIFY(!store.importMessagesFromTxt(folder.filePath("missing.txt")));
}

QTEST_GUILESS_MAIN(TestPlainText)
#include "tst_plaintext.moc"
