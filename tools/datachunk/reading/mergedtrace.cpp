#include "mergedtrace.h"

#include "canframe.h"
#include "stopsignals.h"
#include "terminal.h"
#include "tracematcher.h"

#include <limits>

namespace {

using Result = TraceReading::Result;
using Take = std::function<bool(MessageBlock &)>;

// Asks a message at a time as the merged trace brings them.
class LateSelection
{
public:
    LateSelection(const Selection &selection, bool asksExpression)
        : selection(selection), matcher(selection.expression()), asksExpression(asksExpression)
    {
    }

    bool takes(const CAN::CanRxMessage &message, const QString &note)
    {
        const bool isTaken = !isDone() && (!asksExpression || matcher.takes(message, note))
            && selection.positions().contains(position);
        ++position;
        taken += isTaken ? 1 : 0;
        return isTaken;
    }
    bool isDone() const
    {
        return taken >= selection.most() || position > selection.positions().last();
    }

private:
    const Selection &selection;
    TraceMatcher matcher;
    const bool asksExpression;
    quint64 position = 0;
    quint64 taken = 0;
};

// The messages of an input that wait for their turn.
class Waiting
{
public:
    explicit Waiting(InputThread &input) : input(input), cursor(block) { }

    bool hasMore() const { return !cursor.isAtEnd(); }
    // Makes sure of a next message. False at the end of the input.
    bool refill()
    {
        if (hasMore())
            return true;
        cursor.reset();
        block.clear();
        return input.next(block);
    }
    qint64 time() const { return CAN::timeOf(cursor.message()); }
    Result result() const { return input.result(); }
    QString subject() const { return input.subject(); }

    void moveTo(MessageBlock &merged, LateSelection &late)
    {
        if (late.takes(cursor.message(), cursor.note())) {
            merged.add(cursor.message());
            merged.addNote(cursor.note());
            merged.addBookmark(cursor.bookmark());
        }
        cursor.moveOn();
    }

private:
    InputThread &input;
    MessageBlock block;
    BlockCursor cursor;
};

using AllWaiting = std::vector<std::unique_ptr<Waiting>>;

// Those that have ended go. The worse of their results and \a result.
Result dropEnded(AllWaiting &all, Result result)
{
    for (auto next = all.begin(); next != all.end();) {
        if ((*next)->refill()) {
            ++next;
            continue;
        }
        result = worse(result, (*next)->result());
        next = all.erase(next);
    }
    return result;
}

// The least time comes first, and of equal ones that of the earlier input.
std::size_t indexOfNext(const AllWaiting &all, std::size_t except)
{
    std::size_t least = all.size();
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (i != except && (least == all.size() || all[i]->time() < all[least]->time()))
            least = i;
    }
    return least;
}

// Moves messages of the input that is next, as long as it stays so and has any at hand.
void moveRun(const AllWaiting &all, MessageBlock &merged, LateSelection &late,
             std::size_t blockSize)
{
    const std::size_t next = indexOfNext(all, all.size());
    const std::size_t other = indexOfNext(all, next);
    const qint64 last = other == all.size() ? std::numeric_limits<qint64>::max()
                                            : all[other]->time() - (other < next ? 1 : 0);
    Waiting &input = *all[next];
    do {
        input.moveTo(merged, late);
    } while (input.hasMore() && input.time() <= last && !merged.isFull(blockSize)
             && !late.isDone());
}

Result merge(AllWaiting &all, LateSelection &late, std::size_t blockSize, const Take &take)
{
    MessageBlock merged;
    Result result = Result::Complete;
    while (!all.empty() && result != Result::Failed && !late.isDone()) {
        moveRun(all, merged, late, blockSize);
        if (merged.isFull(blockSize)) {
            QCoreApplication::processEvents();
            if (!take(merged))
                return result;
            merged.clear();
        }
        result = dropEnded(all, result);
    }
    if (result != Result::Failed && !merged.messages.empty())
        take(merged);
    return result;
}

Result handOn(InputThread &input, const Take &take)
{
    MessageBlock block;
    while (input.next(block)) {
        QCoreApplication::processEvents();
        if (!take(block))
            return Result::Complete;
    }
    return input.result();
}

// Times above this are seconds since 1970: it is in the year 1973.
bool countsFrom1970(qint64 time)
{
    constexpr qint64 leastSinceThen = Q_INT64_C(100000000000000);
    return time >= leastSinceThen;
}

void tellTimeBases(const AllWaiting &all)
{
    const Waiting *since1970 = nullptr;
    const Waiting *other = nullptr;
    for (const auto &input : all)
        (countsFrom1970(input->time()) ? since1970 : other) = input.get();
    if (since1970 && other)
        printError(other->subject(),
                   Cli::tr("Its times do not count from 1970, as those of %1 do, so that the order "
                           "of both means little.")
                       .arg(since1970->subject()));
}

} // namespace

MergedTrace::MergedTrace(std::vector<TraceInput *> inputs, const Selection &selection)
    : inputs(std::move(inputs)), selection(selection)
{
}

QString MergedTrace::subject() const
{
    return inputs.size() == 1 ? inputs.front()->subject() : Cli::tr("%1 paths").arg(inputs.size());
}

double MergedTrace::part() const
{
    double sum = 0;
    for (const TraceInput *input : inputs) {
        if (input->part() < 0)
            return -1;
        sum += input->part();
    }
    return sum / double(inputs.size());
}

Result MergedTrace::forEachBlock(const Take &take)
{
    constexpr std::size_t mostInBlock = 1024;
    constexpr std::size_t mostTogether = std::size_t(64) * 1024;
    const bool isAlone = inputs.size() == 1;
    const bool hasPositions = !selection.positions().isAll();
    const Selection early = isAlone ? selection
        : hasPositions              ? Selection()
                                    : selection.withoutPositions();
    const std::size_t blockSize = std::min(mostInBlock, mostTogether / inputs.size());
    std::vector<std::unique_ptr<InputThread>> threads;
    for (TraceInput *input : inputs) {
        threads.push_back(std::make_unique<InputThread>(*input, early, blockSize));
        if (threads.back()->start())
            continue;
        printError(input->subject(), Cli::tr("The system has no thread left for this trace."));
        return Result::Failed;
    }
    if (isAlone)
        return handOn(*threads.front(), take);
    AllWaiting all;
    for (const auto &thread : threads)
        all.push_back(std::make_unique<Waiting>(*thread));
    const Result begun = dropEnded(all, Result::Complete);
    if (!toldTimeBases)
        tellTimeBases(all);
    toldTimeBases = true;
    LateSelection late(selection, hasPositions);
    return begun == Result::Failed ? begun : worse(begun, merge(all, late, blockSize, take));
}
