#include "archives.h"
#include "atturn.h"
#include "compressed.h"
#include "datachunkhandler.h"
#include "storefixture.h"
#include "tracerecognition.h"
#include "tracestream.h"

#include <QSignalSpy>
#include <QtTest>

using H = DatachunkHelper;

/// Compressed traces: what they are taken for, and that they are read as what is inside them.
class TestCompressed : public QObject
{
    Q_OBJECT
private slots:
    void theTypeIsThatOfWhatIsInside_data();
    void theTypeIsThatOfWhatIsInside();
    void refusalsAreExplained_data();
    void refusalsAreExplained();
    void streamsHandOnWhatIsInside_data();
    void streamsHandOnWhatIsInside();
    void ofACutTraceTheRestIsKept();
    void notesOfACompressedChunkAreRead();
    void theStoreUnpacksWhereItIsTolerantOrToldTo();
    void progressCountsPackedBytes();

private:
    QString fileWith(const QString &name, const QByteArray &bytes) const
    {
        writeFile(folder.filePath(name), bytes);
        return folder.filePath(name);
    }

    QTemporaryDir folder;
};

namespace {

constexpr int frames = 5000;

QByteArray candump()
{
    QByteArray lines;
    for (int i = 0; i < frames; ++i)
        lines += "(" + QByteArray::number(i) + ".5) can0 123#" + QByteArray::number(100000 + i * 7)
            + '\n';
    return lines;
}

QByteArray gzipped(const QByteArray &bytes)
{
    return compressed(Compression::Gzip, bytes);
}

struct Read
{
    TraceStream::Result result;
    QVector<int> seconds;
    QStringList notes;
    QStringList errors;
};

Read readBy(TraceStream &stream)
{
    Read read;
    read.result = stream.read(
        [&read](const TraceItem &item) {
            read.seconds.append(item.message.seconds);
            if (!item.note.isEmpty())
                read.notes.append(item.note);
            return true;
        },
        [] { return true; });
    read.errors = stream.errorTexts();
    return read;
}

} // namespace

void TestCompressed::theTypeIsThatOfWhatIsInside_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("tolerant");
    QTest::addColumn<int>("strict");
    const QByteArray log = candump();
    const QByteArray trc = ";$FILEVERSION=1.1\n     1)         1.5  Rx         0123  2  01 02\n";
    QTest::newRow("gzip") << "a.log.gz" << gzipped(log) << int(H::SocketCanDump)
                          << int(H::SocketCanDump);
    QTest::newRow("bzip2, ending in capitals") << "a.log.BZ2" << compressed(Compression::Bzip2, log)
                                               << int(H::SocketCanDump) << int(H::SocketCanDump);
    QTest::newRow("xz of a PEAK trace")
        << "a.trc.xz" << compressed(Compression::Xz, trc) << int(H::PeakTrc11) << int(H::PeakTrc11);
    QTest::newRow("the name tells nothing") << "a.zst" << compressed(Compression::Zstd, log)
                                            << int(H::SocketCanDump) << int(H::Unknown);
    QTest::newRow("the name does not tell that it is compressed")
        << "b.log" << gzipped(log) << int(H::SocketCanDump) << int(H::SocketCanDump);
    QTest::newRow("not compressed in spite of the name")
        << "c.log.gz" << log << int(H::SocketCanDump) << int(H::Unknown);
    QTest::newRow("zip of a text") << "a.zip" << archiveOf({{"in/a.log", log}})
                                   << int(H::SocketCanDump) << int(H::SocketCanDump);
    QTest::newRow("zip of chunks and a text")
        << "b.zip" << archiveOf({{"a.dck", "a"}, {"a.log", log}}) << int(H::ZipArchive)
        << int(H::ZipArchive);
    QTest::newRow("chunk") << "a.dck.gz" << gzipped(chunkBytes("1.0", 0, 1)) << int(H::ChunkFile)
                           << int(H::ChunkFile);
}

void TestCompressed::theTypeIsThatOfWhatIsInside()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    const QString file = fileWith(name, bytes);
    QTEST(int(TraceRecognition::of(file).type), "tolerant");
    QTEST(int(TraceRecognition::strictly(file).type), "strict");
}

