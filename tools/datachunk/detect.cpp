#include "commands.h"
#include "terminal.h"
#include "tracefile.h"

int runDetect(const QCommandLineParser &, const QStringList &files)
{
    bool allReadable = true;
    for (const QString &file : files) {
        if (!checkReadable(file)) {
            allReadable = false;
            continue;
        }
        const DatachunkHelper::ImportFileType type = DatachunkHelper().getImportFileType(file);
        if (!writeOutput(QStringLiteral("%1 %2\n").arg(typeName(type), file)))
            break;
    }
    return finishOutput() && allReadable ? Succeeded : Failed;
}
