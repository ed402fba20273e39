#include "commands.h"
#include "filechecks.h"
#include "stopsignals.h"
#include "terminal.h"
#include "tracefile.h"

int runDetect(const QCommandLineParser &, const QStringList &files)
{
    bool allReadable = true;
    for (const QString &file : files) {
        if (interrupted(file))
            return Failed;
        if (!checkReadable(file)) {
            allReadable = false;
            continue;
        }
        const DatachunkHelper::ImportFileType type = DatachunkHelper().getImportFileType(file);
        if (!writeLine(QStringLiteral("%1 %2").arg(typeName(type), file)))
            break;
    }
    return finishOutput() && allReadable ? Succeeded : Failed;
}
