#include "archives.h"
#include "canframe.h"
#include "chunkdirectory.h"
#include "chunkmove.h"
#include "messages.h"
#include "recording.h"
#include "storefixture.h"
#include "tracefilter.h"
#include "tracetablemodel.h"
#include "tracetimeline.h"

#include <QTemporaryDir>
#include <QtTest>

#include <csignal>
#include <thread>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace {

using Positions = QVector<quint64>;

QStringList everythingIn(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

// A chunk of three messages, numbered from 5 on, in any version.
QByteArray chunkOfVersion(quint32 version)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_15);
    ChunkFormat::writeHeader(stream, {QStringLiteral("5.000000 - 7.000000"), version}, {});
    for (quint32 number = 5; number < 8; ++number) {
        CAN::CanRxMessage message = makeMessage(number, int(number));
        message.messageNumber = number;
        ChunkFormat::writeRecord(stream, message, version);
    }
    return bytes;
}

// A file that is to grow beyond so many bytes cannot, as on a full disk.
class FullDisk
{
public:
    explicit FullDisk(rlim_t most)
    {
        getrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit less = {most, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &less);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &before); }

    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;

private:
    rlimit before = {};
};

} // namespace

/// What users write on messages, wherever these lie.
class TestAnnotate : public QObject
{
    Q_OBJECT
private slots:
    void chunksCarryWhatIsWritten_data();
    void chunksCarryWhatIsWritten();
    void versionsKeepTheirRecords_data();
    void versionsKeepTheirRecords();
    void whatCannotBeWrittenStaysAsItWas_data();
    void whatCannotBeWrittenStaysAsItWas();
    void filtersAndTablesFollow();
    void otherChunksAreReadAnew();
    void changesOfManyThreadsAllLast();
    void whatIsDeletedDoesNotComeBack();
};

void TestAnnotate::chunksCarryWhatIsWritten_data()
{
    QTest::addColumn<QString>("opened"); // in the folder; empty for all of it
    QTest::addColumn<bool>("isIndexed");
    QTest::newRow("folder") << QString() << true;
    QTest::newRow("folder without a directory") << QString() << false;
    QTest::newRow("file") << QStringLiteral("tmpData0.dck") << true;
    QTest::newRow("link") << QStringLiteral("link.dck") << false;
}

void TestAnnotate::chunksCarryWhatIsWritten()
{
    QFETCH(QString, opened);
    QFETCH(bool, isIndexed);
    QTemporaryDir folder;
    const Recording recording = record(folder.path(), 1, {9000, 5000});
    const QString chunk = folder.filePath(QStringLiteral("tmpData0.dck"));
    if (isIndexed)
        QVERIFY(indexChunks(folder.path()));
    if (!opened.startsWith(QLatin1String("tmpData")) && !opened.isEmpty())
        QVERIFY(QFile::link(chunk, folder.filePath(opened)));
    const QByteArray encoded = QFile::encodeName(chunk);
    QCOMPARE(chmod(encoded.constData(), 0640), 0);
    struct stat before = {};
    QCOMPARE(stat(encoded.constData(), &before), 0);
    const QStringList files = everythingIn(folder.path());

    const QStringList paths{opened.isEmpty() ? folder.path() : folder.filePath(opened)};
    TraceTimeline timeline(paths);
    TraceTimeline other(paths);
    QVERIFY(timeline.waitForAll() && other.waitForAll());
    const quint64 count = timeline.count();
    const Positions noted = timeline.notePositions();
    QVERIFY(noted.size() > 4);
    QString error;
    QVERIFY2(timeline.setNote(8999, QStringLiteral("the last")), qPrintable(error));
    QVERIFY(timeline.setNote(noted.at(0), QStringLiteral("another"), &error));
    QVERIFY(timeline.setNote(noted.at(1), QString(), &error));
    QVERIFY(timeline.setBookmark(4096, QStringLiteral("here")));
    QVERIFY(timeline.setBookmark(4097, QStringLiteral("not for long")));
    QVERIFY(timeline.setBookmark(4097, QString()));
    QVERIFY(error.isEmpty());

    TraceTimeline fresh(paths);
    QVERIFY(!isIndexed || fresh.isComplete());
    QVERIFY(fresh.waitForAll());
    for (TraceTimeline *shown : {&timeline, &other, &fresh}) {
        shown->refresh();
        // Nothing is read again for it.
        QVERIFY(shown->isComplete());
        QCOMPARE(shown->count(), count);
        QCOMPARE(shown->row(8999).note, QStringLiteral("the last"));
        QCOMPARE(shown->row(noted.at(0)).note, QStringLiteral("another"));
        QCOMPARE(shown->row(noted.at(1)).note, QString());
        QCOMPARE(shown->bookmarkPositions(), Positions{4096});
        QCOMPARE(shown->row(4096).bookmark.text(), QStringLiteral("here"));
        Positions now = noted;
        now.remove(1);
        if (!now.contains(8999))
            now.insert(int(std::lower_bound(now.begin(), now.end(), 8999U) - now.begin()), 8999);
        QCOMPARE(shown->notePositions(), now);
        for (quint64 position = 0; position < 9000; position += 17)
            QVERIFY(
                sameInChunk(shown->row(position).message, recording.messages.at(int(position))));
    }
    struct stat after = {};
    QCOMPARE(stat(encoded.constData(), &after), 0);
    QCOMPARE(after.st_mode, before.st_mode);
    // A budget goes by it.
    QCOMPARE(after.st_mtim.tv_nsec, before.st_mtim.tv_nsec);
    QCOMPARE(everythingIn(folder.path()), files);
}

