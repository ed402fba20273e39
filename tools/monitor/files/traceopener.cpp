#include "traceopener.h"

#include "importedtrace.h"
#include "jobqueue.h"
#include "openedtrace.h"
#include "plaintexts.h"

#include <QPointer>

TraceOpener::TraceOpener(JobQueue *queue, QObject *parent) : QObject(parent), queue(queue) { }

TraceOpener::~TraceOpener() = default;

// A path may be on a disk that takes its time, and a folder may have many files.
void TraceOpener::open(const QStringList &paths)
{
    if (paths.isEmpty())
        return;
    const auto sorted = std::make_shared<SortedPaths>();
    auto *job = new BackgroundJob(
        tr("Opening %1").arg(shortNames(paths)),
        [paths, sorted](JobControl &control) {
            *sorted = sortPaths(paths, control.isCancelled);
            return Notice();
        },
        this);
    connect(job, &BackgroundJob::finished, this, [this, job, sorted](const Notice &told) {
        job->deleteLater();
        if (!told.text.isEmpty())
            emit notice(told);
        if (!job->control().isCancelled)
            take(*sorted);
    });
    queue->addNow(job);
}

void TraceOpener::take(const SortedPaths &sorted)
{
    showChunks(sorted);
    importAll(sorted.foreign);
    tellRefused(sorted.refused);
}

void TraceOpener::showChunks(const SortedPaths &sorted)
{
    if (!sorted.timeline)
        return;
    emit wasOpened(sorted.chunks);
    emit opened(new OpenedTrace(*sorted.timeline, sorted.chunks));
}

void TraceOpener::importAll(const QVector<ImportSource> &sources)
{
    // Each takes threads and memory of its own, and nobody looks at that many.
    constexpr int mostTogether = 20;
    for (const ImportSource &source : sources.mid(0, mostTogether))
        import(source);
    if (const int more = int(sources.size()) - mostTogether; more > 0)
        emit notice({Notice::Warning, tr("%n traces more were not opened.", nullptr, more),
                     tr("Merge them into one file, or open fewer at a time.")});
}

void TraceOpener::import(const ImportSource &source)
{
    auto *trace = new ImportedTrace(source, this);
    connect(trace, &ShownTrace::notice, this, &TraceOpener::notice);
    connect(trace, &ImportedTrace::begun, this, [this, trace] { handOver(trace); });
    connect(trace, &ImportedTrace::reportWanted, this, [this, trace] { emit reportWanted(trace); });
    connect(trace->job(), &BackgroundJob::finished, this,
            [this, trace](const Notice &told) { finishImport(trace, told); });
    queue->add(trace->job());
}

// From here on whoever shows it also shows its notices.
void TraceOpener::handOver(ImportedTrace *trace)
{
    disconnect(trace, &ShownTrace::notice, this, nullptr);
    trace->setParent(nullptr);
    emit wasOpened(trace->paths());
    emit opened(trace);
}

void TraceOpener::finishImport(ImportedTrace *trace, Notice told)
{
    const bool hasFailed = trace->outcome().result == TraceStream::Failed;
    if (hasFailed && !trace->job()->control().isCancelled) {
        const QPointer<TraceOpener> self(this);
        told.actionText = tr("Read as…");
        told.action = [self, source = trace->source()] {
            if (self)
                emit self->reopenWanted(source);
        };
    }
    if (!told.text.isEmpty())
        emit notice(told);
    // Nothing came of it, and nobody has it.
    if (trace->parent() == this)
        trace->deleteLater();
}

void TraceOpener::tellRefused(const QVector<SortedPaths::Refused> &refused)
{
    constexpr int mostTold = 3;
    QStringList names;
    for (const SortedPaths::Refused &each : refused) {
        emit wasRefused(each.path);
        names += each.path;
    }
    if (refused.size() > mostTold) {
        emit notice({Notice::Failure, tr("%1 cannot be opened.").arg(shortNames(names)),
                     tr("Open one of them alone to learn why.")});
        return;
    }
    for (const SortedPaths::Refused &each : refused)
        tellRefused(each);
}

void TraceOpener::tellRefused(const SortedPaths::Refused &refused)
{
    Notice told = refused.notice;
    const QPointer<TraceOpener> self(this);
    if (refused.mayBeForced) {
        told.actionText = tr("Read as…");
        told.action = [self, path = refused.path] {
            if (self)
                emit self->reopenWanted({path});
        };
    } else if (refused.isFolder) {
        told.actionText = tr("Choose…");
        told.action = [self, path = refused.path] {
            if (self)
                emit self->choiceWanted(path);
        };
    }
    emit notice(told);
}
