// What a timeline promises, on a folder of chunks. DATACHUNK_BENCH_MESSAGES says how many messages,
// DATACHUNK_BENCH_FOLDER a folder that is there already, written by datachunk-generate.

#include "chunkdirectory.h"
#include "foldergenerator.h"
#include "savedchunk.h"
#include "savejob.h"
#include "tracefilter.h"
#include "tracetimeline.h"
#include "workfiles.h"
#include "yardsticks.h"

#include <QDir>
#include <QThread>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <malloc.h>
#include <random>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

double millisecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

QString newFolder()
{
    constexpr qint64 usualMessages = 2000000;
    constexpr qint64 mostPerChunk = FolderGenerator::chunkSize;
    constexpr qint64 fewestChunks = 4;
    const qint64 messages = qEnvironmentVariableIsSet("DATACHUNK_BENCH_MESSAGES")
        ? qgetenv("DATACHUNK_BENCH_MESSAGES").toLongLong()
        : usualMessages;
    const QString name = workPath(QStringLiteral("chunks"));
    if (!FolderGenerator::write(name, messages,
                                int(std::min(mostPerChunk, messages / fewestChunks))))
        qFatal("cannot write %s", qPrintable(name));
    return name;
}

const QString &folder()
{
    static const QString name = qEnvironmentVariableIsSet("DATACHUNK_BENCH_FOLDER")
        ? qEnvironmentVariable("DATACHUNK_BENCH_FOLDER")
        : newFolder();
    return name;
}

QStringList chunkFiles()
{
    QStringList files;
    for (const QFileInfo &file : QDir(folder()).entryInfoList({QStringLiteral("*.dck")}))
        files.append(file.filePath());
    return files;
}

TraceTimeline openedTimeline()
{
    TraceTimeline timeline({folder()});
    timeline.waitForAll();
    return timeline;
}

TraceExpression expression(const char *text)
{
    const auto parsed = TraceExpression::parse(QString::fromLatin1(text));
    if (!parsed)
        qFatal("%s is no expression", text);
    return *parsed;
}

// Without the pauses of TraceFilter::wait, which a short search would be measured by.
void waitFor(const TraceFilter &filter)
{
    while (!filter.isComplete())
        QThread::usleep(200);
}

// Milliseconds of single calls.
class Latencies
{
public:
    template <typename Work> void measure(const Work &work)
    {
        const Clock::time_point start = Clock::now();
        work();
        times.push_back(millisecondsSince(start));
    }
    void report(benchmark::State &state)
    {
        std::sort(times.begin(), times.end());
        state.counters["p50ms"] = times[times.size() / 2];
        state.counters["p99ms"] = times[(times.size() - 1) * 99 / 100];
    }

private:
    std::vector<double> times;
};

double mebibytes(qint64 bytes)
{
    return double(bytes) / (1024 * 1024);
}

// The limit is to read the bytes of the directory.
void timelineOpen(benchmark::State &state)
{
    const QStringList directory{ChunkDirectory::path(folder())};
    malloc_trim(0);
    resetPeakMemory();
    const qint64 before = residentMemory();
    quint64 count = 0;
    double milliseconds = 0;
    double limit = 0;
    for (auto _ : state) {
        const Clock::time_point start = Clock::now();
        count = TraceTimeline({folder()}).count();
        milliseconds += millisecondsSince(start);
        state.PauseTiming();
        const Clock::time_point limitStart = Clock::now();
        readPlain(directory);
        limit += millisecondsSince(limitStart);
        state.ResumeTiming();
    }
    state.counters["messages"] = double(count);
    state.counters["peakMiB"] = mebibytes(peakMemory() - before);
    state.counters["xRead"] = milliseconds / limit;
}

// When the first row is there, and when all is known. The limit is to read the files.
void timelineOpenWithoutDirectory(benchmark::State &state)
{
    const QString directory = ChunkDirectory::path(folder());
    const QString kept = directory + QStringLiteral(".kept");
    QFile::rename(directory, kept);
    const QStringList files = chunkFiles();
    qint64 bytes = 0;
    double firstRow = 0;
    double limit = 0;
    double milliseconds = 0;
    for (auto _ : state) {
        const Clock::time_point start = Clock::now();
        TraceTimeline timeline({folder()});
        while (timeline.row(0).state != TraceRow::Known) {
            QThread::usleep(200);
            timeline.refresh();
        }
        firstRow += millisecondsSince(start);
        while (!timeline.isComplete())
            QThread::usleep(200);
        milliseconds += millisecondsSince(start);
        state.PauseTiming();
        QFile::remove(directory);
        const Clock::time_point limitStart = Clock::now();
        bytes = readPlain(files);
        limit += millisecondsSince(limitStart);
        state.ResumeTiming();
    }
    QFile::rename(kept, directory);
    const auto iterations = double(state.iterations());
    state.counters["firstRowMs"] = firstRow / iterations;
    state.counters["xRead"] = milliseconds / limit;
    state.SetBytesProcessed(int64_t(state.iterations()) * bytes);
}

