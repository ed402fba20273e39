#include "directoryfixture.h"

#include <QRandomGenerator>
#include <QTest>

using namespace DirectoryFormat;

/// The bytes of the directory of a chunk folder.
class TestDirectoryFormat : public QObject
{
    Q_OBJECT
private slots:
    void bytesAreTheDocumentedOnes();
    void anyIndexComesBack();
    void damageTakesNoMoreThanItsEntry();
    void lyingEntriesAreNone_data();
    void lyingEntriesAreNone();
    void emptyPromisesTakeNoTime();
    void entriesLieWhereReadingGoesOn();
};

namespace {

constexpr quint64 key = 0;

QByteArray directoryOf(const std::vector<DirectoryEntry> &entries)
{
    QByteArray bytes = head(0, key);
    for (const DirectoryEntry &entry : entries)
        bytes += encoded(entry, key);
    return bytes;
}

CAN::CanRxMessage randomMessage(QRandomGenerator &random)
{
    CAN::CanRxMessage message = makeMessage(random.bounded(500U), random.bounded(65));
    message.id = random.bounded(8) ? message.id : CAN::errorFrameId;
    message.seconds = random.bounded(-5, 1000);
    return message;
}

} // namespace

// The example of docs/directory-format.md.
void TestDirectoryFormat::bytesAreTheDocumentedOnes()
{
    CAN::CanRxMessage message = makeMessage(0x123, "abcd", 1);
    message.seconds = 17;
    message.microseconds = 4512;
    message.messageNumber = 7;
    DirectoryEntry entry = entryOf("a.dck", indexOf({message}, 78));
    entry.file = {105, 0x1122334455667788, 0x1122334455667799, 9};
    entry.index.notes = 1;
    const QByteArray bytes = QByteArray::fromHex(
        "d16469726563740a 01000000 0000000000000000" // mark of a directory, version, never
                                                     // compacted
        "91e254b0a59713520a4c812fe100afda"           // seal
        "d16368756e6b0d0a ac000000"                  // mark of an entry, 172 bytes of payload
        "0500 0100 01000000 01000000"                // bytes of the name, lines, keys, steps
        "0e000000 68000000"                          // flags, version of the chunk
        "6900000000000000 8877665544332211 9977665544332211 0900000000000000" // the file
        "4e00000000000000 6900000000000000"                                   // records
        "e077030100000000 e077030100000000 e077030100000000 e077030100000000" // times
        "01000000 07000000 01000000 00000000"       // messages, first number, notes, bookmarks
        "612e64636b 01"                             // name, lines
        "23010000 01 00 01000000 00000000 00000000" // key
        "4e00000000000000 e077030100000000 e077030100000000" // step
        "00000000 00000000"                  // counts in front of it: of line 1, of error frames
        "d768616c225ba093ceeb38d3754f4108"); // seal
    QCOMPARE(directoryOf({entry}).toHex(), bytes.toHex());
    QVERIFY(entries(bytes, key) == std::vector<DirectoryEntry>{entry});
    QVERIFY(entries(bytes, key + 1).empty());
}

void TestDirectoryFormat::anyIndexComesBack()
{
    QRandomGenerator random(1);
    std::vector<DirectoryEntry> all;
    for (int size : {0, 1, 2, 100, 4095, 4096, 4097, 10000, 140000}) {
        QVector<CAN::CanRxMessage> messages;
        for (int i = 0; i < size; ++i)
            messages += randomMessage(random);
        // More different keys than are kept.
        for (int i = 0; size > 100000 && i < size; ++i)
            messages[i].id = quint32(i);
        ChunkIndex index = indexOf(messages, 0);
        index.moveBy(random.bounded(1000));
        index.notes = random.generate();
        index.bookmarks = random.generate();
        all.push_back(entryOf(QString::number(size), index));
    }
    QVERIFY(!all.back().index.hasAllKeys);
    QVERIFY(entries(directoryOf(all), key) == all);
}

