#include "archives.h"
#include "chunkmerge.h"
#include "chunkunpack.h"
#include "peakmemory.h"
#include "storefixture.h"

#include <QtTest>

using namespace ChunkArchive;

namespace {

constexpr qint64 ampleMemory = 1 << 30;

WorkProgress always; // nobody cancels it

constexpr auto allEntries = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;

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
    void foldersAreNamedAfterTheArchive();
    void bombsDoNoHarm_data();
    void bombsDoNoHarm();
    void memoryIsBounded();
    void damageEndsAChunk_data();
    void damageEndsAChunk();
    void notesAreMergedAsTheyAreLoaded();
    void workGrowsWithTheEntriesOnly();
    void tooManyEntriesAreRefused();

private:
    QString zip() const { return folder->filePath(QStringLiteral("trace.zip")); }
    QDir chunks() const { return folder->filePath(QStringLiteral("chunks")); }
    QStringList everythingInFolder() const { return QDir(folder->path()).entryList(allEntries); }
    QVector<quint32> mergedNumbers(Outcome::Kind expected = Outcome::Done) const;
    QStringList unpackedNames(const QString &archive, Outcome::Kind expected = Outcome::Done);

    // By the last of each.
    mutable QStringList toldOfMerge;
    QStringList toldOfUnpacking;
    std::unique_ptr<QTemporaryDir> folder;
    QDir unpackedInto;
};

void TestArchives::init()
{
    folder = std::make_unique<QTemporaryDir>(folderInMemory());
    QDir(folder->path()).mkdir(QStringLiteral("chunks"));
}

QVector<quint32> TestArchives::mergedNumbers(Outcome::Kind expected) const
{
    Merged merged;
    merge(zip(), ampleMemory, always, merged);
    QVector<quint32> numbers;
    for (int i = 0; i < merged.messages.size(); ++i)
        numbers.append(merged.messages.at(i).messageNumber);
    toldOfMerge = merged.damage;
    if (merged.outcome.kind != expected)
        numbers.append(0xFFFFFFFF);
    return numbers;
}

QStringList TestArchives::unpackedNames(const QString &archive, Outcome::Kind expected)
{
    QStringList names;
    const auto unpacked = [&](const QString &name, const QDir &dir, const QString &) {
        unpackedInto = dir;
        names.append(name);
    };
    const Outcome outcome = unpack(archive, chunks(), always, unpacked, toldOfUnpacking);
    if (outcome.kind != expected)
        names.append(QStringLiteral("outcome %1").arg(outcome.kind));
    return names;
}

void TestArchives::chunksAreOrdered_data()
{
    QTest::addColumn<QStringList>("entries"); // name, start, message number and what is damaged
    QTest::addColumn<QVector<quint32>>("merged");
    QTest::addColumn<QStringList>("unpacked");
    QTest::addColumn<int>("told"); // sentences about the merge
    const auto row = [](const char *what, const QStringList &entries,
                        const QVector<quint32> &merged, const QStringList &unpacked, int told = 0) {
        QTest::newRow(what) << entries << merged << unpacked << told;
    };
    row("starts are numbers, not texts", {"c.dck 100.0 3", "a.dck 3.0 1", "b.dck 20.5 2"},
        {1, 2, 3}, {"a.dck", "b.dck", "c.dck"});
    row("of equal starts the later is merged and both are unpacked",
        {"b.dck 0.0 1", "x.dck 5.0 2", "a.dck 0.0 3"}, {3, 2}, {"b.dck", "a.dck", "x.dck"}, 1);
    row("equal names are different chunks", {"a.dck 2.0 2", "a.dck 1.0 1"}, {1, 2},
        {"a.dck", "a_2.dck"});
    row("other entries are passed over, whatever their case",
        {"a.DCK 1.0 1", "b.txt 2.0 2", "c.dck 3.0 3"}, {3}, {"c.dck"});
    row("a start that is no number counts as 0", {"a.dck 1.0 1", "b.dck nan 2"}, {2, 1},
        {"b.dck", "a.dck"});
    row("a wrong checksum displaces no earlier chunk", {"a.dck 0.0 1", "b.dck 0.0 2 checksum"}, {1},
        {"a.dck", "b.dck"}, 2);
    row("where all are damaged the last is taken",
        {"a.dck 0.0 1 checksum", "b.dck 0.0 2 checksum", "c.dck 3.0 3"}, {2, 3},
        {"a.dck", "b.dck", "c.dck"}, 3);
    row("chunks without a header come last, and none is left out",
        {"a.dck 0.0 0 header", "b.dck 2.0 2", "c.dck 0.0 0 header", "d.dck 0.0 1"}, {1, 2},
        {"d.dck", "b.dck", "a.dck", "c.dck"}, 2);
    row("chunks in folders are merged and not unpacked", {"f/b.dck 2.0 2", "f/g/a.dck 1.0 1"},
        {1, 2}, {});
}

