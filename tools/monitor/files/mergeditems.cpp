#include "mergeditems.h"

#include "canframe.h"

#include <QCoreApplication>

#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <system_error>
#include <thread>

namespace {

constexpr std::size_t blockSize = 512;
constexpr std::size_t mostBlocks = 4;
constexpr int itemsBetweenQuestions = 1000;

using Block = std::vector<TraceItem>;

struct Merging
{
    Q_DECLARE_TR_FUNCTIONS(Merging)
};

} // namespace

/// One of the traces, read in advance.
class MergedItems::Input
{
public:
    explicit Input(TraceItems &items) : items(items), thread([this] { read(); }) { }

    ~Input()
    {
        {
            const std::lock_guard<std::mutex> locker(mutex);
            isStopped = true;
        }
        changed.notify_all();
        thread.join();
    }

    Input(const Input &) = delete;
    Input &operator=(const Input &) = delete;

    // Waits for the next one; null at the end.
    const TraceItem *front()
    {
        if (at < current.size())
            return &current[at];
        std::unique_lock<std::mutex> locker(mutex);
        changed.wait(locker, [this] { return isEnded || !blocks.empty(); });
        if (blocks.empty())
            return nullptr;
        current = std::move(blocks.front());
        blocks.pop_front();
        at = 0;
        locker.unlock();
        changed.notify_all();
        return &current[at];
    }
    void pop() { ++at; }

    double part() const { return ownPart; }
    // Once it is at its end.
    bool isRead() const { return succeeded; }

private:
    void read()
    {
        Block block;
        succeeded = items.forEach(
            [&](const TraceItem &item) {
                block.push_back(item);
                return block.size() < blockSize || put(block);
            },
            [this](double part) {
                ownPart = part;
                const std::lock_guard<std::mutex> locker(mutex);
                return !isStopped;
            });
        if (!block.empty())
            put(block);
        const std::lock_guard<std::mutex> locker(mutex);
        isEnded = true;
        changed.notify_all();
    }

    bool put(Block &block)
    {
        std::unique_lock<std::mutex> locker(mutex);
        changed.wait(locker, [this] { return isStopped || blocks.size() < mostBlocks; });
        blocks.push_back(std::move(block));
        block = {};
        changed.notify_all();
        return !isStopped;
    }

    TraceItems &items;
    Block current;
    std::size_t at = 0;
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<Block> blocks;
    bool isStopped = false;
    bool isEnded = false;
    bool succeeded = false;
    std::atomic<double> ownPart{0};
    std::thread thread; // last: it uses the others
};

MergedItems::MergedItems(std::vector<std::unique_ptr<TraceItems>> inputs)
    : inputs(std::move(inputs))
{
}

MergedItems::~MergedItems() = default;

double MergedItems::partOf(const std::vector<std::unique_ptr<Input>> &all) const
{
    double sum = 0;
    for (const auto &input : all)
        sum += input->part();
    return sum / double(all.size());
}

void MergedItems::merge(const std::vector<std::unique_ptr<Input>> &all, const Take &take,
                        const GoesOn &goesOn)
{
    for (int count = 1;; ++count) {
        Input *next = nullptr;
        const TraceItem *earliest = nullptr;
        for (const auto &input : all) {
            const TraceItem *item = input->front();
            if (item
                && (!earliest || CAN::timeOf(item->message) < CAN::timeOf(earliest->message))) {
                earliest = item;
                next = input.get();
            }
        }
        if (!next || !take(*earliest))
            return;
        next->pop();
        if (count % itemsBetweenQuestions == 0 && !goesOn(partOf(all)))
            return;
    }
}

// Nothing where the system refuses a thread for one of them.
std::vector<std::unique_ptr<MergedItems::Input>> MergedItems::begin() const
{
    std::vector<std::unique_ptr<Input>> all;
    try {
        for (const auto &items : inputs)
            all.push_back(std::make_unique<Input>(*items));
    } catch (const std::system_error &) {
        all.clear();
    }
    return all;
}

bool MergedItems::forEach(const Take &take, const GoesOn &goesOn)
{
    bool areRead = false;
    {
        const std::vector<std::unique_ptr<Input>> all = begin();
        if (all.empty()) {
            ownProblems = QStringList(Merging::tr("The system has no thread left."));
            return false;
        }
        merge(all, take, goesOn);
        for (const auto &input : all)
            areRead = input->front() || input->isRead() || areRead;
    }
    ownProblems.clear();
    for (const auto &items : inputs)
        ownProblems += items->problems();
    return areRead;
}
