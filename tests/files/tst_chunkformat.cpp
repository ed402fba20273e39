#include "chunkformat.h"
#include "messages.h"
#include "savefileworker.h"

#include <QBuffer>
#include <QtTest>

#include <cstring>

/// The bytes of chunk files.
class ChunkFormatTest : public QObject
{
    Q_OBJECT
private slots:
    void headerBytes();
    void recordBytes_data();
    void recordBytes();
    void workerGoesByTheCurrentVersion();
    void versionText_data();
    void versionText();
    void timeTextKeepsTheSignAndLongFractions();
    void readsInBlocksWhatAStreamReads();
    void cutRecordIsKeptAsFarAsItGoes();
    void badLengthEndsTheReading_data();
    void badLengthEndsTheReading();
    void readErrorEndsTheReading();
    void whatADeviceDoesNotTakeAtOnceIsGivenAgain();
};

namespace {

CAN::CanRxMessage sample()
{
    CAN::CanRxMessage message = makeMessage(0x12345678, "aabb", 0x0102);
    message.seconds = 17;
    message.microseconds = 4512;
    message.messageNumber = 9;
    message.flagC = true;
    message.flagD = true;
    return message;
}

QVector<CAN::CanRxMessage> readAll(const QByteArray &bytes, quint32 version)
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    ChunkFormat::RecordReader reader(buffer, version);
    QVector<CAN::CanRxMessage> messages;
    CAN::CanRxMessage message;
    while (reader.next(message))
        messages.append(message);
    return messages;
}

QByteArray encode(const CAN::CanRxMessage &message, quint32 version)
{
    char out[ChunkFormat::maxRecordSize];
    return QByteArray(out, ChunkFormat::encodeRecord(out, message, version));
}

// Reads half of what it has and fails after that for ever.
class FailingDevice : public QIODevice
{
public:
    explicit FailingDevice(const QByteArray &bytes) : bytes(bytes) { open(ReadOnly | Unbuffered); }

protected:
    qint64 readData(char *to, qint64 maximum) override
    {
        if (read)
            return -1;
        read = true;
        const qint64 size = qMin<qint64>(maximum, bytes.size());
        std::memcpy(to, bytes.constData(), std::size_t(size));
        return size;
    }
    qint64 writeData(const char *, qint64) override { return -1; }
    bool atEnd() const override { return false; }

private:
    const QByteArray bytes;
    bool read = false;
};

// Takes little at a time, and nothing more once it is full.
class NarrowDevice : public QIODevice
{
public:
    explicit NarrowDevice(qint64 room) : room(room) { open(WriteOnly | Unbuffered); }

    QByteArray bytes;

protected:
    qint64 readData(char *, qint64) override { return -1; }
    qint64 writeData(const char *from, qint64 size) override
    {
        const qint64 taken = qMin(qMin<qint64>(size, 100), room - bytes.size());
        bytes.append(from, int(taken));
        return taken > 0 ? taken : -1;
    }

private:
    const qint64 room;
};

} // namespace

void ChunkFormatTest::headerBytes()
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

void ChunkFormatTest::recordBytes_data()
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

void ChunkFormatTest::recordBytes()
{
    QFETCH(quint32, version);
    QFETCH(QByteArray, hex);
    QCOMPARE(encode(sample(), version).toHex(), hex);
    const QVector<CAN::CanRxMessage> read = readAll(QByteArray::fromHex(hex), version);
    QCOMPARE(read.size(), 1);
    CAN::CanRxMessage expected = sample();
    expected.line = version < 103 ? 0 : expected.line;
    QVERIFY(sameInChunk(read.first(), expected));
}

void ChunkFormatTest::workerGoesByTheCurrentVersion()
{
    SaveFileWorker worker;
    for (const quint16 version : {0, 102, 103, 104}) {
        SaveFileWorker::dataChunkVersion = version;
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        worker.msgToStream(out, sample());
        QCOMPARE(bytes, encode(sample(), version));
        QDataStream in(bytes);
        CAN::CanRxMessage message;
        worker.msgFromStream(in, message);
        QVERIFY(in.atEnd());
        QCOMPARE(message.messageNumber, 9u);
    }
}

void ChunkFormatTest::versionText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<quint32>("version");
    QTest::newRow("plain") << "104" << 104u;
    QTest::newRow("with a point") << "1.03" << 103u;
    QTest::newRow("no number is an old file") << "new" << 0u;
    QTest::newRow("none is an old file") << QString() << 0u;
    QTest::newRow("beyond 16 bits") << "65640" << 65640u;
}

