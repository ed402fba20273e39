#include "converting.h"
#include "generatorline.h"
#include "markreader.h"
#include "sourcereader.h"
#include "taskthread.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <atomic>
#include <cerrno>
#include <optional>

#include <dlfcn.h>
#include <pthread.h>

Q_DECLARE_METATYPE(Notice)

namespace {

std::atomic<bool> isRefusing{false};

} // namespace

// Stands in front of the one of the system.
extern "C" __attribute__((visibility("default"))) int
pthread_create(pthread_t *thread, const pthread_attr_t *attributes, void *(*start)(void *),
               void *argument) noexcept
{
    using Create = decltype(&pthread_create);
    static const auto create = reinterpret_cast<Create>(dlsym(RTLD_NEXT, "pthread_create"));
    return isRefusing ? EAGAIN : create(thread, attributes, start, argument);
}

namespace {

class NoThreads
{
public:
    NoThreads() { isRefusing = true; }
    ~NoThreads() { isRefusing = false; }

    NoThreads(const NoThreads &) = delete;
    NoThreads &operator=(const NoThreads &) = delete;
};

void writeTrace(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly))
        return;
    for (int second = 0; second < 3; ++second)
        file.write(QStringLiteral("(%1.000000) can0 123#11\n").arg(second).toLatin1());
}

} // namespace

/// What becomes of work that the system has no thread for.
class TestNoThreads : public QObject
{
    Q_OBJECT
private slots:
    void aLineFailsAndStartsAgain();
    void aTaskIsDoneAtOnce();
    void aSourceTextSaysSo();
    void notesAreReadLater();
    void aMergeSaysSo();
};

void TestNoThreads::aLineFailsAndStartsAgain()
{
    GeneratorLine line(GeneratorOptions(), 0, std::make_shared<MessageSink>());
    QSignalSpy notices(&line, &BusLine::notice);
    {
        const NoThreads none;
        line.start();
    }
    QCOMPARE(line.state(), BusLine::Failed);
    QCOMPARE(notices.size(), 1);
    line.start();
    QCOMPARE(line.state(), BusLine::Running);
}

void TestNoThreads::aTaskIsDoneAtOnce()
{
    std::optional<NoThreads> none(std::in_place);
    TaskThread worker;
    std::atomic<QThread *> doneOn{nullptr};
    const auto task = [&](const TaskThread::GoesOn &goesOn) {
        doneOn = goesOn() ? QThread::currentThread() : nullptr;
    };
    worker.run(task);
    none.reset();
    QCOMPARE(doneOn.load(), QThread::currentThread());
    worker.run(task);
    QTRY_VERIFY(doneOn != QThread::currentThread());
}

void TestNoThreads::aSourceTextSaysSo()
{
    QTemporaryDir folder;
    const QString fileName = folder.filePath(QStringLiteral("a.log"));
    writeTrace(fileName);
    SourceReader reader(fileName, 10);
    const QSignalSpy failed(&reader, &SourceReader::failed);
    const QSignalSpy page(&reader, &SourceReader::page);
    {
        const NoThreads none;
        reader.want(1);
    }
    QTRY_COMPARE(failed.size(), 1);
    reader.want(1);
    QTRY_COMPARE(page.size(), 1);
}

void TestNoThreads::notesAreReadLater()
{
    const TraceTimeline timeline(QStringList{});
    MarkReader reader;
    const QSignalSpy read(&reader, &MarkReader::marksRead);
    {
        const NoThreads none;
        reader.read(timeline);
    }
    reader.read(timeline);
    QTRY_COMPARE(read.size(), 1);
}

void TestNoThreads::aMergeSaysSo()
{
    QTemporaryDir folder;
    ConvertOrder order;
    for (const char *name : {"a.log", "b.log"}) {
        order.paths += folder.filePath(QLatin1String(name));
        writeTrace(order.paths.last());
    }
    order.target = folder.filePath(QStringLiteral("all.log"));
    order.isMerged = true;
    order.form.format = {TargetFormat::Foreign, TraceExport::Candump};
    JobControl control;
    {
        const NoThreads none;
        const ConvertResult result = convertFiles(order, control);
        QCOMPARE(result.written, 0);
        QVERIFY(result.problems.join(QLatin1Char(' ')).contains(QLatin1String("no thread")));
        QVERIFY(!QFile::exists(order.target));
    }
    QCOMPARE(convertFiles(order, control).written, 1);
}

QTEST_MAIN(TestNoThreads)
#include "tst_nothreads.moc"
