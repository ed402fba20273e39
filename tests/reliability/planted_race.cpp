// Appends on a thread of Qt's while the main thread reads: "guarded" reads under the store's
// lock, "unguarded" without it. ThreadSanitizer has to keep silent about the one, which takes a
// Qt whose locks it sees, and to report the other, whose threads Qt starts.

#include "datachunkhandler.h"
#include "messages.h"

#include <QThread>

#include <cstring>

namespace {

class Appender : public QThread
{
public:
    explicit Appender(DatachunkHandler &store) : store(store) { }

private:
    // Few enough to stay within the room that the list has already, so that the race does no harm.
    void run() override
    {
        for (quint32 i = 0; i < 500; ++i)
            store.appendCanMessage(makeMessage(i));
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
    quint32 read = 0;
    for (int i = 0; i < 500; ++i)
        read += guarded ? store.messageAt(0).id : store.messageAtPassMutex(0).id;
    appender.wait();
    return read != 0 || store.getMessageCount() != 501;
}
