// Reads what a thread of Qt's has appended: "guarded" under the store's lock, "unguarded" without
// it. ThreadSanitizer has to keep silent about the one, which takes a Qt whose locks it sees, and
// to report the other.

#include "datachunkhandler.h"
#include "messages.h"

#include <QThread>

#include <atomic>
#include <cstring>

namespace {

// Relaxed, so that waiting for it orders nothing but the clock.
using Flag = std::atomic<bool>;

void waitFor(const Flag &flag)
{
    while (!flag.load(std::memory_order_relaxed))
        QThread::yieldCurrentThread();
}

class Appender : public QThread
{
public:
    explicit Appender(DatachunkHandler &store) : store(store) { }

    Flag appended{false};
    Flag read{false};

private:
    void run() override
    {
        // Within the room that the list has already, so that the race does no harm.
        store.appendCanMessage(makeMessage(1));
        appended.store(true, std::memory_order_relaxed);
        // The sanitizer does not remember what a thread did that has ended.
        waitFor(read);
    }

    DatachunkHandler &store;
};

} // namespace

int main(int argc, char **argv)
{
    const bool guarded = argc == 2 && std::strcmp(argv[1], "guarded") == 0;
    DatachunkHandler store(20000);
    store.appendCanMessage(makeMessage(0));
    Appender appender(store);
    appender.start();
    waitFor(appender.appended);
    const quint32 id = guarded ? store.messageAt(1).id : store.messageAtPassMutex(1).id;
    appender.read.store(true, std::memory_order_relaxed);
    appender.wait();
    return id != 1;
}
