#include "program.h"

#include "canframe.h"

#include <QProcess>
#include <QtTest>

QString programPath()
{
    return QStringLiteral(DATACHUNK_PROGRAM);
}

ProgramResult run(const QString &arguments, const QByteArray &input, const QString &limits)
{
    constexpr int longestRun = 120000;
    QProcess process;
    process.start("/bin/sh", {"-c", limits + " exec \"$0\" " + arguments, programPath()});
    process.write(input);
    process.closeWriteChannel();
    ProgramResult result;
    if (process.waitForFinished(longestRun) && process.exitStatus() == QProcess::NormalExit)
        result.status = process.exitCode();
    result.output = process.readAllStandardOutput();
    result.errors = process.readAllStandardError();
    return result;
}

QByteArray outputOf(const QString &arguments, const QByteArray &input)
{
    const ProgramResult result = run(arguments, input);
    return result.status == 0 ? result.output : "It failed: " + result.errors;
}

QByteArray errorsOf(const QString &arguments, const QByteArray &input, const QString &limits)
{
    const ProgramResult result = run(arguments, input, limits);
    const bool isRefused = result.status == 1 && result.output.isEmpty();
    return isRefused ? result.errors : "It printed: " + result.output + result.errors;
}

QList<int> secondsInChunk(const QString &fileName)
{
    QList<int> seconds;
    for (const CAN::CanRxMessage &message : readChunkFile(fileName).messages)
        seconds.append(message.seconds);
    return seconds;
}

QList<int> secondsInText(const QByteArray &text)
{
    QList<int> seconds;
    for (const QByteArray &line : text.split('\n')) {
        if (line.startsWith(' '))
            seconds.append(line.trimmed().split('.').first().toInt());
    }
    return seconds;
}

QList<int> numbersFrom(int first, int count)
{
    QList<int> numbers;
    for (int i = 0; i < count; ++i)
        numbers.append(first + i);
    return numbers;
}

QStringList namesIn(const QString &folder)
{
    QStringList names =
        QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    names.removeAll(QStringLiteral(".chunk-directory"));
    return names;
}

void writeKinds(const QString &fileName)
{
    CAN::CanRxMessage messages[] = {makeMessage(0x120, "ab00", 1), makeMessage(0x121, "", 1),
                                    makeMessage(0x122, "", 1), makeMessage(0x7FF, "01", 2),
                                    makeMessage(0x120, "", 2)};
    messages[1].remote = messages[2].fdFrame = messages[4].extended = true;
    messages[3].id = CAN::errorFrameId;
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    ChunkFormat::writeHeader(stream, QStringLiteral("100.000042 - 104.000042"),
                             {{11, QStringLiteral("look here")}},
                             {{12, CanMessageBookmark(12, QStringLiteral("mark"))}});
    for (quint32 i = 0; i < 5; ++i) {
        messages[i].messageNumber = 10 + i;
        messages[i].seconds = qint32(100 + i);
        messages[i].microseconds = 42;
        ChunkFormat::writeRecord(stream, messages[i], ChunkFormat::currentVersion);
    }
    writeFile(fileName, bytes);
}

void FolderTest::init()
{
    folder = std::make_unique<QTemporaryDir>();
    QVERIFY(folder->isValid() && QDir::setCurrent(folder->path()));
    otherTemporary = qgetenv("TMPDIR");
    qputenv("TMPDIR", QFile::encodeName(folder->path()));
}

void FolderTest::cleanup()
{
    // The next folder cannot be made in this one.
    qputenv("TMPDIR", otherTemporary);
    QDir::setCurrent(QDir::rootPath());
    QCOMPARE(namesIn(folder->path()).filter(QStringLiteral(".datachunk")), QStringList());
    folder.reset();
}
