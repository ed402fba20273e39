#include "archives.h"
#include "chunkdirectory.h"
#include "chunkmove.h"
#include "datachunkhandler.h"
#include "messages.h"
#include "peakmemory.h"
#include "recording.h"
#include "savejob.h"
#include "storefixture.h"
#include "tracefilter.h"
#include "tracematcher.h"
#include "tracetimeline.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

namespace {

void compareFilter(const TraceTimeline &timeline, const QVector<quint64> &wanted, const char *text)
{
    const TraceFilter filter =
        timeline.filter(expression(text), wanted.isEmpty() ? 0 : wanted.last() / 2);
    QVERIFY(filter.wait());
    QVERIFY2(filter.count() == quint64(wanted.size()), text);
    QCOMPARE(filter.messagesDone(), timeline.count());
    QRandomGenerator random(3);
    for (int i = 0; i < 200 && !wanted.isEmpty(); ++i) {
        const int n = random.bounded(wanted.size());
        QCOMPARE(filter.at(quint64(n)).value_or(~0ULL), wanted.at(n));
        const auto position = quint64(random.bounded(int(timeline.count() + 1)));
        const auto before = std::lower_bound(wanted.begin(), wanted.end(), position);
        QCOMPARE(filter.countBefore(position), quint64(before - wanted.begin()));
    }
    QVERIFY(!filter.at(quint64(wanted.size())));
}

void compareSearch(const TraceTimeline &timeline, const QVector<quint64> &wanted, const char *text)
{
    const TraceExpression sought = expression(text);
    QRandomGenerator random(4);
    for (int i = 0; i < 20; ++i) {
        const auto position = quint64(random.bounded(int(timeline.count() + 1)));
        const auto next = std::lower_bound(wanted.begin(), wanted.end(), position);
        const quint64 none = ~0ULL;
        QVERIFY2(timeline.findNext(sought, position).value_or(none)
                     == (next == wanted.end() ? none : *next),
                 text);
        QVERIFY2(timeline.findPrevious(sought, position).value_or(none)
                     == (next == wanted.begin() ? none : *(next - 1)),
                 text);
    }
}

// What is found of \a count messages from \a from on, in one pass.
void compareVisit(const TraceTimeline &timeline, const QVector<quint64> &wanted, const char *text,
                  quint64 from, quint64 count)
{
    QVector<quint64> expected;
    for (const quint64 position : wanted) {
        if (position >= from && position - from < count)
            expected.append(position);
    }
    QVector<quint64> visited;
    const auto add = [&visited](const QVector<quint64> &positions) {
        visited += positions;
        return true;
    };
    QCOMPARE(timeline.forEachFound(expression(text), from, count, add), 0);
    QVERIFY2(visited == expected, text);
}

// Blocks of messages, as a matcher for streams finds them.
void compareBlocks(const TraceTimeline &timeline, const QVector<quint64> &wanted, const char *text)
{
    TraceMatcher matcher(expression(text));
    QVector<quint64> taken;
    const auto visit = [&](const TraceBlock &block) {
        for (int i = 0; i < block.count; ++i) {
            const CAN::CanRxMessage &message = block.messages[i];
            if (matcher.takes(message, block.notes.value(message.messageNumber)))
                taken.append(block.position + quint64(i));
        }
        return true;
    };
    QCOMPARE(timeline.forEach(0, timeline.count(), visit), 0);
    QVERIFY2(taken == wanted, text);
}

void compareRows(const TraceTimeline &timeline, const Recording &recording)
{
    QCOMPARE(timeline.count(), quint64(recording.messages.size()));
    for (int i = 0; i < recording.messages.size(); ++i) {
        const TraceRow row = timeline.row(quint64(i));
        QCOMPARE(int(row.state), int(TraceRow::Known));
        QVERIFY(sameInChunk(row.message, recording.messages.at(i)));
        QCOMPARE(row.note, recording.notes.at(i));
    }
    QCOMPARE(int(timeline.row(timeline.count()).state), int(TraceRow::Behind));
}

void compareChunks(const TraceTimeline &timeline, const Recording &recording)
{
    quint64 position = 0;
    const QVector<TraceChunk> chunks = timeline.chunks();
    for (const TraceChunk &chunk : chunks) {
        QCOMPARE(chunk.position, position);
        QVERIFY(chunk.name.contains(QStringLiteral(".dck")));
        QVector<qint64> times;
        for (quint64 i = 0; i < chunk.count; ++i)
            times.append(MessageView(recording.messages.at(int(position + i))).time());
        QCOMPARE(chunk.firstTime, *std::min_element(times.cbegin(), times.cend()));
        QCOMPARE(chunk.lastTime, *std::max_element(times.cbegin(), times.cend()));
        position += chunk.count;
    }
    QCOMPARE(position, timeline.count());
}

void compareTimes(const TraceTimeline &timeline, const Recording &recording)
{
    QVector<qint64> highest;
    for (const CAN::CanRxMessage &message : recording.messages) {
        const qint64 time = MessageView(message).time();
        highest.append(highest.isEmpty() ? time : std::max(time, highest.last()));
    }
    QRandomGenerator random(5);
    for (int i = 0; i < 300; ++i) {
        const qint64 time = highest.at(random.bounded(highest.size())) + random.bounded(-1, 2);
        QCOMPARE(timeline.positionOfTime(time),
                 quint64(std::lower_bound(highest.begin(), highest.end(), time) - highest.begin()));
    }
    quint64 sum = 0;
    quint64 errors = 0;
    const TraceRate rate = timeline.rate(timeline.firstTime() - 1, timeline.lastTime() + 1, 97);
    for (int i = 0; i < rate.messages.size(); ++i) {
        sum += std::accumulate(rate.messages.at(i).begin(), rate.messages.at(i).end(), quint64(0));
        errors += rate.errors.at(i);
    }
    QCOMPARE(sum, timeline.count());
    QCOMPARE(errors, quint64(found(recording, "err").size()));
}

} // namespace

