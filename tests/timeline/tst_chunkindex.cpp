#include "changetracker.h"
#include "chunkdirectory.h"
#include "messages.h"
#include "savejob.h"
#include "tracefilter.h"
#include "tracetimeline.h"

#include <QtTest>

#include <map>
#include <random>

/// What is counted of messages is what looking at each of them finds.
class TestChunkIndex : public QObject
{
    Q_OBJECT
private slots:
    void indexCountsEveryMessage_data();
    void indexCountsEveryMessage();
    void changesAreThoseOfTheSameFrame();
    void rowsOfKeysAreFoundFromBothEnds_data();
    void rowsOfKeysAreFoundFromBothEnds();
    void foldersAreTheSameWithoutDirectory();
};

namespace {

using Messages = std::vector<CAN::CanRxMessage>;

// Few values for each field, so that every combination comes again; times may fall.
Messages randomMessages(int count, unsigned identifiers)
{
    std::mt19937 random(identifiers);
    const auto below = [&random](unsigned end) { return unsigned(random() % end); };
    Messages messages;
    for (int i = 0; i < count; ++i) {
        const int length = below(8) == 0 ? int(below(65)) : int(below(3)) + 7;
        CAN::CanRxMessage message = makeMessage(
            below(identifiers), QByteArray(length, '\0').toHex(), quint16(below(3) * 127));
        message.id = below(50) == 0 ? CAN::errorFrameId : message.id;
        message.extended = below(2) != 0;
        message.remote = below(9) == 0;
        message.fdFrame = below(4) == 0;
        message.flagB = below(4) == 0;
        message.data[length / 2] = quint8(below(2)); // behind an empty payload it means nothing
        message.messageNumber = quint32(i);
        message.seconds = i / 100 - (below(5) == 0 ? 1 : 0);
        messages.push_back(message);
    }
    return messages;
}

ChunkIndex indexOf(const Messages &messages)
{
    ChunkIndexer indexer(ChunkFormat::currentVersion, 0);
    for (const CAN::CanRxMessage &message : messages)
        indexer.add(MessageView(message));
    return indexer.finish();
}

// In a folder of as many chunks.
void writeChunks(const QString &folder, const Messages &messages, int chunks)
{
    const std::size_t size = messages.size() / std::size_t(chunks);
    for (int i = 0; i < chunks; ++i) {
        SaveJob job;
        job.fileName = folder + QStringLiteral("/a%1.dck").arg(i);
        const auto begin = messages.begin() + i * int(size);
        std::for_each(begin, begin + int(size),
                      [&job](const CAN::CanRxMessage &message) { job.messages.append(message); });
        job.endPosition = quint32(size);
        QVERIFY(writeChunkFile(job).isDone());
    }
}

} // namespace

void TestChunkIndex::indexCountsEveryMessage_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<unsigned>("identifiers");
    QTest::newRow("few identifiers over some steps") << 10000 << 20U;
    QTest::newRow("many identifiers") << 60000 << 30000U;
    QTest::newRow("more than are kept") << 200000 << 0x20000000U;
}

void TestChunkIndex::indexCountsEveryMessage()
{
    QFETCH(int, count);
    QFETCH(unsigned, identifiers);
    const Messages messages = randomMessages(count, identifiers);
    struct Seen
    {
        quint32 count, first, last;
    };
    std::map<quint64, Seen> seen;
    std::map<int, quint32> lines;
    quint32 errors = 0;
    const ChunkIndex index = indexOf(messages);
    for (quint32 i = 0; i < messages.size(); ++i) {
        const MessageView view(messages[i]);
        if (i % ChunkIndex::recordsPerStep == 0) {
            const quint32 *counts = index.countsBefore.data()
                + i / ChunkIndex::recordsPerStep * std::size_t(index.countsPerStep());
            for (const quint8 line : index.lines)
                QCOMPARE(*counts++, lines[line]);
            QCOMPARE(*counts, errors);
        }
        Seen &key = seen.insert({view.key().value(), {0, i, i}}).first->second;
        ++key.count;
        key.last = i;
        ++lines[view.line()];
        errors += view.id() == CAN::errorFrameId;
    }
    QCOMPARE(index.lines, (std::vector<quint8>{0, 127, 254}));
    QCOMPARE(index.hasAllKeys, seen.size() <= ChunkIndex::mostKeys);
    QCOMPARE(index.keys.size(), index.hasAllKeys ? seen.size() : 0);
    for (std::size_t i = 0; i < index.keys.size(); ++i) {
        const Seen key = seen[index.keys.frame(i).value()];
        QVERIFY(index.keys.counts[i] == key.count && index.keys.firsts[i] == key.first
                && index.keys.lasts[i] == key.last);
    }
    QVERIFY(index.numbersRise && !index.timesRise && index.isSound(index.recordsEnd));
    const auto times =
        std::minmax_element(messages.begin(), messages.end(), [](const auto &a, const auto &b) {
            return MessageView(a).time() < MessageView(b).time();
        });
    QCOMPARE(index.minTime, MessageView(*times.first).time());
    QCOMPARE(index.maxTime, MessageView(*times.second).time());
    QCOMPARE(index.lastTime, MessageView(messages.back()).time());
}

