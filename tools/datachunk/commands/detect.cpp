#include "commands.h"
#include "filechecks.h"
#include "stopsignals.h"
#include "terminal.h"
#include "tracefile.h"
#include "tracerecognition.h"

namespace {

// Why a file is taken for what it is, in two lines below its name.
bool explain(const QString &file)
{
    const TraceRecognition found = TraceRecognition::of(file);
    QString text =
        QStringLiteral("%1 %2\n    %3% %4")
            .arg(typeName(found.type), file, QString::number(found.percent), found.explanation);
    if (found.line > 0)
        text += QStringLiteral("\n    %1: %2").arg(found.line).arg(found.lineText);
    for (const QString &line : text.split(QLatin1Char('\n'))) {
        if (!writeLine(line))
            return false;
    }
    return true;
}

} // namespace

QList<QCommandLineOption> detectOptions()
{
    return {{QStringLiteral("explain"),
             Cli::tr("Tell what a file looks like to the tolerant readers, how sure that is, and "
                     "which line decided, or what to do with a file that nobody reads.")}};
}

int runDetect(const QCommandLineParser &parser, const QStringList &files)
{
    const bool explains = parser.isSet(QStringLiteral("explain"));
    bool allReadable = true;
    for (const QString &file : files) {
        if (interrupted(file))
            return Failed;
        if (!checkReadable(file)) {
            allReadable = false;
            continue;
        }
        if (explains) {
            if (!explain(file))
                break;
            continue;
        }
        const DatachunkHelper::ImportFileType type = TraceRecognition::strictly(file).type;
        if (!writeLine(QStringLiteral("%1 %2").arg(typeName(type), file)))
            break;
    }
    return finishOutput() && allReadable ? Succeeded : Failed;
}