class TestTimeline : public QObject
{
    Q_OBJECT
private slots:
    void everyQuestionIsAnsweredAsByOneMessageAfterTheOther_data();
    void everyQuestionIsAnsweredAsByOneMessageAfterTheOther();
    void chunksThatComeOrGrowAreTakenIn();
    void directoryOfAnotherStateIsNotBelieved();
    void filesThatComeAtOnceAreSeen();
    void indexedChunksAreKnownAtOnce();
    void bookmarksAreFoundWhereverTheirNumbersAre();
    void growthIsLookedAtWithinBounds();
};

void TestTimeline::everyQuestionIsAnsweredAsByOneMessageAfterTheOther_data()
{
    QTest::addColumn<QVector<int>>("sizes");
    QTest::addColumn<bool>("inArchive");
    QTest::newRow("several steps a chunk") << QVector<int>{9000, 1, 4096, 4097, 12288} << false;
    QTest::newRow("an archive") << QVector<int>{5000, 3000} << true;
    QTest::newRow("one message") << QVector<int>{1} << false;
}

void TestTimeline::everyQuestionIsAnsweredAsByOneMessageAfterTheOther()
{
    QFETCH(QVector<int>, sizes);
    QFETCH(bool, inArchive);
    QTemporaryDir folder;
    const Recording recording = record(folder.path(), quint32(sizes.size()), sizes);
    QString path = folder.path();
    if (inArchive) {
        path = folder.filePath(QStringLiteral("a.zip"));
        QVector<TestEntry> entries;
        for (int i = sizes.size(); i-- > 0;) {
            const QString name = QStringLiteral("tmpData%1.dck").arg(i);
            entries.append({name, readFile(folder.filePath(name))});
        }
        QVERIFY(writeArchive(path, entries));
    }
    TraceTimeline timeline({path});
    QVERIFY(timeline.waitForAll());
    QCOMPARE(timeline.problems(), QStringList());
    compareRows(timeline, recording);
    compareTimes(timeline, recording);
    compareChunks(timeline, recording);
    const char *texts[] = {"",
                           "id==5",
                           "line==1 and not ext",
                           "id in 2..7,f000..11000",
                           "err or rtr",
                           "b1==2",
                           "data~\"01 02\" and fd",
                           "len>8 or note",
                           "note~\"N3\"",
                           "number 4000..4200 and b0!=1",
                           "changed and id==5",
                           "id==fff"};
    for (const char *text : texts) {
        const QVector<quint64> wanted = found(recording, text);
        compareFilter(timeline, wanted, text);
        compareSearch(timeline, wanted, text);
        compareBlocks(timeline, wanted, text);
        for (const quint64 from : {quint64(0), timeline.count() / 3, timeline.count() + 1})
            compareVisit(timeline, wanted, text, from, from == 0 ? ~0ULL : timeline.count() / 2);
    }
    for (const quint32 number : {0U, quint32(recording.messages.size() / 2)})
        QCOMPARE(timeline.positionOfNumber(number).value_or(~0ULL), quint64(number));
    QVERIFY(!timeline.positionOfNumber(quint32(recording.messages.size())));
    quint64 counted = 0;
    for (const TraceIdentifier &identifier : timeline.identifiers()) {
        QCOMPARE(timeline.row(identifier.first).message.id, identifier.id);
        QCOMPARE(timeline.row(identifier.last).message.id, identifier.id);
        counted += identifier.count;
    }
    QCOMPARE(counted, timeline.count());
}

