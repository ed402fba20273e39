#include "chunkrecovery.h"
#include "storefixture.h"
#include "targets.h"
#include "tracecheck.h"

#include <QFile>

#include <limits>

namespace {

bool always()
{
    return true;
}

TraceCheckTotals check(const QString &path, qint64 size)
{
    qint64 told = 0;
    const auto tell = [&](const TraceFinding &finding) {
        require(finding.path == path && !finding.text.isEmpty() && finding.byte <= size,
                "a finding says where it is");
        ++told;
    };
    const TraceCheckTotals totals =
        checkTrace(path, tell, [](const TraceCheckTotals &) { return always(); });
    require(told == totals.errors + totals.remarks, "every finding counts");
    return totals;
}

void checkChunkFile(const QByteArray &bytes)
{
    const TraceCheckTotals totals =
        check(inputFile(QStringLiteral("input.dck"), bytes), bytes.size());
    require(totals.errors > 0 || totals.messages == streamedChunk(bytes).messages.size(),
            "a chunk without errors has all of its messages");
}

void checkArchive(const QByteArray &bytes)
{
    check(inputFile(QStringLiteral("input.zip"), bytes), std::numeric_limits<qint64>::max());
}

void recoverTwice(const QByteArray &bytes)
{
    const QString from = inputFile(QStringLiteral("input.dck"), bytes);
    const QString to = workPath(QStringLiteral("saved.dck"));
    QFile::remove(to);
    const RecoveredChunk first = recoverChunk(from, to, always);
    require((first.result == RecoveredChunk::Saved) == QFile::exists(to),
            "a chunk is saved or not");
    if (first.result != RecoveredChunk::Saved)
        return;
    const QByteArray saved = readFile(to);
    require(bytes.startsWith(saved) && bytes.size() - saved.size() == first.bytesTrimmed
                && first.text.isEmpty() == (first.bytesTrimmed == 0),
            "the front is kept and the rest told");
    require(streamedChunk(saved).messages.size() == first.messages, "whole messages are kept");
    const RecoveredChunk second = recoverChunk(inputFile(QStringLiteral("input.dck"), saved),
                                               workPath(QStringLiteral("b.dck")), always);
    QFile::remove(workPath(QStringLiteral("b.dck")));
    require(second.messages == first.messages && second.bytesTrimmed == 0,
            "what was saved is all saved again");
}

} // namespace

std::vector<FuzzTarget> careTargets()
{
    return {{QStringLiteral("chunkcheck"), checkChunkFile},
            {QStringLiteral("archivecheck"), checkArchive},
            {QStringLiteral("chunkrecover"), recoverTwice}};
}
