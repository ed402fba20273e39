#include "archives.h"
#include "bookmarkhandler.h"
#include "datachunkhandler.h"
#include "messages.h"
#include "storefixture.h"
#include "unorderedstep.h"

#include <QtTest>

/// What a second thread may do meanwhile. The outcomes are checked anywhere, the accesses by
/// ThreadSanitizer.
class Races : public QObject
{
    Q_OBJECT
private slots:
    void exportWhileBookmarksChange();
    void mergeWhileAThreadStepsThroughALine();
};

void Races::exportWhileBookmarksChange()
{
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("marked.dck"));
    BookmarkHandler bookmarks;
    DatachunkHandler store(20000);
    store.setBookmarkhandler(&bookmarks);
    store.appendCanMessage(makeMessage(0));
    UnorderedStep step;
    std::thread user([&] {
        bookmarks.addBookmark(0, QStringLiteral("mark"));
        step.set(1);
        step.waitFor(2);
    });
    step.waitFor(1);
    store.exportMessages(file);
    step.set(2);
    user.join();
    QTRY_VERIFY(QFile::exists(file) && !readChunkFile(file).messages.isEmpty());
    QCOMPARE(readChunkFile(file).bookmarks.keys(), QList<unsigned>{0});
}

void Races::mergeWhileAThreadStepsThroughALine()
{
    QTemporaryDir folder;
    const QString archive = folder.filePath(QStringLiteral("a.zip"));
    QVERIFY(writeArchive(archive, {{"a.dck", chunkBytes("1.0", 0, 1)}}));
    DatachunkHandler store(20000);
    const CAN::CanRxMessage message = makeMessage(0, 8);
    store.appendCanMessage(message);
    UnorderedStep step;
    bool found[2] = {};
    std::thread reader([&] {
        CAN::CanRxMessage next;
        const auto line = static_cast<unsigned char>(message.line);
        found[0] = store.nextMessageForLine(next, line);
        step.set(1);
        step.waitFor(2);
        found[1] = store.nextMessageForLine(next, line);
    });
    step.waitFor(1);
    const bool merged = store.loadZipMerged(archive);
    step.set(2);
    reader.join();
    QVERIFY(merged && found[0] && found[1]);
}

QTEST_GUILESS_MAIN(Races)
#include "tst_races.moc"