void TestChunkIndex::changesAreThoseOfTheSameFrame()
{
    std::map<std::tuple<quint32, bool, bool, int>, QByteArray> before;
    ChangeTracker inMemory;
    ChangeTracker inRecords;
    int changed = 0;
    for (const CAN::CanRxMessage &m : randomMessages(50000, 300)) {
        char record[ChunkFormat::maxRecordSize];
        ChunkFormat::encodeRecord(record, m, ChunkFormat::currentVersion);
        QByteArray payload(1, char(m.length));
        if (!m.remote)
            payload.append(reinterpret_cast<const char *>(m.data), m.length);
        QByteArray &last = before[{m.id, m.extended, m.remote, m.line}];
        QCOMPARE(inMemory.isChanged(MessageView(m)), last != payload);
        QCOMPARE(inRecords.isChanged(RecordView(record, true)), last != payload);
        changed += last != payload;
        last = payload;
    }
    QVERIFY(changed > 1000 && changed < 49000);
}

void TestChunkIndex::rowsOfKeysAreFoundFromBothEnds_data()
{
    QTest::addColumn<QString>("text");
    for (const char *text :
         {"id==5", "line==127 and not ext", "not err", "id in 0..3 or rtr", "id==999"})
        QTest::newRow(text) << text;
}

void TestChunkIndex::rowsOfKeysAreFoundFromBothEnds()
{
    QFETCH(QString, text);
    const QTemporaryDir folder;
    Messages messages = randomMessages(60000, 20);
    for (const int rare : {14000, 14001, 22000})
        messages[std::size_t(rare)].id = 0x999;
    writeChunks(folder.path(), messages, 2);
    const auto expression = TraceExpression::parse(text);
    std::vector<quint64> rows;
    for (quint64 i = 0; i < messages.size(); ++i) {
        if (expression->matches(messages[i]))
            rows.push_back(i);
    }
    QVERIFY(!rows.empty());
    TraceTimeline timeline({folder.path()});
    timeline.waitForAll();
    std::mt19937 random(1);
    for (int round = 0; round < 20; ++round) {
        const TraceFilter filter = timeline.filter(*expression);
        QVERIFY(filter.isComplete() && filter.count() == rows.size());
        for (int i = 0; i < 20; ++i) {
            const std::size_t n = random() % rows.size();
            QCOMPARE(filter.at(n).value_or(~0ULL), rows[n]);
            const quint64 position = random() % (messages.size() + 1);
            QCOMPARE(filter.countBefore(position),
                     quint64(std::lower_bound(rows.begin(), rows.end(), position) - rows.begin()));
        }
        QVERIFY(!filter.at(rows.size()));
    }
}

void TestChunkIndex::foldersAreTheSameWithoutDirectory()
{
    const QTemporaryDir folder;
    writeChunks(folder.path(), randomMessages(40000, 200), 20);
    for (int round = 0; round < 20; ++round) {
        TraceTimeline timeline({folder.path()});
        // What is known at any moment is the front of it, whichever chunk was read first.
        do {
            const quint64 known = timeline.count();
            QCOMPARE(known % 2000, 0ULL);
            if (known > 0)
                QCOMPARE(timeline.row(known - 1).message.messageNumber, quint32(known - 1));
        } while (!timeline.isComplete() && (timeline.refresh(), true));
        timeline.refresh();
        QCOMPARE(timeline.count(), 40000ULL);
    }
}

QTEST_GUILESS_MAIN(TestChunkIndex)
#include "tst_chunkindex.moc"