void TestArchives::chunksAreOrdered()
{
    QFETCH(QStringList, entries);
    QVector<TestEntry> written;
    for (const QString &entry : qAsConst(entries)) {
        const QStringList parts = entry.split(' ');
        QByteArray chunk = chunkBytes(parts.at(1), parts.at(2).toUInt(), 1);
        if (parts.value(3) == "header")
            chunk = QByteArray("\0\0\0\1text", 8);
        written.append({parts.at(0), chunk, true});
    }
    QByteArray archive = archiveOf(written);
    for (int i = 0; i < entries.size(); ++i) {
        if (entries.at(i).endsWith("checksum"))
            archive[archive.indexOf(written.at(i).content) + written.at(i).content.size() - 1] = 9;
    }
    writeFile(zip(), archive);
    QTEST(mergedNumbers(), "merged");
    QTEST(toldOfMerge.size(), "told");
    QTEST(unpackedNames(zip()), "unpacked");
}

void TestArchives::namesAreChecked_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("255 bytes") << QByteArray(251, 'x') + ".dck" << true;
    QTest::newRow("256 bytes in 130 characters")
        << QByteArray("\xC3\xA4").repeated(126) + ".dck" << false;
    QTest::newRow("zero character") << QByteArray("a.dck\0/../b.dck", 15) << false;
    QTest::newRow("only a zero character") << QByteArray("\0dck", 4) << false;
    for (const char *name : {"../evil.dck", "/evil.dck", "folder/a.dck", "..\\evil.dck",
                             "../chunks/tmpData0.dck", "a/../../evil.dck"})
        QTest::newRow(name) << QByteArray(name) << false;
    for (const char *name : {"tmpData0.dck", "dck", "..dck", "-rf.dck", "%1.dck", "a\nb.dck"})
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
    writeFile(zip(), withLink(archive));
    QCOMPARE(mergedNumbers(), QVector<quint32>{1});
    QCOMPARE(unpackedNames(zip()), accepted ? QStringList(name) : QStringList());
    QCOMPARE(toldOfUnpacking.size(), int(!accepted));
    QCOMPARE(everythingInFolder(), QStringList({"chunks", "trace.zip"}));
    QCOMPARE(chunks().entryList(allEntries), QStringList("trace"));
    const QFileInfoList files = QDir(chunks().filePath("trace")).entryInfoList(allEntries);
    QCOMPARE(files.size(), int(accepted));
    QVERIFY(files.isEmpty() || (files.first().isFile() && !files.first().isSymLink()));
}

void TestArchives::foldersAreNamedAfterTheArchive()
{
    const auto folderOf = [this](const char *zipName) {
        const QString path = folder->filePath(zipName);
        const bool written = writeArchive(path, {{"a.dck", chunkBytes("1.000000", 1, 1)}});
        const bool unpacked = unpackedNames(path) == QStringList("a.dck");
        return written && unpacked ? unpackedInto.dirName() : QString();
    };
    QCOMPARE(folderOf("my trace.zip"), "my trace");
    QCOMPARE(folderOf("my trace.zip"), "my trace_2");
    QCOMPARE(folderOf("...zip.zip"), "archive");
    QCOMPARE(folderOf("a\\b.zip"), "archive_2");
    QCOMPARE(folderOf("tmpData7.dck.zip"), "archive_3"); // a name that a rotation needs
}

