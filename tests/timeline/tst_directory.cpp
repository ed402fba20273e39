#include "bookmarkhandler.h"
#include "chunkdirectory.h"
#include "chunkmove.h"
#include "datachunkhandler.h"
#include "directoryfixture.h"
#include "storefixture.h"

#include <QtTest>

#include <csignal>
#include <cstdio>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

/// The directory of a chunk folder as a file that several write.
class TestDirectory : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();

    void whatIsAddedLastCounts();
    void otherFilesAreNotWritten_data();
    void otherFilesAreNotWritten();
    void aTornEntryIsPassedOver();
    void aFullDiskLeavesTheOthers();
    void manyWriteAtOnce();
    void aHeldLockIsNotWaitedForLong();
    void whoeverWaitedAddsToTheNewFile();
    void supersededEntriesGo();
    void rotationAddsWhatReadingFinds();
    void movedChunksTakeTheirEntriesAlong_data();
    void movedChunksTakeTheirEntriesAlong();
    void linkedChunksAreKnown();

private:
    QString folder() const { return temporary->path(); }
    QString chunk(const QString &name) const { return temporary->filePath(name); }
    QString directory() const { return ChunkDirectory::path(folder()); }
    QStringList names() const;

    std::unique_ptr<QTemporaryDir> temporary;
};

namespace {

void writeChunkOf(const QString &fileName, quint32 seed)
{
    writeFile(fileName, QByteArray(200, char(seed)));
}

DirectoryEntry entryOfFile(const QString &fileName)
{
    DirectoryEntry entry = smallEntry(QFileInfo(fileName).fileName());
    entry.file = FileIdentity::of(fileName).value_or(FileIdentity());
    return entry;
}

} // namespace

void TestDirectory::init()
{
    temporary = std::make_unique<QTemporaryDir>();
}

void TestDirectory::cleanup()
{
    temporary.reset();
}

QStringList TestDirectory::names() const
{
    QStringList found;
    for (const DirectoryEntry &entry : ChunkDirectory::read(folder()))
        found += entry.name;
    return found;
}

void TestDirectory::whatIsAddedLastCounts()
{
    DirectoryEntry entry = smallEntry("a");
    QVERIFY(ChunkDirectory::add(folder(), entry) && ChunkDirectory::add(folder(), smallEntry("b")));
    entry.file.changed = 77;
    QVERIFY(ChunkDirectory::add(folder(), entry));
    QVERIFY(ChunkDirectory::read(folder())
            == (std::vector<DirectoryEntry>{entry, smallEntry("b")}));
    struct stat status = {};
    QVERIFY(lstat(qPrintable(directory()), &status) == 0 && (status.st_mode & 0777) == 0600);
    QVERIFY(ChunkDirectory::rewrite(folder(), {smallEntry("c")}));
    QCOMPARE(names(), QStringList("c"));
    QCOMPARE(QDir(folder()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList(QFileInfo(directory()).fileName()));
}

void TestDirectory::otherFilesAreNotWritten_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<bool>("isReplaced");
    QTest::newRow("a symbolic link is not followed") << "symlink" << false;
    QTest::newRow("nor one to nothing") << "dangling" << false;
    QTest::newRow("a pipe is not waited for") << "pipe" << false;
    QTest::newRow("a folder stays") << "folder" << false;
    QTest::newRow("a hard link keeps its other name") << "link" << true;
}

void TestDirectory::otherFilesAreNotWritten()
{
    QFETCH(QString, kind);
    writeFile(chunk("precious"), "precious");
    const QByteArray precious = QFile::encodeName(chunk("precious"));
    const QByteArray name = QFile::encodeName(directory());
    const int result = kind == "symlink" ? symlink(precious, name)
        : kind == "dangling"             ? symlink("created", name)
        : kind == "pipe"                 ? mkfifo(name, 0600)
        : kind == "folder"               ? mkdir(name, 0700)
                                         : link(precious, name);
    QCOMPARE(result, 0);
    QTEST(ChunkDirectory::add(folder(), smallEntry("a")), "isReplaced");
    QTEST(names().contains("a"), "isReplaced");
    QTEST(ChunkDirectory::rewrite(folder(), {smallEntry("a")}), "isReplaced");
    QCOMPARE(readFile(chunk("precious")), "precious");
    QVERIFY(!QFile::exists(chunk("created")));
    QVERIFY(!ChunkDirectory::add(chunk("none"), smallEntry("a")));
}

