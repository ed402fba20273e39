// Filters over records in memory, each against the walk from record to record that it needs.

#include "chunkformat.h"
#include "framefilter.h"
#include "workfiles.h"

#include <benchmark/benchmark.h>

namespace {

// Ten times the traffic, so that the default is too large for a processor's cache.
const QByteArray &benchRecords()
{
    static const QByteArray records = [] {
        QByteArray once(benchFrames() * ChunkFormat::maxRecordSize, Qt::Uninitialized);
        char *end = once.data();
        for (const CAN::CanRxMessage &message : benchTraffic())
            end += ChunkFormat::encodeRecord(end, message, ChunkFormat::currentVersion);
        once.truncate(int(end - once.data()));
        return once.repeated(10);
    }();
    return records;
}

template <typename Look> void walk(benchmark::State &state, Look look)
{
    const QByteArray &records = benchRecords();
    qint64 taken = 0;
    for (auto _ : state) {
        const char *end = records.constEnd();
        for (const char *at = records.constBegin(); at < end;) {
            const RecordView view(at, true);
            taken += look(view);
            at += RecordView::size(view.length(), true);
        }
    }
    benchmark::DoNotOptimize(taken);
    state.SetItemsProcessed(int64_t(state.iterations()) * 10 * benchTraffic().size());
    state.SetBytesProcessed(int64_t(state.iterations()) * records.size());
}

void walkRecords(benchmark::State &state)
{
    walk(state, [](const RecordView &view) { return view.length() == 7; });
}

void filterRecords(benchmark::State &state, const char *text)
{
    const FrameFilter filter = filterOf(*TraceExpression::parse(QString::fromLatin1(text)));
    const FrameFilter::Context context;
    walk(state, [&](const RecordView &view) { return filter.matches(view, context); });
}

// A thousand chunks of 240 identifiers each.
void countInChunks(benchmark::State &state, const char *text)
{
    constexpr int chunks = 1000;
    ChunkIndexer indexer(ChunkFormat::currentVersion, 0);
    for (CAN::CanRxMessage message : benchTraffic()) {
        message.id %= 240;
        indexer.add(MessageView(message));
    }
    const ChunkIndex index = indexer.finish();
    const FrameFilter filter = filterOf(*TraceExpression::parse(QString::fromLatin1(text)));
    for (auto _ : state) {
        for (int i = 0; i < chunks; ++i)
            benchmark::DoNotOptimize(filter.count(index).surely);
    }
    state.counters["keys"] = double(index.keys.size());
    state.SetItemsProcessed(int64_t(state.iterations()) * chunks);
}

} // namespace

BENCHMARK(walkRecords)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(filterRecords, identifier, "id==2a1")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(filterRecords, identifiers, "id in 100..10f,2a1,7df")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(filterRecords, byte, "b3&f0==a0")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(filterRecords, pattern, "data~\"11 22 ?? 44\"")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(filterRecords, several, "line==0 and not rtr and (b0<10 or len>7) and time>=10")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(countInChunks, identifier, "id==2a")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(countInChunks, several, "id in 10..1f,2a and not ext")
    ->Unit(benchmark::kMicrosecond);
