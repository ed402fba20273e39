// What indexing costs, next to the work that it comes with: encoding the records.

#include "chunkformat.h"
#include "chunkindex.h"
#include "recordwalk.h"
#include "workfiles.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

namespace {

// As many as are in a processor's cache when they are written.
constexpr int messages = 4096;

// Messages with so many different keys.
std::vector<CAN::CanRxMessage> messagesWith(int keys)
{
    constexpr int lines = 4;
    std::vector<CAN::CanRxMessage> all;
    quint32 random = 1;
    for (CAN::CanRxMessage message : generateTraffic(messages)) {
        random = random * 1664525u + 1013904223u;
        const auto key = int(random >> 8) % keys;
        message.id = 0x100 + quint32(key / lines) * 3;
        message.line = quint16(key % lines);
        all.push_back(message);
    }
    return all;
}

QByteArray encoded(const std::vector<CAN::CanRxMessage> &all)
{
    QByteArray records(int(all.size()) * ChunkFormat::maxRecordSize, Qt::Uninitialized);
    char *end = records.data();
    for (const CAN::CanRxMessage &message : all)
        end += ChunkFormat::encodeRecord(end, message, ChunkFormat::currentVersion);
    records.truncate(int(end - records.data()));
    return records;
}

void encodeMessages(benchmark::State &state)
{
    const auto all = messagesWith(int(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(encoded(all).size());
    state.SetItemsProcessed(int64_t(state.iterations()) * messages);
}

/// A message as it comes some rounds later.
template <typename View> class Later : public View
{
public:
    Later(const View &view, qint64 round) : View(view), round(round) { }

    quint32 number() const { return View::number() + quint32(round * messages); }
    qint64 time() const { return View::time() + round * 1000000; }

private:
    const qint64 round;
};

// A chunk has as many messages as a store usually rotates.
template <typename AddAll> void index(benchmark::State &state, const AddAll &addAll)
{
    constexpr qint64 rounds = 100000 / messages;
    std::unique_ptr<ChunkIndexer> indexer;
    qint64 round = rounds;
    for (auto _ : state) {
        if (round == rounds) {
            indexer = std::make_unique<ChunkIndexer>(ChunkFormat::currentVersion, 0);
            round = 0;
        }
        addAll(*indexer, round++);
    }
    const ChunkIndex index = indexer->finish();
    if (!index.timesRise || !index.numbersRise)
        state.SkipWithError("these are no usual messages");
    state.SetItemsProcessed(int64_t(state.iterations()) * messages);
}

void indexMessages(benchmark::State &state)
{
    const auto all = messagesWith(int(state.range(0)));
    index(state, [&all](ChunkIndexer &indexer, qint64 round) {
        for (const CAN::CanRxMessage &message : all)
            indexer.add(Later<MessageView>(MessageView(message), round));
    });
}

void indexRecords(benchmark::State &state)
{
    const QByteArray records = encoded(messagesWith(int(state.range(0))));
    index(state, [&records](ChunkIndexer &indexer, qint64 round) {
        walkRecords(records.constBegin(), records.constEnd(), true, [&](RecordView record) {
            indexer.add(Later<RecordView>(record, round));
            return true;
        });
    });
}

} // namespace

BENCHMARK(encodeMessages)->Arg(16);
BENCHMARK(indexMessages)->Arg(16)->Arg(400)->Arg(1600);
BENCHMARK(indexRecords)->Arg(16)->Arg(400)->Arg(1600);
