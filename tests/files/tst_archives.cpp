#include "archives.h"
#include "chunkmerge.h"
#include "chunkunpack.h"
#include "messages.h"
#include "peakmemory.h"
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

#if defined(__SANITIZE_THREAD__)
constexpr int slowdown = 60;
#elif defined(__SANITIZE_ADDRESS__)
constexpr int slowdown = 20;
#else
constexpr int slowdown = 1;
#endif

constexpr auto allEntries = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;

// An entry of the archive's directory begins with the first of these, and what ends the archive
// with the second. Their fields lie at fixed distances.
const QByteArray directoryMark("PK\x01\x02");
const QByteArray endMark("PK\x05\x06");
constexpr int claimedSizeOffset = 24;
constexpr int attributesOffset = 38;
constexpr int entryCountOffsets[] = {8, 10};
constexpr int directorySizeOffset = 12;

void setInDirectory(QByteArray &archive, int offset, quint32 value)
{
    qToLittleEndian(value, archive.data() + archive.indexOf(directoryMark) + offset);
}

QByteArray withClaimedSize(QByteArray archive, quint32 size)
{
    setInDirectory(archive, claimedSizeOffset, size);
    return archive;
}

QByteArray withClaimedEntries(QByteArray archive, quint16 count)
{
    for (const int offset : entryCountOffsets)
        qToLittleEndian(count, archive.data() + archive.lastIndexOf(endMark) + offset);
    return archive;
}

// The one entry of an archive as often as told, "NNNNN" in its name replaced by a number.
QByteArray withRepeatedEntry(const QByteArray &archive, int count)
{
    const int start = archive.indexOf(directoryMark);
    const QByteArray entry = archive.mid(start, archive.lastIndexOf(endMark) - start);
    QByteArray directory;
    for (int i = 0; i < count; ++i)
        directory += QByteArray(entry).replace("NNNNN", QByteArray::number(10000 + i));
    QByteArray end = archive.mid(start + entry.size());
    qToLittleEndian(quint32(directory.size()), end.data() + directorySizeOffset);
    return withClaimedEntries(archive.left(start) + directory + end, quint16(count));
}

QByteArray archiveOf(const QVector<TestEntry> &entries)
{
    QTemporaryDir folder;
    const QString path = folder.filePath("a.zip");
    writeArchive(path, entries);
    return readFile(path);
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
    void bombsDoNoHarm_data();
    void bombsDoNoHarm();
    void memoryIsBounded_data();
    void memoryIsBounded();
    void damageEndsAChunk_data();
    void damageEndsAChunk();
    void notesAreMergedAsTheyAreLoaded();
    void packingCanBeGivenUp();
    void aLinkIsPackedAsTheFileBehindIt();

private:
    QString zip() const { return folder->filePath(QStringLiteral("trace.zip")); }
    QDir chunks() const { return folder->filePath(QStringLiteral("chunks")); }
    QStringList everythingInFolder() const { return QDir(folder->path()).entryList(allEntries); }
    QVector<quint32> mergedNumbers(Outcome::Result expected = Outcome::Done) const;
    QStringList unpackedNames(Outcome::Result expected = Outcome::Done);

    std::unique_ptr<QTemporaryDir> folder;
    QDir unpackedInto;
};

