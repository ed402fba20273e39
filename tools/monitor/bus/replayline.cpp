#include "replayline.h"

#include "canframe.h"
#include "messagetime.h"
#include "tracerecognition.h"
#include "tracestream.h"
#include "tracetimeline.h"

#include <QFileInfo>

namespace {

constexpr std::size_t mostTogether = 1000;

} // namespace

ReplayLine::ReplayLine(const ReplayOptions &options, quint8 number,
                       std::shared_ptr<MessageSink> sink)
    : PacedLine(QFileInfo(options.path).fileName(), number, std::move(sink)), options(options)
{
    pacer.setSpeed(options.speed);
}

ReplayLine::~ReplayLine()
{
    endThread();
}

PacedLine::End ReplayLine::run()
{
    constexpr std::chrono::milliseconds betweenRounds(1);
    End end;
    do {
        messages = 0;
        pacer.begin();
        end = replayOnce();
        flush();
    } while (options.loops && end.failure.isEmpty() && pacer.rest(betweenRounds));
    return end;
}

PacedLine::End ReplayLine::replayOnce()
{
    const QFileInfo file(options.path);
    if (!file.exists())
        return {tr("%1 is not there any more.").arg(options.path),
                tr("Choose another trace to replay."),
                {}};
    End end = file.isDir() ? replayFolder() : replayFile();
    if (messages == 0 && end.failure.isEmpty() && !pacer.isStopped())
        end = {tr("There are no messages in %1.").arg(options.path),
               tr("Choose another trace to replay."),
               {}};
    return end;
}

PacedLine::End ReplayLine::replayFile()
{
    const TraceRecognition kind = TraceRecognition::of(options.path);
    if (kind.type == DatachunkHelper::Unknown)
        return {tr("%1 cannot be replayed: %2").arg(options.path, kind.explanation),
                tr("Choose a trace, a chunk file or an archive of them."),
                {}};
    TraceStream stream(options.path, kind.type);
    stream.setMode(DatachunkHelper::Tolerant);
    const TraceStream::Result result =
        stream.read([this](const TraceItem &item) { return take(item.message); },
                    [this] { return !pacer.isStopped(); });
    const QString texts = stream.errorTexts().join(QLatin1Char(' '));
    if (result == TraceStream::Failed)
        return {tr("%1 could not be replayed. %2").arg(options.path, texts),
                tr("Choose another trace, or open this one to see what is whole of it."),
                {}};
    if (result == TraceStream::Incomplete)
        return {{}, {}, tr("Not all of %1 could be replayed. %2").arg(options.path, texts)};
    return {};
}

PacedLine::End ReplayLine::replayFolder()
{
    TraceTimeline timeline({options.path});
    if (!timeline.waitForAll([this] { return !pacer.isStopped(); }))
        return {};
    timeline.forEach(0, timeline.count(), [this](const TraceBlock &block) {
        for (int i = 0; i < block.count; ++i) {
            if (!take(block.messages[i]))
                return false;
        }
        return true;
    });
    const QStringList problems = timeline.problems();
    if (problems.isEmpty())
        return {};
    return {{}, {}, tr("Not all of %1 could be replayed. %2").arg(options.path, problems.first())};
}

bool ReplayLine::take(const CAN::CanRxMessage &message)
{
    const qint64 time = CAN::timeOf(message);
    if (batch.size() >= mostTogether || !pacer.isDue(time))
        flush();
    if (!pacer.waitFor(time))
        return false;
    batch.push_back(message);
    setTime(batch.back(), pacer.wallTime(time));
    if (!options.keepsLines)
        batch.back().line = number();
    ++messages;
    return true;
}

void ReplayLine::flush()
{
    if (!batch.empty())
        feed->add(batch);
    batch.clear();
}
