// Messages per second that a Parquet file is written with, on one core, and the bytes that one
// takes: of generated traffic, whose payloads are random, and of the trace that
// DATACHUNK_BENCH_TRACE names.

#include "parquettrace.h"
#include "tracerecognition.h"
#include "tracestream.h"
#include "workfiles.h"

#include <benchmark/benchmark.h>

namespace {

// Nothing of a trace that is not named or cannot be read.
const QVector<CAN::CanRxMessage> &namedTrace()
{
    static const QVector<CAN::CanRxMessage> messages = [] {
        QVector<CAN::CanRxMessage> read;
        const QString fileName = qEnvironmentVariable("DATACHUNK_BENCH_TRACE");
        TraceStream stream(fileName, TraceRecognition::of(fileName).type);
        stream.setMode(DatachunkHelper::Tolerant);
        stream.read(
            [&read](const TraceItem &item) {
                read.append(item.message);
                return true;
            },
            [] { return true; });
        return read;
    }();
    return messages;
}

void write(benchmark::State &state, const QVector<CAN::CanRxMessage> &messages)
{
    const QString noNote;
    int64_t bytes = 0;
    QByteArray block;
    block.reserve(1 << 20);
    for (auto _ : state) {
        ParquetTrace trace;
        for (const CAN::CanRxMessage &message : messages) {
            trace.append(message, noNote, block);
            if (block.isEmpty())
                continue;
            bytes += block.size();
            block.resize(0);
        }
        trace.finish(block);
        bytes += block.size();
        block.resize(0);
    }
    const int64_t all = int64_t(state.iterations()) * messages.size();
    state.SetItemsProcessed(all);
    state.counters["bytes/message"] = double(bytes) / double(all);
}

void generated(benchmark::State &state)
{
    write(state, benchTraffic());
}
BENCHMARK(generated)->Name("write/parquet")->Unit(benchmark::kMillisecond);

void named(benchmark::State &state)
{
    if (namedTrace().isEmpty())
        state.SkipWithError("DATACHUNK_BENCH_TRACE names no trace");
    else
        write(state, namedTrace());
}

} // namespace

void registerParquetBenchmarks()
{
    if (qEnvironmentVariableIsSet("DATACHUNK_BENCH_TRACE"))
        benchmark::RegisterBenchmark("write/parquet/trace", named)->Unit(benchmark::kMillisecond);
}
