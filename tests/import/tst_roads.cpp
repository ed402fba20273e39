#include "canframe.h"
#include "recordingsink.h"
#include "storefixture.h"
#include "tracefixtures.h"

#include <QtTest>

#include <random>

/// A line of plain ASCII is read in place, any other one is decoded first. Both roads have to
/// give the same messages, for all fixtures and for what becomes of them when they are damaged.
class Roads : public QObject
{
    Q_OBJECT
private slots:
    void bothGiveTheSame_data();
    void bothGiveTheSame();
};

namespace {

using Random = std::mt19937;

int below(Random &random, int limit)
{
    return int(random() % unsigned(qMax(limit, 1)));
}

QByteArray randomPiece(Random &random)
{
    static const QByteArray pieces[] = {
        " ",
        "\t",
        "\v",
        "\r",
        "\n",
        "\r\n",
        ".",
        ",",
        ";",
        ":",
        "\"",
        "#",
        "(",
        ")",
        "[",
        "]",
        "/",
        "-",
        "+",
        "x",
        "X",
        "0x",
        "0",
        "9",
        "f",
        "10",
        "-1",
        "4294967296",
        "99999999999999999",
        "Error",
        "Remote",
        "):",
        "BitCount",
        "CANFD",
        "End Triggerblock",
        "Trigger",
        "ErrorFrame",
        "DEC",
        "STD",
        "PCAN-Explorer",
        "Rx",
        "Tx",
        "RTR",
        QByteArray(1, '\0'),
        "\xC3\xA4",
        "\xC2\xA0",
        "\xD9\xA3",
        "\xFF",
    };
    return pieces[below(random, int(std::size(pieces)))];
}

void damage(QByteArray &text, Random &random)
{
    const int at = below(random, text.size());
    switch (below(random, 4)) {
    case 0:
        text.insert(at, randomPiece(random));
        break;
    case 1:
        text.replace(at, 1, randomPiece(random));
        break;
    case 2:
        text.remove(at, 1 + below(random, 12));
        break;
    default:
        text.insert(below(random, text.size()), text.mid(at, below(random, 60)));
    }
}

QStringList eventsOf(const QByteArray &text, const TraceRequest &request,
                     LineSource::Decoding decoding)
{
    RecordingSink sink;
    const ReadResult result = readTrace(text, request, sink, decoding);
    for (const CAN::CanRxMessage &message : qAsConst(sink.messages))
        sink.events.append(
            QByteArray(reinterpret_cast<const char *>(message.data), CAN::maxDataBytes).toHex());
    sink.events.append(QString::number(result.status));
    return sink.events;
}

} // namespace

void Roads::bothGiveTheSame_data()
{
    QTest::addColumn<int>("index");
    int index = 0;
    for (const TraceFixture &fixture : traceFixtures())
        QTest::newRow(qPrintable(fixture.name)) << index++;
}

void Roads::bothGiveTheSame()
{
    constexpr int rounds = 100;
    constexpr int maxDamages = 8;
    QFETCH(int, index);
    const TraceFixture fixture = traceFixtures().at(index);
    const TraceRequest request{fixture.fileName, fixture.type, fixture.description};
    const QByteArray original = readFile(fixture.fileName);
    for (unsigned seed = 0; seed < rounds; ++seed) {
        Random random(seed);
        QByteArray text = original;
        for (int i = seed == 0 ? 0 : 1 + below(random, maxDamages); i > 0; --i)
            damage(text, random);
        const QStringList inPlace = eventsOf(text, request, LineSource::Decoding::WhereNeeded);
        const QStringList decoded = eventsOf(text, request, LineSource::Decoding::Always);
        for (int i = 0; i < qMax(inPlace.size(), decoded.size()); ++i)
            QVERIFY2(inPlace.value(i) == decoded.value(i),
                     qPrintable(QStringLiteral("in place '%1'\ndecoded  '%2'\n%3")
                                    .arg(inPlace.value(i), decoded.value(i), QString(text))));
    }
}

QTEST_GUILESS_MAIN(Roads)
#include "tst_roads.moc"
