#include "bookmarkhandler.h"
#include "datachunkhandler.h"
#include "messages.h"
#include "recording.h"
#include "tracetimeline.h"

#include <QTemporaryDir>
#include <QtTest>

#include <thread>

#include <sys/stat.h>

namespace {

using Positions = QVector<quint64>;

void append(DatachunkHandler &store, int count, int first = 0)
{
    for (int i = first; i < first + count; ++i)
        store.appendCanMessage(makeMessage(quint32(i), 8));
}

} // namespace

/// What users write on messages while a store records them.
class TestAnnotateStore : public QObject
{
    Q_OBJECT
private slots:
    void aStoreKeepsThemOnTheirWay();
    void rotationsLoseNothing();
    void aTraceThatIsGoneIsNotWrittenTo();
};

// Through memory, a rotation, a chunk and an archive.
void TestAnnotateStore::aStoreKeepsThemOnTheirWay()
{
    QTemporaryDir folder;
    DatachunkHandler store(6000);
    BookmarkHandler bookmarks;
    store.setBookmarkhandler(&bookmarks);
    append(store, 100);
    TraceTimeline timeline = store.timeline();
    TraceTimeline other = store.timeline();
    QVERIFY(timeline.setNote(10, QStringLiteral("live")));
    QVERIFY(timeline.setBookmark(11, QStringLiteral("mark")));
    QCOMPARE(store.getMessageNote(10), QStringLiteral("live"));
    QCOMPARE(store.bookmarkAt(11).text(), QStringLiteral("mark"));
    // Others are shown meanwhile.
    record(folder.path(), 1, {50});
    QVERIFY(store.loadFile(folder.filePath(QStringLiteral("tmpData0.dck")), false,
                           DatachunkHelper::ChunkFile, DatachunkHelper::CurrentMessages, {}));
    QVERIFY(timeline.setNote(12, QStringLiteral("unseen")));
    QVERIFY(timeline.setBookmark(13, QStringLiteral("unseen")));
    QVERIFY(timeline.setBookmark(11, QString()));
    QCOMPARE(store.getMessageNote(12), QString());
    store.goLive();
    QCOMPARE(store.getMessageNote(12), QStringLiteral("unseen"));
    QVERIFY(!store.bookmarkAt(11).isValid());
    QVERIFY(store.rotate());
    // Perhaps while it is written.
    QVERIFY(timeline.setNote(14, QStringLiteral("rotated")));
    // In an archive the start of a chunk tells its place.
    append(store, 5, 100);
    QVERIFY(timeline.setNote(102, QStringLiteral("live again")));
    QVERIFY(store.waitForSaves());
    QVERIFY(timeline.setNote(15, QStringLiteral("saved")));
    QVERIFY(timeline.setNote(10, QString()));
    for (TraceTimeline *shown : {&timeline, &other}) {
        shown->refresh();
        QCOMPARE(shown->count(), 105U);
        QCOMPARE(shown->notePositions(), (Positions{12, 14, 15, 102}));
        QCOMPARE(shown->bookmarkPositions(), Positions{13});
    }
    // Paging back shows them as well.
    store.loadDataFromFile(0);
    QCOMPARE(store.getMessageNote(15), QStringLiteral("saved"));
    store.goLive();
    struct stat status = {};
    stat(QFile::encodeName(store.chunkFolderPath() + "/tmpData0.dck").constData(), &status);
    QCOMPARE(status.st_mode & 0777, 0600U);

    QVERIFY(store.rotate() && store.waitForSaves());
    const QString archive = folder.filePath(QStringLiteral("packed.zip"));
    store.setZipFileName(archive);
    store.saveDatachunksToZip();
    TraceTimeline packed({archive});
    QVERIFY(packed.waitForAll());
    QCOMPARE(packed.notePositions(), (Positions{12, 14, 15, 102}));
    QCOMPARE(packed.row(13).bookmark.text(), QStringLiteral("unseen"));
}

void TestAnnotateStore::rotationsLoseNothing()
{
    constexpr quint64 count = 20000;
    DatachunkHandler store(5500);
    std::atomic<bool> ended{false};
    std::thread feeder([&] {
        append(store, int(count));
        ended = true;
    });
    TraceTimeline timeline = store.timeline();
    Positions marked;
    while (!ended) {
        timeline.refresh();
        // Now one that is about to move, now one that has long been saved.
        const quint64 last = timeline.count() - 1;
        const quint64 position = marked.size() % 2 == 0 ? last : last / 2;
        if (last + 1 == 0 || marked.contains(position))
            continue;
        QString error;
        const bool isDone = timeline.setNote(position, QStringLiteral("n"), &error);
        if (!isDone)
            ended = true;
        marked.append(position);
        if (!isDone) {
            feeder.join();
            QFAIL(qPrintable(error));
        }
    }
    feeder.join();
    QVERIFY(store.waitForSaves());
    timeline.refresh();
    std::sort(marked.begin(), marked.end());
    QCOMPARE(timeline.count(), count);
    QCOMPARE(timeline.notePositions(), marked);
}

void TestAnnotateStore::aTraceThatIsGoneIsNotWrittenTo()
{
    auto store = std::make_unique<DatachunkHandler>(6000);
    append(*store, 20);
    TraceTimeline timeline = store->timeline();
    QString error;
    // Nobody would keep it.
    QVERIFY(!timeline.setBookmark(3, QStringLiteral("b"), &error));
    QVERIFY(error.contains(QLatin1String("no bookmarks")));
    store->clearAllMessages();
    append(*store, 20);
    QVERIFY(!timeline.setNote(3, QStringLiteral("of another trace"), &error));
    QCOMPARE(store->getMessageNote(3), QString());
    const quint32 before = timeline.generation();
    timeline.refresh();
    QVERIFY(!timeline.setNote(3, QStringLiteral("of the one before"), &error, before));
    QVERIFY(!timeline.setBookmark(3, QStringLiteral("of the one before"), &error, before));
    QVERIFY(error.contains(QLatin1String("another one")));
    QCOMPARE(store->getMessageNote(3), QString());
    QVERIFY(timeline.setNote(3, QStringLiteral("of this one"), &error, timeline.generation()));
    store.reset();
    QVERIFY(!timeline.setNote(4, QStringLiteral("of none"), &error));
    QVERIFY(!error.isEmpty());
}

QTEST_GUILESS_MAIN(TestAnnotateStore)

#include "tst_annotatestore.moc"