void TestTimeline::chunksThatComeOrGrowAreTakenIn()
{
    QTemporaryDir folder;
    const Recording recording = record(folder.path(), 1, {5000, 5000});
    const QString last = folder.filePath(QStringLiteral("tmpData1.dck"));
    const QByteArray whole = readFile(last);
    writeFile(last, whole.left(whole.size() / 2));
    TraceTimeline timeline({folder.path()});
    QVERIFY(timeline.waitForAll());
    const TraceFilter filter = timeline.filter(expression("b0==2"));
    QVERIFY(filter.wait());
    QVERIFY(timeline.count() > 5000 && timeline.count() < 10000);
    QFile file(last);
    QVERIFY(file.open(QIODevice::Append));
    file.write(whole.mid(whole.size() / 2));
    file.close();
    QVERIFY(timeline.refresh() || timeline.waitForAll());
    QVERIFY(timeline.waitForAll());
    compareRows(timeline, recording);
    QVERIFY(filter.wait());
    QCOMPARE(filter.count(), quint64(found(recording, "b0==2").size()));
    writeChunk(folder.filePath(QStringLiteral("tmpData2.dck")), {makeMessage(10000, 8)}, {});
    timeline.refresh();
    QVERIFY(timeline.waitForAll());
    QCOMPARE(timeline.count(), 10001ULL);
}

void TestTimeline::directoryOfAnotherStateIsNotBelieved()
{
    QTemporaryDir folder;
    const Recording recording = record(folder.path(), 1, {5000});
    const QString chunk = folder.filePath(QStringLiteral("tmpData0.dck"));
    const QByteArray bytes = readFile(chunk);
    // An index of other messages, said to be of this file before it was written last.
    const Recording other = record(folder.path(), 2, {5000});
    const auto before = FileIdentity::of(chunk);
    TraceTimeline ofOther({chunk});
    QVERIFY(ofOther.waitForAll());
    ChunkIndexer indexer(ChunkFormat::currentVersion, 0);
    for (const CAN::CanRxMessage &message : other.messages)
        indexer.add(MessageView(message));
    ChunkIndex index = indexer.finish();
    index.moveBy(before->size - index.recordsEnd);
    QVERIFY(ChunkDirectory::add(folder.path(), {QStringLiteral("tmpData0.dck"), *before, index}));
    // The clock of the file system goes on by ticks.
    do
        writeFile(chunk, bytes);
    while (FileIdentity::of(chunk) == before);
    TraceTimeline timeline({folder.path()});
    QVERIFY(timeline.waitForAll());
    compareRows(timeline, recording);
    compareFilter(timeline, found(recording, "id==5"), "id==5");
}

