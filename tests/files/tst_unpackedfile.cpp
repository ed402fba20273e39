#include "archives.h"
#include "compressed.h"
#include "peakmemory.h"
#include "storefixture.h"
#include "unpackedfile.h"

#include <QtTest>

Q_DECLARE_METATYPE(Compression)

/// Compressed files as streams.
class TestUnpackedFile : public QObject
{
    Q_OBJECT
private slots:
    void readsWhatIsInside_data();
    void readsWhatIsInside();
    void membersFollowEachOther_data() { addCompressions(); }
    void membersFollowEachOther();
    void cutsAreTold_data() { addCompressions(); }
    void cutsAreTold();
    void noFlippedBitChangesBytesInSilence_data();
    void noFlippedBitChangesBytesInSilence();
    void moreBehindTheEndIsTold_data() { addCompressions(); }
    void moreBehindTheEndIsTold();
    void longWindowsAreRefused_data();
    void longWindowsAreRefused();
    void bombsEndAtTheLimit_data();
    void bombsEndAtTheLimit();
    void severalFilesAreRefused_data();
    void severalFilesAreRefused();
    void othersAreReadAsTheyAre_data();
    void othersAreReadAsTheyAre();

private:
    static void addCompressions();
    QString fileWith(const QByteArray &bytes) const
    {
        const QString name = folder.filePath(QStringLiteral("a"));
        writeFile(name, bytes);
        return name;
    }

    QTemporaryDir folder{folderInMemory()};
};

namespace {

constexpr int mebibyte = 1024 * 1024;

// Of more than one block, packed and unpacked.
QByteArray manyBytes()
{
    QByteArray bytes;
    quint32 value = 1;
    while (bytes.size() < 2 * mebibyte) {
        value = value * 1664525 + 1013904223;
        bytes += QByteArray::number(value) + '\n';
    }
    return bytes;
}

QByteArray readAll(UnpackedFile &file)
{
    QByteArray all;
    for (QByteArray block = file.read(100000); !block.isEmpty(); block = file.read(100000))
        all += block;
    return all;
}

struct Unpacked
{
    bool isOpen = false;
    bool isCompressed = false;
    QByteArray bytes;
    QString error;
};

Unpacked unpacked(const QString &name)
{
    UnpackedFile file(name);
    Unpacked result;
    result.isOpen = file.openForReading();
    result.isCompressed = file.isCompressed();
    if (result.isOpen)
        result.bytes = readAll(file);
    result.error = file.readErrorText();
    return result;
}

} // namespace

void TestUnpackedFile::addCompressions()
{
    QTest::addColumn<Compression>("kind");
    for (const Compression kind : compressions)
        QTest::newRow(qPrintable(compressionName(kind))) << kind;
}

void TestUnpackedFile::readsWhatIsInside_data()
{
    QTest::addColumn<QByteArray>("packed");
    const QByteArray bytes = manyBytes();
    for (const Compression kind : compressions)
        QTest::newRow(qPrintable(compressionName(kind))) << compressed(kind, bytes);
    QTest::newRow("zip") << archiveOf({{"folder/", {}}, {"folder/a.log", bytes}});
    QTest::newRow("stored in zip") << archiveOf({{"a.log", bytes, true}});
    QTest::newRow("not compressed") << bytes;
}

void TestUnpackedFile::readsWhatIsInside()
{
    QFETCH(QByteArray, packed);
    const QByteArray bytes = manyBytes();
    UnpackedFile file(fileWith(packed));
    QVERIFY(file.openForReading());
    QCOMPARE(file.peek(4), bytes.left(4));
    QCOMPARE(file.read(10), bytes.left(10));
    QVERIFY(file.seek(0));
    QCOMPARE(readAll(file), bytes);
    QCOMPARE(file.bytesRead(), file.bytes());
    QVERIFY(file.seek(0) && file.bytesRead() < file.bytes());
    QCOMPARE(readAll(file), bytes);
    QVERIFY(file.read(1).isEmpty() && file.readErrorText().isEmpty());
    if (packed != bytes)
        QCOMPARE(file.bytesAvailable(), 0);
    UnpackedFile asItIs(file.packed().fileName(), UnpackedFile::Never);
    QVERIFY(asItIs.openForReading());
    QCOMPARE(readAll(asItIs), packed);
}

void TestUnpackedFile::membersFollowEachOther()
{
    QFETCH(Compression, kind);
    const Unpacked result = unpacked(
        fileWith(compressed(kind, "one ") + compressed(kind, {}) + compressed(kind, "two")));
    QCOMPARE(result.error, QString());
    QCOMPARE(result.bytes, "one two");
}

void TestUnpackedFile::cutsAreTold()
{
    QFETCH(Compression, kind);
    const QByteArray bytes = manyBytes().left(300);
    const QByteArray packed = compressed(kind, bytes);
    for (int size = compressionBytes; size < packed.size(); ++size) {
        const Unpacked result = unpacked(fileWith(packed.left(size)));
        QVERIFY(result.isOpen && result.isCompressed && bytes.startsWith(result.bytes));
        QVERIFY2(result.error.contains("end is missing"), qPrintable(result.error));
    }
}

void TestUnpackedFile::noFlippedBitChangesBytesInSilence_data()
{
    QTest::addColumn<QByteArray>("packed");
    for (const Compression kind : {Compression::Gzip, Compression::Bzip2, Compression::Xz})
        QTest::newRow(qPrintable(compressionName(kind))) << compressed(kind, manyBytes().left(300));
    // As the program zstd writes it; the library leaves the checksum out.
    QTest::newRow("zstd") << QByteArray::fromHex(
        "28b52ffd24e175020002040c10a0ab03a3571578dffede722aeef4aaf3a0f7fefff77d2ba5524a08a1738e3126"
        "3311b16d798017d8c3b5c502b93c0215a810603ab4ff06c0e3011090b11fa50192359a28a2885745880c4e1948"
        "3b");
}

