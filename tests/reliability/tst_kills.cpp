#include "storefixture.h"
#include "ziparchive.h"

#include <QtTest>

#include <random>

namespace {

constexpr int hangLimit = 20000;
constexpr quint32 chunkSize = 200;
constexpr quint32 traceSize = 500;

// Another process with a store, and what it has announced.
class Recorder
{
public:
    Recorder(const QString &archive, const QString &trace)
    {
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process.start(QStringLiteral(RECORDER), {archive, trace});
    }

    // Reads on until this many chunks have been announced; false when that takes too long.
    bool waitForChunks(int count)
    {
        while (chunks.size() < count) {
            if (!process.canReadLine() && !process.waitForReadyRead(hangLimit))
                return false;
            readLines();
        }
        return true;
    }

    void kill()
    {
        process.kill();
        process.waitForFinished(hangLimit);
        readLines();
    }

    bool end()
    {
        process.closeWriteChannel();
        const bool ended = process.waitForFinished(hangLimit);
        readLines();
        return ended && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    }

    // Whether everything announced is there, whole and exact.
    bool isKept() const
    {
        for (int i = 0; i < chunks.size(); ++i) {
            const quint32 first = quint32(i) * chunkSize;
            const QString file = QStringLiteral("%1/tmpData%2.dck").arg(folder, chunks.at(i));
            if (!holds(file, first, first + chunkSize - 1))
                return false;
        }
        for (int i = 0; i < partialChunks.size(); ++i) {
            const quint32 first = quint32(i) * chunkSize % (3 * chunkSize);
            const quint32 last = std::min(first + chunkSize, traceSize) - 1;
            if (numbersOf(readChunkFile(partialChunks.at(i)).messages)
                != numbersFromTo(first, last))
                return false;
        }
        return !folder.isEmpty() && errors.isEmpty();
    }

    QString folder;
    QStringList chunks;
    QStringList partialChunks;
    QStringList errors;

private:
    void readLines()
    {
        while (process.canReadLine()) {
            const QString line = QString::fromUtf8(process.readLine()).trimmed();
            const QString rest = line.section(QLatin1Char(' '), 1);
            if (line.startsWith(QLatin1String("folder")))
                folder = rest;
            else if (line.startsWith(QLatin1String("chunk")))
                chunks += rest;
            else if (line.startsWith(QLatin1String("partial")))
                partialChunks += rest;
            else
                errors += rest;
        }
    }

    QProcess process;
};

// What is left of a process is named after its chunk folder.
QMap<QString, QByteArray> filesWithout(const QMap<QString, QByteArray> &files,
                                       const QString &folder)
{
    QMap<QString, QByteArray> others;
    for (auto file = files.begin(); file != files.end(); ++file) {
        if (!file.key().startsWith(folder))
            others.insert(file.key(), file.value());
    }
    return others;
}

bool isWholeArchive(const QString &fileName, const QString &chunkFolder)
{
    const Zip::Reader archive(fileName);
    for (const Zip::Entry &entry : archive.entries()) {
        const auto content = archive.open(entry, [] { return true; });
        const QByteArray bytes = content ? content->readAll() : QByteArray();
        if (!content || content->isDamaged() || bytes.size() != entry.size)
            return false;
        // The last messages are exported again and again.
        if (entry.name.startsWith(QLatin1String("tmpData"))
            && bytes != readFile(chunkFolder + QLatin1Char('/') + entry.name))
            return false;
    }
    return archive.isOpen();
}

int numberFrom(const char *variable, int otherwise)
{
    return qEnvironmentVariableIsSet(variable) ? qEnvironmentVariableIntValue(variable) : otherwise;
}

} // namespace

/// Processes that share a data location and end as they please.
class Kills : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void announcedChunksSurvive();
    void instancesShareNothing_data();
    void instancesShareNothing();

private:
    QString path(const char *name) const { return folder->filePath(QLatin1String(name)); }

    const QString location = qEnvironmentVariable("XDG_DATA_HOME");
    std::unique_ptr<QTemporaryDir> folder;
};

void Kills::init()
{
    cleanup();
    folder = std::make_unique<QTemporaryDir>();
    QByteArray trace;
    for (quint32 i = 0; i < traceSize; ++i)
        trace += QStringLiteral("(%1.5) can0 123#1122\n").arg(i).toLatin1();
    writeFile(path("trace.log"), trace);
}

