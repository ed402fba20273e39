#include "stopsignals.h"

#include "terminal.h"

#include <QSocketNotifier>

#include <array>
#include <atomic>
#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace {

// Asked by threads that the signal does not come to, which sig_atomic_t is not enough for.
std::atomic<bool> signalReceived{false};
static_assert(std::atomic<bool>::is_always_lock_free, "set by a signal handler");
volatile std::sig_atomic_t writeEnd = -1;
volatile std::sig_atomic_t hangUpEnds = 1;

constexpr char stopMark = 's';
constexpr char hangUpMark = 'h';

void onSignal(int signal, siginfo_t *info, void *)
{
    // A write beyond the limit on file sizes then fails as on a full disk and is reported.
    if (signal == SIGXFSZ && info->si_pid == getpid())
        return;
    const int savedError = errno;
    const bool isStop = signal != SIGHUP || hangUpEnds;
    if (isStop)
        signalReceived = true;
    const char byte = isStop ? stopMark : hangUpMark;
    // A full pipe does not matter: it wakes the event loop anyway.
    if (write(writeEnd, &byte, 1) < 0)
        errno = savedError;
}

bool isIgnored(int signal)
{
    struct sigaction now = {};
    sigaction(signal, nullptr, &now);
    return !(now.sa_flags & SA_SIGINFO) && now.sa_handler == SIG_IGN;
}

bool hasTerminal()
{
    const int terminal = open("/dev/tty", O_RDONLY | O_NOCTTY | O_CLOEXEC);
    if (terminal >= 0)
        close(terminal);
    return terminal >= 0;
}

} // namespace

StopSignals *StopSignals::instance = nullptr;

bool interrupted(const QString &subject)
{
    if (!StopSignals::received())
        return false;
    // Each of the threads that read a trace comes here.
    static std::atomic<bool> isTold(false);
    if (isTold.exchange(true))
        return true;
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
    connect(notifier, &QSocketNotifier::activated, this, &StopSignals::readPipe);
    for (const int signal : {SIGINT, SIGTERM, SIGQUIT, SIGXFSZ})
        handle(signal);
    // Ignored, it stays ignored, so that a program started with "nohup" survives its terminal.
    if (!isIgnored(SIGHUP))
        handle(SIGHUP);
}

void StopSignals::handle(int signal)
{
    struct sigaction before = {};
    sigaction(signal, nullptr, &before);
    struct sigaction action = {};
    action.sa_sigaction = onSignal;
    action.sa_flags = SA_RESTART | SA_SIGINFO;
    sigaction(signal, &action, nullptr);
    handled.push_back({signal, before});
}

bool StopSignals::takeHangUps()
{
    const bool wasIgnored = isIgnored(SIGHUP);
    if (!wasIgnored && hasTerminal())
        return false;
    hangUpEnds = 0;
    if (wasIgnored)
        handle(SIGHUP);
    return true;
}

// A full pipe drops what comes, so that whether to stop is not asked of what it holds.
void StopSignals::readPipe()
{
    std::array<char, 64> marks;
    const ssize_t size = read(pipeEnds[0], marks.data(), marks.size());
    if (received()) {
        findChild<QSocketNotifier *>()->setEnabled(false);
        emit stop();
        return;
    }
    if (size > 0)
        emit hangUp();
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
    return signalReceived;
}