void TestUnpackedFile::noFlippedBitChangesBytesInSilence()
{
    QFETCH(QByteArray, packed);
    const QByteArray bytes = unpacked(fileWith(packed)).bytes;
    QVERIFY(bytes.size() > 100);
    for (int bit = 0; bit < packed.size() * 8; ++bit) {
        QByteArray damaged = packed;
        damaged[bit / 8] = char(damaged.at(bit / 8) ^ (1 << bit % 8));
        const Unpacked result = unpacked(fileWith(damaged));
        QVERIFY2(!result.isCompressed || result.bytes == bytes || !result.error.isEmpty(),
                 QByteArray::number(bit));
    }
}

void TestUnpackedFile::moreBehindTheEndIsTold()
{
    QFETCH(Compression, kind);
    const Unpacked result = unpacked(fileWith(compressed(kind, "a text") + "and something else"));
    QVERIFY(!result.error.isEmpty());
    QVERIFY(kind == Compression::Zstd || result.bytes == "a text");
}

void TestUnpackedFile::longWindowsAreRefused_data()
{
    QTest::addColumn<QByteArray>("packed");
    for (const Compression kind : {Compression::Xz, Compression::Zstd}) {
        const QByteArray small = compressed(kind, "small");
        const QByteArray big = withLongWindow(kind, compressed(kind, manyBytes()));
        const QString name = compressionName(kind);
        QTest::newRow(qPrintable(name)) << big;
        QTest::newRow(qPrintable(name + " behind another member")) << small + big;
    }
}

void TestUnpackedFile::longWindowsAreRefused()
{
    QFETCH(QByteArray, packed);
    const QString name = fileWith(packed);
    resetHeapPeak();
    const Unpacked result = unpacked(name);
    QVERIFY2(heapPeak() < 12 * mebibyte, QByteArray::number(heapPeak()));
    QVERIFY2(result.error.contains("takes more than 128 MiB"), qPrintable(result.error));
}

void TestUnpackedFile::bombsEndAtTheLimit_data()
{
    QTest::addColumn<QByteArray>("packed");
    const QByteArray zeros(70 * mebibyte, '\0');
    for (const Compression kind : {Compression::Gzip, Compression::Bzip2, Compression::Zstd})
        QTest::newRow(qPrintable(compressionName(kind))) << compressed(kind, zeros);
    QTest::newRow("zip") << archiveOf({{"a.log", zeros}});
}

void TestUnpackedFile::bombsEndAtTheLimit()
{
    QFETCH(QByteArray, packed);
    UnpackedFile file(fileWith(packed));
    if (!file.openForReading()) {
        QVERIFY(file.refusal().contains("claims to hold more"));
        return;
    }
    qint64 size = 0;
    for (QByteArray block = file.read(mebibyte); !block.isEmpty(); block = file.read(mebibyte))
        size += block.size();
    QVERIFY(size <= 70 * mebibyte);
    QVERIFY2(file.readErrorText().contains("1000 times"), qPrintable(file.readErrorText()));
}

void TestUnpackedFile::severalFilesAreRefused_data()
{
    QTest::addColumn<QByteArray>("packed");
    QTest::addColumn<QString>("reason");
    QTest::newRow("zip of two texts")
        << archiveOf({{"a.log", "a"}, {"b.log", "b"}}) << "several files and no chunk";
    const QByteArray tar = "a.log" + QByteArray(252, '\0') + "ustar" + QByteArray(250, '\0');
    QTest::newRow("tar in xz") << compressed(Compression::Xz, tar) << "archive of several files";
    QTest::newRow("zip in gzip") << compressed(Compression::Gzip, archiveOf({{"a.log", "a"}}))
                                 << "archive of several files";
    for (const Compression kind : compressions) {
        const QString name = compressionName(kind);
        const QByteArray once = compressed(kind, "a text");
        QTest::newRow(qPrintable(name + " twice")) << compressed(kind, once) << "more than once";
        QTest::newRow(qPrintable(name + " in zip"))
            << archiveOf({{"a.gz", once}}) << "more than once";
    }
}

void TestUnpackedFile::severalFilesAreRefused()
{
    QFETCH(QByteArray, packed);
    QFETCH(QString, reason);
    UnpackedFile file(fileWith(packed));
    QVERIFY(!file.openForReading() && !file.isOpen());
    QVERIFY2(file.refusal().contains(reason), qPrintable(file.refusal()));
}

void TestUnpackedFile::othersAreReadAsTheyAre_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text that begins as bzip2") << QByteArray("BZh91 is a text");
    QTest::newRow("zip of chunks") << archiveOf({{"a.dck", "a"}, {"b.log", "b"}});
    QTest::newRow("zip of nothing") << archiveOf({});
    QTest::newRow("broken zip") << QByteArray("PK\x03\x04 and no more");
}

void TestUnpackedFile::othersAreReadAsTheyAre()
{
    QFETCH(QByteArray, bytes);
    const Unpacked result = unpacked(fileWith(bytes));
    QVERIFY(result.isOpen && !result.isCompressed && result.error.isEmpty());
    QCOMPARE(result.bytes, bytes);
}

QTEST_GUILESS_MAIN(TestUnpackedFile)
#include "tst_unpackedfile.moc"
