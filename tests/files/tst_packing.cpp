#include "storefixture.h"
#include "ziparchive.h"

#include <quazip.h>
#include <quazipfileinfo.h>

#include <QtTest>

namespace {

WorkProgress always; // nobody cancels it

} // namespace

/// What becomes of files that are packed.
class TestPacking : public QObject
{
    Q_OBJECT

private slots:
    void init() { folder = std::make_unique<QTemporaryDir>(folderInMemory()); }
    void namesAreMarkedAsUtf8WhereTheyNeedIt();
    void packingCanBeGivenUp();
    void aLinkIsPackedAsTheFileBehindIt();

private:
    QString path(const QString &name) const { return folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> folder;
};

void TestPacking::namesAreMarkedAsUtf8WhereTheyNeedIt()
{
    QFileInfoList files;
    for (const QString &name : {QStringLiteral("f\u00fcr.dck"), QStringLiteral("fur.dck")}) {
        files.append(QFileInfo(path(name)));
        writeFile(files.last().filePath(), "content");
    }
    QVERIFY(Zip::packFiles(path("trace.zip"), files, always).isDone());
    const QByteArray archive = readFile(path("trace.zip"));
    QCOMPARE(archive.count("f\xc3\xbcr.dck"), 2);
    // The flags are the fourth field in front of the content and the fifth in the directory.
    constexpr char mark = 8; // in the flags' second byte
    int at = -1;
    for (const char expected : {mark, '\0'})
        QCOMPARE(archive.at((at = archive.indexOf("PK\x03\x04", at + 1)) + 7) & mark, +expected);
    for (const char expected : {mark, '\0'})
        QCOMPARE(archive.at((at = archive.indexOf("PK\x01\x02", at + 1)) + 9) & mark, +expected);
}

void TestPacking::packingCanBeGivenUp()
{
    const QFileInfo source(path("large"));
    writeFile(source.filePath(), QByteArray(3 << 20, 'x'));
    writeFile(path("trace.zip"), "old");
    int steps = 0;
    WorkProgress work([&] { return ++steps <= 3; });
    QVERIFY(!Zip::packFiles(path("trace.zip"), {source}, work).isDone());
    QCOMPARE(steps, 4);
    QCOMPARE(readFile(path("trace.zip")), "old");
    QCOMPARE(QDir(folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList({"large", "trace.zip"}));
}

void TestPacking::aLinkIsPackedAsTheFileBehindIt()
{
    const QFileInfo source(path("source"));
    const QFileInfo link(path("link.dck"));
    writeFile(source.filePath(), "content");
    QVERIFY(QFile::link(source.filePath(), link.filePath()));
    // A file that is gone by now is passed over.
    const QFileInfo gone(path("gone"));
    QVERIFY(Zip::packFiles(path("trace.zip"), {gone, link}, always).isDone());
    QuaZip archive(path("trace.zip"));
    QuaZipFileInfo64 info;
    QVERIFY(archive.open(QuaZip::mdUnzip) && archive.goToFirstFile());
    QVERIFY(archive.getCurrentFileInfo(&info));
    QCOMPARE(archive.getFileNameList(), QStringList("link.dck"));
    QVERIFY(!info.isSymbolicLink());
}

QTEST_GUILESS_MAIN(TestPacking)
#include "tst_packing.moc"
