#include "archives.h"
#include "chunkmerge.h"
#include "chunkunpack.h"
#include "messages.h"
#include "storefixture.h"

#include <quazip.h>
#include <quazipfileinfo.h>

#include <QtEndian>
#include <QTextCodec>
#include <QtTest>

#include <climits>

Q_DECLARE_METATYPE(TestEntry)

using namespace ChunkArchive;

namespace {

constexpr qint64 ampleMemory = 1 << 30;

bool always()
{
    return true;
}

// An entry of the archive's directory begins with this; its fields lie at fixed distances.
const QByteArray directoryMark("PK\x01\x02");
constexpr int claimedSizeOffset = 24;

QByteArray withClaimedSize(QByteArray archive, quint32 size)
{
    qToLittleEndian(size, archive.data() + archive.indexOf(directoryMark) + claimedSizeOffset);
    return archive;
}

} // namespace

class TestArchives : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void chunksAreOrdered_data();
    void chunksAreOrdered();
    void namesAreChecked_data();
    void namesAreChecked();
    void foldersAreNamedAfterTheArchive_data();
    void foldersAreNamedAfterTheArchive();
    void tooMuchIsRefused_data();
    void tooMuchIsRefused();
    void memoryIsBounded_data();
    void memoryIsBounded();
    void damageEndsAChunk_data();
    void damageEndsAChunk();
    void flippedBytesDoNoHarm();
    void packingCanBeGivenUp();
    void aLinkIsPackedAsTheFileBehindIt();

private:
    QString zip() const { return folder->filePath(QStringLiteral("trace.zip")); }
    QDir chunks() const { return folder->filePath(QStringLiteral("chunks")); }
    QStringList everythingInFolder() const
    {
        return QDir(folder->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }
    QVector<quint32> mergedNumbers(Outcome::Result expected = Outcome::Done) const;
    QStringList unpackedNames(Outcome::Result expected = Outcome::Done);

    std::unique_ptr<QTemporaryDir> folder;
    QDir unpackedInto;
};

void TestArchives::init()
{
    folder = std::make_unique<QTemporaryDir>();
    QDir(folder->path()).mkdir(QStringLiteral("chunks"));
}

QVector<quint32> TestArchives::mergedNumbers(Outcome::Result expected) const
{
    Merged merged;
    merge(zip(), ampleMemory, always, merged);
    QVector<quint32> numbers;
    for (int i = 0; i < merged.messages.size(); ++i)
        numbers.append(merged.messages.at(i).messageNumber);
    if (merged.outcome.result != expected)
        numbers.append(UINT_MAX);
    return numbers;
}

QStringList TestArchives::unpackedNames(Outcome::Result expected)
{
    QStringList names;
    const auto unpacked = [&](const QString &name, const QDir &dir, const QString &) {
        unpackedInto = dir;
        names.append(name);
    };
    const Outcome outcome = unpack(zip(), chunks(), always, unpacked);
    if (outcome.result != expected)
        names.append(QStringLiteral("outcome %1").arg(outcome.result));
    return names;
}

void TestArchives::chunksAreOrdered_data()
{
    QTest::addColumn<QVector<TestEntry>>("entries");
    QTest::addColumn<QVector<quint32>>("merged");
    QTest::addColumn<QStringList>("unpacked");
    const auto entry = [](const char *name, const char *start, quint32 number) {
        return TestEntry{name, chunkBytes(start, number, 1)};
    };
    using Entries = QVector<TestEntry>;
    using Numbers = QVector<quint32>;
    QTest::newRow("starts are numbers, not texts")
        << Entries{entry("c.dck", "100.000000", 3), entry("a.dck", "3.000000", 1),
                   entry("b.dck", "20.500000", 2)}
        << Numbers{1, 2, 3} << QStringList{"a.dck", "b.dck", "c.dck"};
    QTest::newRow("of equal starts the later is merged and both are unpacked")
        << Entries{entry("b.dck", "0.000000", 1), entry("x.dck", "5.000000", 2),
                   entry("a.dck", "0.000000", 3)}
        << Numbers{3, 2} << QStringList{"b.dck", "a.dck", "x.dck"};
    QTest::newRow("equal names are different chunks")
        << Entries{entry("a.dck", "2.000000", 2), entry("a.dck", "1.000000", 1)} << Numbers{1, 2}
        << QStringList{"a.dck", "a_2.dck"};
    QTest::newRow("other entries are passed over, whatever their case")
        << Entries{entry("a.DCK", "1.000000", 1), entry("b.txt", "2.000000", 2),
                   entry("c.dck", "3.000000", 3)}
        << Numbers{3} << QStringList{"c.dck"};
    QTest::newRow("a start that is no number counts as 0")
        << Entries{entry("a.dck", "1.000000", 1), entry("b.dck", "nan", 2)} << Numbers{2, 1}
        << QStringList{"b.dck", "a.dck"};
    QTest::newRow("an entry without content is a chunk without messages")
        << Entries{{"a.dck", {}}, entry("b.dck", "1.000000", 1)} << Numbers{1}
        << QStringList{"a.dck", "b.dck"};
}