void TestArchives::init()
{
    folder = std::make_unique<QTemporaryDir>(folderInMemory());
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
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("255 bytes") << QByteArray(251, 'x') + ".dck" << true;
    QTest::newRow("256 bytes") << QByteArray(252, 'x') + ".dck" << false;
    QTest::newRow("zero character") << QByteArray("a.dck\0/../b.dck", 15) << false;
    QTest::newRow("only a zero character") << QByteArray("\0dck", 4) << false;
    for (const char *name : {"../evil.dck",
                             "/evil.dck",
                             "folder/a.dck",
                             "..\\evil.dck",
                             "../../evil.dck",
                             "..\\..\\evil.dck",
                             "a/../../evil.dck",
                             "a\\..\\..\\evil.dck",
                             "//evil.dck",
                             "\\\\server\\share\\evil.dck",
                             "C:\\evil.dck",
                             "C:/evil.dck",
                             "./evil.dck",
                             ".\\evil.dck",
                             "/dck",
                             "\\dck",
                             "../dck",
                             "~/evil.dck",
                             "~root/evil.dck",
                             "$HOME/evil.dck",
                             "file:///evil.dck",
                             "....//....//evil.dck",
                             "..././evil.dck",
                             "../chunks/trace/evil.dck",
                             "/proc/self/cwd/evil.dck",
                             "/dev/shm/evil.dck",
                             "../trace.zip/dck",
                             "a.dck/b.dck",
                             "../chunks/tmpData0.dck",
                             "..\\chunks\\tmpData0.dck",
                             "/../evil.dck",
                             "a//b.dck"})
        QTest::newRow(name) << QByteArray(name) << false;
    for (const char *name : {"tmpData0.dck", "dck", ".. .dck", "..dck", ".dck", "-rf.dck", "%1.dck",
                             "%s%n.dck", "$(touch evil).dck", "a\nb.dck", "%2e%2e%2fevil.dck",
                             "C:evil.dck", "*.dck", "~.dck", " .dck", "trace.zip.dck"})
        QTest::newRow(name) << QByteArray(name) << true;
}