void Kills::cleanup()
{
    const QStringList left = QDir(location).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    for (const QString &name : left)
        QDir(QDir(location).filePath(name)).removeRecursively();
    QDir(location).mkpath(QStringLiteral("recorder/datachunks"));
}

void Kills::announcedChunksSurvive()
{
    const int kills = numberFrom("KILLS", 30);
    const int seed = numberFrom("KILLS_SEED", 1);
    qInfo("%d kills, seed %d", kills, seed);
    int chunks = 0;
    int partialChunks = 0;
    int archives = 0;
    int tornArchives = 0;
    writeFile(path("a.zip"), "the archive of yesterday");
    QString before;
    for (int i = 0; i < kills; ++i) {
        std::mt19937 random(quint32(seed + i));
        const QByteArray oldArchive = readFile(path("a.zip"));
        const QMap<QString, QByteArray> others = filesBelow(location);
        Recorder recorder(path("a.zip"), path("trace.log"));
        QVERIFY(recorder.waitForChunks(int(random() % 25)));
        QThread::usleep(random() % 4000);
        recorder.kill();
        const auto complaint = [i, seed] { return QByteArray::number(seed + i); };
        QVERIFY2(recorder.folder.isEmpty() || recorder.isKept(), complaint());
        const bool isNew = readFile(path("a.zip")) != oldArchive;
        QVERIFY2(!isNew || isWholeArchive(path("a.zip"), recorder.folder), complaint());
        const QString own = recorder.folder.isEmpty() ? QStringLiteral("/") : recorder.folder;
        if (!recorder.folder.isEmpty())
            QVERIFY2(filesWithout(filesBelow(location), own) == others, complaint());
        chunks += recorder.chunks.size();
        partialChunks += recorder.partialChunks.size();
        archives += isNew;
        // Between its naming and its putting in place an archive may be left under a name of its
        // own.
        const QStringList torn = QDir(folder->path()).entryList({QStringLiteral("a.zip.*")});
        tornArchives += torn.size();
        for (const QString &name : torn)
            QFile::remove(folder->filePath(name));
        QCOMPARE(QDir(folder->path()).entryList(QDir::Files | QDir::Hidden),
                 (QStringList{"a.zip", "trace.log"}));
        if (i % 5 == 4)
            cleanup();
    }
    qInfo("%d chunks, %d chunks of imports, %d archives, %d temporary names", chunks, partialChunks,
          archives, tornArchives);
    QVERIFY(chunks > kills && partialChunks > 0 && archives > 0);
}

void Kills::instancesShareNothing_data()
{
    QTest::addColumn<bool>("together");
    QTest::addColumn<bool>("firstEndsFirst");
    QTest::newRow("the first to start ends first") << false << true;
    QTest::newRow("the last to start ends first") << false << false;
    QTest::newRow("both start at once") << true << true;
}

void Kills::instancesShareNothing()
{
    QFETCH(bool, together);
    QFETCH(bool, firstEndsFirst);
    Recorder killed(path("killed.zip"), path("trace.log"));
    QVERIFY(killed.waitForChunks(3));
    killed.kill();
    const QMap<QString, QByteArray> leftovers = filesBelow(location);

    Recorder first(path("first.zip"), path("trace.log"));
    QVERIFY(together || first.waitForChunks(3));
    Recorder second(path("second.zip"), path("trace.log"));
    QVERIFY(first.waitForChunks(6) && second.waitForChunks(6));
    QCOMPARE(QSet<QString>({killed.folder, first.folder, second.folder}).size(), 3);
    Recorder &one = firstEndsFirst ? first : second;
    Recorder &other = firstEndsFirst ? second : first;
    QVERIFY(one.end());
    QVERIFY(other.waitForChunks(other.chunks.size() + 6));
    QVERIFY(other.isKept());
    QCOMPARE(filesWithout(filesBelow(location), other.folder), leftovers);
    QVERIFY(killed.isKept());
    QVERIFY(other.end());
    QCOMPARE(filesBelow(location), leftovers);
}

QTEST_GUILESS_MAIN(Kills)
#include "tst_kills.moc"
