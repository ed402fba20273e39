#include "program.h"

#include <QtTest>

#include <algorithm>
#include <random>

// What "record" takes of candump lines, by filters and triggers.
class TestCapture : public FolderTest
{
    Q_OBJECT
private slots:
    void onlyWhatIsWantedIsStored_data();
    void onlyWhatIsWantedIsStored();
    void triggersTakeWhatIsAroundThem_data();
    void triggersTakeWhatIsAroundThem();
    void theRingIsBounded();
    void manyTriggersAreNoSlower();
};

namespace {

struct Frame
{
    int id;
    int milliseconds;
};

QByteArray linesOf(const QVector<Frame> &frames)
{
    QByteArray lines;
    for (int i = 0; i < frames.size(); ++i)
        lines += QStringLiteral("(%1.%2) can0 %3#%4\n")
                     .arg(frames.at(i).milliseconds / 1000)
                     .arg(frames.at(i).milliseconds % 1000, 3, 10, QLatin1Char('0'))
                     .arg(frames.at(i).id, 3, 16, QLatin1Char('0'))
                     .arg(i, 8, 16, QLatin1Char('0'))
                     .toLatin1();
    return lines;
}

// The frames of the recording "rec", which is one chunk.
QVector<int> recordedFrames(ChunkFormat::Notes *notes = nullptr)
{
    const ReadChunk chunk = readChunkFile("rec/zlastChunk.dck");
    QVector<int> numbers;
    for (const CAN::CanRxMessage &message : chunk.messages)
        numbers.append(message.data[1] << 16 | message.data[2] << 8 | message.data[3]);
    if (notes)
        *notes = chunk.notes;
    return numbers;
}

} // namespace

void TestCapture::onlyWhatIsWantedIsStored_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<QVector<int>>("frames");
    QTest::addColumn<QMap<int, QString>>("notes"); // by the place in the recording
    using Notes = QMap<int, QString>;
    const auto note = [](const char *time) {
        return QStringLiteral("Trigger \"id==7e8\" at %1.").arg(QLatin1String(time));
    };
    QTest::newRow("a filter") << "--filter 'id==7e8'" << QVector<int>{3, 4, 7} << Notes();
    QTest::newRow("triggers alone")
        << "--trigger 'id==7e8'" << QVector<int>{3, 4, 7}
        << Notes{{0, note("3.000000")}, {1, note("4.000000")}, {2, note("7.000000")}};
    QTest::newRow("both ends of the time are included")
        << "--trigger 'id==7e8' --before 1 --after 1s" << QVector<int>{2, 3, 4, 5, 6, 7, 8}
        << Notes{{0, note("3.000000")}, {4, note("7.000000")}};
    QTest::newRow("a trigger that reaches back to a capture makes it longer")
        << "--trigger 'id==7e8' --before 2s --after 1000ms" << QVector<int>{1, 2, 3, 4, 5, 6, 7, 8}
        << Notes{{0, note("3.000000")}};
    QTest::newRow("a trigger need not pass the filter")
        << "--trigger 'id==7e8' --before 1 --filter 'id==123'" << QVector<int>{2, 6}
        << Notes{{0, note("3.000000")}, {1, note("7.000000")}};
}

void TestCapture::onlyWhatIsWantedIsStored()
{
    QFETCH(QString, options);
    using Notes = QMap<int, QString>;
    QVector<Frame> frames;
    for (int i = 0; i < 10; ++i)
        frames.append({i == 3 || i == 4 || i == 7 ? 0x7E8 : 0x123, i * 1000});
    const ProgramResult result = run("record --into rec " + options, linesOf(frames));
    QCOMPARE(result.errors, "");
    ChunkFormat::Notes found;
    const QVector<int> recorded = recordedFrames(&found);
    QTEST(recorded, "frames");
    Notes notes;
    for (auto note = found.begin(); note != found.end(); ++note)
        notes.insert(int(note.key()), note.value());
    QTEST(notes, "notes");
    QVERIFY2(result.output.startsWith(QStringLiteral("messages taken:   10\n"
                                                     "messages stored:  %1\n"
                                                     "messages dropped: 0\n"
                                                     "not asked for:    %2\n")
                                          .arg(recorded.size())
                                          .arg(10 - recorded.size())
                                          .toLatin1()),
             result.output);
}

