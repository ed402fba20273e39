// Appending, rotating, reading single messages.

#include "datachunkhandler.h"
#include "messagelist.h"
#include "workfiles.h"

#include <QReadWriteLock>
#include <QWriteLocker>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <vector>

namespace {

constexpr unsigned noLimit = 4999;

void fill(DatachunkHandler &store)
{
    for (const CAN::CanRxMessage &message : benchTraffic())
        store.appendCanMessage(message);
}

void appendAll(benchmark::State &state, unsigned limit, unsigned budget, bool continuous)
{
    for (auto _ : state) {
        DatachunkHandler store(limit);
        store.setMaximumHDDSpace(budget);
        if (continuous)
            store.setContinuesMode(true);
        fill(store);
    }
    state.SetItemsProcessed(int64_t(state.iterations()) * benchTraffic().size());
}

// Single appends with rotation and chunk writing on; the counters are nanoseconds.
void appendLatency(benchmark::State &state)
{
    using Clock = std::chrono::steady_clock;
    std::vector<qint64> times;
    times.reserve(std::size_t(benchTraffic().size()));
    for (auto _ : state) {
        DatachunkHandler store(105000);
        times.clear();
        for (const CAN::CanRxMessage &message : benchTraffic()) {
            const Clock::time_point start = Clock::now();
            store.appendCanMessage(message);
            times.push_back((Clock::now() - start).count());
        }
    }
    std::sort(times.begin(), times.end());
    const auto percentile = [&times](double share) {
        return double(times[std::size_t(double(times.size() - 1) * share)]);
    };
    state.counters["p50"] = percentile(0.5);
    state.counters["p99.9"] = percentile(0.999);
    state.counters["max"] = percentile(1);
}

// The limit of an append: the record into a QList, under a write lock taken twice.
void appendToQList(benchmark::State &state)
{
    for (auto _ : state) {
        QList<CAN::CanRxMessage> list;
        QReadWriteLock lock;
        quint32 number = 0;
        for (CAN::CanRxMessage message : benchTraffic()) {
            {
                const QWriteLocker locker(&lock);
                message.messageNumber = number++;
            }
            const QWriteLocker locker(&lock);
            list.append(message);
        }
        benchmark::DoNotOptimize(list.size());
    }
    state.SetItemsProcessed(int64_t(state.iterations()) * benchTraffic().size());
}

void handOver(benchmark::State &state)
{
    MessageList list;
    for (int64_t i = 0; i < state.range(0); ++i)
        list.append(CAN::CanRxMessage());
    for (auto _ : state) {
        MessageList snapshot = std::exchange(list, {});
        benchmark::DoNotOptimize(snapshot.size());
        list = std::move(snapshot);
    }
}

void stepThroughLine(benchmark::State &state)
{
    DatachunkHandler store(noLimit);
    fill(store);
    CAN::CanRxMessage message;
    for (auto _ : state) {
        store.resetLinePositions();
        while (store.nextMessageForLine(message, 0)) { }
    }
    state.SetItemsProcessed(int64_t(state.iterations()) * benchTraffic().size());
}

void findNumber(benchmark::State &state)
{
    DatachunkHandler store(noLimit);
    fill(store);
    const auto last = unsigned(benchTraffic().size() - 1);
    for (auto _ : state)
        benchmark::DoNotOptimize(store.getPositionOfMessageNumber(last));
}

} // namespace

BENCHMARK_CAPTURE(appendAll, live, noLimit, 1000, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(appendAll, rotatingWithChunks, 105000, 1000, false)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();
BENCHMARK_CAPTURE(appendAll, rotatingWithoutChunks, 105000, 0, false)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(appendAll, continuous, noLimit, 0, true)->Unit(benchmark::kMillisecond);
BENCHMARK(appendLatency)->Unit(benchmark::kMillisecond);
BENCHMARK(appendToQList)->Unit(benchmark::kMillisecond);
BENCHMARK(handOver)->Arg(1000)->Arg(1000000);
BENCHMARK(stepThroughLine)->Unit(benchmark::kMillisecond);
BENCHMARK(findNumber);
