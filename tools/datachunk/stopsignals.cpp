#include "stopsignals.h"

#include "terminal.h"

#include <QSocketNotifier>

#include <fcntl.h>
#include <unistd.h>

namespace {

volatile std::sig_atomic_t signalReceived = 0;
volatile std::sig_atomic_t writeEnd = -1;

void onSignal(int)
{
    const int savedError = errno;
    signalReceived = 1;
    const char byte = 0;
    // A full pipe wakes the event loop all the same.
    if (write(writeEnd, &byte, 1) < 0)
        errno = savedError;
}

} // namespace

bool interrupted(const QString &subject)
{
    if (!StopSignals::received())
        return false;
    printError(subject, Cli::tr("Stopped by a signal."));
    return true;
}

StopSignals::StopSignals(QObject *parent) : QObject(parent)
{
    if (pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    writeEnd = pipeEnds[1];
    auto *notifier = new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
        notifier->setEnabled(false);
        emit stop();
    });
    struct sigaction action = {};
    action.sa_handler = onSignal;
    action.sa_flags = SA_RESTART;
    sigaction(SIGINT, &action, &oldInterrupt);
    sigaction(SIGTERM, &action, &oldTerminate);
}

StopSignals::~StopSignals()
{
    if (pipeEnds[0] < 0)
        return;
    sigaction(SIGINT, &oldInterrupt, nullptr);
    sigaction(SIGTERM, &oldTerminate, nullptr);
    // The notifier may not outlive its descriptor.
    qDeleteAll(findChildren<QSocketNotifier *>());
    close(pipeEnds[0]);
    close(pipeEnds[1]);
}

bool StopSignals::received()
{
    return signalReceived != 0;
}
