// Records, imports and packs without end: recorder ARCHIVE TRACE. Writes a line for all that the
// store announces; ends cleanly when its standard input is closed, or without notice when killed.

#include "datachunkhandler.h"
#include "messages.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <QTimer>

#include <cstdio>

namespace {

constexpr int messagesPerTurn = 37;

void tell(const char *what, const QString &argument)
{
    std::printf("%s %s\n", what, qPrintable(argument));
    std::fflush(stdout);
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    DatachunkHandler store(5200);
    store.setZipFileName(arguments.value(1));
    QObject::connect(&store, &DatachunkHandler::newDataFile,
                     [](quint32 index) { tell("chunk", QString::number(index)); });
    QObject::connect(&store, &DatachunkHandler::newPartialDataFile,
                     [](const QString &file) { tell("partial", file); });
    QObject::connect(&store, &DatachunkHandler::newErrorMessage,
                     [](const QString &text) { tell("error", text); });
    tell("folder", store.chunkFolderPath());

    QSocketNotifier input(fileno(stdin), QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &application, &QCoreApplication::quit);
    QTimer timer;
    quint32 number = 0;
    int turn = 0;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        for (int i = 0; i < messagesPerTurn; ++i, ++number)
            store.appendCanMessage(makeMessage(number, 64));
        if (++turn % 20 == 5) {
            store.importMessages(arguments.value(2), DatachunkHelper::SocketCanDump);
            store.goLive();
        } else if (turn % 20 == 15) {
            store.setZipAfterSaving(true);
            store.exportAllMessages(QStringLiteral("x.dck"), {});
        }
    });
    timer.start(0);
    return QCoreApplication::exec();
}
