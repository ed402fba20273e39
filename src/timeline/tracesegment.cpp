#include "tracesegment.h"

#include "changetracker.h"
#include "recordwalk.h"

#include <array>
#include <atomic>

namespace {

constexpr quint32 perStep = ChunkIndex::recordsPerStep;

quint64 nextId()
{
    static std::atomic<quint64> last{0};
    return ++last;
}

// Collects the positions in one step after the other.
class StepScan
{
public:
    StepScan(const TraceSegment::Scan &scan, const TraceSegment::TakeStep &take)
        : scan(scan), take(take)
    {
        context.notes = &scan.notes;
    }

    void begin(quint32 step)
    {
        current = step;
        position = step * perStep;
        found = 0;
    }

    template <typename View> void look(const View &view)
    {
        const quint32 at = position++;
        if (at < scan.begin || at >= scan.end)
            return;
        if (scan.changes)
            context.isChanged = scan.changes->isChanged(view);
        if (scan.filter.matches(view, context))
            positions[std::size_t(found++)] = quint16(at % perStep);
    }

    bool end() { return take(current, positions.data(), found); }

private:
    const TraceSegment::Scan &scan;
    const TraceSegment::TakeStep &take;
    FrameFilter::Context context;
    quint32 current = 0;
    quint32 position = 0;
    int found = 0;
    std::array<quint16, perStep> positions;
};

// Where there are too many keys to add up, the last step is taken to be like those before it.
std::vector<quint32> totalsOf(const ChunkIndex &index)
{
    const auto perStep = std::size_t(index.countsPerStep());
    std::vector<quint32> totals(perStep);
    std::array<std::size_t, 256> places{};
    for (std::size_t i = 0; i < index.lines.size(); ++i)
        places[index.lines[i]] = i;
    for (std::size_t i = 0; i < index.keys.size(); ++i) {
        const FrameKey frame = index.keys.frame(i);
        totals[places[frame.line()]] += index.keys.counts[i];
        totals.back() += frame.isError() ? index.keys.counts[i] : 0;
    }
    if (index.hasAllKeys || index.stepCount() < 2)
        return totals;
    const double growth =
        double(index.count) / double((index.stepCount() - 1) * ChunkIndex::recordsPerStep);
    for (std::size_t i = 0; i < perStep; ++i)
        totals[i] = quint32(index.countsBefore[index.countsBefore.size() - perStep + i] * growth);
    return totals;
}

quint32 firstStep(const TraceSegment::Scan &scan)
{
    return scan.begin / perStep;
}

quint32 endStep(const TraceSegment::Scan &scan)
{
    return scan.begin < scan.end ? (scan.end - 1) / perStep + 1 : firstStep(scan);
}

} // namespace

TraceSegment::TraceSegment(ChunkIndex index)
    : ownId(nextId()), ownIndex(std::move(index)), ownTotals(totalsOf(ownIndex))
{
}

ChunkSegment::ChunkSegment(std::shared_ptr<const ChunkBytes> bytes, ChunkIndex index)
    : TraceSegment(std::move(index)), bytes(std::move(bytes))
{
}

bool ChunkSegment::readSteps(const ChunkHandle &handle, quint32 first, quint32 end,
                             QByteArray &buffer) const
{
    const qint64 offset = index().steps[first].offset;
    // A record that is cut short goes to the end of the file, wherever that is.
    const qint64 size = index().endOfStep(end - 1) - offset;
    if (buffer.size() < size)
        buffer.resize(int(size));
    return handle.read(buffer.data(), offset, size);
}

// The bytes of a step must hold its records and nothing else; otherwise they are not those that
// the index is about.
template <typename Visit>
bool ChunkSegment::walkStep(quint32 step, const char *begin, const Visit &visit) const
{
    const qint64 size = index().endOfStep(step) - index().steps[step].offset;
    const bool isCut = index().hasCutRecord && step + 1 == index().stepCount();
    quint32 records = 0;
    const char *const end =
        walkRecords(begin, begin + size, index().hasLine(), [&](RecordView record) {
            ++records;
            visit(record);
            return true;
        });
    return end == begin + size && records == index().sizeOfStep(step) - (isCut ? 1 : 0);
}

