#include "archives.h"
#include "messages.h"
#include "recording.h"
#include "storefixture.h"
#include "tracefilter.h"
#include "tracetimeline.h"

#include <QTemporaryDir>
#include <QTest>

/// What a timeline makes of files in any order and state.
class TestTimelineFiles : public QObject
{
    Q_OBJECT
private slots:
    void filesComeInOrderOfTime();
    void damageIsShownAsByLoading_data();
    void damageIsShownAsByLoading();
    void recordsThatAreCutHaveNoTime_data();
    void recordsThatAreCutHaveNoTime();
    void whatIsNoChunkIsTold();
    void chunksThatGoLeaveTheirPlaces();
};

// Parts of a split all begin at 0 in their headers; folders and files are sorted by what is in
// them.
void TestTimelineFiles::filesComeInOrderOfTime()
{
    QTemporaryDir folder;
    const auto write = [&](const QString &name, qint32 seconds) {
        CAN::CanRxMessage message = makeMessage(quint32(seconds), 8);
        message.seconds = seconds;
        writeChunk(folder.filePath(name), {message}, {});
    };
    for (int i = 0; i < 12; ++i)
        write(QStringLiteral("part_%1.dck").arg(i), 100 + i);
    write(QStringLiteral("later.dck"), 200);
    write(QStringLiteral("a.dck"), 300);
    // A clock that is set back in the middle of a recording leaves its chunks in order.
    write(QStringLiteral("tmpData9.dck"), 50);
    write(QStringLiteral("tmpData10.dck"), 20);
    write(QStringLiteral("zlastChunk.dck"), 30);
    TraceTimeline timeline({folder.path()});
    QVERIFY(timeline.waitForAll());
    QVector<qint32> seconds;
    for (quint64 i = 0; i < timeline.count(); ++i)
        seconds.append(timeline.row(i).message.seconds);
    QVector<qint32> expected{50, 20, 30};
    for (int i = 0; i < 12; ++i)
        expected.append(100 + i);
    QCOMPARE(seconds, expected + (QVector<qint32>{200, 300}));
    QCOMPARE(timeline.positionOfTime(40000000), 0ULL);
    QCOMPARE(timeline.positionOfTime(60000000), 3ULL);
}

void TestTimelineFiles::damageIsShownAsByLoading_data()
{
    QTest::addColumn<QByteArray>("chunk");
    const QByteArray whole =
        chunkBytes(QStringLiteral("1.0"), 0, 5000, {{7, QStringLiteral("hot")}});
    QByteArray badLength = whole;
    badLength[whole.size() - 33] = 'A';
    QTest::newRow("cut in a record") << whole.left(whole.size() - 20);
    QTest::newRow("cut in the first record of a step") << whole.left(whole.size() - 903 * 33 - 1);
    QTest::newRow("a length that is none") << badLength;
    QTest::newRow("only a header") << whole.left(30);
    QTest::newRow("empty") << QByteArray();
}

void TestTimelineFiles::damageIsShownAsByLoading()
{
    QFETCH(QByteArray, chunk);
    QTemporaryDir folder;
    const QString fileName = folder.filePath(QStringLiteral("a.dck"));
    writeFile(fileName, chunk);
    const ReadChunk loaded = streamedChunk(chunk);
    TraceTimeline timeline({fileName});
    QVERIFY(timeline.waitForAll());
    QCOMPARE(timeline.count(), quint64(loaded.messages.size()));
    for (int i = 0; i < loaded.messages.size(); ++i)
        QVERIFY(sameInChunk(timeline.row(quint64(i)).message, loaded.messages.at(i)));
    QCOMPARE(timeline.problems().size(), chunk.isEmpty() ? 0 : 1);
    const TraceFilter filter = timeline.filter(expression("len>=0 and b0>=0 or len==0"));
    QVERIFY(filter.wait());
    QCOMPARE(filter.messagesGone(), 0ULL);
}

void TestTimelineFiles::recordsThatAreCutHaveNoTime_data()
{
    QTest::addColumn<int>("records");
    QTest::newRow("behind others") << 10;
    QTest::newRow("behind a whole step") << 4097;
    QTest::newRow("alone in a chunk") << 1;
}

