#include "archives.h"
#include "chunkmerge.h"
#include "directoryformat.h"
#include "messages.h"
#include "peakmemory.h"
#include "storefixture.h"
#include "targets.h"

#include <QtTest>

/// Every bit of a chunk and of an archive flipped in turn, and every cut of them. What the store
/// has to make of the result is what the targets of the fuzzer check.
class TestFlips : public QObject
{
    Q_OBJECT
private slots:
    void anyDamageDoesNoMore_data();
    void anyDamageDoesNoMore();
    void damageToAnEntryLeavesTheOthersWhole();
};

namespace {

QByteArray sampleArchive()
{
    return archiveOf(
        {{"a.dck", chunkBytes("1.0", 10, 2), true}, {"b.dck", chunkBytes("2.0", 20, 2), false}});
}

QByteArray sampleDirectory()
{
    return DirectoryFormat::head(0, 0) + DirectoryFormat::encoded({"a", {}, {}}, 0)
        + DirectoryFormat::encoded({"b", {}, {}}, 0);
}

QByteArray flipped(QByteArray bytes, int bit)
{
    bytes[bit / 8] = char(bytes.at(bit / 8) ^ (1 << bit % 8));
    return bytes;
}

qint64 memoryToRun(const FuzzTarget &target, const QByteArray &bytes)
{
    resetHeapPeak();
    target.run(bytes);
    return heapPeak();
}

QSet<quint32> mergedNumbers(const QByteArray &archive)
{
    ChunkArchive::Merged merged;
    WorkProgress work;
    ChunkArchive::merge(inputFile(QStringLiteral("input.zip"), archive), 1 << 30, work, merged);
    QSet<quint32> numbers;
    for (int i = 0; i < merged.messages.size(); ++i)
        numbers.insert(merged.messages.at(i).messageNumber);
    return numbers;
}

} // namespace

void TestFlips::anyDamageDoesNoMore_data()
{
    QTest::addColumn<QByteArray>("whole");
    const QByteArray chunk =
        chunkBytes("1.000000", 4, 2, {{4, "a"}, {5, {}}}, {{5, CanMessageBookmark(5, "m")}});
    QTest::newRow("chunkload") << chunk;
    QTest::newRow("chunkappend") << chunk;
    QTest::newRow("chunksplit") << '\1' + chunk;
    QTest::newRow("chunkcheck") << chunk;
    QTest::newRow("chunkrecover") << chunk;
    const QByteArray archive = sampleArchive();
    QTest::newRow("archivemerge") << archive;
    QTest::newRow("archiveunpack") << archive;
    QTest::newRow("archivecheck") << archive;
    QTest::newRow("directory") << sampleDirectory();
}

void TestFlips::anyDamageDoesNoMore()
{
    // A text that claims to be long gets room for its first MiB of characters before it is read,
    // and Qt rounds that up.
    constexpr qint64 roomForText = 4 * 1024 * 1024 + 64 * 1024;
    QFETCH(QByteArray, whole);
    const auto targets = fuzzTargets();
    const FuzzTarget &target = *std::find_if(targets.begin(), targets.end(), [](const auto &known) {
        return known.name == QLatin1String(QTest::currentDataTag());
    });
    target.run(whole);
    const qint64 limit = 2 * memoryToRun(target, whole) + roomForText;
    for (int size = 0; size < whole.size(); ++size)
        QVERIFY2(memoryToRun(target, whole.left(size)) <= limit, QByteArray::number(size));
    for (int bit = 0; bit < whole.size() * 8; ++bit)
        QVERIFY2(memoryToRun(target, flipped(whole, bit)) <= limit, QByteArray::number(bit));
}

void TestFlips::damageToAnEntryLeavesTheOthersWhole()
{
    const QByteArray whole = sampleArchive();
    const int second = whole.indexOf("PK\x03\x04", 4);
    const int directory = whole.indexOf("PK\x01\x02");
    QCOMPARE(mergedNumbers(whole), QSet<quint32>({10, 11, 20, 21}));
    for (int bit = 0; bit < directory * 8; ++bit) {
        const QSet<quint32> others =
            bit / 8 < second ? QSet<quint32>{20, 21} : QSet<quint32>{10, 11};
        QVERIFY2(mergedNumbers(flipped(whole, bit)).contains(others), QByteArray::number(bit));
    }
    const int end = whole.indexOf("PK\x05\x06");
    for (int size = 0; size <= end; ++size)
        QVERIFY2(mergedNumbers(whole.left(size)).isEmpty(), QByteArray::number(size));
}

QTEST_GUILESS_MAIN(TestFlips)
#include "tst_flips.moc"