void TestArchives::bombsDoNoHarm_data()
{
    QTest::addColumn<QByteArray>("archive");
    QTest::addColumn<int>("merged");
    QTest::addColumn<int>("messages");
    QTest::addColumn<int>("unpackedCount");
    const auto row = [](const char *name, const QByteArray &archive, Outcome::Kind merged,
                        int messages, int unpackedCount) {
        QTest::newRow(name) << archive << int(merged) << messages << unpackedCount;
    };
    constexpr int mebibyte = 1024 * 1024;
    const QByteArray zeros(60 * mebibyte, '\0'); // below the size that is always harmless
    const QByteArray head = chunkBytes("1.000000", 0, 0).chopped(8);
    const TestEntry good{"good.dck", chunkBytes("2.000000", 2, 1)};
    const QByteArray one = archiveOf({good});

    row("more than can be packed honestly", archiveOf({{"a.dck", zeros + zeros}, good}),
        Outcome::TooLarge, 0, 0);
    row("a claim that is not true",
        withClaimedSize(archiveOf({{"a.dck", chunkBytes("3.000000", 2, 9)}, good}), 0xFFFFFFF0),
        Outcome::TooLarge, 0, 0);
    row("much in many entries", archiveOf({{"a.dck", head + zeros}, {"b.dck", zeros}, good}),
        Outcome::TooLarge, 0, 0);
    row("entries that share their bytes", withRepeatedEntry(archiveOf({{"a.dck", zeros}}), 1000),
        Outcome::Done, zeros.size() / 23 + 1, -1);
    row("very many equal names", withRepeatedEntry(one, 2000), Outcome::Done, 1, 2000);
    row("equal names of the greatest length",
        withRepeatedEntry(archiveOf({{QString(251, 'x') + ".dck", good.content}}), 3),
        Outcome::Done, 1, 3);
    row("nothing but zeros", archiveOf({{"a.dck", zeros}, good}), Outcome::Done,
        (zeros.size() - 8 + 22) / 23 + 1, 2);
    row("4 billion notes",
        archiveOf({{"a.dck", head + "\xff\xff\xff\xff" + zeros.left(mebibyte)}, good}),
        Outcome::Done, 1, 2);
    row("a directory that claims more entries than it has", withClaimedEntries(one, 0xFFFF),
        Outcome::Done, 1, 1);
    row("garbage before the archive", QByteArray(mebibyte, 'P') + one, Outcome::Done, 1, 1);
}

void TestArchives::bombsDoNoHarm()
{
    QFETCH(QByteArray, archive);
    QFETCH(int, merged);
    QFETCH(int, unpackedCount);
    constexpr qint64 maxMemory = 512 * 1024 * 1024;
    writeFile(zip(), archive);
    resetHeapPeak();
    QTEST(mergedNumbers(Outcome::Kind(merged)).size(), "messages");
    const bool isTooLarge = merged == Outcome::TooLarge || unpackedCount < 0;
    QCOMPARE(unpackedNames(zip(), isTooLarge ? Outcome::TooLarge : Outcome::Done).size(),
             qMax(unpackedCount, 0));
    QVERIFY2(heapPeak() < maxMemory, QByteArray::number(heapPeak()));
    QCOMPARE(chunks().isEmpty(), isTooLarge);
    QCOMPARE(everythingInFolder(), QStringList({"chunks", "trace.zip"}));
}

void TestArchives::memoryIsBounded()
{
    const auto outcomeOf = [this](const QByteArray &content, int memory) {
        Merged merged;
        if (writeArchive(zip(), {{"a.dck", content}}))
            merge(zip(), memory, always, merged);
        return merged.outcome;
    };
    const QByteArray messages = chunkBytes("1.000000", 0, 1000);
    ChunkFormat::Notes notes;
    for (unsigned int number = 0; number < 10000; ++number)
        notes.insert(number, QString());
    const QByteArray onlyNotes = chunkBytes("1.000000", 0, 0, notes);
    QCOMPARE(outcomeOf(messages, 300000).kind, Outcome::Done);
    QCOMPARE(outcomeOf(onlyNotes, 1500000).kind, Outcome::Done);
    // Less than they need, but more than their files.
    QCOMPARE(outcomeOf(messages, 80000).kind, Outcome::TooLarge);
    QCOMPARE(outcomeOf(messages, 80000).number, quint64(messages.size() / 23));
    QCOMPARE(outcomeOf(onlyNotes, 500000).kind, Outcome::TooLarge);
    QVERIFY(messages.size() < 80000 && onlyNotes.size() < 500000);
}

