#include "commands.h"
#include "messageprinter.h"
#include "options.h"
#include "stopsignals.h"
#include "terminal.h"
#include "tracefilter.h"
#include "traceinput.h"
#include "tracematcher.h"

#include <deque>
#include <limits>

namespace {

using Result = TraceReading::Result;

constexpr quint64 unlimited = std::numeric_limits<qint64>::max();
constexpr quint64 mostContext = 100000; // that of a text waits in memory

struct Request
{
    TraceExpression expression;
    quint64 from = 0;
    quint64 first = unlimited;
    quint64 before = 0;
    quint64 after = 0;
    bool counts = false;
    bool asJson = false;

    bool hasContext() const { return before > 0 || after > 0; }
};

// Shows where a text is no expression.
int expressionError(QString text, const TraceExpression::Error &error)
{
    for (QChar &c : text) {
        if (!c.isPrint())
            c = QLatin1Char(' ');
    }
    return usageError(
        Cli::tr("The filter is wrong in column %1: %2").arg(error.column).arg(error.text)
        + QLatin1Char('\n') + text + QLatin1Char('\n') + QString(error.column - 1, QLatin1Char(' '))
        + QLatin1Char('^'));
}

bool readRequest(const QCommandLineParser &parser, const QString &text, Request &request)
{
    const auto number = [&parser](const char *name, quint64 most, quint64 &value) {
        return numberOption(parser, QLatin1String(name), 0, most, value, value);
    };
    if (!number("from", unlimited, request.from) || !number("first", unlimited, request.first)
        || !number("before", mostContext, request.before)
        || !number("after", mostContext, request.after))
        return false;
    request.counts = parser.isSet(QStringLiteral("count"));
    request.asJson = parser.isSet(QStringLiteral("json"));
    TraceExpression::Error error;
    const auto expression = TraceExpression::parse(text, &error);
    if (expression)
        request.expression = *expression;
    else
        expressionError(text, error);
    return expression.has_value();
}

// Prints what is found and what stands around it, each message once. Positions are those of all
// inputs.
class Output
{
public:
    explicit Output(const Request &request)
        : request(request), printer(request.asJson ? MessagePrinter::Json : MessagePrinter::Text)
    {
    }

    bool isFull() const { return found >= request.first; }
    quint64 count() const { return found; }
    void addCount(quint64 messages) { found += std::min(messages, request.first - found); }
    /// The first position that is not printed, and the end of what stands behind the last hit.
    quint64 next() const { return nextPosition; }
    quint64 contextEnd() const { return endOfContext; }

    bool print(const CAN::CanRxMessage &message, const QString &note, quint64 position, bool isHit)
    {
        const bool isApart = hasPrinted && position != nextPosition;
        if (isApart && request.hasContext() && !request.asJson && !printer.printPart())
            return false;
        hasPrinted = true;
        nextPosition = position + 1;
        if (isHit) {
            ++found;
            endOfContext = nextPosition + request.after;
        }
        const FoundPlace place{position, !isHit};
        const bool showsPlace = request.asJson || request.hasContext();
        return printer.print(message, note, showsPlace ? &place : nullptr);
    }
    void flush() { printer.flush(); }

private:
    const Request &request;
    MessagePrinter printer;
    quint64 found = 0;
    quint64 nextPosition = 0;
    quint64 endOfContext = 0;
    bool hasPrinted = false;
};

// Looks through a trace from front to back.
class StreamSearch
{
public:
    StreamSearch(const Request &request, quint64 begin, Output &output)
        : request(request), begin(begin), output(output), matcher(request.expression)
    {
    }

    Result run(TraceInput &input)
    {
        return input.forEachMessage(
            0, [this](quint64 at, const CAN::CanRxMessage &message, const QString &note) {
                end = at + 1;
                return take(begin + at, message, note);
            });
    }
    quint64 count() const { return end; }

private:
    struct Waiting
    {
        CAN::CanRxMessage message;
        QString note;
    };

    // False when nothing more is wanted.
    bool take(quint64 position, const CAN::CanRxMessage &message, const QString &note)
    {
        const bool isTaken = matcher.takes(message, note) && position >= request.from;
        const bool isHit = isTaken && !output.isFull();
        if (request.counts) {
            output.addCount(isHit ? 1 : 0);
            return !output.isFull();
        }
        if (isHit)
            return printWaiting(position) && output.print(message, note, position, true)
                && goesOn();
        if (position < output.contextEnd() && output.count() > 0)
            return output.print(message, note, position, false) && goesOn();
        if (request.before > 0) {
            waiting.push_back({message, note});
            if (waiting.size() > request.before)
                waiting.pop_front();
        }
        return goesOn();
    }
    bool goesOn() const { return !output.isFull() || output.next() < output.contextEnd(); }

