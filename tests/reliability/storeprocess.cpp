#include "storeprocess.h"

#include "datachunkhandler.h"
#include "messages.h"
#include "storefixture.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <QTimer>

#include <cstdio>

namespace {

constexpr int hangLimit = 20000;

} // namespace

StoreProcess::StoreProcess(const QString &archive, const QString &trace)
{
    setProcessChannelMode(ForwardedErrorChannel);
    start(QCoreApplication::applicationFilePath(), {"record", archive, trace});
}

bool StoreProcess::waitForChunks(int count)
{
    while (told["chunk"].size() < count) {
        if (!canReadLine() && !waitForReadyRead(hangLimit))
            return false;
        readLines();
    }
    return true;
}

bool StoreProcess::hasEnded()
{
    const bool ended = waitForFinished(hangLimit);
    readLines();
    return ended && exitStatus() == NormalExit && exitCode() == 0;
}

bool StoreProcess::isKept()
{
    for (int i = 0; i < told["chunk"].size(); ++i) {
        const quint32 first = quint32(i) * chunkSize;
        if (!holds(told["chunk"].at(i), first, first + chunkSize - 1))
            return false;
    }
    for (int i = 0; i < told["partial"].size(); ++i) {
        const quint32 first = quint32(i) * chunkSize % (3 * chunkSize);
        const quint32 last = std::min(first + chunkSize, traceSize) - 1;
        if (numbersOf(readChunkFile(told["partial"].at(i)).messages) != numbersFromTo(first, last))
            return false;
    }
    return told["error"].isEmpty();
}

void StoreProcess::readLines()
{
    while (canReadLine()) {
        const QString line = QString::fromUtf8(readLine()).trimmed();
        told[line.section(' ', 0, 0)] += line.section(' ', 1);
    }
}

int recordAndImport(const QString &archive, const QString &trace)
{
    constexpr int messagesPerTurn = 37;
    const auto tell = [](const char *what) {
        return [what](const QString &argument) {
            std::printf("%s %s\n", what, qPrintable(argument));
            std::fflush(stdout);
        };
    };
    using H = DatachunkHandler;
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    H store(5000 + StoreProcess::chunkSize);
    store.setZipFileName(archive);
    const QString chunk = store.chunkFolderPath() + "/tmpData%1.dck";
    QObject::connect(&store, &H::newDataFile, [=](quint32 i) { tell("chunk")(chunk.arg(i)); });
    QObject::connect(&store, &H::newPartialDataFile, tell("partial"));
    QObject::connect(&store, &H::newErrorMessage, tell("error"));
    tell("folder")(store.chunkFolderPath());

    QSocketNotifier input(fileno(stdin), QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &QCoreApplication::quit);
    QTimer timer;
    quint32 number = 0;
    int turn = 0;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        for (int i = 0; i < messagesPerTurn; ++i, ++number)
            store.appendCanMessage(makeMessage(number, 64));
        if (++turn % 20 == 5) {
            store.importMessages(trace, DatachunkHelper::SocketCanDump);
            store.goLive();
        } else if (turn % 20 == 15) {
            store.setZipAfterSaving(true);
            store.exportAllMessages(QStringLiteral("x.dck"), {});
        }
    });
    timer.start(0);
    return QCoreApplication::exec();
}
