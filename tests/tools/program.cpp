#include "program.h"

#include "datachunkhandler.h"

#include <QFile>
#include <QProcess>

QString programPath()
{
    return QStringLiteral(DATACHUNK_PROGRAM);
}

ProgramResult runProgram(const QStringList &arguments, const QByteArray &input)
{
    constexpr int longestRun = 120000;
    QProcess process;
    process.start(programPath(), arguments);
    process.write(input);
    process.closeWriteChannel();
    ProgramResult result;
    if (process.waitForFinished(longestRun) && process.exitStatus() == QProcess::NormalExit)
        result.status = process.exitCode();
    result.output = process.readAllStandardOutput();
    result.errors = process.readAllStandardError();
    return result;
}

void writeFile(const QString &fileName, const QByteArray &content)
{
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(fileName));
}

QByteArray candumpLines(int first, int count)
{
    QByteArray lines;
    for (int i = first; i < first + count; ++i) {
        const QByteArray number = QByteArray::number(i);
        lines += '(' + number + ".000000) can0 123#"
            + QByteArray::number(i % 256, 16).rightJustified(2, '0') + "55\n";
    }
    return lines;
}

QList<int> secondsInChunk(const QString &fileName)
{
    DatachunkHandler reader(0);
    reader.loadFile(fileName, false, DatachunkHelper::ChunkFile, DatachunkHelper::CurrentMessages,
                    QString());
    QList<int> seconds;
    for (int i = 0; !reader.getIsLive() && i < int(reader.getMessageCount()); ++i)
        seconds.append(reader.messageAt(i).seconds);
    return seconds;
}

QList<int> numbersFrom(int first, int count)
{
    QList<int> numbers;
    for (int i = 0; i < count; ++i)
        numbers.append(first + i);
    return numbers;
}
