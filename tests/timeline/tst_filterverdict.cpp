#include "chunkformat.h"
#include "framefilter.h"
#include "messages.h"

#include <QtTest>

#include <random>

/// What is known of a chunk without its records is true of every record.
class TestFilterVerdict : public QObject
{
    Q_OBJECT
private slots:
    void verdictsHoldForEveryRecord();
    void countsWithTooManyKeys();
    void judgesWithoutRecords_data();
    void judgesWithoutRecords();
};

namespace {

using Verdict = FrameFilter::Verdict;
using CAN::CanRxMessage;

FrameFilter filterFor(const QString &text)
{
    const auto expression = TraceExpression::parse(text);
    if (!expression)
        qFatal("%s is no expression", qPrintable(text));
    return filterOf(*expression);
}

// Few different values, so that every test is true of some messages.
class Generator
{
public:
    explicit Generator(unsigned seed) : random(seed) { }

    unsigned below(unsigned end) { return unsigned(random() % end); }

    QString expression(int depth)
    {
        if (depth == 0 || below(3) == 0)
            return test();
        const QString left = expression(depth - 1);
        switch (below(3)) {
        case 0:
            return "not (" + left + ')';
        case 1:
            return '(' + left + " and " + expression(depth - 1) + ')';
        default:
            return left + " or " + expression(depth - 1);
        }
    }

    std::vector<CanRxMessage> chunk()
    {
        const quint32 first = below(4) == 0 ? 0xFFFFFFF0 : below(40);
        const bool hasGaps = below(4) == 0;
        const bool isUniform = below(3) == 0;
        std::vector<CanRxMessage> messages(1 + below(60));
        for (std::size_t i = 0; i < messages.size(); ++i) {
            CanRxMessage &m = messages[i];
            m = makeMessage(isUniform ? 1 : below(4), QByteArray(int(below(5)) * 2, '1'),
                            quint16(below(2)));
            m.id = below(9) == 0 ? CAN::errorFrameId : m.id;
            m.extended = below(2) != 0;
            m.remote = below(3) == 0;
            m.fdFrame = below(4) == 0;
            m.data[0] = quint8(below(4));
            m.messageNumber = first + quint32(i) + (hasGaps ? below(2) : 0);
            m.seconds = qint32(below(3)) - 1;
            m.microseconds = qint32(below(2) * 500000);
        }
        return messages;
    }

private:
    QString test()
    {
        static const QStringList tests = {"ext",          "fd",
                                          "rtr",          "err",
                                          "tx",           "brs",
                                          "id==%1",       "id!=%1",
                                          "id in %1,3..", "id&1==%1",
                                          "line==%1",     "time>=%1",
                                          "time ..%1",    "time 0.5..%1.5",
                                          "number 1%1..", "number==%1",
                                          "number<30",    "len>%1",
                                          "b0==%1",       "b0&1!=%1",
                                          "b3<=11",       "data~\"11 11\"",
                                          "changed",      "note",
                                          "note~\"%1\"",  "number>1000",
                                          "time<5",       "id in 0..3,ffff00ef"};
        const QString chosen = tests.at(int(below(unsigned(tests.size()))));
        return chosen.contains("%1") ? chosen.arg(below(3)) : chosen;
    }

    std::mt19937 random;
};

ChunkIndex indexOf(const std::vector<CanRxMessage> &messages, const Notes &notes)
{
    ChunkIndexer indexer(ChunkFormat::currentVersion, 0);
    for (const CanRxMessage &message : messages)
        indexer.add(MessageView(message));
    ChunkIndex index = indexer.finish();
    index.notes = quint32(notes.size());
    return index;
}

} // namespace