// The folder's own time is the same before and after where its clock has not ticked in between.
void TestTimeline::filesThatComeAtOnceAreSeen()
{
    QTemporaryDir elsewhere;
    const Recording recording = record(elsewhere.path(), 1, {100});
    const QByteArray bytes = readFile(elsewhere.filePath(QStringLiteral("tmpData0.dck")));
    for (int i = 0; i < 20; ++i) {
        QTemporaryDir folder;
        TraceTimeline timeline({folder.path()});
        timeline.refresh();
        writeFile(folder.filePath(QStringLiteral("tmpData0.dck")), bytes);
        timeline.refresh();
        QVERIFY(timeline.waitForAll());
        QCOMPARE(timeline.count(), quint64(recording.messages.size()));
    }
}

void TestTimeline::indexedChunksAreKnownAtOnce()
{
    QTemporaryDir folder;
    const Recording recording = record(folder.path(), 1, {5000, 4096});
    writeFile(folder.filePath(QStringLiteral("damaged.dck")),
              readFile(folder.filePath(QStringLiteral("tmpData0.dck"))).left(1000));
    QVERIFY(indexChunks(folder.path()));
    QVERIFY(indexChunks(folder.path()));
    const auto entries = ChunkDirectory::read(folder.path());
    QCOMPARE(int(entries.size()), 2);
    QFile::remove(folder.filePath(QStringLiteral("damaged.dck")));
    const TraceTimeline timeline({folder.path()});
    QVERIFY(timeline.isComplete());
    compareRows(timeline, recording);
}

void TestTimeline::bookmarksAreFoundWhereverTheirNumbersAre()
{
    QTemporaryDir folder;
    QVector<quint64> wanted;
    for (int chunk = 0; chunk < 3; ++chunk) {
        SaveJob job;
        job.fileName = folder.filePath(QStringLiteral("a%1.dck").arg(chunk));
        for (quint32 i = 0; i < 10000; ++i) {
            CAN::CanRxMessage message = makeMessage(i, 8);
            // The numbers of the last one fall.
            message.messageNumber = chunk < 2 ? 10000 * quint32(chunk) + i : 40000 - i;
            job.messages.append(message);
            if (i % 3001 == 1 && chunk > 0) {
                const quint32 number = message.messageNumber;
                job.bookmarks.insert(number, CanMessageBookmark(number, QStringLiteral("here")));
                wanted.append(10000 * quint64(chunk) + i);
            }
        }
        job.endPosition = 10000;
        job.bookmarks.insert(77777, CanMessageBookmark(77777, QStringLiteral("of no message")));
        QVERIFY(writeChunkFile(job).isDone());
    }
    TraceTimeline timeline({folder.path()});
    QVERIFY(timeline.waitForAll());
    QCOMPARE(timeline.bookmarkPositions(), wanted);
    QCOMPARE(timeline.row(wanted.first()).bookmark.text(), QStringLiteral("here"));
}

// Every look at a recording that goes on is one at another state of it.
void TestTimeline::growthIsLookedAtWithinBounds()
{
    constexpr int looks = 10000;
    constexpr qint64 mostForAll = 2 * 1024 * 1024;
    DatachunkHandler store(200000);
    TraceTimeline timeline = store.timeline();
    store.appendCanMessage(makeMessage(0));
    resetHeapPeak();
    for (int i = 0; i < looks; ++i) {
        timeline.refresh();
        QCOMPARE(timeline.row(0).state, TraceRow::Known);
        store.setMessageNote(0, QString::number(i));
    }
    QVERIFY2(heapPeak() < mostForAll, qPrintable(QString::number(heapPeak())));
}

QTEST_GUILESS_MAIN(TestTimeline)

#include "tst_timeline.moc"
