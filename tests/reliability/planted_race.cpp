// Reads what a thread of Qt's has appended: "guarded" under the store's lock, "unguarded" without
// it. ThreadSanitizer has to keep silent about the one, which takes a Qt whose locks it sees, and
// to report the other.

#include "datachunkhandler.h"
#include "messages.h"
#include "unorderedstep.h"

#include <QThread>

#include <cstring>
#include <memory>

int main(int argc, char **argv)
{
    const bool guarded = argc == 2 && std::strcmp(argv[1], "guarded") == 0;
    DatachunkHandler store(20000);
    store.appendCanMessage(makeMessage(0));
    UnorderedStep step;
    const std::unique_ptr<QThread> appender(QThread::create([&] {
        // Within the room that the list has already, so that the race does no harm.
        store.appendCanMessage(makeMessage(1));
        step.set(1);
        step.waitFor(2);
    }));
    appender->start();
    step.waitFor(1);
    const quint32 id = guarded ? store.messageAt(1).id : store.messageAtPassMutex(1).id;
    step.set(2);
    appender->wait();
    return id != 1;
}