    bool printWaiting(quint64 end)
    {
        quint64 position = end - waiting.size();
        for (const Waiting &item : waiting) {
            if (!output.print(item.message, item.note, position++, false))
                return false;
        }
        waiting.clear();
        return true;
    }

    const Request &request;
    const quint64 begin;
    Output &output;
    TraceMatcher matcher;
    std::deque<Waiting> waiting;
    quint64 end = 0;
};

// Looks where the index of a timeline leads to.
class TimelineSearch
{
public:
    TimelineSearch(const Request &request, quint64 begin, Output &output)
        : request(request), begin(begin), output(output)
    {
    }

    Result run(const TraceInput &input)
    {
        timeline = input.timeline();
        if (request.counts)
            count();
        else
            print();
        return interrupted(input.subject()) ? Result::Failed : tellGone(input.subject(), gone);
    }

private:
    static bool goesOn()
    {
        QCoreApplication::processEvents();
        return !StopSignals::received();
    }
    quint64 from() const { return request.from > begin ? request.from - begin : 0; }

    void count()
    {
        const TraceFilter filter = timeline->filter(request.expression);
        if (!filter.wait(goesOn))
            return;
        output.addCount(filter.count() - (from() > 0 ? filter.countBefore(from()) : 0));
        gone = filter.messagesGone();
    }

    void print()
    {
        gone += timeline->forEachFound(
            request.expression, from(), timeline->count(), [this](const QVector<quint64> &found) {
                const bool goesOnPrinting =
                    std::all_of(found.begin(), found.end(),
                                [this](quint64 position) { return take(position); });
                return goesOnPrinting && !output.isFull() && goesOn();
            });
        printContext(timeline->count());
    }

    bool take(quint64 position)
    {
        if (output.isFull() || !printContext(position))
            return false;
        const quint64 begins = position - std::min(position, request.before);
        for (quint64 at = std::max(begins, next()); at < position; ++at) {
            if (!printRow(at, false))
                return false;
        }
        return printRow(position, true);
    }

    // What stands behind the last hit, but not behind \a end.
    bool printContext(quint64 end)
    {
        const quint64 last = output.contextEnd() > begin ? output.contextEnd() - begin : 0;
        for (quint64 at = next(); at < std::min(end, last); ++at) {
            if (!printRow(at, false))
                return false;
        }
        return true;
    }

    quint64 next() const { return output.next() > begin ? output.next() - begin : 0; }

    bool printRow(quint64 at, bool isHit)
    {
        const TraceRow row = timeline->row(at);
        if (row.state != TraceRow::Known) {
            ++gone;
            return goesOn();
        }
        return output.print(row.message, row.note, begin + at, isHit);
    }

    const Request &request;
    const quint64 begin;
    Output &output;
    const TraceTimeline *timeline = nullptr;
    quint64 gone = 0;
};

Result find(TraceInput &input, const Request &request, quint64 &position, Output &output)
{
    const Result opened = input.open();
    if (opened == Result::Failed)
        return opened;
    if (input.timeline()) {
        TimelineSearch search(request, position, output);
        const Result result = search.run(input);
        position += input.timeline()->count();
        return worse(opened, result);
    }
    StreamSearch search(request, position, output);
    const Result result = search.run(input);
    position += search.count();
    return worse(opened, result);
}

} // namespace

QList<QCommandLineOption> findOptions()
{
    return traceOptions()
        + QList<QCommandLineOption>{
            {QStringLiteral("count"), Cli::tr("Print only how many messages are found.")},
            {QStringLiteral("from"), Cli::tr("Begin at this position; the first message is at 0."),
             QStringLiteral("N")},
            {QStringLiteral("first"), Cli::tr("Find at most N messages."), QStringLiteral("N")},
            {QStringLiteral("before"),
             Cli::tr("Print N messages in front of each as well. Lines then begin with the "
                     "position and \":\" for what is found, \"-\" for what stands around it."),
             QStringLiteral("N")},
            {QStringLiteral("after"), Cli::tr("Print N messages behind each as well."),
             QStringLiteral("N")},
            {QStringLiteral("json"),
             Cli::tr("Print each message as a JSON object with its position.")}};
}

int runFind(const QCommandLineParser &parser, const QStringList &arguments)
{
    TraceInputs inputs;
    Request request;
    if (!inputs.readOptions(parser) || !readRequest(parser, arguments.first(), request))
        return WrongUsage;
    if (!inputs.open(arguments.mid(1), TraceInputs::AsTimeline))
        return Failed;
    Output output(request);
    Result result = Result::Complete;
    quint64 position = 0;
    for (const auto &input : inputs.all()) {
        const bool isDone = output.isFull() && output.next() >= output.contextEnd();
        if (result != Result::Failed && !isDone)
            result = worse(result, find(*input, request, position, output));
    }
    if (request.counts && result != Result::Failed)
        writeLine(QString::number(output.count()));
    output.flush();
    return finishOutput() && result == Result::Complete && output.count() > 0 ? Succeeded : Failed;
}
