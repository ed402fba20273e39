#include "terminal.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <unistd.h>

namespace {

constexpr int millisecondsBetweenPrints = 500;

int outputError = 0; // errno of the first write that failed

bool checkOutput(bool ok)
{
    if (!ok && outputError == 0)
        outputError = errno;
    return outputError == 0;
}

} // namespace

void printError(const QString &subject, const QString &text)
{
    // Clears a progress line that may stand there.
    const char *start = isatty(STDERR_FILENO) ? "\r\033[K" : "";
    std::fprintf(stderr, "%sdatachunk: %s: %s\n", start, qPrintable(subject), qPrintable(text));
}

int usageError(const QString &text)
{
    std::fprintf(stderr, "datachunk: %s\n%s\n", qPrintable(text),
                 qPrintable(Cli::tr("Try \"datachunk --help\" or \"datachunk COMMAND --help\".")));
    return WrongUsage;
}

bool writeOutput(const QByteArray &text)
{
    const auto size = std::size_t(text.size());
    return checkOutput(std::fwrite(text.constData(), 1, size, stdout) == size);
}

bool writeOutput(const QString &text)
{
    return writeOutput(text.toLocal8Bit());
}

bool finishOutput()
{
    if (checkOutput(std::fflush(stdout) == 0))
        return true;
    if (outputError != EPIPE)
        printError(Cli::tr("standard output"), QString::fromLocal8Bit(std::strerror(outputError)));
    return false;
}

Progress::Progress(const QString &subject) : subject(subject), active(isatty(STDERR_FILENO))
{
    elapsed.start();
    if (!active)
        return;
    QObject::connect(&timer, &QTimer::timeout, [this] { print(""); });
    timer.start(millisecondsBetweenPrints);
}

Progress::~Progress()
{
    if (active)
        print("\n");
}

void Progress::print(const char *lineEnd) const
{
    const double seconds = double(elapsed.elapsed()) / 1000;
    const QString text = Cli::tr("%1: %2 messages, %3 messages/s, %4 s")
                             .arg(subject)
                             .arg(count)
                             .arg(seconds > 0 ? double(count) / seconds : 0, 0, 'f', 0)
                             .arg(seconds, 0, 'f', 1);
    std::fprintf(stderr, "\r\033[K%s%s", qPrintable(text), lineEnd);
    std::fflush(stderr);
}