void TestDirectory::aTornEntryIsPassedOver()
{
    QVERIFY(ChunkDirectory::add(folder(), smallEntry("a")));
    QFile file(directory());
    QVERIFY(file.open(QIODevice::ReadWrite) && file.resize(file.size() - 1));
    QVERIFY(ChunkDirectory::add(folder(), smallEntry("b")));
    QCOMPARE(names(), QStringList("b"));
    QVERIFY(file.resize(DirectoryFormat::headSize - 1));
    QVERIFY(ChunkDirectory::add(folder(), smallEntry("c")));
    QCOMPARE(names(), QStringList("c"));
}

void TestDirectory::aFullDiskLeavesTheOthers()
{
    QVERIFY(ChunkDirectory::add(folder(), smallEntry("a")));
    const QByteArray before = readFile(directory());
    rlimit old = {};
    getrlimit(RLIMIT_FSIZE, &old);
    const rlimit full{rlim_t(before.size() + 10), old.rlim_max};
    std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &full);
    const bool isAdded = ChunkDirectory::add(folder(), smallEntry("b"));
    const bool isRewritten = ChunkDirectory::rewrite(folder(), {smallEntry("b"), smallEntry("c")});
    setrlimit(RLIMIT_FSIZE, &old);
    QVERIFY(!isAdded && !isRewritten);
    QCOMPARE(readFile(directory()), before);
    QCOMPARE(QDir(folder()).entryList(QDir::Files | QDir::Hidden).size(), 1);
}

// Two threads and another process.
void TestDirectory::manyWriteAtOnce()
{
    constexpr int each = 100;
    const auto addAll = [this](char who) {
        bool good = true;
        for (int i = 0; i < each; ++i) {
            const QString name = QChar(who) + QString::number(i);
            writeChunkOf(chunk(name), 1);
            good = ChunkDirectory::add(folder(), entryOfFile(chunk(name))) && good;
        }
        return good;
    };
    const pid_t child = fork();
    if (child == 0)
        _exit(addAll('c') ? 0 : 1);
    bool isGood = false;
    std::thread other([&] { isGood = addAll('t'); });
    // Superseded all the time, it has the file replaced.
    const DirectoryEntry large = largeEntry("large");
    bool isAdded = true;
    for (int i = 0; i < each; ++i)
        isAdded = ChunkDirectory::add(folder(), large) && isAdded;
    const bool mineAreGood = addAll('m');
    other.join();
    int status = -1;
    QCOMPARE(waitpid(child, &status, 0), child);
    QVERIFY(status == 0 && isGood && isAdded && mineAreGood);
    QCOMPARE(names().filter(QRegularExpression("^[ctm]")).size(), 3 * each);
}

void TestDirectory::aHeldLockIsNotWaitedForLong()
{
    QVERIFY(ChunkDirectory::add(folder(), smallEntry("a")));
    const int holder = open(qPrintable(directory()), O_RDONLY | O_CLOEXEC);
    QCOMPARE(flock(holder, LOCK_EX), 0);
    QVERIFY(!ChunkDirectory::add(folder(), smallEntry("b")));
    QCOMPARE(names(), QStringList("a"));
    close(holder);
    QVERIFY(ChunkDirectory::add(folder(), smallEntry("b")));
}

void TestDirectory::whoeverWaitedAddsToTheNewFile()
{
    QVERIFY(ChunkDirectory::add(folder(), smallEntry("a")));
    QVERIFY(QFile::copy(directory(), chunk("copy")));
    const QString path = QFileInfo(directory()).canonicalFilePath();
    const int holder = open(qPrintable(directory()), O_RDONLY | O_CLOEXEC);
    QCOMPARE(flock(holder, LOCK_EX), 0);
    bool isAdded = false;
    std::thread waiter([&] { isAdded = ChunkDirectory::add(folder(), smallEntry("b")); });
    const auto handles = [&path] {
        const QFileInfoList all = QDir("/proc/self/fd").entryInfoList(QDir::Files);
        return std::count_if(all.begin(), all.end(), [&path](const QFileInfo &handle) {
            return handle.symLinkTarget() == path;
        });
    };
    while (handles() < 2)
        std::this_thread::yield();
    const int result = std::rename(qPrintable(chunk("copy")), qPrintable(directory()));
    close(holder);
    waiter.join();
    QVERIFY(result == 0 && isAdded);
    QCOMPARE(names(), (QStringList{"a", "b"}));
}