void ChunkFormatTest::versionText()
{
    QFETCH(QString, text);
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << QStringLiteral("1.0 - 2.0") << text;
    QDataStream stream(bytes);
    QTEST(ChunkFormat::readPreamble(stream).version, "version");
}

void ChunkFormatTest::timeTextKeepsTheSignAndLongFractions()
{
    CAN::CanRxMessage first;
    CAN::CanRxMessage last;
    first.seconds = -5;
    first.microseconds = 4512;
    last.seconds = 98;
    last.microseconds = 1234567;
    QCOMPARE(ChunkFormat::timeText(first, last), QStringLiteral("-5.004512 - 98.1234567"));
}

void ChunkFormatTest::readsInBlocksWhatAStreamReads()
{
    QByteArray bytes;
    QVector<CAN::CanRxMessage> written;
    for (quint32 i = 0; i < 20000; ++i) {
        written.append(makeMessage(i, int(i % 65)));
        bytes += encode(written.last(), 104);
    }
    const QVector<CAN::CanRxMessage> read = readAll(bytes, 104);
    QCOMPARE(read.size(), written.size());
    for (int i = 0; i < read.size(); ++i)
        QVERIFY(sameInChunk(read.at(i), written.at(i)));
}

void ChunkFormatTest::cutRecordIsKeptAsFarAsItGoes()
{
    const QByteArray whole = encode(sample(), 104);
    for (int size = 1; size < whole.size(); ++size) {
        const QVector<CAN::CanRxMessage> read = readAll(whole + whole.left(size), 104);
        QCOMPARE(read.size(), 2);
        // The record is read over the one before: what is cut off its payload stays, the
        // fields behind the end become 0.
        QCOMPARE(read.last().length, qint8(2));
        QCOMPARE(read.last().data[1], quint8(0xbb));
        QCOMPARE(read.last().extended, size > 3);
        QCOMPARE(read.last().id, size > 7 ? 0x12345678u : 0u);
        QCOMPARE(read.last().messageNumber, size > 24 ? 9u : 0u);
        QCOMPARE(read.last().line, quint16(0));
    }
}

void ChunkFormatTest::badLengthEndsTheReading_data()
{
    QTest::addColumn<QByteArray>("length");
    QTest::newRow("65") << QByteArray("41");
    QTest::newRow("127") << QByteArray("7f");
    QTest::newRow("-128") << QByteArray("80");
    QTest::newRow("-1") << QByteArray("ff");
}

void ChunkFormatTest::badLengthEndsTheReading()
{
    QFETCH(QByteArray, length);
    const QByteArray good = encode(sample(), 104);
    const QByteArray bad = QByteArray::fromHex(length) + QByteArray(300, '\0');
    QCOMPARE(readAll(good + good + bad + good, 104).size(), 2);
    QDataStream stream(bad);
    CAN::CanRxMessage message = sample();
    QVERIFY(!ChunkFormat::readRecord(stream, message, 104));
    QCOMPARE(stream.status(), QDataStream::ReadCorruptData);
    QVERIFY(sameInChunk(message, sample()));
}

void ChunkFormatTest::readErrorEndsTheReading()
{
    FailingDevice device(encode(sample(), 104) + encode(sample(), 104).left(5));
    ChunkFormat::RecordReader reader(device, 104);
    CAN::CanRxMessage message;
    QVERIFY(reader.next(message));
    QVERIFY(reader.next(message));
    QVERIFY(!reader.next(message));
}

void ChunkFormatTest::whatADeviceDoesNotTakeAtOnceIsGivenAgain()
{
    const QByteArray record = encode(sample(), ChunkFormat::currentVersion);
    for (const bool enoughRoom : {true, false}) {
        NarrowDevice device(record.size() * 50 - (enoughRoom ? 0 : 1));
        ChunkFormat::RecordWriter writer(device, ChunkFormat::currentVersion);
        for (int i = 0; i < 50; ++i)
            writer.write(sample());
        QCOMPARE(writer.flush(), enoughRoom);
        QCOMPARE(device.bytes, record.repeated(50).left(device.bytes.size()));
        QCOMPARE(device.bytes.size(), record.size() * 50 - (enoughRoom ? 0 : 1));
    }
}

QTEST_APPLESS_MAIN(ChunkFormatTest)
#include "tst_chunkformat.moc"
