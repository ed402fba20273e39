// Chunk files, the text export and archives.

#include "chunkformat.h"
#include "datachunkhandler.h"
#include "savejob.h"
#include "workfiles.h"
#include "yardsticks.h"

#include <QFile>
#include <QFileInfo>

#include <benchmark/benchmark.h>

namespace {

SaveJob *benchJob(const QString &name)
{
    auto *job = new SaveJob;
    job->fileName = workPath(name);
    for (const CAN::CanRxMessage &message : benchTraffic())
        job->messages.append(message);
    job->endPosition = quint32(job->messages.size());
    return job;
}

void report(benchmark::State &state, const QString &fileName)
{
    const auto iterations = int64_t(state.iterations());
    state.SetItemsProcessed(iterations * benchTraffic().size());
    state.SetBytesProcessed(iterations * QFileInfo(fileName).size());
}

void writeChunk(benchmark::State &state)
{
    const std::unique_ptr<SaveJob> job(benchJob(QStringLiteral("bench.dck")));
    for (auto _ : state)
        writeChunkFile(*job);
    report(state, job->fileName);
}

void writeSameBytesPlainly(benchmark::State &state)
{
    const std::unique_ptr<SaveJob> job(benchJob(QStringLiteral("plain.dck")));
    writeChunkFile(*job);
    const qint64 bytes = QFileInfo(job->fileName).size();
    for (auto _ : state)
        writePlain(job->fileName, bytes);
    report(state, job->fileName);
}

// The road to beat: every field through the stream, record by record.
void writeByStream(benchmark::State &state)
{
    const QString name = workPath(QStringLiteral("stream.dck"));
    for (auto _ : state) {
        QFile file(name);
        file.open(QIODevice::WriteOnly);
        QDataStream stream(&file);
        for (const CAN::CanRxMessage &m : benchTraffic()) {
            stream << m.length;
            stream.writeRawData(reinterpret_cast<const char *>(m.data), m.length);
            stream << m.extended << m.id << m.remote << m.flagC << m.fdFrame << m.flagB << m.flagD
                   << m.microseconds << m.seconds << m.messageNumber << m.line;
        }
    }
    report(state, name);
}

QString recordsFile()
{
    const QString name = workPath(QStringLiteral("records.dck"));
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly))
        qFatal("cannot write %s", qPrintable(name));
    ChunkFormat::RecordWriter writer(file, ChunkFormat::currentVersion);
    for (const CAN::CanRxMessage &message : benchTraffic())
        writer.write(message);
    writer.flush();
    return name;
}

void readChunk(benchmark::State &state)
{
    const QString name = recordsFile();
    for (auto _ : state) {
        QFile file(name);
        file.open(QIODevice::ReadOnly);
        ChunkFormat::RecordReader reader(file, ChunkFormat::currentVersion);
        MessageList messages;
        CAN::CanRxMessage message;
        while (reader.next(message))
            messages.append(message);
        benchmark::DoNotOptimize(messages.size());
    }
    report(state, name);
}

void readByStream(benchmark::State &state)
{
    const QString name = recordsFile();
    for (auto _ : state) {
        QFile file(name);
        file.open(QIODevice::ReadOnly);
        QDataStream stream(&file);
        QList<CAN::CanRxMessage> messages;
        CAN::CanRxMessage message;
        while (!stream.atEnd() && ChunkFormat::readRecord(stream, message, 104))
            messages.append(message);
        benchmark::DoNotOptimize(messages.size());
    }
    report(state, name);
}

void exportText(benchmark::State &state)
{
    const std::unique_ptr<SaveJob> job(benchJob(QStringLiteral("bench.txt")));
    for (auto _ : state)
        writeTextFile(*job);
    report(state, job->fileName);
}

// Ten chunks of the traffic in a store's chunk folder, waiting to be packed.
std::unique_ptr<DatachunkHandler> storeWithChunks(const QString &zipName)
{
    const int chunks = 10;
    auto store = std::make_unique<DatachunkHandler>(quint32(benchFrames() / chunks) + 5000);
    for (const CAN::CanRxMessage &message : benchTraffic())
        store->appendCanMessage(message);
    store->setZipFileName(zipName);
    return store;
}

void packChunks(benchmark::State &state)
{
    const QString zipName = workPath(QStringLiteral("bench.zip"));
    const std::unique_ptr<DatachunkHandler> store = storeWithChunks(zipName);
    for (auto _ : state)
        store->saveDatachunksToZip();
    report(state, zipName);
}

void loadMerged(benchmark::State &state)
{
    const QString zipName = workPath(QStringLiteral("bench.zip"));
    storeWithChunks(zipName)->saveDatachunksToZip();
    DatachunkHandler store(5000);
    for (auto _ : state) {
        if (!store.loadZipMerged(zipName))
            state.SkipWithError("nothing was loaded");
    }
    report(state, zipName);
}

} // namespace

BENCHMARK(writeChunk)->Unit(benchmark::kMillisecond);
BENCHMARK(writeSameBytesPlainly)->Unit(benchmark::kMillisecond);
BENCHMARK(writeByStream)->Unit(benchmark::kMillisecond);
BENCHMARK(readChunk)->Unit(benchmark::kMillisecond);
BENCHMARK(readByStream)->Unit(benchmark::kMillisecond);
BENCHMARK(exportText)->Unit(benchmark::kMillisecond);
BENCHMARK(packChunks)->Unit(benchmark::kMillisecond);
BENCHMARK(loadMerged)->Unit(benchmark::kMillisecond);
