#include "terminal.h"

#include "datachunkhandler.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int millisecondsBetweenPrints = 500;

int outputError = 0; // errno of the first write that failed
bool isQuiet = false;

// Null where the variable is not set. Nothing in the program sets any.
const char *environment(const char *name)
{
    return std::getenv(name); // NOLINT(concurrency-mt-unsafe)
}

bool hasColours()
{
    static const bool has = [] {
        const char *none = environment("NO_COLOR");
        const char *terminal = environment("TERM");
        return isatty(STDERR_FILENO) && !(none && *none) && terminal
            && std::strcmp(terminal, "dumb") != 0;
    }();
    return has;
}

constexpr char red[] = "\033[1;31m";
constexpr char bold[] = "\033[1m";

void printTold(const char *colour, const QString &subject, const QByteArray &text)
{
    // Clears the progress line, if there is one.
    const char *start = isatty(STDERR_FILENO) ? "\r\033[K" : "";
    const char *begin = hasColours() ? colour : "";
    const char *end = hasColours() ? "\033[m" : "";
    std::fprintf(stderr, "%s%sdatachunk: %s:%s %s\n", start, begin,
                 subject.toLocal8Bit().constData(), end, text.constData());
}

bool checkOutput(bool ok)
{
    if (!ok && outputError == 0)
        outputError = errno;
    return outputError == 0;
}

QString visible(const QString &text)
{
    QString shown;
    shown.reserve(text.size());
    for (const QChar c : text) {
        if (c.category() == QChar::Other_Control)
            shown += QStringLiteral("\\x%1").arg(c.unicode(), 2, 16, QLatin1Char('0'));
        else
            shown += c;
    }
    return shown;
}

QByteArray visibleLines(const QString &text)
{
    QStringList lines = text.split(QLatin1Char('\n'));
    for (QString &line : lines)
        line = visible(line);
    return lines.join(QLatin1String("\n  ")).toLocal8Bit();
}

void printMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    const QString message = qFormatLogMessage(type, context, text);
    std::fprintf(stderr, "%s\n", visibleLines(message).constData());
}

} // namespace

void guardStandardStreams()
{
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(stream, F_GETFD) >= 0)
            continue;
        // The system gives the lowest free number, which is that of the closed stream.
        if (open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY) != stream)
            _exit(Failed);
    }
}

void installMessageHandler()
{
    qInstallMessageHandler(printMessage);
}

QString systemErrorText(int error)
{
    // NOLINTNEXTLINE(concurrency-mt-unsafe): the C library keeps a text for each thread.
    return QString::fromLocal8Bit(std::strerror(error));
}

void setQuiet(bool quiet)
{
    isQuiet = quiet;
}

void printError(const QString &subject, const QString &text)
{
    printTold(red, visible(subject), visibleLines(text));
}

void printRemark(const QString &subject, const QString &text)
{
    if (!isQuiet)
        printTold(bold, visible(subject), visibleLines(text));
}

int usageError(const QString &text)
{
    std::fprintf(stderr, "datachunk: %s\n%s\n", visibleLines(text).constData(),
                 qPrintable(Cli::tr("Try \"datachunk --help\" or \"datachunk COMMAND --help\".")));
    return WrongUsage;
}

bool writeOutput(const QByteArray &text)
{
    const auto size = std::size_t(text.size());
    return checkOutput(std::fwrite(text.constData(), 1, size, stdout) == size);
}

bool writeLine(const QString &line)
{
    return writeOutput(visible(line).toLocal8Bit() + '\n');
}

bool finishOutput()
{
    if (checkOutput(std::fflush(stdout) == 0))
        return true;
    if (outputError != EPIPE)
        printError(Cli::tr("standard output"), systemErrorText(outputError));
    return false;
}

double partOf(const ImportProgress &progress)
{
    return progress.bytes == 0 ? -1 : double(progress.bytesRead) / double(progress.bytes);
}

const Progress *Progress::current = nullptr;
quint64 Progress::countAtEnd = 0;

Progress::Progress(const QString &subject, Part part)
    : subject(visible(subject)), part(std::move(part)), active(!isQuiet && isatty(STDERR_FILENO))
{
    current = this;
    elapsed.start();
    if (!active)
        return;
    QObject::connect(&timer, &QTimer::timeout, [this] { print(""); });
    timer.start(millisecondsBetweenPrints);
}

Progress::Progress(const QString &subject, const DatachunkHandler &store)
    : Progress(subject, [&store] { return partOf(store.importProgress()); })
{
}

Progress::~Progress()
{
    current = nullptr;
    countAtEnd = counted();
    if (active)
        print("\n");
}

QString Progress::timeLeft(double seconds) const
{
    // Before that it would jump.
    constexpr double leastPart = 0.01;
    const double done = part ? part() : -1;
    if (done < leastPart || done > 1)
        return {};
    return Cli::tr(", %1 %, %2 s left")
        .arg(QString::number(int(done * 100)), QString::number(seconds / done - seconds, 'f', 0));
}

void Progress::print(const char *lineEnd) const
{
    const double seconds = double(elapsed.elapsed()) / 1000;
    const quint64 messageCount = counted();
    const double rate = seconds > 0 ? double(messageCount) / seconds : 0;
    const QString messages = messageCount == 0
        ? QString()
        : Cli::tr("%1 messages, %2 messages/s, ")
              .arg(QString::number(messageCount), QString::number(rate, 'f', 0));
    const QString text = subject + QLatin1String(": ") + messages
        + Cli::tr("%1 s").arg(seconds, 0, 'f', 1) + timeLeft(seconds);
    std::fprintf(stderr, "\r\033[K%s%s", text.toLocal8Bit().constData(), lineEnd);
    std::fflush(stderr);
}
