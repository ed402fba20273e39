// Every text reader, as a plain function and through importMessages, and detection.

#include "datachunkhandler.h"
#include "linesource.h"
#include "loadertable.h"
#include "workfiles.h"
#include "yardsticks.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <benchmark/benchmark.h>

#include <malloc.h>
#include <string>

namespace {

// Takes messages and forgets them, but turns the event loop where a reader asks for it.
class CountingSink : public TraceSink
{
public:
    bool message(const CAN::CanRxMessage &message) override
    {
        benchmark::DoNotOptimize(message.id);
        ++count;
        return true;
    }
    void note(quint32, const QString &) override { }
    void appendNote(quint32, const QString &) override { }
    void fdFrames(bool) override { }
    bool turnEventLoop() override
    {
        QCoreApplication::processEvents();
        ++turns;
        return true;
    }

    qint64 count = 0;
    int turns = 0;
};

CountingSink readOnce(const GeneratedFormat &format, const QString &fileName,
                      DatachunkHelper::ImportMode mode = DatachunkHelper::Strict)
{
    CountingSink sink;
    const TraceRequest request{fileName, format.type, QLatin1String(format.description), mode};
    const TraceReader reader = traceReaderFor(request);
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return sink;
    LineSource lines(file, reader.carriageReturns);
    reader.read(lines, sink, request);
    return sink;
}

void report(benchmark::State &state, const QString &fileName, qint64 messages)
{
    const auto iterations = qint64(state.iterations());
    state.SetItemsProcessed(iterations * messages);
    state.SetBytesProcessed(iterations * QFileInfo(fileName).size());
}

template <typename Work> double cpuOf(const Work &work)
{
    const double before = cpuSeconds();
    work();
    return cpuSeconds() - before;
}

// How many times the limit the benchmark takes, both measured in this run.
void compare(benchmark::State &state, const char *name, double seconds, double limit)
{
    state.counters[name] = seconds / double(state.iterations()) / limit;
}

void plainReader(benchmark::State &state, const GeneratedFormat &format)
{
    const QString file = traceFile(format);
    CountingSink sink;
    double seconds = 0;
    for (auto _ : state)
        seconds += cpuOf([&] { sink = readOnce(format, file); });
    if (sink.count == 0)
        state.SkipWithError("nothing was read");
    report(state, file, sink.count);
    compare(state, "xScan", seconds, cpuOf([&] { scanLines(file); }));
    if (sink.turns > sink.count / 100)
        compare(state, "xTurns", seconds, cpuOf([&] { turnEvents(sink.turns); }));
    if (format.type == DatachunkHelper::SocketCanDump && qstrcmp(format.name, "candump") == 0) {
        parseCandumpFlat(file);
        compare(state, "xFlat", seconds, cpuOf([&] { parseCandumpFlat(file); }));
    }
}

// Both roads take turns, so that the machine is as busy for one as for the other.
void tolerantReader(benchmark::State &state, const GeneratedFormat &format)
{
    const QString file = traceFile(format);
    CountingSink sink;
    double seconds = 0;
    double strictSeconds = 0;
    for (auto _ : state) {
        seconds += cpuOf([&] { sink = readOnce(format, file, DatachunkHelper::Tolerant); });
        state.PauseTiming();
        strictSeconds += cpuOf([&] { readOnce(format, file); });
        state.ResumeTiming();
    }
    if (sink.count == 0)
        state.SkipWithError("nothing was read");
    report(state, file, sink.count);
    state.counters["xStrict"] = seconds / strictSeconds;
}

void wholeImport(benchmark::State &state, const GeneratedFormat &format)
{
    const QString file = traceFile(format);
    unsigned count = 0;
    double seconds = 0;
    scanLines(file);
    malloc_trim(0);
    resetPeakMemory();
    const qint64 before = residentMemory();
    for (auto _ : state) {
        seconds += cpuOf([&] {
            DatachunkHandler store(quint32(benchFrames()) + 10000);
            store.importMessages(file, format.type, QLatin1String(format.description));
            count = store.getIsLive() ? 0 : store.getMessageCount();
        });
    }
    if (count == 0)
        state.SkipWithError("nothing was imported");
    report(state, file, count);
    compare(state, "xScan", seconds, cpuOf([&] { scanLines(file); }));
    if (count != 0)
        state.counters["bytesPerMessage"] = double(peakMemory() - before) / count;
}

void detect(benchmark::State &state, const GeneratedFormat &format)
{
    const QString file = traceFile(format);
    for (auto _ : state)
        benchmark::DoNotOptimize(DatachunkHelper().getImportFileType(file));
}

} // namespace

void registerImportBenchmarks()
{
    using Function = void (*)(benchmark::State &, const GeneratedFormat &);
    const std::pair<const char *, Function> functions[] = {{"read/", plainReader},
                                                           {"readTolerantly/", tolerantReader},
                                                           {"import/", wholeImport},
                                                           {"detect/", detect}};
    for (const auto &[prefix, function] : functions) {
        for (const GeneratedFormat &format : generatedFormats()) {
            if (function == tolerantReader && !traceReaderFor(format.type).readTolerantly)
                continue;
            benchmark::RegisterBenchmark((std::string(prefix) + format.name).c_str(),
                                         [function = function, &format](benchmark::State &state) {
                                             function(state, format);
                                         })
                ->Unit(benchmark::kMillisecond)
                ->MeasureProcessCPUTime();
        }
    }
}