void TestArchives::namesAreChecked()
{
    QFETCH(QByteArray, name);
    QFETCH(bool, accepted);
    const QString placeholder(name.size(), 'N');
    QVERIFY(writeArchive(zip(), {{placeholder, chunkBytes("1.000000", 1, 1)}}));
    QByteArray archive = readFile(zip()).replace(placeholder.toUtf8(), name);
    // The entry says that it is a link, which must not become one.
    constexpr quint32 linkMode = 0120777;
    setInDirectory(archive, attributesOffset, linkMode << 16);
    writeFile(zip(), archive);
    QCOMPARE(mergedNumbers().size(), int(accepted));
    QCOMPARE(unpackedNames(), accepted ? QStringList(name) : QStringList());
    QCOMPARE(everythingInFolder(), QStringList({"chunks", "trace.zip"}));
    QCOMPARE(chunks().entryList(allEntries), QStringList("trace"));
    const QFileInfoList files = QDir(chunks().filePath("trace")).entryInfoList(allEntries);
    QCOMPARE(files.size(), int(accepted));
    QVERIFY(files.isEmpty() || (files.first().isFile() && !files.first().isSymLink()));
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

void TestArchives::bombsDoNoHarm_data()
{
    QTest::addColumn<QByteArray>("archive");
    QTest::addColumn<int>("merged");
    QTest::addColumn<int>("messages");
    QTest::addColumn<int>("unpackedCount");
    const auto row = [](const char *name, const QByteArray &archive, Outcome::Result merged,
                        int messages, int unpackedCount) {
        QTest::newRow(name) << archive << int(merged) << messages << unpackedCount;
    };
    constexpr int mebibyte = 1024 * 1024;
    const QByteArray zeros(60 * mebibyte, '\0'); // below the size that is always harmless
    const QByteArray head = chunkBytes("1.000000", 0, 0).chopped(8);
    const TestEntry good{"good.dck", chunkBytes("2.000000", 2, 1)};
    const QByteArray one = archiveOf({good});
    const auto sizes = [](const char *hex) { return QByteArray::fromHex(hex); };

    row("more than can be packed honestly", archiveOf({{"a.dck", zeros + zeros}, good}),
        Outcome::TooLarge, 0, 0);
    row("a claim that is not true",
        withClaimedSize(archiveOf({{"a.dck", chunkBytes("3.000000", 2, 9)}, good}), 0xFFFFFFF0),
        Outcome::TooLarge, 0, 0);
    row("much in many entries", archiveOf({{"a.dck", head + zeros}, {"b.dck", zeros}, good}),
        Outcome::TooLarge, 0, 0);
    row("entries that share their bytes", withRepeatedEntry(archiveOf({{"a.dck", zeros}}), 1000),
        Outcome::Done, zeros.size() / 23 + 1, -1);
    row("very many equal names", withRepeatedEntry(archiveOf({{"a.dck", good.content}}), 12000),
        Outcome::Done, 1, 12000);
    row("very many names", withRepeatedEntry(archiveOf({{"NNNNN.dck", good.content}}), 20000),
        Outcome::Done, 1, 20000);
    row("an archive within an archive", archiveOf({{"a.dck", archiveOf({{"b.dck", zeros}})}, good}),
        Outcome::Done, 1, 2);
    row("nothing but zeros", archiveOf({{"a.dck", zeros}, good}), Outcome::Done,
        (zeros.size() - 8 + 22) / 23 + 1, 2);
    row("very many messages",
        archiveOf({{"a.dck", head + sizes("0000000000000000") + zeros}, good}), Outcome::Done,
        (zeros.size() + 24) / 25 + 1, 2);
    row("header text of 4 GiB", archiveOf({{"a.dck", sizes("fffffffe") + zeros}, good}),
        Outcome::Done, 1, 2);
    row("4 billion notes", archiveOf({{"a.dck", head + sizes("ffffffff") + zeros}, good}),
        Outcome::Done, 1, 2);
    row("note of 2 GiB",
        archiveOf({{"a.dck", head + sizes("00000001000000017ffffffe") + zeros}, good}),
        Outcome::Done, 1, 2);
    row("4 billion bookmarks",
        archiveOf({{"a.dck", head + sizes("00000000ffffffff") + zeros}, good}), Outcome::Done, 1,
        2);
    row("a directory that claims more entries than it has", withClaimedEntries(one, 0xFFFF),
        Outcome::Done, 1, 1);
    row("garbage before the archive", QByteArray(mebibyte, 'P') + one, Outcome::Done, 1, 1);
}

void TestArchives::bombsDoNoHarm()
{
    QFETCH(QByteArray, archive);
    QFETCH(int, merged);
    QFETCH(int, unpackedCount);
    constexpr int hangMilliseconds = 5000;
    constexpr qint64 maxMemory = 512 * 1024 * 1024;
    writeFile(zip(), archive);
    QElapsedTimer timer;
    timer.start();
    resetHeapPeak();
    QTEST(mergedNumbers(Outcome::Result(merged)).size(), "messages");
    const bool isTooLarge = merged == Outcome::TooLarge || unpackedCount < 0;
    QCOMPARE(unpackedNames(isTooLarge ? Outcome::TooLarge : Outcome::Done).size(),
             qMax(unpackedCount, 0));
    QVERIFY2(heapPeak() < maxMemory, QByteArray::number(heapPeak()));
    QVERIFY2(timer.elapsed() < hangMilliseconds * slowdown, QByteArray::number(timer.elapsed()));
    QCOMPARE(chunks().isEmpty(), isTooLarge);
    QCOMPARE(everythingInFolder(), QStringList({"chunks", "trace.zip"}));
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
    const auto archiveOf = [](const QByteArray &content) {
        return ::archiveOf({{"a.dck", content, true}});
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

void TestArchives::notesAreMergedAsTheyAreLoaded()
{
    // Longer than what is unpacked at once, and two for one message, of which the later counts.
    const QString longNote(300000, 'n');
    QByteArray chunk;
    QDataStream stream(&chunk, QIODevice::WriteOnly);
    stream << QString("1.0") << QString("103") << 3u;
    stream << 6u << QString("earlier") << 6u << QString("later") << 5u << longNote;
    QVERIFY(writeArchive(zip(), {{"a.dck", chunk}}));
    Merged merged;
    merge(zip(), ampleMemory, always, merged);
    QCOMPARE(merged.notes, ChunkFormat::Notes({{5, longNote}, {6, "later"}}));
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