void TestTimelineFiles::recordsThatAreCutHaveNoTime()
{
    QFETCH(int, records);
    QTemporaryDir folder;
    constexpr quint32 first = 5000;
    writeFile(folder.filePath(QStringLiteral("tmpData0.dck")),
              chunkBytes(QStringLiteral("1.0"), first, 100));
    const QByteArray cut = chunkBytes(QStringLiteral("1.0"), first + 100, records);
    writeFile(folder.filePath(QStringLiteral("tmpData1.dck")), cut.left(cut.size() - 15));
    TraceTimeline timeline({folder.path()});
    QVERIFY(timeline.waitForAll());
    const quint64 last = 100 + quint64(records) - 1;
    QCOMPARE(timeline.count(), last + 1);
    QCOMPARE(CAN::timeOf(timeline.row(last).message), 0);
    QCOMPARE(timeline.firstTime(), CAN::timeOf(timeline.row(0).message));
    QCOMPARE(timeline.lastTime(), CAN::timeOf(timeline.row(last - 1).message));
    QCOMPARE(timeline.positionOfTime(timeline.lastTime()), last - 1);
    // It is found by what is shown.
    for (const char *text : {"time==0", "time<5"}) {
        const TraceFilter filter = timeline.filter(expression(text));
        QVERIFY(filter.wait());
        QCOMPARE(filter.count(), 1ULL);
        QCOMPARE(timeline.findPrevious(expression(text), ~0ULL).value_or(0), last);
    }
}

void TestTimelineFiles::whatIsNoChunkIsTold()
{
    QTemporaryDir folder;
    const QString newer = folder.filePath(QStringLiteral("b/newer.dck"));
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("b")));
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("a")));
    writeFile(newer, newerChunkBytes());
    writeFile(folder.filePath(QStringLiteral("b/text.txt")), "no chunk");
    writeFile(folder.filePath(QStringLiteral("b.zip")), "no archive");
    const QString missing = folder.filePath(QStringLiteral("missing.dck"));
    TraceTimeline timeline({folder.filePath(QStringLiteral("a")),
                            folder.filePath(QStringLiteral("b")),
                            folder.filePath(QStringLiteral("b.zip")), missing});
    QVERIFY(timeline.waitForAll());
    QCOMPARE(timeline.count(), 0ULL);
    const QString told = timeline.problems().join(QLatin1Char('\n'));
    QCOMPARE(timeline.problems().size(), 3);
    QVERIFY(told.contains(newer) && told.contains(missing));
    QCOMPARE(timeline.row(0).state, TraceRow::Behind);
    QCOMPARE(timeline.rate(0, 1000, 3).messages.size(), 3);
    QVERIFY(timeline.filter(expression("id==1")).isComplete());
    QVERIFY(!timeline.findPrevious(expression(""), 5) && !timeline.findNext(expression(""), 0));
}

void TestTimelineFiles::chunksThatGoLeaveTheirPlaces()
{
    QTemporaryDir folder;
    const Recording recording = record(folder.path(), 1, {5000, 5000, 5000});
    TraceTimeline timeline({folder.path()});
    QVERIFY(timeline.waitForAll());
    const TraceFilter byKey = timeline.filter(expression("id==5"));
    QFile::remove(folder.filePath(QStringLiteral("tmpData1.dck")));
    timeline.refresh();
    QCOMPARE(timeline.count(), 15000ULL);
    QCOMPARE(int(timeline.row(7000).state), int(TraceRow::Gone));
    QVERIFY(sameInChunk(timeline.row(12345).message, recording.messages.at(12345)));
    const TraceFilter byPayload = timeline.filter(expression("b0==2"));
    QVERIFY(byPayload.wait());
    QCOMPARE(byPayload.messagesGone(), 5000ULL);
    QVector<quint64> wanted;
    for (const quint64 position : found(recording, "b0==2")) {
        if (position < 5000 || position >= 10000)
            wanted.append(position);
    }
    QCOMPARE(byPayload.count(), quint64(wanted.size()));
    QCOMPARE(byPayload.at(byPayload.count() - 1).value_or(0), wanted.last());
    quint64 visited = 0;
    const auto visit = [&visited](const TraceBlock &block) {
        visited += quint64(block.count);
        return true;
    };
    QCOMPARE(timeline.forEach(100, 9950, visit), 5000ULL);
    QCOMPARE(visited, 4950ULL);
    const auto goOn = [](const QVector<quint64> &) { return true; };
    QCOMPARE(timeline.forEachFound(expression("b0==2"), 5001, ~0ULL, goOn), 4999ULL);
    // What the index knows stays known; which messages they were is not.
    const QVector<quint64> all = found(recording, "id==5");
    QCOMPARE(byKey.count(), quint64(all.size()));
    QCOMPARE(byKey.at(byKey.count() - 1).value_or(0), all.last());
    const auto isGone = [](quint64 position) { return position >= 5000; };
    const auto firstGone = std::find_if(all.begin(), all.end(), isGone) - all.begin();
    QVERIFY(!byKey.at(quint64(firstGone)));
}

QTEST_GUILESS_MAIN(TestTimelineFiles)

#include "tst_timelinefiles.moc"
