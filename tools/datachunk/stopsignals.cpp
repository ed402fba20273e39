#include "stopsignals.h"

#include "terminal.h"

#include <QSocketNotifier>

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace {

volatile std::sig_atomic_t signalReceived = 0;
volatile std::sig_atomic_t writeEnd = -1;

void onSignal(int signal, siginfo_t *info, void *)
{
    // A write beyond the limit on file sizes then fails as on a full disk and is reported.
    if (signal == SIGXFSZ && info->si_pid == getpid())
        return;
    const int savedError = errno;
    signalReceived = 1;
    const char byte = 0;
    // A full pipe does not matter: it wakes the event loop anyway.
    if (write(writeEnd, &byte, 1) < 0)
        errno = savedError;
}

} // namespace

StopSignals *StopSignals::instance = nullptr;

bool interrupted(const QString &subject)
{
    if (!StopSignals::received())
        return false;
    const quint64 done = Progress::lastCount();
    printError(subject,
               done == 0 ? Cli::tr("Stopped by a signal.")
                         : Cli::tr("Stopped by a signal after %1 messages.").arg(done));
    return true;
}

StopSignals::StopSignals()
{
    instance = this;
    if (pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    writeEnd = pipeEnds[1];
    auto *notifier = new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
        notifier->setEnabled(false);
        emit stop();
    });
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGXFSZ})
        handle(signal);
}

void StopSignals::handle(int signal)
{
    struct sigaction before = {};
    sigaction(signal, nullptr, &before);
    // Ignored signals stay ignored, so that a program started with "nohup" survives its terminal.
    if (signal == SIGHUP && before.sa_handler == SIG_IGN)
        return;
    struct sigaction action = {};
    action.sa_sigaction = onSignal;
    action.sa_flags = SA_RESTART | SA_SIGINFO;
    sigaction(signal, &action, nullptr);
    handled.push_back({signal, before});
}

StopSignals::~StopSignals()
{
    for (const Handled &entry : handled)
        sigaction(entry.signal, &entry.before, nullptr);
    // The notifier must go before its descriptor is closed.
    qDeleteAll(findChildren<QSocketNotifier *>());
    if (pipeEnds[0] >= 0) {
        close(pipeEnds[0]);
        close(pipeEnds[1]);
    }
    instance = nullptr;
}

bool StopSignals::received()
{
    return signalReceived != 0;
}
