#include "bookmarkhandler.h"
#include "datachunkhandler.h"
#include "diskbudget.h"
#include "messages.h"
#include "storefixture.h"

#include <QtTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

/// Where and how the chunks and exports of a store are written.
class TestChunkSaver : public QObject
{
    Q_OBJECT
private slots:
    void exportsDoNotWaitForAStuckOne();
    void exportsWhileBrowsingCarryLiveNotes();
    void chunksArePrivate();
    void aLinkInPlaceOfTheFolderIsLeftAlone();
    void budgetKeepsCountOfWhatOthersDo();
    void noChunkIsWrittenIntoAPipe();
};

namespace {

constexpr int chunkSize = 1000;

void append(DatachunkHandler &store, quint32 from, quint32 to)
{
    for (quint32 i = from; i < to; ++i)
        store.appendCanMessage(makeMessage(i, i % 9));
}

QString makePipe(const QString &path)
{
    return mkfifo(qPrintable(path), 0600) == 0 ? path : QString();
}

int modeOf(const QString &path)
{
    struct stat status = {};
    return stat(qPrintable(path), &status) == 0 ? int(status.st_mode & 0777) : -1;
}

} // namespace

void TestChunkSaver::exportsDoNotWaitForAStuckOne()
{
    QTemporaryDir folder;
    const QString pipe = makePipe(folder.filePath("stuck.txt"));
    auto store = std::make_unique<DatachunkHandler>(20000);
    append(*store, 0, 3);
    store->exportMessages(pipe);
    store->exportMessages(folder.filePath("a.dck"));
    append(*store, 3, 5);
    store->exportMessages(folder.filePath("a.dck")); // the same file keeps the order
    store->setZipFileName(folder.filePath("a.zip"));
    store->saveDatachunksToZip();
    QVERIFY(QFile::exists(folder.filePath("a.zip")));
    QTRY_VERIFY(holds(folder.filePath("a.dck"), 0, 4));
    QVERIFY(!store->waitForSaves(1));
    // Read at last, it is whole. Without a reader it is given up.
    const int reader = open(qPrintable(pipe), O_RDONLY | O_NONBLOCK);
    QVERIFY(store->waitForSaves(10000));
    QByteArray text(10000, 0);
    text.resize(int(read(reader, text.data(), std::size_t(text.size()))));
    close(reader);
    QCOMPARE(text.count('\n'), 4);
    store->exportMessages(pipe);
    store.reset();
}

void TestChunkSaver::exportsWhileBrowsingCarryLiveNotes()
{
    QTemporaryDir folder;
    BookmarkHandler bookmarks;
    DatachunkHandler store(5000 + chunkSize);
    store.setBookmarkhandler(&bookmarks);
    append(store, 0, 5);
    store.setMessageNote(3, "rotated");
    bookmarks.addBookmark(3, "rotated");
    append(store, 5, chunkSize + 5);
    store.setMessageNote(chunkSize + 1, "live");
    bookmarks.addBookmark(chunkSize + 1, "live");
    store.loadDataFromFile(0);
    QCOMPARE(store.getMessageNote(3), "rotated");
    store.exportMessages(folder.filePath("a.dck"), DatachunkHelper::ExportWithNotes);
    store.exportMessageRange(0, 4, folder.filePath("b.dck"));
    QVERIFY(store.waitForSaves());
    for (const char *name : {"a.dck", "b.dck"}) {
        const ReadChunk chunk = readChunkFile(folder.filePath(name));
        QCOMPARE(chunk.notes, (ChunkFormat::Notes{{chunkSize + 1, "live"}}));
        QCOMPARE(chunk.bookmarks.keys(), QList<unsigned>{chunkSize + 1});
    }
}

void TestChunkSaver::chunksArePrivate()
{
    QTemporaryDir folder;
    const QString trace = folder.filePath("a.log");
    writeFile(trace, candumpLines(0, 3));
    DatachunkHandler store(5000 + chunkSize);
    QSignalSpy partial(&store, &DatachunkHandler::newPartialDataFile);
    append(store, 0, chunkSize + 1);
    store.exportAllMessages("a.dck", {});
    QVERIFY(store.waitForSaves());
    store.importMessages(trace, DatachunkHelper::SocketCanDump);
    QCOMPARE(modeOf(store.chunkFolderPath()), 0700);
    QCOMPARE(modeOf(store.chunkFolderPath() + "/tmpData0.dck"), 0600);
    QCOMPARE(modeOf(store.chunkFolderPath() + "/zlastChunk.dck"), 0600);
    QCOMPARE(modeOf(partial.value(0).value(0).toString()), 0600);
}

void TestChunkSaver::aLinkInPlaceOfTheFolderIsLeftAlone()
{
    QTemporaryDir other;
    writeFile(other.filePath("mine"), "x");
    auto store = std::make_unique<DatachunkHandler>(5000 + chunkSize);
    const QString path = store->chunkFolderPath();
    QVERIFY(QFile::rename(path, path + "-moved"));
    QVERIFY(QFile::link(other.path(), path));
    QSignalSpy errors(store.get(), &DatachunkHandler::newErrorMessage);
    append(*store, 0, chunkSize + 1);
    QTRY_COMPARE(errors.count(), 1);
    store->clearAllMessages();
    store.reset();
    QCOMPARE(QDir(other.path()).entryList(QDir::Files), QStringList("mine"));
    QFile::remove(path);
    QDir().rmdir(path + "-moved");
}

void TestChunkSaver::budgetKeepsCountOfWhatOthersDo()
{
    QTemporaryDir folder;
    DiskBudget budget(folder.path());
    int files = 0;
    const auto write = [&] {
        const QString name = QStringLiteral("tmpData%1.dck").arg(files++);
        budget.beginChange();
        writeFile(folder.filePath(name), QByteArray(512 * 1024, 'x'));
        budget.endChange(name);
        return budget.removeOldestAbove(1);
    };
    QVERIFY(!write() && !write() && !write());
    QVERIFY(write()); // 2 MiB: the first has to go
    QVERIFY(!QFile::exists(folder.filePath("tmpData0.dck")) && !budget.removeOldestAbove(1));
    // What comes from elsewhere counts at once, what goes as well.
    writeFile(folder.filePath("zz"), QByteArray(1024 * 1024, 'x'));
    QVERIFY(budget.removeOldestAbove(1));
    QFile::remove(folder.filePath("zz"));
    QVERIFY(!budget.removeOldestAbove(1));
    QVERIFY(!write() && write());
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files),
             QStringList({"tmpData3.dck", "tmpData4.dck", "tmpData5.dck"}));
    // A file that grows is noticed after a while.
    writeFile(folder.filePath("tmpData5.dck"), QByteArray(1024 * 1024, 'x'));
    int looks = 0;
    while (looks < 100 && !budget.removeOldestAbove(1))
        ++looks;
    QVERIFY(looks < 100);
}

void TestChunkSaver::noChunkIsWrittenIntoAPipe()
{
    QTemporaryDir folder;
    const QString pipe = makePipe(folder.filePath("a.dck"));
    DatachunkHandler store(20000);
    QSignalSpy errors(&store, &DatachunkHandler::newErrorMessage);
    append(store, 0, 3);
    store.exportMessages(pipe);
    QTRY_COMPARE(errors.count(), 1);
    QVERIFY(errors.first().first().toString().contains(pipe) && QFileInfo::exists(pipe));
}

QTEST_GUILESS_MAIN(TestChunkSaver)
#include "tst_chunksaver.moc"