void TestCapture::triggersTakeWhatIsAroundThem_data()
{
    QTest::addColumn<quint32>("seed");
    QTest::addColumn<int>("fall"); // of times, at most, in milliseconds
    for (quint32 seed = 1; seed <= 4; ++seed) {
        QTest::addRow("in order of time, %u", seed) << seed << 0;
        QTest::addRow("times fall a little, %u", seed) << seed << 900;
    }
}

// Exactly the messages whose own time is around that of a trigger.
void TestCapture::triggersTakeWhatIsAroundThem()
{
    QFETCH(quint32, seed);
    QFETCH(int, fall);
    constexpr int count = 3000;
    std::mt19937 random(seed);
    const auto below = [&random](int limit) { return int(random() % quint32(limit)); };
    const int before = 1000 + below(20000);
    const int after = below(20000);
    QVector<Frame> frames;
    QVector<int> triggers;
    for (int i = 0, time = 100000; i < count; ++i) {
        time += below(10) == 0 ? below(1000) : below(20);
        frames.append({below(300) == 0 ? 0x7E8 : 0x123, time - below(fall + 1)});
        if (frames.last().id == 0x7E8)
            triggers.append(frames.last().milliseconds);
    }
    QVector<int> expected;
    for (int i = 0; i < count; ++i) {
        const int time = frames.at(i).milliseconds;
        if (std::any_of(triggers.begin(), triggers.end(), [&](int trigger) {
                return time >= trigger - before && time <= trigger + after;
            }))
            expected.append(i);
    }
    const ProgramResult result =
        run(QStringLiteral("record --into rec --trigger 'id==7e8' --before %1ms --after %2ms")
                .arg(before)
                .arg(after),
            linesOf(frames));
    QCOMPARE(result.status, 0);
    QVector<int> recorded = recordedFrames();
    if (fall > 0)
        std::sort(recorded.begin(), recorded.end());
    QCOMPARE(recorded, expected);
}

void TestCapture::theRingIsBounded()
{
    constexpr int count = 30000; // more than 1 MiB
    QVector<Frame> frames(count, {0x123, 1000});
    frames.last().id = 0x7E8;
    const ProgramResult result =
        run("record --into rec --trigger 'id==7e8' --before 60s --ring 1", linesOf(frames));
    QCOMPARE(result.status, 1);
    QVERIFY2(result.errors.contains("the ring is too small"), result.errors);
    ChunkFormat::Notes notes;
    const QVector<int> recorded = recordedFrames(&notes);
    QVERIFY(recorded.size() > 5000 && recorded.size() < count);
    QCOMPARE(recorded.first(), count - recorded.size());
    QCOMPARE(recorded.last(), count - 1);
    QVERIFY(notes.value(0).endsWith("are missing: the ring was too small."));
    QVERIFY2(result.output.contains(
                 "messages dropped: " + QByteArray::number(count - recorded.size()) + '\n'),
             result.output);
}

// A trigger must not look at each of the messages held, of which there are those of a second.
void TestCapture::manyTriggersAreNoSlower()
{
    constexpr int count = 200000;
    QByteArray lines;
    for (int i = 0; i < count; ++i)
        lines += QStringLiteral("(1.%1) can0 %2#\n")
                     .arg(i * 4, 6, 10, QLatin1Char('0'))
                     .arg(0x7E7 + i % 2, 3, 16, QLatin1Char('0'))
                     .toLatin1();
    // Of processor time; looking at each takes an hour.
    const ProgramResult result =
        run("record --into rec --trigger 'id==7e8'", lines, "ulimit -t 60;");
    QCOMPARE(result.status, 0);
    QVERIFY2(result.output.contains("captures:         100000\n"), result.output);
}

QTEST_GUILESS_MAIN(TestCapture)
#include "tst_capture.moc"