void TestArchives::damageEndsAChunk_data()
{
    QTest::addColumn<QByteArray>("archive");
    QTest::addColumn<int>("messages");
    QTest::addColumn<int>("unpackedBytes");
    QTest::addColumn<QString>("told"); // of merging, with "%1" for the place
    constexpr int recordSize = 33;
    const QByteArray chunk = chunkBytes("1.000000", 5, 4);
    const int size = chunk.size();
    const QByteArray whole = archiveOf({{"a.dck", chunk, true}});
    QByteArray flipped = whole;
    flipped[whole.indexOf(chunk) + size - recordSize + 5] = '\x77';
    QByteArray newer = whole;
    newer[whole.indexOf(QByteArray::fromHex("003100300034")) + 1] = '9';
    const auto row = [size](const char *what, const QByteArray &archive, int messages,
                            int unpackedBytes, const QString &told) {
        QTest::newRow(what) << archive << messages << unpackedBytes
                            << QString(told).replace("SIZE", QString::number(size));
    };
    row("a whole chunk", whole, 4, size, {});
    row("a chunk that was cut before it was packed keeps its cut record",
        archiveOf({{"a.dck", chunk.chopped(1), true}}), 4, size - 1,
        QString("The chunk %1 ends in the middle of record 4, which begins at byte CUT; "
                "messages read: 4.")
            .replace("CUT", QString::number(size - recordSize)));
    row("an entry that claims too little loses its cut record",
        withClaimedSize(whole, quint32(size - 3)), 3, size - recordSize,
        "The entry %1 does not match its checksum; messages read: 3.");
    row("an entry that claims too much keeps its records",
        withClaimedSize(whole, quint32(size + 3)), 4, size,
        "The entry %1 is damaged and cannot be unpacked beyond byte SIZE; messages read: 4.");
    row("a wrong checksum keeps all whole records", flipped, 4, size,
        "The entry %1 does not match its checksum; messages read: 4.");
    row("a damaged version is no newer version", newer, 0, size,
        "The entry %1 does not match its checksum; messages read: 0.");
}

void TestArchives::damageEndsAChunk()
{
    QFETCH(QByteArray, archive);
    QFETCH(int, messages);
    QFETCH(int, unpackedBytes);
    writeFile(zip(), archive);
    QFETCH(QString, told);
    QCOMPARE(mergedNumbers(), QVector<quint32>({5, 6, 7, 8}).mid(0, messages));
    QCOMPARE(toldOfMerge.join('|'), told.replace("%1", "a.dck of the archive " + zip()));
    QCOMPARE(unpackedNames(zip()), QStringList("a.dck"));
    QCOMPARE(readFile(unpackedInto.filePath("a.dck")).size(), unpackedBytes);
    QCOMPARE(toldOfUnpacking.size(), int(told.startsWith("The entry")));
    QVERIFY(toldOfUnpacking.isEmpty()
            || toldOfUnpacking.first().endsWith(QStringLiteral(" %1.").arg(unpackedBytes)));
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

void TestArchives::workGrowsWithTheEntriesOnly()
{
    const auto callsFor = [this](int count) {
        QVector<TestEntry> entries;
        for (int i = 0; i < count; ++i) {
            // Twice the same, and the same as all others as soon as it gets a number.
            const QString name = QString(247, 'x') + QString::number(1000 + i / 2) + ".dck";
            entries.append({name, chunkBytes(QString::number(i), quint32(i), 1)});
        }
        writeFile(zip(), archiveOf(entries));
        resetHeapPeak();
        return mergedNumbers().size() == count && unpackedNames(zip()).size() == count ? heapCalls()
                                                                                       : -1;
    };
    const qint64 few = callsFor(200);
    const qint64 many = callsFor(1600);
    QVERIFY2(few >= 0 && many >= 0 && many <= 12 * few, QByteArray::number(many));
}

void TestArchives::tooManyEntriesAreRefused()
{
    constexpr int limit = 100000;
    const QFileInfo gone(QStringLiteral("gone"));
    QFileInfoList files;
    for (int i = 0; i < limit; ++i)
        files.append(gone);
    QVERIFY(Zip::packFiles(zip(), files, always).isDone());
    QVERIFY(!Zip::packFiles(zip(), files + QFileInfoList{gone}, always).isDone());
    const QByteArray one = archiveOf({{"a.dck", chunkBytes("2.000000", 2, 1)}});
    writeFile(zip(), withManyClaimedEntries(one, limit));
    QCOMPARE(mergedNumbers(), QVector<quint32>{2});
    QVERIFY(toldOfMerge.value(0).contains("is damaged behind entry 1;"));
    writeFile(zip(), withManyClaimedEntries(one, limit + 1));
    QCOMPARE(mergedNumbers(Outcome::TooLarge), QVector<quint32>());
    QCOMPARE(unpackedNames(zip(), Outcome::TooLarge), QStringList());
}

QTEST_GUILESS_MAIN(TestArchives)
#include "tst_archives.moc"
