#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QString>
#include <QTimer>

#include <atomic>
#include <functional>

/// The texts of the program.
struct Cli
{
    Q_DECLARE_TR_FUNCTIONS(Cli)
};

class DatachunkHandler;
struct ImportProgress;

enum ExitStatus { Succeeded = 0, Failed = 1, WrongUsage = 2 };

/// Makes a closed standard stream fail when it is used. Must be called before any file is opened: a
/// file would get the number of the stream and receive what is meant for it.
void guardStandardStreams();

/// Prints messages of Qt and its plug-ins in the same way as all other texts.
void installMessageHandler();

/// The system's text for \a error, an errno, in the language of its user. Any thread.
QString systemErrorText(int error);

/// Has nothing but failures told from now on.
void setQuiet(bool quiet);

// What is printed comes from files that anybody may have made, so control characters, with which a
// terminal is steered, are shown as "\x1b" and never sent. Colours are for terminals alone, and not
// where NO_COLOR is set.

/// Prints "datachunk: subject: text" to standard error. Line feeds of the text begin an indented
/// line.
void printError(const QString &subject, const QString &text);
/// The same for what is no failure.
void printRemark(const QString &subject, const QString &text);
/// Prints a wrong use of the program and returns the exit status for it.
int usageError(const QString &text);

/// Writes a line to standard output. False when nobody takes the text any more, so that the caller
/// can stop; finishOutput() tells why.
bool writeLine(const QString &line);
/// The same for a text of several lines that is the program's own, or for JSON.
bool writeOutput(const QByteArray &text);
/// Writes out what is buffered. False, with a text on standard error, when some of the output is
/// missing; a reader that went away on purpose gets no text.
bool finishOutput();

/// The part that is done, from 0 to 1; less than 0 where nobody knows.
double partOf(const ImportProgress &progress);

/// A line on standard error that tells how a long work goes on, rewritten while the event loop
/// turns. Prints nothing unless standard error is a terminal.
class Progress
{
public:
    /// The part that is done, from 0 to 1, or less than 0 where nobody knows.
    using Part = std::function<double()>;

    explicit Progress(const QString &subject, Part part = {});
    /// That of what a store imports, packs or unpacks.
    Progress(const QString &subject, const DatachunkHandler &store);
    ~Progress();

    Progress(const Progress &) = delete;
    Progress &operator=(const Progress &) = delete;

    void setCount(quint64 messages) { count.store(messages, std::memory_order_relaxed); }
    void countOne() { setCount(counted() + 1); }

    /// What the one that lives, or the one that went last, has counted. Other threads may ask as
    /// long as the one that lives stays.
    static quint64 lastCount() { return current ? current->counted() : countAtEnd; }

private:
    quint64 counted() const { return count.load(std::memory_order_relaxed); }
    void print(const char *lineEnd) const;
    QString timeLeft(double seconds) const;

    static const Progress *current;
    static quint64 countAtEnd;

    const QString subject;
    const Part part;
    const bool active;
    std::atomic<quint64> count{0}; // of the thread that shows it, and others look
    QElapsedTimer elapsed;
    QTimer timer;
};