bool ChunkSegment::decode(quint32 step, Messages &messages) const
{
    const auto handle = bytes->open();
    QByteArray buffer;
    if (!handle || !readSteps(*handle, step, step + 1, buffer))
        return false;
    messages.clear();
    messages.reserve(index().sizeOfStep(step));
    const bool isWhole = walkStep(step, buffer.constData(), [&](RecordView record) {
        messages.emplace_back();
        ChunkFormat::decodeRecord(record.bytes(), messages.back(), index().version);
    });
    if (!isWhole)
        return false;
    if (messages.size() == index().sizeOfStep(step))
        return true;
    return decodeCut(*handle, messages);
}

// The record that the end of the file cuts short. What is missing of it stays as it was in the one
// before.
bool ChunkSegment::decodeCut(const ChunkHandle &handle, Messages &messages) const
{
    CAN::CanRxMessage message;
    if (!messages.empty()) {
        message = messages.back();
    } else if (index().count > 1) {
        Messages before;
        if (!decode(index().stepCount() - 2, before))
            return false;
        message = before.back();
    }
    QByteArray rest(ChunkFormat::maxRecordSize, Qt::Uninitialized);
    rest.resize(int(handle.readSome(rest.data(), index().recordsEnd, rest.size())));
    ChunkFormat::Stream stream(rest);
    if (!ChunkFormat::readRecord(stream, message, index().version))
        return false;
    messages.push_back(message);
    return true;
}

bool ChunkSegment::scan(const Scan &scan, const TakeStep &take) const
{
    constexpr qint64 blockSize = 1024LL * 1024;
    const auto handle = bytes->open();
    if (!handle)
        return false;
    QByteArray buffer(int(blockSize), Qt::Uninitialized);
    StepScan steps(scan, take);
    const quint32 end = endStep(scan);
    for (quint32 first = firstStep(scan); first < end;) {
        quint32 last = first + 1;
        while (last < end && index().endOfStep(last) - index().steps[first].offset <= blockSize)
            ++last;
        if (!readSteps(*handle, first, last, buffer))
            return false;
        for (quint32 step = first; step < last; ++step) {
            const qint64 at = index().steps[step].offset - index().steps[first].offset;
            steps.begin(step);
            if (!walkStep(step, buffer.constData() + at,
                          [&](RecordView record) { steps.look(record); }))
                return false;
            if (index().hasCutRecord && step + 1 == index().stepCount()) {
                Messages messages;
                if (!decode(step, messages))
                    return false;
                steps.look(MessageView(messages.back()));
            }
            if (!steps.end())
                return true;
        }
        first = last;
    }
    return true;
}

TraceNotes::Marks ChunkSegment::marks() const
{
    if (index().notes == 0 && index().bookmarks == 0)
        return {};
    ChunkFormat::Maps maps = bytes->maps();
    return {std::move(maps.notes), std::move(maps.bookmarks)};
}

ListSegment::ListSegment(MessageList messages, ChunkIndex index, TraceNotes::Marks marks)
    : TraceSegment(std::move(index)), list(std::move(messages)), ownMarks(std::move(marks))
{
}

bool ListSegment::decode(quint32 step, Messages &messages) const
{
    messages.clear();
    messages.reserve(index().sizeOfStep(step));
    const int begin = int(step * perStep);
    for (int i = begin; i < begin + int(index().sizeOfStep(step)); ++i)
        messages.push_back(list.at(i));
    return true;
}

bool ListSegment::scan(const Scan &scan, const TakeStep &take) const
{
    StepScan steps(scan, take);
    for (quint32 step = firstStep(scan); step < endStep(scan); ++step) {
        steps.begin(step);
        const int begin = int(step * perStep);
        for (int i = begin; i < begin + int(index().sizeOfStep(step)); ++i)
            steps.look(MessageView(list.at(i)));
        if (!steps.end())
            break;
    }
    return true;
}
