#include "chunkformat.h"
#include "messages.h"

#include <QBuffer>
#include <QtTest>

/// The bytes of chunk files, which other programs read too.
class TestChunkFormat : public QObject
{
    Q_OBJECT
private slots:
    void headerBytes();
    void recordBytes_data();
    void recordBytes();
};

void TestChunkFormat::headerBytes()
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    ChunkFormat::writeHeader(stream, QStringLiteral("1"), {{2, QStringLiteral("b")}, {5, {}}},
                             {{3, CanMessageBookmark(3, QStringLiteral("m"))}});
    const QByteArray expected = "00000002"
                                "0031" // header text
                                "00000006"
                                "003100300034" // version text
                                "00000002"     // two notes, the highest number first
                                "00000005"
                                "ffffffff" // a null text
                                "00000002"
                                "00000002"
                                "0062"
                                "00000001" // one bookmark
                                "00000003"
                                "0000b00a"
                                "01"
                                "00000003"
                                "00000002"
                                "006d";
    QCOMPARE(bytes.toHex(), expected);
}

void TestChunkFormat::recordBytes_data()
{
    QTest::addColumn<quint32>("version");
    QTest::addColumn<QByteArray>("hex");
    const QByteArray common = "02"
                              "aabb" // length, payload
                              "01"
                              "12345678" // extended, identifier
                              "00"
                              "01"
                              "00"
                              "00"
                              "01" // remote, C, FD, B, D
                              "000011a0"
                              "00000011"  // microseconds, seconds
                              "00000009"; // message number
    QTest::newRow("102 has no line") << 102u << common;
    QTest::newRow("103 has the line") << 103u << common + "0102";
}

void TestChunkFormat::recordBytes()
{
    QFETCH(quint32, version);
    QFETCH(QByteArray, hex);
    CAN::CanRxMessage message = makeMessage(0x12345678, "aabb", 0x0102);
    message.seconds = 17;
    message.microseconds = 4512;
    message.messageNumber = 9;
    message.flagC = true;
    message.flagD = true;
    char written[ChunkFormat::maxRecordSize];
    const int size = ChunkFormat::encodeRecord(written, message, version);
    QCOMPARE(QByteArray(written, size).toHex(), hex);
    QByteArray bytes = QByteArray::fromHex(hex);
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    CAN::CanRxMessage read;
    QVERIFY(ChunkFormat::RecordReader(buffer, version).next(read));
    message.line = version < 103 ? 0 : message.line;
    QVERIFY(sameInChunk(read, message));
    // A stream of another byte order has it for every field.
    QByteArray swapped;
    QDataStream stream(&swapped, QIODevice::ReadWrite);
    stream.setByteOrder(QDataStream::LittleEndian);
    ChunkFormat::writeRecord(stream, message, version);
    QCOMPARE(swapped.mid(4, 4).toHex(), QByteArray("78563412"));
    QCOMPARE(swapped.size(), size);
    stream.device()->seek(0);
    CAN::CanRxMessage back;
    QVERIFY(ChunkFormat::readRecord(stream, back, version) && sameInChunk(back, message));
}

QTEST_APPLESS_MAIN(TestChunkFormat)
#include "tst_chunkformat.moc"
