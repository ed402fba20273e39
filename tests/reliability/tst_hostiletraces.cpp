#include "archives.h"
#include "chunkmerge.h"
#include "compressed.h"
#include "datachunkhandler.h"
#include "peakmemory.h"
#include "recordingsink.h"
#include "regularfile.h"
#include "storefixture.h"

#include <QMetaEnum>
#include <QtTest>

#include <functional>

#include <sys/stat.h>
#include <unistd.h>

using Type = DatachunkHelper::ImportFileType;

/// Files that are no ordinary traces, or do not stay what they are while they are read.
class TestHostileTraces : public QObject
{
    Q_OBJECT
private slots:
    void hugeLineTakesLittleMemory_data();
    void hugeLineTakesLittleMemory();
    void hugeLineInACompressedTrace_data();
    void hugeLineInACompressedTrace();
    void onlyRegularFilesAreRead();
    void traceCutWhileItIsReadEndsThere();
    void archiveCutWhileItIsReadEndsThere();

private:
    QString path(const QString &name) const { return folder.filePath(name); }

    QTemporaryDir folder{folderInMemory()};
};

namespace {

constexpr qint64 mebibyte = 1024 * 1024;

/// Does something once, when the first messages have been read.
class DisturbingSink : public RecordingSink
{
public:
    explicit DisturbingSink(std::function<void()> disturb) : disturb(std::move(disturb)) { }

    bool message(const CAN::CanRxMessage &message) override
    {
        if (messages.isEmpty())
            disturb();
        return RecordingSink::message(message);
    }

private:
    const std::function<void()> disturb;
};

} // namespace

void TestHostileTraces::hugeLineTakesLittleMemory_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<qint64>("size");
    const auto types = QMetaEnum::fromType<Type>();
    for (int i = 0; i < types.keyCount(); ++i)
        QTest::newRow(types.key(i)) << types.value(i) << 32 * mebibyte;
    QTest::newRow("beyond 31 bits") << int(DatachunkHelper::SocketCanDump) << 2100 * mebibyte;
}

void TestHostileTraces::hugeLineTakesLittleMemory()
{
    constexpr qint64 memory = 24 * mebibyte;
    QFETCH(int, type);
    QFETCH(qint64, size);
    const QString file = path(QStringLiteral("huge.log"));
    // Without a line feed, and without room on the disk.
    writeFile(file, "(1.5) can0 123#11\nBegin Triggerblock BitCount (2): ");
    QCOMPARE(truncate(qPrintable(file), size), 0);
    resetHeapPeak();
    RecordingSink sink;
    readTraceFile({file, Type(type), QStringLiteral("t n i l d")}, sink);
    QVERIFY2(heapPeak() < memory, QByteArray::number(heapPeak()));
    QVERIFY(sink.messages.size() <= 2);
}

void TestHostileTraces::hugeLineInACompressedTrace_data()
{
    QTest::addColumn<QByteArray>("packed");
    const QByteArray text = "(1.5) can0 123#11\n" + QByteArray(int(48 * mebibyte), 'x');
    for (const Compression kind : compressions)
        QTest::newRow(qPrintable(compressionName(kind))) << compressed(kind, text);
    QTest::newRow("zip") << archiveOf({{"a.log", text}});
}

void TestHostileTraces::hugeLineInACompressedTrace()
{
    constexpr qint64 memory = 24 * mebibyte;
    QFETCH(QByteArray, packed);
    const QString file = path(QStringLiteral("huge.gz"));
    writeFile(file, packed);
    resetHeapPeak();
    RecordingSink sink;
    QVERIFY(
        readTraceFile({file, DatachunkHelper::SocketCanDump, {}, DatachunkHelper::Tolerant}, sink)
            .text.isEmpty());
    QVERIFY2(heapPeak() < memory, QByteArray::number(heapPeak()));
    QCOMPARE(sink.messages.size(), 1);
}

void TestHostileTraces::onlyRegularFilesAreRead()
{
    const QString pipe = path(QStringLiteral("pipe"));
    QCOMPARE(mkfifo(qPrintable(pipe), 0600), 0);
    WorkProgress always;
    DatachunkHandler store(20000);
    for (const QString &file : {pipe, folder.path(), QStringLiteral("/dev/zero")}) {
        RecordingSink sink;
        const TraceRequest request{file, DatachunkHelper::SocketCanDump, {}};
        QCOMPARE(readTraceFile(request, sink).kind, Outcome::NotOpened);
        QVERIFY(!store.loadDckFile(file) && !store.appendDckFile(file)
                && !store.splitFile(file, 2));
        ChunkArchive::Merged merged;
        ChunkArchive::merge(file, mebibyte, always, merged);
        QCOMPARE(merged.outcome.kind, Outcome::NotOpened);
    }
    // Looks like a regular file, and waits for what the kernel says next. Not everybody may read.
    RegularFile kernelMessages(QStringLiteral("/proc/kmsg"));
    if (kernelMessages.openForReading()) {
        while (!kernelMessages.read(4096).isEmpty()) { }
        QVERIFY(!kernelMessages.readErrorText().isEmpty());
    }
}

void TestHostileTraces::traceCutWhileItIsReadEndsThere()
{
    const QString file = path(QStringLiteral("cut.log"));
    const QByteArray line = "(1.5) can0 123#1122\n";
    writeFile(file, line.repeated(100000));
    // What has been read ahead still counts; the last line may be cut.
    DisturbingSink sink(
        [&file, &line] { QCOMPARE(truncate(qPrintable(file), line.size() * 50000 + 5), 0); });
    QVERIFY(readTraceFile({file, DatachunkHelper::SocketCanDump, {}}, sink).isDone());
    QCOMPARE(sink.messages.size(), 50000);
}

void TestHostileTraces::archiveCutWhileItIsReadEndsThere()
{
    const QString zip = path(QStringLiteral("cut.zip"));
    const QByteArray chunk = chunkBytes(QStringLiteral("1.0"), 0, 20000);
    const QVector<TestEntry> entries{{QStringLiteral("a.dck"), chunk, true}};
    for (int stepsBefore = 0; stepsBefore < 6; ++stepsBefore) {
        QVERIFY(writeArchive(zip, entries));
        int steps = 0;
        WorkProgress cutLater([&] {
            return steps++ != stepsBefore || truncate(qPrintable(zip), chunk.size() / 2) == 0;
        });
        ChunkArchive::Merged merged;
        ChunkArchive::merge(zip, 64 * mebibyte, cutLater, merged);
        QCOMPARE(merged.outcome.kind, Outcome::Done);
        QVERIFY(merged.messages.size() < 20000);
        for (int i = 0; i < merged.messages.size(); ++i)
            QCOMPARE(merged.messages.at(i).messageNumber, quint32(i));
    }
}

QTEST_GUILESS_MAIN(TestHostileTraces)
#include "tst_hostiletraces.moc"