void TestDirectory::supersededEntriesGo()
{
    DirectoryEntry large = largeEntry("large");
    writeChunkOf(chunk("small"), 1);
    writeChunkOf(chunk("gone"), 1);
    QVERIFY(ChunkDirectory::add(folder(), entryOfFile(chunk("small"))));
    QVERIFY(ChunkDirectory::add(folder(), entryOfFile(chunk("gone"))));
    QVERIFY(QFile::remove(chunk("gone")));
    const qint64 size = DirectoryFormat::encoded(large, 0).size();
    for (int i = 0; i < 200; ++i)
        QVERIFY(ChunkDirectory::add(folder(), large));
    QCOMPARE(names(), (QStringList{"small", "large"}));
    QVERIFY(QFileInfo(directory()).size() < 2 * 1024 * 1024 + 3 * size);
}

void TestDirectory::rotationAddsWhatReadingFinds()
{
    constexpr int size = 5000;
    BookmarkHandler bookmarks;
    DatachunkHandler store(5000 + size);
    store.setBookmarkhandler(&bookmarks);
    for (quint32 i = 0; i < 2 * size + 1; ++i) {
        store.appendCanMessage(makeMessage(i, int(i % 65)));
        if (i == 7)
            store.setMessageNote(7, "note");
    }
    bookmarks.addBookmark(size + 3, "mark");
    QVERIFY(store.waitForSaves());
    const auto known = ChunkDirectory::read(store.chunkFolderPath());
    QCOMPARE(int(known.size()), 2);
    for (const DirectoryEntry &entry : known) {
        const QString path = store.chunkFolderPath() + '/' + entry.name;
        const ReadChunk read = readChunkFile(path);
        QVERIFY(describes(entry, FileIdentity::of(path).value_or(FileIdentity())));
        ChunkIndex expected = indexOf(read.messages, 0);
        expected.moveBy(QFileInfo(path).size() - expected.recordsEnd);
        expected.notes = quint32(read.notes.size());
        expected.bookmarks = quint32(read.bookmarks.size());
        QVERIFY(entry.index == expected);
    }
    const QString where = store.chunkFolderPath();
    store.clearAllMessages();
    QVERIFY(QDir(where).isEmpty());
}

void TestDirectory::movedChunksTakeTheirEntriesAlong_data()
{
    QTest::addColumn<int>("changedBefore"); // in nanoseconds
    QTest::addColumn<bool>("isMoved");
    QTest::addColumn<bool>("isKnown");
    QTest::newRow("as they are") << 0 << true << true;
    QTest::newRow("not when they have changed since") << 1 << true << false;
    QTest::newRow("not when they stay") << 0 << false << false;
}

void TestDirectory::movedChunksTakeTheirEntriesAlong()
{
    QFETCH(int, changedBefore);
    QFETCH(bool, isMoved);
    const QTemporaryDir target;
    const QString to = target.filePath("b");
    writeChunkOf(chunk("a"), 1);
    DirectoryEntry entry = entryOfFile(chunk("a"));
    entry.file.changed -= changedBefore;
    QVERIFY(ChunkDirectory::add(folder(), entry));
    QCOMPARE(moveChunk(chunk("a"), to, [&] { return isMoved && QFile::rename(chunk("a"), to); }),
             isMoved);
    const auto known = ChunkDirectory::read(target.path());
    QTEST(!known.empty(), "isKnown");
    for (const DirectoryEntry &moved : known) {
        QCOMPARE(moved.name, QStringLiteral("b"));
        QVERIFY(moved.index == entry.index);
        QVERIFY(describes(moved, FileIdentity::of(to).value_or(FileIdentity())));
    }
}

void TestDirectory::linkedChunksAreKnown()
{
    const QTemporaryDir target;
    const QStringList names = {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")};
    for (const QString &name : names) {
        writeChunkOf(chunk(name), 1);
        QVERIFY(ChunkDirectory::add(folder(), entryOfFile(chunk(name))));
    }
    const auto hardLink = [&](const QString &name) {
        return name != names.last()
            && link(QFile::encodeName(chunk(name)).constData(),
                    QFile::encodeName(target.filePath(name)).constData())
            == 0;
    };
    QVERIFY(!moveChunks(folder(), target.path(), names, hardLink));
    const auto known = ChunkDirectory::read(target.path());
    QCOMPARE(known.size(), std::size_t(2));
    for (const DirectoryEntry &entry : known) {
        const QString path = target.filePath(entry.name);
        QVERIFY(describes(entry, FileIdentity::of(path).value_or(FileIdentity())));
    }
}

QTEST_GUILESS_MAIN(TestDirectory)
#include "tst_directory.moc"
