#include <datachunkhandler.h>
#include <QCoreApplication>

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    DatachunkHandler store(20000);
    store.appendCanMessage(CAN::CanRxMessage());
    return store.getMessageCount() == 1 ? 0 : 1;
}