void TestDirectoryFormat::damageTakesNoMoreThanItsEntry()
{
    const std::vector<DirectoryEntry> all{smallEntry("a"), smallEntry("b"), smallEntry("c")};
    const QByteArray whole = directoryOf(all);
    const int entrySize = encoded(all[0], key).size();
    for (int size = 0; size <= whole.size(); ++size) {
        const auto read = entries(whole.left(size), key);
        const int left = size < headSize ? 0 : (size - headSize) / entrySize;
        QVERIFY2(read == std::vector<DirectoryEntry>(all.begin(), all.begin() + left),
                 QByteArray::number(size));
    }
    for (int at = 0; at < whole.size(); ++at) {
        QByteArray bytes = whole;
        bytes[at] = char(~bytes.at(at));
        std::vector<DirectoryEntry> left = all;
        if (at < headSize)
            left.clear();
        else
            left.erase(left.begin() + (at - headSize) / entrySize);
        QVERIFY2(entries(bytes, key) == left, QByteArray::number(at));
    }
}

void TestDirectoryFormat::lyingEntriesAreNone_data()
{
    QTest::addColumn<int>("at");
    QTest::addColumn<QByteArray>("lie");
    QTest::newRow("a name in another folder") << 116 << QByteArray("../x");
    QTest::newRow("the folder itself") << 116 << QByteArray("..\0\0", 4);
    QTest::newRow("no name") << 0 << QByteArray("\0\0", 2);
    QTest::newRow("257 lines") << 2 << QByteArray("\x01\x01", 2);
    QTest::newRow("more keys than there are") << 4 << QByteArray("\xff\xff\xff\xff", 4);
    QTest::newRow("more steps than there are") << 8 << QByteArray("\xff\xff\xff\xff", 4);
    QTest::newRow("an unknown flag") << 12 << QByteArray("\x1e");
    QTest::newRow("records beyond the end of the file") << 20 << QByteArray("\x50");
    QTest::newRow("records in front of the file") << 59 << QByteArray("\xff");
    QTest::newRow("another number of messages") << 100 << QByteArray("\x03");
    QTest::newRow("a last time in front of the lowest") << 83 << QByteArray("\x80");
}

void TestDirectoryFormat::lyingEntriesAreNone()
{
    QFETCH(int, at);
    QFETCH(QByteArray, lie);
    const QByteArray entry = encoded(smallEntry("name"), key);
    QByteArray payload = entry.mid(12, entry.size() - 12 - 16);
    QCOMPARE(framed(payload, key), entry);
    payload.replace(at, lie.size(), lie);
    const auto read =
        entries(head(0, key) + framed(payload, key) + directoryOf({smallEntry("b")}), key);
    QCOMPARE(int(read.size()), 1);
    QCOMPARE(read[0].name, QStringLiteral("b"));
}

void TestDirectoryFormat::emptyPromisesTakeNoTime()
{
    const QByteArray promise = framed({}, key).left(8) + QByteArray("\0\0\x10\0", 4);
    const DirectoryEntry first = smallEntry("a");
    QVERIFY(entries(directoryOf({first}) + promise.repeated(1000000), key)
            == std::vector<DirectoryEntry>{first});
}

// It is read a mebibyte at once.
void TestDirectoryFormat::entriesLieWhereReadingGoesOn()
{
    const std::vector<DirectoryEntry> all{smallEntry("a"), smallEntry("b"), largeEntry("c")};
    const QByteArray whole = directoryOf(all);
    for (int inFront = 0; inFront < 700; inFront += 3) {
        QByteArray bytes = whole;
        bytes.insert(headSize, QByteArray(1024 * 1024 - inFront, '\xd1'));
        QVERIFY2(entries(bytes, key) == all, QByteArray::number(inFront));
    }
}

QTEST_GUILESS_MAIN(TestDirectoryFormat)
#include "tst_directoryformat.moc"