void TestAnnotate::versionsKeepTheirRecords_data()
{
    QTest::addColumn<quint32>("version");
    QTest::addColumn<bool>("isBookmark");
    QTest::addColumn<quint32>("written"); // 0 where that cannot be
    QTest::newRow("note, 100") << 100U << false << 101U;
    QTest::newRow("note, 102") << 102U << false << 102U;
    QTest::newRow("note, 103") << 103U << false << 103U;
    QTest::newRow("bookmark, 100") << 100U << true << 0U;
    QTest::newRow("bookmark, 102") << 102U << true << 0U;
    QTest::newRow("bookmark, 103") << 103U << true << 104U;
}

void TestAnnotate::versionsKeepTheirRecords()
{
    QFETCH(quint32, version);
    QFETCH(bool, isBookmark);
    QFETCH(quint32, written);
    QTemporaryDir folder;
    const QString chunk = folder.filePath(QStringLiteral("old.dck"));
    const QByteArray before = chunkOfVersion(version);
    writeFile(chunk, before);
    TraceTimeline timeline({chunk});
    QVERIFY(timeline.waitForAll());
    QString error;
    const QString text = QStringLiteral("noted");
    const bool isDone =
        isBookmark ? timeline.setBookmark(1, text, &error) : timeline.setNote(1, text, &error);
    QCOMPARE(isDone, written != 0);
    QCOMPARE(error.isEmpty(), isDone);
    const QByteArray after = readFile(chunk);
    const ReadChunk read = streamedChunk(after);
    QCOMPARE(read.preamble.version, isDone ? written : version);
    const ReadChunk unchanged = streamedChunk(before);
    QCOMPARE(read.messages.size(), 3);
    for (int i = 0; i < 3; ++i)
        QVERIFY(sameInChunk(read.messages.at(i), unchanged.messages.at(i)));
    QCOMPARE(read.notes.value(6), isDone && !isBookmark ? text : QString());
    QCOMPARE(read.bookmarks.value(6).text(), isDone && isBookmark ? text : QString());
    if (!isDone)
        QCOMPARE(after, before);
}

void TestAnnotate::whatCannotBeWrittenStaysAsItWas_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("told");
    for (const char *row : {"full disk|could not be written", "no place|could not be written",
                            "archive|Unpack", "gone|no longer there", "behind|no longer there"}) {
        const QStringList parts = QString::fromLatin1(row).split(QLatin1Char('|'));
        QTest::newRow(qPrintable(parts.first())) << parts.first() << parts.last();
    }
}

void TestAnnotate::whatCannotBeWrittenStaysAsItWas()
{
    QFETCH(QString, state);
    QFETCH(QString, told);
    QTemporaryDir folder;
    record(folder.path(), 1, {5000});
    const QString chunk = folder.filePath(QStringLiteral("tmpData0.dck"));
    QString opened = chunk;
    if (state == QLatin1String("archive")) {
        opened = folder.filePath(QStringLiteral("all.zip"));
        QVERIFY(writeArchive(opened, {{QStringLiteral("a.dck"), readFile(chunk)}}));
    } else if (state == QLatin1String("no place")) {
        QVERIFY(QDir(folder.path()).mkpath(QStringLiteral(".tmpData0.dck.new/full")));
    }
    TraceTimeline timeline({opened});
    QVERIFY(timeline.waitForAll());
    if (state == QLatin1String("gone"))
        QVERIFY(QFile::remove(chunk));
    const auto before = filesBelow(folder.path());
    QString error;
    {
        std::optional<FullDisk> full;
        if (state == QLatin1String("full disk"))
            full.emplace(20000);
        const quint64 position = state == QLatin1String("behind") ? 5000 : 0;
        QVERIFY(!timeline.setNote(position, QStringLiteral("never"), &error));
    }
    QVERIFY2(error.contains(told), qPrintable(error));
    QCOMPARE(filesBelow(folder.path()), before);
}

