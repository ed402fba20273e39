#include "traceinput.h"

#include "chunknames.h"
#include "standardinput.h"
#include "stopsignals.h"
#include "terminal.h"

#include <QFileInfo>

#include <atomic>

#include <algorithm>

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
    double part() const override { return reading.part(); }
    QByteArray report() const override { return reading.report(); }

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
    void keepBookmarks() override { keepsBookmarks = true; }
    Result forEachMessage(quint64 from, const Visit &visit) override;
    double part() const override { return visitedPart; }

private:
    Result read();

    const std::vector<Name> all;
    std::atomic<double> visitedPart{-1};
    std::unique_ptr<TraceTimeline> trace;
    Result opened = Result::Complete;
    bool keepsBookmarks = false;
};

Result TimelineInput::open()
{
    if (!trace)
        opened = read();
    return opened;
}

Result TimelineInput::read()
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
    const QVector<quint64> marked =
        keepsBookmarks ? trace->bookmarkPositions() : QVector<quint64>();
    auto nextMarked = std::lower_bound(marked.begin(), marked.end(), from);
    const auto visitBlock = [&](const TraceBlock &block) {
        visitedPart = double(block.position) / double(trace->count());
        QCoreApplication::processEvents();
        for (int i = 0; i < block.count; ++i) {
            item.message = block.messages[i];
            if (!block.notes.isEmpty() || !item.note.isEmpty())
                item.note = block.notes.value(item.message.messageNumber);
            const quint64 position = block.position + quint64(i);
            const bool isMarked = nextMarked != marked.end() && *nextMarked == position;
            item.bookmark = isMarked ? trace->row(*nextMarked++).bookmark : CanMessageBookmark();
            if (!visit(position, item))
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

// A timeline tells an archive by its name, and goes to and fro in a chunk file, which it cannot in
// a compressed one.
bool canBeInTimeline(const TraceFile &trace)
{
    const bool isNamedSo = trace.name.endsWith(QLatin1String(".zip"), Qt::CaseInsensitive);
    const bool isCompressed =
        trace.detectsType && trace.type == DatachunkHelper::ChunkFile && !isChunkName(trace.name);
    return isChunkOrArchive(trace) && !isCompressed
        && isNamedSo == (trace.type == DatachunkHelper::ZipArchive);
}

TraceInput::Name nameOf(const TraceFile &file, bool isFolder)
{
    return {file.name, isFolder ? Cli::tr("folder") : typeName(file.type)};
}

} // namespace

Result tellGone(const QString &subject, quint64 messages)
{
    if (messages == 0)
        return Result::Complete;
    printError(subject, Cli::tr("%1 messages are no longer there.").arg(messages));
    return Result::Damaged;
}

TraceInputs::TraceInputs(TraceFile options) : options(std::move(options)) { }

TraceInputs::~TraceInputs() = default;

bool TraceInputs::check(const QString &name, Path &path)
{
    path = {options, QFileInfo(name).isDir()};
    path.file.name = name;
    if (name != QLatin1String("-"))
        return path.isFolder || checkTrace(path.file);
    if (standardInput) {
        printError(Cli::tr("standard input"), Cli::tr("It can be read only once."));
        return false;
    }
    standardInput = std::make_unique<StandardInput>();
    return checkStandardInput(path.file, *standardInput);
}

bool TraceInputs::open(const QStringList &paths, Alone alone)
{
    std::vector<Path> named(std::size_t(paths.size()));
    bool areChunks = true;
    for (std::size_t i = 0; i < named.size(); ++i) {
        if (!check(paths.at(int(i)), named[i]))
            return false;
        areChunks = areChunks && (named[i].isFolder || canBeInTimeline(named[i].file));
    }
    const bool isAlone = !areChunks || named.size() == 1;
    std::vector<TraceInput::Name> chunks;
    for (const auto &[file, isFolder] : named) {
        if (!isFolder && (!canBeInTimeline(file) || (isAlone && alone == AsStream))) {
            inputs.push_back(std::make_unique<StreamInput>(file));
            continue;
        }
        chunks.push_back(nameOf(file, isFolder));
        if (!isAlone && chunks.size() < named.size())
            continue;
        inputs.push_back(std::make_unique<TimelineInput>(std::move(chunks)));
        chunks = {};
    }
    return true;
}

bool TraceInputs::openEach(const QStringList &paths)
{
    for (const QString &name : paths) {
        Path path;
        if (!check(name, path))
            return false;
        if (path.isFolder)
            inputs.push_back(std::make_unique<TimelineInput>(
                std::vector<TraceInput::Name>{nameOf(path.file, true)}));
        else
            inputs.push_back(std::make_unique<StreamInput>(path.file));
    }
    return true;
}
