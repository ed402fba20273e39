#include "traceinput.h"

#include "stopsignals.h"
#include "terminal.h"

#include <QFileInfo>

namespace {

using Result = TraceReading::Result;

class StreamInput : public TraceInput
{
public:
    explicit StreamInput(const TraceFile &trace) : trace(trace), reading(trace) { }

    std::vector<Name> names() const override { return {{trace.name, typeName(trace.type)}}; }
    QString subject() const override { return trace.name; }
    Result forEachMessage(quint64 from, const Visit &visit) override
    {
        quint64 position = 0;
        return reading.forEachMessage([&](const TraceItem &item) {
            const quint64 at = position++;
            return at < from || visit(at, item);
        });
    }

private:
    const TraceFile trace;
    TraceReading reading;
};

class TimelineInput : public TraceInput
{
public:
    explicit TimelineInput(std::vector<Name> names) : all(std::move(names)) { }

    std::vector<Name> names() const override { return all; }
    QString subject() const override
    {
        return all.size() == 1 ? all.front().path : Cli::tr("%1 paths").arg(all.size());
    }
    const TraceTimeline *timeline() const override { return trace.get(); }
    Result open() override;
    Result forEachMessage(quint64 from, const Visit &visit) override;

private:
    const std::vector<Name> all;
    std::unique_ptr<TraceTimeline> trace;
};

Result TimelineInput::open()
{
    QStringList paths;
    for (const Name &name : all)
        paths.append(name.path);
    trace = std::make_unique<TraceTimeline>(paths);
    {
        Progress progress(subject());
        trace->waitForAll([&] {
            trace->refresh();
            progress.setCount(trace->count());
            QCoreApplication::processEvents();
            return !StopSignals::received();
        });
    }
    const QStringList problems = trace->problems();
    for (const QString &problem : problems)
        printError(subject(), problem);
    if (interrupted(subject()))
        return Result::Failed;
    if (trace->count() == 0 && problems.isEmpty())
        printError(subject(), Cli::tr("There are no messages."));
    if (trace->count() == 0)
        return Result::Failed;
    return problems.isEmpty() ? Result::Complete : Result::Damaged;
}

Result TimelineInput::forEachMessage(quint64 from, const Visit &visit)
{
    TraceItem item;
    const auto visitBlock = [&](const TraceBlock &block) {
        QCoreApplication::processEvents();
        for (int i = 0; i < block.count; ++i) {
            item.message = block.messages[i];
            if (!block.notes.isEmpty() || !item.note.isEmpty())
                item.note = block.notes.value(item.message.messageNumber);
            if (!visit(block.position + quint64(i), item))
                return false;
        }
        return !StopSignals::received();
    };
    const quint64 gone = trace->forEach(from, trace->count(), visitBlock);
    if (interrupted(subject()))
        return Result::Failed;
    return tellGone(subject(), gone);
}

bool isChunkOrArchive(const TraceFile &trace)
{
    return trace.type == DatachunkHelper::ChunkFile || trace.type == DatachunkHelper::ZipArchive;
}

// A timeline tells an archive by its name.
bool canBeInTimeline(const TraceFile &trace)
{
    const bool isNamedSo = trace.name.endsWith(QLatin1String(".zip"), Qt::CaseInsensitive);
    return isChunkOrArchive(trace) && isNamedSo == (trace.type == DatachunkHelper::ZipArchive);
}

} // namespace

Result tellGone(const QString &subject, quint64 messages)
{
    if (messages == 0)
        return Result::Complete;
    printError(subject, Cli::tr("%1 messages are no longer there.").arg(messages));
    return Result::Damaged;
}

bool TraceInputs::open(const QStringList &paths, Alone alone)
{
    struct Path
    {
        TraceFile file;
        bool isFolder = false;
    };
    std::vector<Path> named;
    bool areChunks = true;
    for (const QString &path : paths) {
        Path next{options, QFileInfo(path).isDir()};
        next.file.name = path;
        if (!next.isFolder && !checkTrace(next.file))
            return false;
        areChunks = areChunks && (next.isFolder || canBeInTimeline(next.file));
        named.push_back(next);
    }
    const bool isAlone = !areChunks || named.size() == 1;
    std::vector<TraceInput::Name> chunks;
    for (const auto &[file, isFolder] : named) {
        if (!isFolder && (!canBeInTimeline(file) || (isAlone && alone == AsStream))) {
            inputs.push_back(std::make_unique<StreamInput>(file));
            continue;
        }
        chunks.push_back({file.name, isFolder ? Cli::tr("folder") : typeName(file.type)});
        if (!isAlone && chunks.size() < named.size())
            continue;
        inputs.push_back(std::make_unique<TimelineInput>(std::move(chunks)));
        chunks = {};
    }
    return true;
}
