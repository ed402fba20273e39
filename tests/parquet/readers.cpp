#include "readers.h"

#include <QFileInfo>
#include <QProcess>

namespace {

QString readersFolder()
{
    const QString told = qEnvironmentVariable("DATACHUNK_READERS");
    return told.isEmpty() ? QStringLiteral(READERS_FOLDER) : told;
}

} // namespace

bool haveReaders()
{
    return QFileInfo::exists(readersFolder() + "/node_modules/.package-lock.json");
}

QString readByOthers(const QStringList &arguments)
{
    constexpr int mostMilliseconds = 300000;
    QProcess node;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("READERS", readersFolder());
    node.setProcessEnvironment(environment);
    node.start("node", QStringList{READER_SCRIPT} + arguments);
    if (!node.waitForFinished(mostMilliseconds) || node.exitStatus() != QProcess::NormalExit)
        return node.errorString();
    return QString::fromUtf8(node.readAllStandardOutput() + node.readAllStandardError()).trimmed();
}
