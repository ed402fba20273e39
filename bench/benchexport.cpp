// Messages per second that each format of the export writes.

#include "traceexport.h"
#include "workfiles.h"

#include <benchmark/benchmark.h>

#include <string>

namespace {

void write(benchmark::State &state, TraceExport::Format format)
{
    constexpr int blockSize = 1 << 16;
    const QString noNote;
    int64_t bytes = 0;
    QByteArray block;
    block.reserve(2 * blockSize);
    for (auto _ : state) {
        TraceExport trace(format);
        for (const CAN::CanRxMessage &message : benchTraffic()) {
            trace.append(message, noNote, block);
            if (block.size() < blockSize)
                continue;
            bytes += block.size();
            block.resize(0);
        }
        trace.finish(block);
    }
    state.SetItemsProcessed(int64_t(state.iterations()) * benchTraffic().size());
    state.SetBytesProcessed(bytes);
}

} // namespace

void registerExportBenchmarks()
{
    const QStringList names = TraceExport::formatNames();
    for (int format = 0; format < names.size(); ++format) {
        benchmark::RegisterBenchmark(
            ("write/" + names.at(format).toStdString()).c_str(),
            [format](benchmark::State &state) { write(state, TraceExport::Format(format)); })
            ->Unit(benchmark::kMillisecond);
    }
}