// The records as bytes, the messages in memory and the index of the chunk tell the same.
void TestFilterVerdict::verdictsHoldForEveryRecord()
{
    int verdicts[3] = {};
    int exact = 0;
    for (unsigned seed = 0; seed < 4000; ++seed) {
        Generator generator(seed);
        const QString text = generator.expression(3);
        const FrameFilter filter = filterFor(text);
        const std::vector<CanRxMessage> messages = generator.chunk();
        Notes notes;
        for (unsigned i = generator.below(3); i > 0; --i)
            notes.insert(messages[generator.below(unsigned(messages.size()))].messageNumber,
                         QString::number(i));
        const ChunkIndex index = indexOf(messages, notes);
        const ChunkFacts facts = ChunkFacts::of(index);
        quint64 taken = 0;
        for (const CanRxMessage &message : messages) {
            char record[ChunkFormat::maxRecordSize];
            ChunkFormat::encodeRecord(record, message, ChunkFormat::currentVersion);
            const RecordView view(record, true);
            const FrameFilter::Context context{&notes, {}, generator.below(2) != 0};
            const bool isTaken = filter.matches(view, context);
            QVERIFY2(filter.matches(MessageView(message), context) == isTaken, qPrintable(text));
            const Verdict wanted = isTaken ? Verdict::Takes : Verdict::Refuses;
            for (const Verdict verdict : {filter.judge(view.key(), facts), filter.judge(facts)}) {
                QVERIFY2(verdict == wanted || verdict == Verdict::Depends, qPrintable(text));
                ++verdicts[int(verdict)];
            }
            taken += isTaken;
        }
        const FrameFilter::Count count = filter.count(index);
        QVERIFY2(count.isExact ? count.surely == taken : count.surely <= taken, qPrintable(text));
        exact += count.isExact;
    }
    QVERIFY(exact > 500 && verdicts[0] > 5000 && verdicts[1] > 5000 && verdicts[2] > 5000);
}

void TestFilterVerdict::countsWithTooManyKeys()
{
    ChunkIndex index = indexOf({makeMessage(1, ""), makeMessage(2, "")}, {});
    index.hasAllKeys = false;
    index.keys = {};
    const auto all = filterFor("number==0 or id==1").count(index);
    QVERIFY(all.isExact == false && all.surely == 0);
    const auto some = filterFor("time==0 and not note").count(index);
    QVERIFY(some.isExact && some.surely == 2);
}

void TestFilterVerdict::judgesWithoutRecords_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("verdict");
    const auto row = [](const char *text, Verdict verdict) {
        QTest::newRow(text) << QString::fromLatin1(text) << int(verdict);
    };
    row("", Verdict::Takes);
    row("id==100 and line==2 and rtr and not ext", Verdict::Takes);
    row("len>8", Verdict::Depends);
    row("b0==1 or data~\"11\"", Verdict::Refuses);
    row("len>8 and fd", Verdict::Refuses);
    row("len>8 or rtr", Verdict::Takes);
    row("not (len>8 or not changed)", Verdict::Depends);
    row("not (len>8 and fd)", Verdict::Takes);
    row("tx", Verdict::Refuses);
    row("note", Verdict::Refuses);
    row("time 1..2", Verdict::Takes);
    row("time 1.5..", Verdict::Depends);
    row("time ..1.5 or time 1.500001..", Verdict::Takes);
    row("time 2.000001..", Verdict::Refuses);
    row("number 10..19", Verdict::Takes);
    row("number 11..", Verdict::Depends);
    row("number>=20 or number<10", Verdict::Refuses);
}

// As exactly as can be: "depends" for everything would be true as well.
void TestFilterVerdict::judgesWithoutRecords()
{
    QFETCH(QString, text);
    ChunkFacts facts;
    facts.minTime = 1000000;
    facts.maxTime = 2000000;
    facts.firstNumber = 10;
    facts.count = 10;
    facts.numbersRise = facts.isChunk = true;
    facts.hasNotes = false;
    const FrameFilter filter = filterFor(text);
    QTEST(int(filter.judge(FrameKey(0x100, 2, FrameKey::Remote), facts)), "verdict");
}

QTEST_GUILESS_MAIN(TestFilterVerdict)
#include "tst_filterverdict.moc"
