#include "openedtrace.h"

#include "plaintexts.h"

namespace {

constexpr int lookInterval = 100; // milliseconds

} // namespace

OpenedTrace::OpenedTrace(const TraceTimeline &timeline, const QStringList &paths, QObject *parent)
    : ShownTrace(timeline, shortNames(paths), parent), ownPaths(paths)
{
    timer.setInterval(lookInterval);
    connect(&timer, &QTimer::timeout, this, &OpenedTrace::look);
    timer.start();
}

void OpenedTrace::look()
{
    TraceTimeline trace = timeline();
    trace.refresh();
    if (!trace.isComplete())
        return;
    timer.stop();
    const QStringList problems = trace.problems();
    if (!problems.isEmpty())
        tellProblems(problems);
    emit complete();
}

void OpenedTrace::tellProblems(const QStringList &problems)
{
    emit notice({Notice::Warning, QStringLiteral("%1: %2").arg(title(), firstSentences(problems)),
                 tr("What could be read is shown. Another copy may have more, and \"datachunk "
                    "recover\" saves what is whole of damaged chunks.")});
}