void TestAnnotate::filtersAndTablesFollow()
{
    QTemporaryDir folder;
    const Recording recording = record(folder.path(), 1, {5000, 5000});
    TraceTimeline timeline({folder.path()});
    QVERIFY(timeline.waitForAll());
    const TraceFilter byNote = timeline.filter(expression("note~\"hot\""));
    const TraceFilter byPayload = timeline.filter(expression("b0==2"));
    QVERIFY(byNote.wait() && byPayload.wait());
    QCOMPARE(byNote.count(), 0U);
    const quint64 payloads = byPayload.count();
    TraceTableModel model(timeline);
    model.setRefreshInterval(0);
    QSignalSpy changed(&model, &TraceTableModel::dataChanged);
    QSignalSpy reset(&model, &TraceTableModel::modelReset);

    QVERIFY(timeline.setNote(7000, QStringLiteral("too hot")));
    model.refresh();
    QCOMPARE(changed.count(), 1);
    QCOMPARE(reset.count(), 0);
    QCOMPARE(model.index(7000, TraceTableModel::NoteColumn).data().toString(),
             QStringLiteral("too hot"));
    QVERIFY(byNote.wait() && byPayload.wait());
    QCOMPARE(byNote.at(0).value_or(0), 7000U);
    QCOMPARE(byPayload.count(), payloads);
    QVERIFY(timeline.setNote(7000, QString()));
    QVERIFY(timeline.setNote(6000, QStringLiteral("hot as well")));
    timeline.refresh();
    QVERIFY(byNote.wait());
    QCOMPARE(byNote.count(), 1U);
    QCOMPARE(byNote.at(0).value_or(0), 6000U);
}

// As old and as long, but with other messages.
void TestAnnotate::otherChunksAreReadAnew()
{
    QTemporaryDir folder;
    QTemporaryDir elsewhere;
    Messages messages;
    for (quint32 i = 0; i < 5000; ++i)
        messages.append(makeMessage(i, 8));
    const QString chunk = folder.filePath(QStringLiteral("a.dck"));
    writeChunk(chunk, messages, {});
    struct stat before = {};
    QCOMPARE(stat(QFile::encodeName(chunk).constData(), &before), 0);
    TraceTimeline timeline({folder.path()});
    QVERIFY(timeline.waitForAll());
    for (CAN::CanRxMessage &message : messages)
        message.seconds += 1;
    const QString other = elsewhere.filePath(QStringLiteral("a.dck"));
    writeChunk(other, messages, {});
    const timespec times[2] = {before.st_atim, before.st_mtim};
    QCOMPARE(utimensat(AT_FDCWD, QFile::encodeName(other).constData(), times, 0), 0);
    QFile::remove(chunk);
    QVERIFY(QFile::copy(other, chunk));
    QCOMPARE(utimensat(AT_FDCWD, QFile::encodeName(chunk).constData(), times, 0), 0);
    timeline.refresh();
    QVERIFY(timeline.waitForAll());
    QCOMPARE(timeline.count(), 5000U);
    QCOMPARE(timeline.row(10).message.seconds, messages.at(10).seconds);
    QCOMPARE(timeline.firstTime(), CAN::timeOf(messages.first()));
}

void TestAnnotate::changesOfManyThreadsAllLast()
{
    constexpr quint64 perThread = 40;
    QTemporaryDir folder;
    record(folder.path(), 1, {5000});
    std::vector<std::thread> threads;
    std::atomic<int> failures{0};
    for (quint64 t = 0; t < 3; ++t) {
        threads.emplace_back([&, t] {
            TraceTimeline timeline({folder.path()});
            failures += timeline.waitForAll() ? 0 : 1;
            for (quint64 i = 0; i < perThread; ++i)
                failures += timeline.setBookmark(i * 3 + t, QString::number(i)) ? 0 : 1;
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    QCOMPARE(failures.load(), 0);
    TraceTimeline timeline({folder.path()});
    QVERIFY(timeline.waitForAll());
    QCOMPARE(timeline.bookmarkPositions().size(), int(3 * perThread));
}

void TestAnnotate::whatIsDeletedDoesNotComeBack()
{
    QTemporaryDir folder;
    const QString chunk = folder.filePath(QStringLiteral("tmpData0.dck"));
    for (int round = 0; round < 6; ++round) {
        record(folder.path(), 1, {5000});
        TraceTimeline timeline({folder.path()});
        QVERIFY(timeline.waitForAll());
        std::atomic<int> done{0};
        std::thread thread([&] {
            for (int i = 0; timeline.setNote(quint64(i), QStringLiteral("n%1").arg(round)); ++i)
                ++done;
        });
        while (done < 3)
            std::this_thread::yield();
        QVERIFY(QFile::remove(chunk));
        thread.join();
        QFile::remove(ChunkDirectory::path(folder.path()));
        QCOMPARE(everythingIn(folder.path()), QStringList());
    }
}

QTEST_GUILESS_MAIN(TestAnnotate)

#include "tst_annotate.moc"