void TestArchives::chunksAreOrdered()
{
    QFETCH(QVector<TestEntry>, entries);
    QVERIFY(writeArchive(zip(), entries));
    QTEST(mergedNumbers(), "merged");
    QTEST(unpackedNames(), "unpacked");
}

void TestArchives::namesAreChecked_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("plain") << "tmpData0.dck" << true;
    QTest::newRow("only the suffix") << "dck" << true;
    QTest::newRow("dots and blanks") << ".. .dck" << true;
    QTest::newRow("parent folder") << "../evil.dck" << false;
    QTest::newRow("absolute") << "/evil.dck" << false;
    QTest::newRow("folder") << "folder/a.dck" << false;
    QTest::newRow("backslash") << "..\\evil.dck" << false;
    QTest::newRow("255 bytes") << QString(251, 'x') + ".dck" << true;
    QTest::newRow("256 bytes") << QString(252, 'x') + ".dck" << false;
}

void TestArchives::namesAreChecked()
{
    QFETCH(QString, name);
    QFETCH(bool, accepted);
    QVERIFY(writeArchive(zip(), {{name, chunkBytes("1.000000", 1, 1)}}));
    QCOMPARE(mergedNumbers().size(), int(accepted));
    QCOMPARE(unpackedNames(), accepted ? QStringList(name) : QStringList());
    QCOMPARE(everythingInFolder(), QStringList({"chunks", "trace.zip"}));
}

void TestArchives::foldersAreNamedAfterTheArchive_data()
{
    QTest::addColumn<QString>("zipName");
    QTest::addColumn<QString>("name");
    QTest::newRow("the suffix is dropped") << "my trace.zip"
                                           << "my trace";
    QTest::newRow("parent folder") << "...zip.zip"
                                   << "archive";
    QTest::newRow("backslash") << "a\\b.zip"
                               << "archive";
    QTest::newRow("a name that a rotation needs") << "tmpData7.dck.zip"
                                                  << "archive";
    QTest::newRow("taken by an earlier one") << "taken.zip"
                                             << "taken_2";
}

void TestArchives::foldersAreNamedAfterTheArchive()
{
    QFETCH(QString, zipName);
    QVERIFY(chunks().mkdir("taken"));
    const QString path = folder->filePath(zipName);
    QVERIFY(writeArchive(path, {{"a.dck", chunkBytes("1.000000", 1, 1)}}));
    QDir target;
    unpack(path, chunks(), always,
           [&](const QString &, const QDir &dir, const QString &) { target = dir; });
    QTEST(chunks().relativeFilePath(target.path()), "name");
}

void TestArchives::tooMuchIsRefused_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<quint32>("claimedSize");
    QTest::newRow("more than can be packed honestly") << QByteArray(70 << 20, '\0') << 0u;
    QTest::newRow("a claim that is not true") << chunkBytes("2.000000", 2, 9) << 0xFFFFFFF0u;
}

void TestArchives::tooMuchIsRefused()
{
    QFETCH(QByteArray, content);
    QFETCH(quint32, claimedSize);
    QVERIFY(
        writeArchive(zip(), {{"bomb.dck", content}, {"good.dck", chunkBytes("1.000000", 1, 1)}}));
    if (claimedSize)
        writeFile(zip(), withClaimedSize(readFile(zip()), claimedSize));
    QCOMPARE(mergedNumbers(Outcome::TooLarge), QVector<quint32>());
    QCOMPARE(unpackedNames(Outcome::TooLarge), QStringList());
    QVERIFY(chunks().isEmpty());
}

void TestArchives::memoryIsBounded_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("memory");
    QTest::addColumn<bool>("fits");
    const QByteArray messages = chunkBytes("1.000000", 0, 1000);
    ChunkFormat::Notes notes;
    for (unsigned int number = 0; number < 10000; ++number)
        notes.insert(number, QString());
    const QByteArray onlyNotes = chunkBytes("1.000000", 0, 0, notes);
    QTest::newRow("messages that fit") << messages << 300000 << true;
    QTest::newRow("messages that need more than their file") << messages << 80000 << false;
    QTest::newRow("notes that fit") << onlyNotes << 1500000 << true;
    QTest::newRow("notes that need more than their file") << onlyNotes << 500000 << false;
}

void TestArchives::memoryIsBounded()
{
    QFETCH(QByteArray, content);
    QFETCH(int, memory);
    QFETCH(bool, fits);
    QVERIFY(content.size() < memory);
    QVERIFY(writeArchive(zip(), {{"a.dck", content}}));
    Merged merged;
    merge(zip(), memory, always, merged);
    QCOMPARE(merged.outcome.result, fits ? Outcome::Done : Outcome::TooLarge);
    QCOMPARE(merged.outcome.messages, fits ? 0 : quint32(content.size() / 23));
}