// The step that is looked for has to be read and decoded, but for those that were read last.
template <typename Position> void jump(benchmark::State &state, const Position &position)
{
    const TraceTimeline timeline = openedTimeline();
    std::mt19937_64 random(1);
    Latencies latencies;
    for (auto _ : state) {
        latencies.measure([&] {
            if (timeline.row(position(timeline, random())).state != TraceRow::Known)
                state.SkipWithError("there is no such message");
        });
    }
    latencies.report(state);
}

void timelineJumpToNumber(benchmark::State &state)
{
    jump(state, [](const TraceTimeline &timeline, quint64 random) {
        return timeline.positionOfNumber(quint32(random % timeline.count())).value_or(0);
    });
}

void timelineJumpToTime(benchmark::State &state)
{
    jump(state, [](const TraceTimeline &timeline, quint64 random) {
        const auto span = quint64(timeline.lastTime() - timeline.firstTime());
        return timeline.positionOfTime(timeline.firstTime() + qint64(random % span));
    });
}

void timelineCount(benchmark::State &state, const char *text)
{
    const TraceTimeline timeline = openedTimeline();
    const TraceExpression wanted = expression(text);
    quint64 count = 0;
    for (auto _ : state) {
        const TraceFilter filter = timeline.filter(wanted);
        if (!filter.isComplete())
            state.SkipWithError("it is not known at once");
        count = filter.count();
    }
    state.counters["rows"] = double(count);
}

// Each row in a new filter, which knows nothing of any chunk.
void timelineRow(benchmark::State &state, const char *text)
{
    const TraceTimeline timeline = openedTimeline();
    const TraceExpression wanted = expression(text);
    std::mt19937_64 random(1);
    Latencies latencies;
    for (auto _ : state) {
        state.PauseTiming();
        const TraceFilter filter = timeline.filter(wanted);
        const quint64 count = filter.count();
        state.ResumeTiming();
        latencies.measure([&] {
            if (count > 0 && !filter.at(random() % count))
                state.SkipWithError("there is no such row");
        });
    }
    latencies.report(state);
}

void timelineSearch(benchmark::State &state, const char *text)
{
    const TraceTimeline timeline = openedTimeline();
    const TraceExpression wanted = expression(text);
    const QStringList files = chunkFiles();
    qint64 bytes = 0;
    double milliseconds = 0;
    double firstHits = 0;
    double limit = 0;
    for (auto _ : state) {
        const Clock::time_point start = Clock::now();
        const TraceFilter filter = timeline.filter(wanted);
        while (filter.count() == 0 && !filter.isComplete())
            QThread::usleep(200);
        firstHits += millisecondsSince(start);
        waitFor(filter);
        milliseconds += millisecondsSince(start);
        state.PauseTiming();
        const Clock::time_point limitStart = Clock::now();
        bytes = readPlain(files);
        limit += millisecondsSince(limitStart);
        state.ResumeTiming();
    }
    state.counters["firstHitsMs"] = firstHits / double(state.iterations());
    state.counters["xRead"] = milliseconds / limit;
    state.SetBytesProcessed(int64_t(state.iterations()) * bytes);
}

void timelineOverview(benchmark::State &state)
{
    constexpr int pixels = 1000;
    const TraceTimeline timeline = openedTimeline();
    for (auto _ : state)
        benchmark::DoNotOptimize(
            timeline.rate(timeline.firstTime(), timeline.lastTime(), pixels).errors.size());
}

// What the directory costs the thread that saves a chunk, beside writing it.
void timelineSavedChunk(benchmark::State &state)
{
    const QString name = workPath(QStringLiteral("saved"));
    QDir().mkpath(name);
    SaveJob job;
    job.fileName = name + QStringLiteral("/a.dck");
    // As many keys as a bus has.
    for (CAN::CanRxMessage message : benchTraffic().mid(0, FolderGenerator::chunkSize)) {
        message.id %= 400;
        job.messages.append(message);
    }
    job.endPosition = quint32(job.messages.size());
    double writing = 0;
    double adding = 0;
    for (auto _ : state) {
        const double start = cpuSeconds();
        writeChunkFile(job);
        const double written = cpuSeconds();
        if (!addSavedChunk(job))
            state.SkipWithError("the directory cannot be written");
        adding += cpuSeconds() - written;
        writing += written - start;
    }
    const double messages = double(state.iterations()) * job.messages.size();
    state.counters["writeNs"] = writing * 1e9 / messages;
    state.counters["indexNs"] = adding * 1e9 / messages;
}

} // namespace

BENCHMARK(timelineOpen)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(timelineOpenWithoutDirectory)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(timelineJumpToNumber)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(timelineJumpToTime)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(timelineCount, identifier, "id==7ab")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(timelineCount, range, "id in 100..1ff")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(timelineCount, line, "line==2")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(timelineRow, identifier, "id==7ab")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(timelineRow, range, "id in 100..1ff")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(timelineRow, line, "line==2")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(timelineSearch, byte, "b3==a0")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(timelineSearch, pattern, "data~\"5a 5a 5a\"")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(timelineSearch, changed, "changed and id==103")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(timelineOverview)->Unit(benchmark::kMillisecond);
BENCHMARK(timelineSavedChunk)->Unit(benchmark::kMillisecond);
