#include "program.h"

#include "canframe.h"
#include "datachunkhandler.h"
#include "savefileworker.h"

#include <QProcess>
#include <QtTest>

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

QStringList words(const QString &text)
{
    return text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

void writeKinds(const QString &fileName)
{
    QList<CAN::CanRxMessage> messages;
    for (quint32 i = 0; i < 5; ++i) {
        CAN::CanRxMessage message;
        message.messageNumber = 10 + i;
        message.seconds = qint32(100 + i);
        message.microseconds = 42;
        message.id = 0x120 + i;
        message.line = quint16(i / 3 + 1);
        messages.append(message);
    }
    messages[0].length = 2;
    messages[0].data[0] = 0xAB;
    messages[1].remote = true;
    messages[2].fdFrame = true;
    messages[3].id = CAN::errorFrameId;
    messages[4].id = 0x120;
    messages[4].extended = true;
    SaveFileWorker worker(fileName, &messages, DatachunkHelper::CurrentMessages, 0, 5,
                          {{11, QStringLiteral("look here")}},
                          {{12, CanMessageBookmark(12, QStringLiteral("mark"))}}, 0, {});
    worker.saveToFile();
}

void FolderTest::init()
{
    folder = std::make_unique<QTemporaryDir>();
    QVERIFY(folder->isValid());
    QVERIFY(QDir::setCurrent(folder->path()));
    qputenv("TMPDIR", QFile::encodeName(folder->path()));
}

void FolderTest::cleanup()
{
    const QStringList leftovers =
        QDir(folder->path())
            .entryList({QStringLiteral(".datachunk*")}, QDir::AllEntries | QDir::Hidden);
    QCOMPARE(leftovers, QStringList());
    QDir::setCurrent(QDir::rootPath());
    folder.reset();
}
