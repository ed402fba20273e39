#include "commands.h"
#include "datachunkhelper.h"
#include "filechecks.h"
#include "jsontext.h"
#include "stopsignals.h"
#include "terminal.h"
#include "tracecheck.h"

#include <QFileInfo>
#include <QJsonObject>

namespace {

QString lineOf(const TraceFinding &finding)
{
    QString line = finding.path;
    if (!finding.entry.isEmpty())
        line += QLatin1String(": ") + finding.entry;
    if (finding.byte >= 0)
        line += QStringLiteral(": %1/%2")
                    .arg(finding.record < 0 ? QStringLiteral("-") : QString::number(finding.record))
                    .arg(finding.byte);
    return finding.severity == TraceFinding::Error
        ? QStringLiteral("%1: %2").arg(line, finding.text)
        : Cli::tr("%1: remark: %2").arg(line, finding.text);
}

QByteArray jsonOf(const TraceFinding &finding)
{
    QJsonObject object{{QStringLiteral("path"), finding.path},
                       {QStringLiteral("kind"), findingName(finding.kind)},
                       {QStringLiteral("severity"),
                        finding.severity == TraceFinding::Error ? QStringLiteral("error")
                                                                : QStringLiteral("remark")},
                       {QStringLiteral("text"), finding.text}};
    if (!finding.entry.isEmpty())
        object.insert(QStringLiteral("entry"), finding.entry);
    if (finding.record >= 0)
        object.insert(QStringLiteral("position"), finding.record);
    if (finding.byte >= 0)
        object.insert(QStringLiteral("byte"), finding.byte);
    return jsonText(QJsonDocument(object)) + '\n';
}

// Not by a look into the file: one that is damaged has to pass.
bool canBeVerified(const QString &path)
{
    if (QFileInfo(path).isDir())
        return true;
    if (!checkReadable(path))
        return false;
    const auto type = DatachunkHelper().getImportFileType(path);
    if (type == DatachunkHelper::ChunkFile || type == DatachunkHelper::ZipArchive)
        return true;
    printError(path,
               Cli::tr("Only chunk files, folders of them and archives can be verified: a trace of "
                       "another tool does not tell what it should hold."));
    return false;
}

TraceCheckTotals check(const QString &path, const std::function<void(const TraceFinding &)> &tell)
{
    double part = -1;
    Progress progress(path, [&part] { return part; });
    return checkTrace(path, tell, [&](const TraceCheckTotals &soFar) {
        if (soFar.chunksInAll > 0)
            part = double(soFar.chunks) / double(soFar.chunksInAll);
        progress.setCount(quint64(soFar.messages));
        QCoreApplication::processEvents();
        return !StopSignals::received();
    });
}

void add(TraceCheckTotals &totals, const TraceCheckTotals &more)
{
    totals.chunks += more.chunks;
    totals.messages += more.messages;
    totals.errors += more.errors;
    totals.remarks += more.remarks;
}

void printSummary(const TraceCheckTotals &totals)
{
    writeLine(totals.errors + totals.remarks == 0
                  ? Cli::tr("%1 chunks, %2 messages: nothing found.")
                        .arg(totals.chunks)
                        .arg(totals.messages)
                  : Cli::tr("%1 chunks, %2 messages: %3 errors, %4 remarks.")
                        .arg(totals.chunks)
                        .arg(totals.messages)
                        .arg(totals.errors)
                        .arg(totals.remarks));
}

} // namespace

QList<QCommandLineOption> verifyOptions()
{
    return {{QStringLiteral("json"), Cli::tr("Print a JSON object for each finding.")}};
}

int runVerify(const QCommandLineParser &parser, const QStringList &files)
{
    const bool asJson = parser.isSet(QStringLiteral("json"));
    TraceCheckTotals totals;
    bool isRead = true;
    for (const QString &path : files) {
        if (!canBeVerified(path)) {
            isRead = false;
            continue;
        }
        const auto tell = [asJson](const TraceFinding &finding) {
            asJson ? writeOutput(jsonOf(finding)) : writeLine(lineOf(finding));
        };
        add(totals, check(path, tell));
        if (interrupted(path))
            return Failed;
    }
    if (!asJson && (isRead || totals.chunks + totals.errors > 0))
        printSummary(totals);
    return finishOutput() && isRead && totals.errors == 0 ? Succeeded : Failed;
}