void TestCompressed::refusalsAreExplained_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("explanation");
    const QByteArray log = candump();
    QTest::newRow("zip of two texts")
        << archiveOf({{"a.log", log}, {"b.log", log}}) << "holds several files and no chunk";
    QTest::newRow("twice") << gzipped(gzipped(log)) << "compressed more than once";
    QTest::newRow("nothing inside") << gzipped({}) << "(gzip). The file is empty.";
    QTest::newRow("no text inside") << gzipped(QByteArray(100, '\0')) << "(gzip). The file is no";
    QTest::newRow("a binary log inside") << gzipped("LOGG and more") << "(gzip). This is a binary";
    QTest::newRow("cut in its head") << gzipped(log).left(12) << "its end is missing";
}

void TestCompressed::refusalsAreExplained()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, explanation);
    const TraceRecognition found = TraceRecognition::of(fileWith("refused.log", bytes));
    QCOMPARE(found.type, H::Unknown);
    QVERIFY2(found.explanation.contains(explanation), qPrintable(found.explanation));
}

void TestCompressed::streamsHandOnWhatIsInside_data()
{
    QTest::addColumn<QByteArray>("bytes");
    for (const Compression kind : compressions)
        QTest::newRow(qPrintable(compressionName(kind))) << compressed(kind, candump());
    QTest::newRow("zip") << archiveOf({{"a.log", candump()}});
}

void TestCompressed::streamsHandOnWhatIsInside()
{
    QFETCH(QByteArray, bytes);
    TraceStream stream(fileWith("stream", bytes), H::SocketCanDump);
    for (const auto mode : {H::Strict, H::Tolerant}) {
        stream.setMode(mode);
        const Read read = readBy(stream);
        QCOMPARE(read.result, TraceStream::Complete);
        QCOMPARE(read.seconds.size(), frames);
        QCOMPARE(read.seconds.last(), frames - 1);
        QCOMPARE(stream.report().lines, quint64(frames));
    }
}

void TestCompressed::ofACutTraceTheRestIsKept()
{
    const QByteArray whole = gzipped(candump());
    TraceStream stream(fileWith("cut.gz", whole.left(whole.size() / 2)), H::SocketCanDump);
    stream.setMode(H::Tolerant);
    const Read read = readBy(stream);
    QCOMPARE(read.result, TraceStream::Incomplete);
    QVERIFY(read.seconds.size() > frames / 4 && read.seconds.size() < frames);
    QVERIFY(read.errors.value(0).contains("its end is missing"));
}

void TestCompressed::notesOfACompressedChunkAreRead()
{
    TraceStream stream(fileWith("c.dck.gz", gzipped(chunkBytes("1.0", 3, 20, {{7, "here"}}))),
                       H::ChunkFile);
    const Read read = readBy(stream);
    QCOMPARE(read.result, TraceStream::Complete);
    QCOMPARE(read.seconds.size(), 20);
    QCOMPARE(read.notes, QStringList("here"));
}

void TestCompressed::theStoreUnpacksWhereItIsTolerantOrToldTo()
{
    const QString file = fileWith("store.log.gz", gzipped(candump()));
    const auto imported = [&file](DatachunkHandler &store) {
        store.importMessages(file, H::SocketCanDump);
        return store.getIsLive() ? 0 : int(store.getMessageCount());
    };
    DatachunkHandler strict(100000);
    QVERIFY(imported(strict) != frames);
    strict.setReadsCompressed(true);
    QCOMPARE(imported(strict), frames);
    DatachunkHandler tolerant(100000);
    tolerant.setImportMode(H::Tolerant);
    QCOMPARE(imported(tolerant), frames);
    const QSignalSpy errors(&tolerant, &DatachunkHandler::newErrorMessage);
    writeFile(file, archiveOf({{"a.log", candump()}, {"b.log", candump()}}));
    QCOMPARE(imported(tolerant), 0);
    QVERIFY(errors.value(0).value(0).toString().contains("several files"));
}

void TestCompressed::progressCountsPackedBytes()
{
    const QString file = fileWith("progress.log.gz", gzipped(candump()));
    DatachunkHandler store(100000);
    store.setImportMode(H::Tolerant);
    ImportProgress progress;
    const AtTurn looking(4, [&] { progress = store.importProgress(); });
    store.importMessages(file, H::SocketCanDump);
    QCOMPARE(progress.bytes, QFileInfo(file).size());
    QVERIFY(progress.bytesRead > 0 && progress.bytesRead <= progress.bytes);
}

QTEST_GUILESS_MAIN(TestCompressed)
#include "tst_compressed.moc"