void TestArchives::damageEndsAChunk_data()
{
    QTest::addColumn<QByteArray>("archive");
    QTest::addColumn<int>("messages");
    QTest::addColumn<int>("unpackedBytes");
    constexpr int recordSize = 33;
    QTemporaryDir scratch;
    const QString path = scratch.filePath("a.zip");
    const auto archiveOf = [&path](const QByteArray &content) {
        writeArchive(path, {{"a.dck", content, true}});
        return readFile(path);
    };
    const QByteArray chunk = chunkBytes("1.000000", 5, 4);
    const QByteArray whole = archiveOf(chunk);
    const int content = whole.indexOf(chunk);
    QTest::newRow("a whole chunk") << whole << 4 << chunk.size();
    QTest::newRow("a chunk that was cut before it was packed keeps its cut record")
        << archiveOf(chunk.chopped(1)) << 4 << chunk.size() - 1;
    QTest::newRow("an entry that claims too little loses its cut record")
        << withClaimedSize(whole, quint32(chunk.size() - 3)) << 3 << chunk.size() - recordSize;
    QTest::newRow("an entry that claims too much keeps its records")
        << withClaimedSize(whole, quint32(chunk.size() + 3)) << 4 << chunk.size();
    QByteArray flipped = whole;
    flipped[content + chunk.size() - recordSize + 5] = '\x77';
    QTest::newRow("a wrong checksum keeps all whole records") << flipped << 4 << chunk.size();
    QByteArray newer = whole;
    newer[whole.indexOf(QByteArray::fromHex("003100300034")) + 1] = '9';
    QTest::newRow("a damaged version is no newer version") << newer << 0 << chunk.size();
}

void TestArchives::damageEndsAChunk()
{
    QFETCH(QByteArray, archive);
    QFETCH(int, messages);
    QFETCH(int, unpackedBytes);
    writeFile(zip(), archive);
    QCOMPARE(mergedNumbers(), QVector<quint32>({5, 6, 7, 8}).mid(0, messages));
    QCOMPARE(unpackedNames(), QStringList("a.dck"));
    QCOMPARE(readFile(unpackedInto.filePath("a.dck")).size(), unpackedBytes);
}

void TestArchives::flippedBytesDoNoHarm()
{
    const QByteArray chunk =
        chunkBytes("1.000000", 5, 3, {{6, "note"}}, {{7, CanMessageBookmark(7, "mark")}});
    QVERIFY(writeArchive(zip(), {{"a.dck", chunk, false}, {"b.dck", chunk, true}}));
    const QByteArray whole = readFile(zip());
    for (int i = 0; i < whole.size(); ++i) {
        QByteArray damaged = whole;
        damaged[i] = char(~damaged.at(i));
        // Some file systems wait for the disk when a file is truncated and written anew.
        QFile::remove(zip());
        writeFile(zip(), damaged);
        Merged merged;
        merge(zip(), ampleMemory, always, merged);
        QVERIFY2(merged.messages.size() <= 2 * chunk.size() / 23, QByteArray::number(i));
        int count = 0;
        unpack(zip(), chunks(), always,
               [&](const QString &, const QDir &, const QString &) { ++count; });
        QVERIFY2(count <= 2, QByteArray::number(i));
        QVERIFY(chunks().removeRecursively() && QDir(folder->path()).mkdir("chunks"));
    }
    QCOMPARE(everythingInFolder(), QStringList({"chunks", "trace.zip"}));
}

void TestArchives::packingCanBeGivenUp()
{
    const QString source = chunks().filePath("large");
    writeFile(source, QByteArray(3 << 20, 'x'));
    writeFile(zip(), "old");
    int steps = 0;
    const auto thrice = [&steps] { return ++steps <= 3; };
    QVERIFY(!Zip::packFiles(zip(), {QFileInfo(source)}, thrice).packed);
    QCOMPARE(steps, 4);
    QCOMPARE(readFile(zip()), "old");
    QCOMPARE(everythingInFolder(), QStringList({"chunks", "trace.zip"}));
    const QFileInfo gone(chunks().filePath("gone"));
    QVERIFY(Zip::packFiles(zip(), {gone, QFileInfo(source)}, always).packed);
    QCOMPARE(Zip::Reader(zip()).entries().size(), std::size_t(1));
}

void TestArchives::aLinkIsPackedAsTheFileBehindIt()
{
    const QString source = chunks().filePath("source");
    const QString link = chunks().filePath("link.dck");
    writeFile(source, "content");
    QVERIFY(QFile::link(source, link));
    QVERIFY(Zip::packFiles(zip(), {QFileInfo(link)}, always).packed);
    QuaZip archive(zip());
    QuaZipFileInfo64 info;
    QVERIFY(archive.open(QuaZip::mdUnzip) && archive.goToFirstFile());
    QVERIFY(archive.getCurrentFileInfo(&info));
    QCOMPARE(info.name, "link.dck");
    QVERIFY(!info.isSymbolicLink());
}

QTEST_GUILESS_MAIN(TestArchives)
#include "tst_archives.moc"
